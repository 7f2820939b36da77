#pragma once

#include "platform/system/object.h"

#include <memory>

namespace vorn {

enum class TOperation { opInsert, opRemove };

/// The conditions of a component, as a set of bits.
enum TComponentState : unsigned {
    csLoading = 1u << 0,    ///< a form is being read; Loaded ends it
    csDesigning = 1u << 1,  ///< stands in a form designer
    csDestroying = 1u << 2, ///< on its way out, still whole
};

/// An object with an owner and a life that others can follow.
///
/// The owner frees its components. A component tells its owner, its owner's other components and whoever asked by
/// FreeNotification when it goes, while it is still whole. A class with state of its own that must be whole then calls
/// Destroying() first thing in its destructor. Components that go together with their owner tell the owner and those
/// who asked, not each other: one that must know in that case too asks by FreeNotification.
class TComponent : public TPersistent {
public:
    explicit TComponent(TComponent* owner = nullptr);
    /// Frees the owned components, last first.
    ~TComponent() override;

    TComponent* Owner() const { return owner_; }
    const String& Name() const;
    /// Raises EInvalidOperation if the owner has another component of this name (case aside).
    void SetName(StringView name);

    int ComponentCount() const;
    TComponent* Components(int index) const;
    /// By name, ignoring case; none if there is no such component.
    TComponent* FindComponent(StringView name) const;
    /// Takes the component over from its present owner. Raises EInvalidOperation if its name is taken here.
    void InsertComponent(TComponent* component);
    /// Lets the component go without freeing it. The last component takes its place in the order.
    void RemoveComponent(TComponent* component);

    bool InState(TComponentState flag) const { return (state_ & flag) != 0; }
    /// Applies to this component and all it owns. For form readers and designers.
    void SetLoading(bool loading);
    void SetDesigning(bool designing);
    /// Ends loading; a form reader calls it once all properties are set.
    virtual void Loaded();

    /// Asks this component to tell `other` when it goes; if `other` goes first, that is forgotten. Asking twice is
    /// asking once.
    void FreeNotification(TComponent* other);
    void RemoveFreeNotification(TComponent* other);

    /// Announces the end: sets csDestroying on this and all it owns, and sends opRemove to all who asked, the owner and
    /// the owner's other components. Once only.
    void Destroying();

    std::intptr_t Tag() const { return tag_; }
    void SetTag(std::intptr_t tag) { tag_ = tag; }

protected:
    /// `component` has come or is going. An override calls its base first.
    /// The base passes the removal on to the components that this one owns.
    virtual void Notification(TComponent* component, TOperation operation);
    /// Whether the owner's other components hear when this one goes. A class of which one owner has very many answers
    /// false, so that freeing n of them takes n steps; those who care ask by FreeNotification.
    virtual bool NotifiesSiblings() const;

private:
    struct NameAndFriends; // rare state, so that a thousand labels stay small
    struct Owned;

    NameAndFriends& Rare();
    void Adopt(TComponent* component);
    void Disown(TComponent* component);
    void MarkState(unsigned flag, bool on);
    void NotifyOwned(TComponent* component, TOperation operation);
    std::size_t FriendIndex(const TComponent* other) const;
    void DropFriend(std::size_t index);
    void SendFreeNotifications();

    TComponent* owner_ = nullptr;
    std::unique_ptr<Owned> owned_;
    std::unique_ptr<NameAndFriends> rare_;
    std::intptr_t tag_ = 0;
    std::size_t ownerIndex_ = 0; // place in the owner's list: removal doesn't search
    unsigned state_ = 0;
};

} // namespace vorn
