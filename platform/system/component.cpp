#include "platform/system/component.h"

#include "platform/system/exceptions.h"
#include "platform/system/lists.h"
#include "platform/system/strings.h"

#include <unordered_map>
#include <vector>

namespace vorn {

namespace {

// Beside the public TComponentState bits: the end has been announced. An owner marks its components as csDestroying
// early, but each of them still makes its own announcement when its turn comes.
constexpr unsigned announced = 1u << 31;

} // namespace

/// A free notification stands in the lists of both components, each entry with the place of its counterpart, so that
/// dropping one costs a search in the shorter list only: an image list that n labels follow loses them in linear time.
struct TComponent::NameAndFriends {
    struct Friend {
        TComponent* other;
        std::size_t mirror; // index of the counterpart in other's list
        bool tell;          // other asked to be told
    };

    String name;
    std::vector<Friend> friends;
};

/// What a component owns. Names are unique and found without a walk: a form of n components is read in linear time.
struct TComponent::Owned {
    std::vector<TComponent*> list;
    std::unordered_map<String, TComponent*> byName; // folded
};

TComponent::TComponent(TComponent* owner)
{
    if (owner) {
        owner->Adopt(this);
        // The owner's other components don't hear of it: there is nothing of the new one to look at yet.
        owner->Notification(this, TOperation::opInsert);
    }
}

TComponent::~TComponent()
{
    Destroying();
    if (owned_)
        while (!owned_->list.empty())
            delete owned_->list.back();
    SendFreeNotifications(); // for those who asked after the announcement
    if (owner_)
        owner_->Disown(this);
}

const String& TComponent::Name() const
{
    static const String none;
    return rare_ ? rare_->name : none;
}

void TComponent::SetName(StringView name)
{
    if (name == Name())
        return;
    NameAndFriends& rare = Rare();
    String taken(name); // which may lie in the name that it takes the place of
    if (owner_) {
        auto& byName = owner_->owned_->byName;
        const String folded = FoldCase(taken);
        const String before = FoldCase(rare.name);
        if (!folded.empty() && byName.try_emplace(folded, this).first->second != this)
            throw EInvalidOperation(u"A component named \"" + taken + u"\" already exists");
        if (before != folded)
            byName.erase(before);
    }
    rare.name = std::move(taken);
}

int TComponent::ComponentCount() const
{
    return owned_ ? static_cast<int>(owned_->list.size()) : 0;
}

TComponent* TComponent::Components(int index) const
{
    if (index < 0 || index >= ComponentCount())
        RaiseListIndex(index, ComponentCount());
    return owned_->list[static_cast<std::size_t>(index)];
}

TComponent* TComponent::FindComponent(StringView name) const
{
    if (!owned_ || name.empty())
        return nullptr;
    const auto place = owned_->byName.find(FoldCase(name));
    return place == owned_->byName.end() ? nullptr : place->second;
}

void TComponent::InsertComponent(TComponent* component)
{
    if (component->owner_ == this)
        return;
    for (const TComponent* up = this; up; up = up->owner_)
        if (up == component)
            throw EInvalidOperation(u"A component can't own itself");
    if (FindComponent(component->Name()))
        throw EInvalidOperation(u"A component named \"" + component->Name() + u"\" already exists");
    if (component->owner_)
        component->owner_->RemoveComponent(component);
    Adopt(component);
    Notification(component, TOperation::opInsert);
    NotifyOwned(component, TOperation::opInsert);
}

void TComponent::RemoveComponent(TComponent* component)
{
    if (component->owner_ != this)
        return;
    Notification(component, TOperation::opRemove);
    if (component->owner_ == this)
        Disown(component);
}

void TComponent::Adopt(TComponent* component)
{
    if (!owned_)
        owned_ = std::make_unique<Owned>();
    if (!component->Name().empty())
        owned_->byName[FoldCase(component->Name())] = component;
    component->ownerIndex_ = owned_->list.size();
    owned_->list.push_back(component);
    component->owner_ = this;
    if (InState(csDesigning))
        component->SetDesigning(true);
    if (InState(csDestroying))
        component->MarkState(csDestroying, true);
}

void TComponent::Disown(TComponent* component)
{
    if (!component->Name().empty())
        owned_->byName.erase(FoldCase(component->Name()));
    std::vector<TComponent*>& list = owned_->list;
    TComponent* const last = list.back();
    list[component->ownerIndex_] = last;
    last->ownerIndex_ = component->ownerIndex_;
    list.pop_back();
    component->owner_ = nullptr;
}

void TComponent::MarkState(unsigned flag, bool on)
{
    state_ = on ? state_ | flag : state_ & ~flag;
    if (owned_)
        for (TComponent* component : owned_->list)
            component->MarkState(flag, on);
}

void TComponent::SetLoading(bool loading)
{
    MarkState(csLoading, loading);
}

void TComponent::SetDesigning(bool designing)
{
    MarkState(csDesigning, designing);
}

void TComponent::Loaded()
{
    state_ &= ~static_cast<unsigned>(csLoading);
}

TComponent::NameAndFriends& TComponent::Rare()
{
    if (!rare_)
        rare_ = std::make_unique<NameAndFriends>();
    return *rare_;
}

std::size_t TComponent::FriendIndex(const TComponent* other) const
{
    constexpr std::size_t none = static_cast<std::size_t>(-1);
    if (!rare_ || !other->rare_)
        return none;
    const auto& mine = rare_->friends;
    const auto& theirs = other->rare_->friends;
    if (mine.size() <= theirs.size()) {
        for (std::size_t i = mine.size(); i-- > 0;)
            if (mine[i].other == other)
                return i;
    } else {
        for (std::size_t i = theirs.size(); i-- > 0;)
            if (theirs[i].other == this)
                return theirs[i].mirror;
    }
    return none;
}

void TComponent::DropFriend(std::size_t index)
{
    const auto drop = [](std::vector<NameAndFriends::Friend>& list, std::size_t at) {
        if (at + 1 < list.size()) {
            list[at] = list.back();
            list[at].other->rare_->friends[list[at].mirror].mirror = at;
        }
        list.pop_back();
    };
    const NameAndFriends::Friend leaving = rare_->friends[index];
    drop(leaving.other->rare_->friends, leaving.mirror);
    drop(rare_->friends, index);
}

void TComponent::FreeNotification(TComponent* other)
{
    if (!other || other == this)
        return;
    auto& mine = Rare().friends;
    auto& theirs = other->Rare().friends;
    const std::size_t known = FriendIndex(other);
    if (known < mine.size()) {
        mine[known].tell = true;
        return;
    }
    mine.push_back({other, theirs.size(), true});
    theirs.push_back({this, mine.size() - 1, false});
}

void TComponent::RemoveFreeNotification(TComponent* other)
{
    const std::size_t known = other ? FriendIndex(other) : static_cast<std::size_t>(-1);
    if (!rare_ || known >= rare_->friends.size())
        return;
    NameAndFriends::Friend& link = rare_->friends[known];
    link.tell = false;
    if (!other->rare_->friends[link.mirror].tell)
        DropFriend(known);
}

void TComponent::SendFreeNotifications()
{
    while (rare_ && !rare_->friends.empty()) {
        const NameAndFriends::Friend link = rare_->friends.back();
        DropFriend(rare_->friends.size() - 1);
        if (link.tell)
            link.other->Notification(this, TOperation::opRemove);
    }
}

void TComponent::Destroying()
{
    if (state_ & announced)
        return;
    state_ |= announced;
    if (!InState(csDestroying))
        MarkState(csDestroying, true);
    SendFreeNotifications();
    if (owner_)
        owner_->Notification(this, TOperation::opRemove);
}

bool TComponent::NotifiesSiblings() const
{
    return true;
}

void TComponent::NotifyOwned(TComponent* component, TOperation operation)
{
    // Backwards and with a bound that is looked at each time: components may go meanwhile, and the last one then
    // takes the place of the one that went.
    for (std::size_t i = owned_ ? owned_->list.size() : 0; i-- > 0;)
        if (i < owned_->list.size() && owned_->list[i] != component)
            owned_->list[i]->Notification(component, operation);
}

void TComponent::Notification(TComponent* component, TOperation operation)
{
    if (operation != TOperation::opRemove)
        return;
    const std::size_t known = FriendIndex(component);
    if (rare_ && known < rare_->friends.size())
        DropFriend(known);
    // Components that go with their owner have nobody left to tell but those who asked.
    if (!InState(csDestroying) && component->NotifiesSiblings())
        NotifyOwned(component, operation);
}

} // namespace vorn
