#pragma once

#include "platform/system/component.h"
#include "platform/system/exceptions.h"

#include <deque>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vorn {

/// Raises EListError that names the index and the count.
[[noreturn]] void RaiseListIndex(int index, int count);

/// An ordered list of objects that it may own. Owned objects are freed with their place in the list.
template <typename T>
class TObjectList : public TObject {
public:
    explicit TObjectList(bool ownsObjects = true) : owns_(ownsObjects) {}
    ~TObjectList() override { Clear(); }

    int Count() const { return static_cast<int>(items_.size()); }
    T* Items(int index) const
    {
        if (index < 0 || index >= Count())
            RaiseListIndex(index, Count());
        return items_[static_cast<std::size_t>(index)];
    }
    T* operator[](int index) const { return Items(index); }
    /// The list takes the object over if it owns its items.
    int Add(T* item)
    {
        items_.push_back(item);
        return Count() - 1;
    }
    int IndexOf(const T* item) const
    {
        for (int i = 0; i < Count(); ++i)
            if (items_[static_cast<std::size_t>(i)] == item)
                return i;
        return -1;
    }
    /// Takes the item out without freeing it; none if it isn't in the list.
    T* Extract(T* item)
    {
        const int index = IndexOf(item);
        if (index < 0)
            return nullptr;
        items_.erase(items_.begin() + index);
        return item;
    }
    /// Frees the items last first. The list is empty before the first one goes, so a freed item that looks at it sees
    /// nothing dangling.
    void Clear()
    {
        std::vector<T*> leaving;
        leaving.swap(items_);
        if (owns_)
            for (auto item = leaving.rbegin(); item != leaving.rend(); ++item)
                delete *item;
    }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    std::vector<T*> items_;
    bool owns_;
};

/// A list of components that drops each one by itself when it is freed.
class TComponentList : public TComponent {
public:
    /// With `ownsObjects` the list frees its items when it goes or is cleared.
    explicit TComponentList(bool ownsObjects = true);
    ~TComponentList() override;

    int Count() const { return static_cast<int>(items_.size()); }
    TComponent* Items(int index) const;
    int Add(TComponent* item);
    /// -1 if it isn't in the list.
    int IndexOf(const TComponent* item) const;
    /// Takes the item out without freeing it; none if it isn't there.
    TComponent* Extract(TComponent* item);
    void Clear();

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    void Forget(TComponent* item);

    std::deque<TComponent*> items_;
    std::unordered_map<const TComponent*, int> times_; // how often each is in the list
    bool owns_;
};

} // namespace vorn
