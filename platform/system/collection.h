#pragma once

#include "platform/system/object.h"

#include <vector>

namespace vorn {

class TCollection;

/// One item of a collection. Made into a collection, and gone from it when it is freed.
class TCollectionItem : public TPersistent {
public:
    explicit TCollectionItem(TCollection* collection);
    ~TCollectionItem() override;

    TCollection* Collection() const { return collection_; }
    /// Place in the collection; -1 without one.
    int Index() const;
    /// What a collection editor shows: the class name, unless a descendant knows better.
    virtual String GetDisplayName() const;
    String DisplayName() const { return GetDisplayName(); }

private:
    friend class TCollection;
    TCollection* collection_;
};

/// Items of one class in their order; it makes and frees them.
class TCollection : public TPersistent {
public:
    /// Makes an item into the collection.
    using TItemClass = TCollectionItem* (*)(TCollection* collection);
    template <typename Item>
    static TCollectionItem* MakeItem(TCollection* collection)
    {
        return new Item(collection);
    }

    explicit TCollection(TItemClass itemClass) : itemClass_(itemClass) {}
    /// Frees the items.
    ~TCollection() override;

    /// Makes a new last item. The collection owns it.
    TCollectionItem* Add();
    int Count() const { return static_cast<int>(items_.size()); }
    /// Raises EListError for an index outside the collection.
    TCollectionItem* Items(int index) const;
    /// Assigns `value` to the item that is there.
    void SetItem(int index, const TCollectionItem& value);
    /// Frees one item; those behind it move up.
    void Delete(int index);
    void Clear();
    /// Takes copies of another collection's items in the place of its own. When an item refuses, those before it
    /// have been taken.
    void Assign(const TPersistent& source) override;
    /// What the collection belongs to; none without one.
    virtual TPersistent* GetOwner() const { return nullptr; }

private:
    friend class TCollectionItem;
    TItemClass itemClass_;
    std::vector<TCollectionItem*> items_;
};

/// A collection that is part of an object, which frees it.
class TOwnedCollection : public TCollection {
public:
    TOwnedCollection(TPersistent* owner, TItemClass itemClass) : TCollection(itemClass), owner_(owner) {}
    TPersistent* GetOwner() const override { return owner_; }

private:
    TPersistent* owner_;
};

} // namespace vorn
