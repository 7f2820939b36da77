#include "platform/controls/label.h"
#include "platform/controls/scroll_box.h"
#include "tests/support/mouse.h"

#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QScrollBar>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

/// Every promise holds for a window on the screen and for one that isn't shown yet.
class ScrollBoxTest : public testing::TestWithParam<bool> {
protected:
    ScrollBoxTest()
    {
        box_.SetBounds(0, 0, 200, 100);
        child_->SetParent(&box_);
        area_ = static_cast<QAbstractScrollArea*>(box_.Widget());
        bar_ = area_->verticalScrollBar()->sizeHint().width();
        if (GetParam()) {
            area_->show();
            ProcessEvents();
        }
    }
    int Across() const { return area_->horizontalScrollBar()->maximum(); }
    int Down() const { return area_->verticalScrollBar()->maximum(); }

    TScrollBox box_{nullptr};
    TWinControl* child_ = new TWinControl(nullptr);
    QAbstractScrollArea* area_ = nullptr;
    int bar_ = 0;
};

} // namespace

TEST_P(ScrollBoxTest, RangesFollowTheChildren)
{
    child_->SetBounds(0, 0, 200, 100);
    EXPECT_EQ(box_.ClientRect(), (TRect{0, 0, 200, 100}));
    EXPECT_EQ(Across(), 0);
    child_->SetBounds(0, 0, 150, 400);
    EXPECT_EQ(box_.ClientRect(), (TRect{0, 0, 200 - bar_, 100}));
    EXPECT_EQ(Across(), 0);
    EXPECT_EQ(Down(), 300);
    child_->SetBounds(0, 0, 200, 400); // the one bar makes the other necessary
    EXPECT_EQ(box_.ClientRect(), (TRect{0, 0, 200 - bar_, 100 - bar_}));
    EXPECT_EQ(Across(), bar_);
    auto* label = new TLabel(nullptr);
    label->SetParent(&box_);
    label->SetAutoSize(false);
    label->SetBounds(900, 10, 100, 10);
    EXPECT_EQ(Across(), 1000 - (200 - bar_));
    delete label;
    child_->SetBounds(0, 0, 200, 100);
    EXPECT_EQ(box_.ClientRect(), (TRect{0, 0, 200, 100}));
    box_.SetBounds(0, 0, 100, 100);
    EXPECT_EQ(Across(), 200 - (100 - bar_));
}

TEST_P(ScrollBoxTest, ScrollingMovesTheContentNotTheChildren)
{
    child_->SetBounds(0, 0, 500, 400);
    box_.SetScrollPosition({30, 70});
    EXPECT_EQ(box_.ScrollPosition(), (TPoint{30, 70}));
    EXPECT_EQ(child_->Left(), 0);
    EXPECT_EQ(SurfaceOf(box_)->pos(), QPoint(-30, -70));
    child_->SetBounds(0, 0, 500, 300);
    EXPECT_EQ(box_.ScrollPosition(), (TPoint{30, 70}));
    box_.SetScrollPosition({-5, 100000});
    EXPECT_EQ(box_.ScrollPosition(), (TPoint{0, Down()}));
}

TEST_P(ScrollBoxTest, ScrollInViewScrollsAsLittleAsNeeded)
{
    child_->SetBounds(0, 0, 1000, 1000);
    auto* inner = new TLabel(nullptr);
    inner->SetParent(child_);
    inner->SetAutoSize(false);
    const int width = box_.ClientWidth(), height = box_.ClientHeight();
    struct Case {
        TPoint From;
        TRect Inner;
        TPoint To;
    };
    const Case cases[] = {
        {{0, 0}, Bounds(10, 10, 20, 20), {0, 0}},
        {{0, 0}, Bounds(500, 10, 20, 20), {520 - width, 0}},
        {{600, 700}, Bounds(500, 400, 20, 20), {500, 400}},
        {{600, 0}, Bounds(620, 300, 20, 20), {600, 320 - height}},
        {{5, 5}, Bounds(30, 40, 900, 900), {30, 40}},
    };
    for (const Case& c : cases) {
        box_.SetScrollPosition(c.From);
        inner->SetBounds(c.Inner.Left, c.Inner.Top, c.Inner.Width(), c.Inner.Height());
        box_.ScrollInView(inner);
        EXPECT_EQ(box_.ScrollPosition(), c.To) << c.Inner.Left << ", " << c.Inner.Top;
    }
    TLabel stranger(nullptr);
    box_.ScrollInView(&stranger);
    EXPECT_EQ(box_.ScrollPosition(), (TPoint{30, 40}));
}

INSTANTIATE_TEST_SUITE_P(ShownOrNot, ScrollBoxTest, testing::Bool());

} // namespace vorn::test
