#include "platform/controls/win_control.h"
#include "tests/controls/blocks.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace vorn::test {

namespace {

/// Finds by walking over all children, which is what every search promises to equal.
TControl* TopByWalk(const TWinControl& window, const TPoint& point)
{
    for (int i = window.ControlCount() - 1; i >= 0; --i) {
        TControl* control = window.Controls(i);
        if (control->Visible() && PtInRect(control->BoundsRect(), point))
            return control;
    }
    return nullptr;
}

class ChildIndexTest : public testing::Test {
protected:
    TRect AnyRect()
    {
        constexpr int lowest = std::numeric_limits<int>::min(), highest = std::numeric_limits<int>::max();
        switch (Number(0, 19)) {
        case 0: // covers many cells
            return Bounds(Number(-600, 600), Number(-600, 600), Number(600, 100'000), Number(600, 100'000));
        case 1: // absurd
            return {lowest, Number(-600, 600), lowest + Number(0, highest), 600 + Number(0, 5)};
        case 2:
            return {Number(-600, 600), Number(-600, 600), highest, highest};
        default:
            return Bounds(Number(-600, 600), Number(-600, 600), Number(0, 150), Number(0, 60));
        }
    }
    int Number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }
    Block* AnyChild() { return static_cast<Block*>(window_.Controls(Number(0, window_.ControlCount() - 1))); }

    void ChangeSomething()
    {
        const int what = Number(0, 9);
        if (what < 3 || window_.ControlCount() == 0) {
            new Block(window_, AnyRect(), clRed);
        } else if (what < 5) {
            delete AnyChild();
        } else if (what < 9) {
            const TRect r = AnyRect();
            AnyChild()->SetBounds(r.Left, r.Top, r.Width(), r.Height());
        } else {
            Block* child = AnyChild();
            child->SetVisible(!child->Visible());
        }
    }

    std::mt19937 random_{20240607};
    TWinControl window_{nullptr};
};

} // namespace

TEST_F(ChildIndexTest, FindsWhatAWalkOverAllFinds)
{
    for (int round = 0; round < 200; ++round) {
        for (int i = 0; i < 20; ++i)
            ChangeSomething();
        for (int i = 0; i < 20; ++i) {
            const TPoint point{Number(-700, 700), Number(-700, 700)};
            ASSERT_EQ(window_.ControlAt(point), TopByWalk(window_, point)) << point.X << ", " << point.Y;
        }
    }
}

TEST_F(ChildIndexTest, PaintsExactlyWhatTouchesThePart)
{
    for (int i = 0; i < 800; ++i)
        ChangeSomething();
    QImage image(700, 700, QImage::Format_RGB32);
    for (const TRect part : {TRect{10, 10, 30, 25}, TRect{127, 100, 129, 400}, TRect{0, 0, 700, 700}}) {
        for (int i = 0; i < window_.ControlCount(); ++i)
            static_cast<Block*>(window_.Controls(i))->Paints = 0;
        TCanvas canvas(image);
        window_.PaintPartTo(canvas, part);
        for (int i = 0; i < window_.ControlCount(); ++i) {
            const auto* child = static_cast<Block*>(window_.Controls(i));
            const bool touches = child->Visible() && !IntersectRect(child->BoundsRect(), part).IsEmpty();
            ASSERT_EQ(child->Paints, touches ? 1 : 0) << i;
        }
    }
}

} // namespace vorn::test
