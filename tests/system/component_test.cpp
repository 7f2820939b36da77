#include "platform/system/component.h"

#include "platform/system/exceptions.h"
#include "tests/support/strings_print.h"

#include <algorithm>
#include <memory>

namespace vorn {
namespace {

using test::MessageOf;

struct Notice {
    TComponent* About;
    TOperation Operation;
    bool Whole; // the leaving component could still be asked
    friend bool operator==(const Notice&, const Notice&) = default;
};

class Listener : public TComponent {
public:
    using TComponent::TComponent;
    ~Listener() override
    {
        Destroying();
        whole = false;
        if (onEnd)
            onEnd();
    }
    int Heard(const TComponent* about, TOperation operation) const
    {
        return static_cast<int>(std::count_if(notices.begin(), notices.end(),
            [&](const Notice& n) { return n.About == about && n.Operation == operation; }));
    }

    std::vector<Notice> notices;
    std::function<void(TComponent*)> onRemove;
    std::function<void()> onEnd;
    bool whole = true;

protected:
    void Notification(TComponent* component, TOperation operation) override
    {
        TComponent::Notification(component, operation);
        const auto* const other = dynamic_cast<Listener*>(component);
        notices.push_back({component, operation, other && other->whole});
        if (operation == TOperation::opRemove && onRemove)
            onRemove(component);
    }
};

class Quiet : public Listener {
public:
    using Listener::Listener;
    ~Quiet() override { Destroying(); }

protected:
    bool NotifiesSiblings() const override { return false; }
};

constexpr auto opInsert = TOperation::opInsert;
constexpr auto opRemove = TOperation::opRemove;

TEST(Component, OwnerFreesLastFirst)
{
    std::string order;
    {
        Listener owner;
        for (char c : {'a', 'b', 'c'})
            (new Listener(&owner))->onEnd = [&order, c] { order += c; };
        auto* const inner = new Listener(owner.Components(0));
        inner->onEnd = [&order] { order += 'i'; };
    }
    EXPECT_EQ(order, "cbai");
}

TEST(Component, LeavingIsHeardByOwnerAndSiblingsWhileWhole)
{
    Listener owner;
    Listener sibling(&owner);
    auto* const leaving = new Listener(&owner);
    EXPECT_EQ(owner.Heard(leaving, opInsert), 1);
    delete leaving;
    const Notice expected{leaving, opRemove, true};
    ASSERT_FALSE(owner.notices.empty());
    EXPECT_EQ(owner.notices.back(), expected);
    ASSERT_FALSE(sibling.notices.empty());
    EXPECT_EQ(sibling.notices.back(), expected);
    EXPECT_EQ(owner.ComponentCount(), 1);
}

TEST(Component, OneThatDoesNotNotifySiblingsTellsOwnerAndFriendsOnly)
{
    Listener owner;
    Listener sibling(&owner);
    Listener stranger;
    auto* const leaving = new Quiet(&owner);
    leaving->FreeNotification(&stranger);
    delete leaving;
    EXPECT_EQ(owner.Heard(leaving, opRemove), 1);
    EXPECT_EQ(sibling.Heard(leaving, opRemove), 0);
    EXPECT_EQ(stranger.Heard(leaving, opRemove), 1);
}

TEST(Component, FreeNotificationIsOnceAndForgottenByEitherEnd)
{
    auto target = std::make_unique<Listener>();
    Listener keeper;
    Listener former;
    auto gone = std::make_unique<Listener>();
    for (int i = 0; i < 2; ++i)
        target->FreeNotification(&keeper);
    target->FreeNotification(&former);
    target->FreeNotification(gone.get());
    target->RemoveFreeNotification(&former);
    gone.reset(); // must not be told later
    const TComponent* const address = target.get();
    target.reset();
    EXPECT_EQ(keeper.Heard(address, opRemove), 1);
    EXPECT_TRUE(former.notices.empty());
}

TEST(Component, OwnedOnesTellTheirFriendsWhenTheOwnerGoes)
{
    Listener outside;
    auto owner = std::make_unique<Listener>();
    auto* const first = new Listener(owner.get());
    auto* const second = new Listener(owner.get());
    second->FreeNotification(&outside);
    second->FreeNotification(first);
    int heardByFirst = 0;
    first->onRemove = [&](TComponent* c) { heardByFirst += c == second; };
    bool marked = false;
    second->onEnd = [&] { marked = first->InState(csDestroying); };
    owner.reset();
    EXPECT_EQ(outside.notices, (std::vector<Notice>{{second, opRemove, true}}));
    EXPECT_EQ(heardByFirst, 1);
    EXPECT_TRUE(marked);
}

TEST(Component, SiblingsMayBeFreedWhileARemovalIsAnnounced)
{
    Listener owner;
    auto* const a = new Listener(&owner);
    auto* const b = new Listener(&owner);
    auto* const c = new Listener(&owner);
    auto* const d = new Listener(&owner);
    c->onRemove = [&](TComponent* component) {
        if (component == b)
            delete d;
    };
    delete b;
    EXPECT_EQ(a->Heard(b, opRemove), 1);
    EXPECT_EQ(owner.ComponentCount(), 2);
}

TEST(Component, NamesAreUniqueInTheirOwner)
{
    Listener owner;
    auto* const first = new Listener(&owner);
    auto* const second = new Listener(&owner);
    first->SetName(u"Perché");
    EXPECT_EQ(owner.FindComponent(u"PERCHÉ"), first);
    const std::string message = MessageOf<EInvalidOperation>([&] { second->SetName(u"perché"); });
    EXPECT_NE(message.find("perché"), std::string::npos);
    EXPECT_EQ(second->Name(), u"");
    first->SetName(u"PERCHÉ"); // its own name in another spelling
    EXPECT_EQ(first->Name(), u"PERCHÉ");
    EXPECT_EQ(owner.FindComponent(u""), nullptr);

    // A name is free again once its component has another one, another owner, or is gone.
    Listener other;
    first->SetName(u"a");
    second->SetName(u"perché");
    EXPECT_EQ(owner.FindComponent(u"Perché"), second);
    second->SetName(first->Name() + u"b");
    other.InsertComponent(second);
    EXPECT_EQ(owner.FindComponent(u"ab"), nullptr);
    EXPECT_EQ(other.FindComponent(u"AB"), second);
    EXPECT_THROW((new Listener(&other))->SetName(u"Ab"), EInvalidOperation);
    delete second;
    EXPECT_EQ(other.FindComponent(u"ab"), nullptr);
    other.Components(0)->SetName(u"ab");
    EXPECT_THROW(owner.InsertComponent([&] {
        first->SetName(u"ab");
        return other.Components(0);
    }()),
        EInvalidOperation);
    EXPECT_EQ(owner.FindComponent(u"ab"), first);
}

} // namespace
} // namespace vorn
