#include "tests/controls/test_controls.h"
#include "tests/support/mouse.h"

#include <QtWidgets/QWidget>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

class LockableWindow : public TWinControl {
public:
    using TWinControl::FlushUpdates;
    using TWinControl::TWinControl;
    bool Locked = false;
    std::vector<TRect> Painted;

protected:
    bool UpdateLocked() const override { return Locked; }
    void PaintBackground(TCanvas& canvas, const TRect& part) override
    {
        Painted.push_back(part);
        TWinControl::PaintBackground(canvas, part);
    }
};

class PaintingTest : public testing::Test {
protected:
    PaintingTest()
    {
        window_.SetColor(clWhite);
        window_.SetBounds(0, 0, 200, 150);
        window_.Widget()->show();
        ProcessEvents();
        window_.Painted.clear();
    }
    std::vector<TRect> Painted()
    {
        ProcessEvents();
        return std::exchange(window_.Painted, {});
    }
    using Rects = std::vector<TRect>;

    LockableWindow window_{nullptr};
};

} // namespace

TEST_F(PaintingTest, ChildrenLieInOrderAndInsideTheirBounds)
{
    new Block(window_, Bounds(10, 10, 30, 20), clRed);
    auto* top = new Block(window_, Bounds(30, 20, 30, 20), clBlue);
    auto* hidden = new Block(window_, Bounds(0, 0, 200, 150), clBlack);
    hidden->SetVisible(false);
    const QImage image = PictureOf(window_, 200, 150);
    for (int y = 0; y < 150; ++y) {
        for (int x = 0; x < 200; ++x) {
            const bool blue = PtInRect(top->BoundsRect(), {x, y});
            const bool red = PtInRect(Bounds(10, 10, 30, 20), {x, y});
            const QRgb expected = blue ? qRgb(0, 0, 255) : red ? qRgb(255, 0, 0) : qRgb(255, 255, 255);
            ASSERT_EQ(image.pixel(x, y), expected) << x << ", " << y;
        }
    }
    EXPECT_EQ(hidden->Paints, 0);
}

TEST_F(PaintingTest, TheScreenShowsThePicture)
{
    new Block(window_, Bounds(10, 10, 30, 20), clRed);
    new Block(window_, Bounds(30, 20, 30, 20), clBlue);
    const QImage screen = window_.Widget()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(screen, PictureOf(window_, 200, 150));
}

TEST_F(PaintingTest, OnlyWhatChangedIsPainted)
{
    auto* block = new Block(window_, Bounds(10, 10, 30, 20), clRed);
    EXPECT_EQ(Painted(), (Rects{Bounds(10, 10, 30, 20)}));
    block->SetBounds(100, 100, 30, 20);
    EXPECT_EQ(Painted(), (Rects{Bounds(10, 10, 30, 20), Bounds(100, 100, 30, 20)}));
    block->SetBounds(100, 100, 30, 20);
    EXPECT_EQ(Painted(), Rects{});
    block->SetVisible(false);
    EXPECT_EQ(Painted(), (Rects{Bounds(100, 100, 30, 20)}));
    block->SetBounds(0, 0, 30, 20);
    block->SetColor(clBlue);
    EXPECT_EQ(Painted(), Rects{});
    block->SetVisible(true);
    Painted();
    delete block;
    EXPECT_EQ(Painted(), (Rects{Bounds(0, 0, 30, 20)}));
}

TEST_F(PaintingTest, UpdatePaintsAtOnce)
{
    auto* block = new Block(window_, Bounds(10, 10, 30, 20), clRed);
    ProcessEvents();
    const int before = block->Paints;
    block->Invalidate();
    EXPECT_EQ(block->Paints, before);
    block->Update();
    EXPECT_EQ(block->Paints, before + 1);
    block->Update();
    EXPECT_EQ(block->Paints, before + 1);
    block->Repaint();
    EXPECT_EQ(block->Paints, before + 2);
}

TEST_F(PaintingTest, ALockHoldsPaintingBack)
{
    auto* block = new Block(window_, Bounds(10, 10, 30, 20), clRed);
    Painted();
    window_.Locked = true;
    block->SetBounds(20, 10, 30, 20);
    block->Repaint();
    EXPECT_EQ(Painted(), Rects{});
    window_.Locked = false;
    window_.FlushUpdates();
    EXPECT_EQ(Painted(), (Rects{Bounds(10, 10, 40, 20)}));
    window_.FlushUpdates();
    EXPECT_EQ(Painted(), Rects{});
}

TEST_F(PaintingTest, ManyChangesBecomeOnePaint)
{
    for (int i = 0; i < 1000; ++i)
        new Block(window_, Bounds(i % 190, i / 10, 3, 3), clRed);
    EXPECT_EQ(Painted(), (Rects{Bounds(0, 0, 200, 150)}));
    new Block(window_, Bounds(1, 1, 3, 3), clRed);
    EXPECT_EQ(Painted(), (Rects{Bounds(1, 1, 3, 3)})); // and parts count again
}

TEST_F(PaintingTest, PaintingLeavesTheCallersCanvasAsItWas)
{
    new Block(window_, Bounds(10, 10, 30, 20), clRed);
    QImage image(200, 150, QImage::Format_RGB32);
    TCanvas canvas(image);
    canvas.Brush.Color = clBlue;
    canvas.Font.SetHeight(-30);
    window_.PaintTo(canvas);
    EXPECT_EQ(canvas.Brush.Color, clBlue);
    EXPECT_EQ(canvas.Font.Height(), -30);
    canvas.FillRect({0, 0, 200, 150}); // not clipped, not shifted
    canvas.End();
    EXPECT_EQ(image.pixel(0, 0), qRgb(0, 0, 255));
    EXPECT_EQ(image.pixel(199, 149), qRgb(0, 0, 255));
}

} // namespace vorn::test
