#include "platform/system/collection.h"

#include "platform/system/component.h"
#include "platform/system/exceptions.h"
#include "tests/support/strings_print.h"

namespace vorn {
namespace {

using test::MessageOf;
using test::Utf8;

class Entry : public TCollectionItem {
public:
    explicit Entry(TCollection* collection) : TCollectionItem(collection) { ++alive; }
    ~Entry() override { --alive; }
    int number = 0;
    static inline int alive = 0;

protected:
    void AssignTo(TPersistent& dest) const override
    {
        if (auto* entry = dynamic_cast<Entry*>(&dest))
            entry->number = number;
        else
            TCollectionItem::AssignTo(dest);
    }
};

class Other : public TCollectionItem {
public:
    using TCollectionItem::TCollectionItem;
};

class Collection : public testing::Test {
protected:
    ~Collection() override
    {
        list.Clear();
        EXPECT_EQ(Entry::alive, 0);
    }
    Entry& Add(int number)
    {
        auto& entry = dynamic_cast<Entry&>(*list.Add());
        entry.number = number;
        return entry;
    }
    std::vector<int> Numbers(const TCollection& collection) const
    {
        std::vector<int> numbers;
        for (int i = 0; i < collection.Count(); ++i)
            numbers.push_back(dynamic_cast<Entry&>(*collection.Items(i)).number);
        return numbers;
    }

    TComponent owner{nullptr};
    TOwnedCollection list{&owner, TCollection::MakeItem<Entry>};
};

TEST_F(Collection, MakesItsItemsAndFreesThem)
{
    EXPECT_EQ(list.GetOwner(), &owner);
    Entry& first = Add(1);
    Add(2);
    Entry& third = Add(3);
    EXPECT_EQ(first.Collection(), &list);
    EXPECT_EQ(third.Index(), 2);
    EXPECT_EQ(Utf8(third.DisplayName()), "Entry");
    list.Delete(1);
    EXPECT_EQ(third.Index(), 1);
    delete &first;
    EXPECT_EQ(Numbers(list), std::vector<int>{3});
    EXPECT_EQ(MessageOf<EListError>([&] { list.Items(1); }), MessageOf<EListError>([&] { list.Delete(1); }));
    EXPECT_THROW(list.SetItem(-1, third), EListError);
}

TEST_F(Collection, CopiesItemsByTheirOwnRules)
{
    Add(1);
    Add(2);
    Entry loose(nullptr);
    loose.number = 9;
    EXPECT_EQ(loose.Index(), -1);
    list.SetItem(0, loose);
    EXPECT_EQ(Numbers(list), (std::vector<int>{9, 2}));

    TCollection copy(TCollection::MakeItem<Entry>);
    copy.Add();
    copy.Assign(list);
    copy.Assign(copy);
    EXPECT_EQ(Numbers(copy), (std::vector<int>{9, 2}));
    EXPECT_EQ(copy.GetOwner(), nullptr);
    TCollection others(TCollection::MakeItem<Other>);
    EXPECT_EQ(MessageOf<EConvertError>([&] { others.Assign(copy); }), "Cannot assign a Entry to a Other");
    EXPECT_EQ(
        MessageOf<EConvertError>([&] { list.Assign(owner); }), "Cannot assign a TComponent to a TOwnedCollection");
}

} // namespace
} // namespace vorn
