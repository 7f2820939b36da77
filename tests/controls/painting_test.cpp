#include "platform/system/exceptions.h"
#include "tests/controls/blocks.h"
#include "tests/support/mouse.h"

#include <QtGui/QPainter>
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

TEST_F(PaintingTest, AFaultInAPaintLeavesThePainterAsItWas)
{
    class Faulty : public Block {
        void Paint() override { throw EInvalidOperation(u"can't be painted"); }

    public:
        explicit Faulty(TWinControl& parent) : Block(parent, Bounds(10, 10, 30, 20), clRed) {}
    };
    new Faulty(window_);
    QImage image = Paper(200, 150);
    QPainter painter(&image);
    for (const QRegion& clip : {QRegion(0, 0, 200, 150), QRegion(0, 0, 200, 20) + QRegion(0, 20, 50, 50)}) {
        painter.setClipRegion(clip);
        TCanvas canvas(painter);
        EXPECT_THROW(window_.PaintTo(canvas), EInvalidOperation);
        EXPECT_EQ(painter.clipRegion(), clip);
        EXPECT_TRUE(painter.transform().isIdentity());
    }
}

TEST_F(PaintingTest, ChildrenLieInOrderAndInsideTheirBoundsInPictureAndOnScreen)
{
    new Block(window_, Bounds(10, 10, 30, 20), clRed);
    auto* top = new Block(window_, Bounds(30, 20, 30, 20), clBlue);
    auto* hidden = new Block(window_, Bounds(0, 0, 200, 150), clBlack);
    hidden->SetVisible(false);
    const QImage image = PictureOf(window_);
    ExpectPixels(image, [&](int x, int y) {
        const bool red = PtInRect(Bounds(10, 10, 30, 20), {x, y});
        return Rgb(PtInRect(top->BoundsRect(), {x, y}) ? clBlue : red ? clRed : clWhite);
    });
    EXPECT_EQ(hidden->Paints, 0);
    EXPECT_EQ(window_.Widget()->grab().toImage().convertToFormat(QImage::Format_RGB32), image);
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

} // namespace vorn::test
