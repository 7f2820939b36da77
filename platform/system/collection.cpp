#include "platform/system/collection.h"

#include "platform/system/lists.h"

#include <algorithm>

namespace vorn {

TCollectionItem::TCollectionItem(TCollection* collection) : collection_(collection)
{
    if (collection_)
        collection_->items_.push_back(this);
}

TCollectionItem::~TCollectionItem()
{
    if (!collection_)
        return;
    std::vector<TCollectionItem*>& items = collection_->items_;
    // From the back: a collection that goes frees its last item first.
    const auto place = std::find(items.rbegin(), items.rend(), this);
    items.erase(std::next(place).base());
}

int TCollectionItem::Index() const
{
    if (!collection_)
        return -1;
    const std::vector<TCollectionItem*>& items = collection_->items_;
    return static_cast<int>(std::find(items.begin(), items.end(), this) - items.begin());
}

String TCollectionItem::GetDisplayName() const
{
    return String(ClassName());
}

TCollection::~TCollection()
{
    Clear();
}

TCollectionItem* TCollection::Add()
{
    return itemClass_(this);
}

TCollectionItem* TCollection::Items(int index) const
{
    if (index < 0 || index >= Count())
        RaiseListIndex(index, Count());
    return items_[static_cast<std::size_t>(index)];
}

void TCollection::SetItem(int index, const TCollectionItem& value)
{
    Items(index)->Assign(value);
}

void TCollection::Delete(int index)
{
    delete Items(index);
}

void TCollection::Clear()
{
    while (!items_.empty())
        delete items_.back();
}

void TCollection::Assign(const TPersistent& source)
{
    const auto* other = dynamic_cast<const TCollection*>(&source);
    if (!other) {
        TPersistent::Assign(source);
        return;
    }
    if (other == this)
        return;
    Clear();
    for (const TCollectionItem* item : other->items_)
        Add()->Assign(*item);
}

} // namespace vorn
