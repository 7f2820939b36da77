#include "platform/system/lists.h"

#include "platform/system/guards.h"
#include "tests/support/strings_print.h"

#include <limits>

namespace vorn {
namespace {

struct Counted : TComponent {
    explicit Counted(int& alive, TComponent* owner = nullptr) : TComponent(owner), alive_(alive) { ++alive_; }
    ~Counted() override
    {
        Destroying();
        --alive_;
        if (alsoFree)
            delete alsoFree;
    }
    TComponent* alsoFree = nullptr;

private:
    int& alive_;
};

TEST(ObjectList, OwnsOrNot)
{
    int alive = 0;
    {
        TObjectList<Counted> owning;
        owning.Add(new Counted(alive));
        owning.Add(new Counted(alive));
        Counted* const out = owning.Extract(owning[0]);
        EXPECT_EQ(owning.Count(), 1);
        TObjectList<Counted> loose(false);
        EXPECT_EQ(loose.Add(out), 0);
        loose.Clear();
        EXPECT_EQ(alive, 2);
        delete out;
        const std::string message = test::MessageOf<EListError>([&] { owning.Items(1); });
        EXPECT_NE(message.find("1 with 1"), std::string::npos) << message;
        EXPECT_THROW(owning.Items(-1), EListError);
    }
    EXPECT_EQ(alive, 0);
}

TEST(ComponentList, DropsWhatIsFreed)
{
    int alive = 0;
    TComponentList list(false);
    auto* const a = new Counted(alive);
    auto* const b = new Counted(alive);
    list.Add(a);
    list.Add(b);
    list.Add(a);
    delete a;
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list.IndexOf(b), 0);
    EXPECT_EQ(list.Extract(b), b);
    EXPECT_EQ(list.Extract(b), nullptr);
    delete b;
    EXPECT_EQ(alive, 0);
}

TEST(ComponentList, ClearsItemsThatTakeOthersWithThem)
{
    int alive = 0;
    {
        TComponentList list;
        auto* const first = new Counted(alive);
        auto* const last = new Counted(alive);
        list.Add(first);
        list.Add(new Counted(alive));
        list.Add(last);
        last->alsoFree = first;
        list.Clear();
        EXPECT_EQ(list.Count(), 0);
        EXPECT_EQ(alive, 0);
        list.Add(new Counted(alive));
    }
    EXPECT_EQ(alive, 0);
}

TEST(Guards, RestoreOnEveryWayOut)
{
    int value = 1;
    int ended = 0;
    try {
        const ScopedValue<int> guard(value, 2);
        const ScopeExit count([&] { ++ended; });
        EXPECT_EQ(value, 2);
        throw EInvalidOperation(u"x");
    } catch (const EInvalidOperation&) {
    }
    EXPECT_EQ(value, 1);
    EXPECT_EQ(ended, 1);
}

TEST(Rects, EmptyOnesAndOverflow)
{
    const TRect a{0, 0, 10, 10};
    EXPECT_EQ(UnionRect(a, {50, 50, 50, 90}), a);
    EXPECT_EQ(UnionRect({5, 5, 5, 5}, {}), TRect{});
    EXPECT_EQ(UnionRect(a, {5, -5, 20, 5}), (TRect{0, -5, 20, 10}));
    EXPECT_EQ(IntersectRect(a, {5, -5, 20, 5}), (TRect{5, 0, 10, 5}));
    EXPECT_EQ(IntersectRect(a, {10, 0, 20, 10}), TRect{});
    TRect far{0, 0, std::numeric_limits<int>::max(), 1};
    OffsetRect(far, 1, 0);
    EXPECT_EQ(far.Right, std::numeric_limits<int>::min());
    EXPECT_TRUE(PtInRect(a, {0, 9}));
    EXPECT_FALSE(PtInRect(a, {10, 9}));
}

TEST(Events, HandlerMayClearTheEvent)
{
    TNotifyEvent event;
    Raise(event, nullptr); // unassigned
    int calls = 0;
    event = [&event, &calls, keep = std::string(100, 'x')](TObject*) {
        event = nullptr;
        calls += static_cast<int>(keep.size());
    };
    Raise(event, nullptr);
    Raise(event, nullptr);
    EXPECT_EQ(calls, 100);
}

} // namespace
} // namespace vorn
