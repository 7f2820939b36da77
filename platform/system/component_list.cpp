#include "platform/system/lists.h"

#include <algorithm>

namespace vorn {

TComponentList::TComponentList(bool ownsObjects) : owns_(ownsObjects) {}

TComponentList::~TComponentList()
{
    Destroying();
    Clear();
}

TComponent* TComponentList::Items(int index) const
{
    if (index < 0 || index >= Count())
        RaiseListIndex(index, Count());
    return items_[static_cast<std::size_t>(index)];
}

int TComponentList::Add(TComponent* item)
{
    if (!item)
        throw EInvalidOperation(u"A component list takes no empty item");
    items_.push_back(item);
    if (++times_[item] == 1)
        item->FreeNotification(this);
    return Count() - 1;
}

int TComponentList::IndexOf(const TComponent* item) const
{
    const auto times = times_.find(item);
    if (times == times_.end())
        return -1;
    if (times->second == 1 && items_.back() == item) // lists are emptied from both ends
        return Count() - 1;
    return static_cast<int>(std::find(items_.begin(), items_.end(), item) - items_.begin());
}

TComponent* TComponentList::Extract(TComponent* item)
{
    const int index = IndexOf(item);
    if (index < 0)
        return nullptr;
    items_.erase(items_.begin() + index);
    Forget(item);
    return item;
}

/// `item` has left the list once.
void TComponentList::Forget(TComponent* item)
{
    const auto times = times_.find(item);
    if (--times->second > 0)
        return;
    times_.erase(times);
    item->RemoveFreeNotification(this);
}

void TComponentList::Clear()
{
    // One by one and off the list first: an item may take others of the list with it when it is freed.
    while (!items_.empty()) {
        TComponent* item = items_.back();
        items_.pop_back();
        Forget(item);
        if (owns_)
            delete item;
    }
}

void TComponentList::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == TOperation::opRemove && times_.erase(component) > 0)
        std::erase(items_, component);
}

} // namespace vorn
