#pragma once

#include "platform/controls/control.h"
#include "platform/system/collection.h"

namespace vorn {

/// A reference to a control in a TControlList.
class TControlItem : public TCollectionItem {
public:
    explicit TControlItem(TCollection* collection) : TCollectionItem(collection) {}

    /// None until it is set. The item doesn't hear when the control is freed.
    TControl* Control() const { return FControl; }
    /// Raises Exception for none, and for a control that another item of the list holds.
    void SetControl(TControl* Value);
    /// The control's name, or else its class name.
    String GetDisplayName() const override;

protected:
    void AssignTo(TPersistent& Dest) const override;

private:
    TControl* FControl = nullptr;
};

/// Controls for a published property of an application's own class; each stands in it once. The chart makes none.
class TControlList : public TOwnedCollection {
public:
    explicit TControlList(TComponent* AOwner) : TOwnedCollection(AOwner, MakeItem<TControlItem>) {}

    TControlItem* Add() { return static_cast<TControlItem*>(TOwnedCollection::Add()); }
    TControlItem* GetItem(int Index) const { return static_cast<TControlItem*>(TOwnedCollection::Items(Index)); }
    TControlItem* Items(int Index) const { return GetItem(Index); }
    void SetItem(int Index, const TControlItem& Value) { TOwnedCollection::SetItem(Index, Value); }
};

} // namespace vorn
