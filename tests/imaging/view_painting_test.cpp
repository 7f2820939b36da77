#include "tests/imaging/pictures.h"
#include "tests/support/mouse.h"

#include <QtWidgets/QWidget>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

class ViewPaintingTest : public testing::Test {
protected:
    ViewPaintingTest()
    {
        view_.SetBounds(0, 0, 24, 20);
        view_.SetBackground(0x030201);
        SetPicture(view_.Bitmap(), Numbered(8, 6));
    }
    /// What the screen promises: each pixel shows the picture's pixel at its chart point.
    void ExpectNearest()
    {
        const QImage shown = PictureOf(view_);
        const QImage picture = Numbered(8, 6);
        const TPoint place{view_.GetLayer(0).GetPosX(), view_.GetLayer(0).GetPosY()};
        ExpectPixels(shown, [&](int x, int y) {
            const QPoint source(view_.XScr2Bmp(x) - place.X, view_.YScr2Bmp(y) - place.Y);
            return picture.valid(source) ? picture.pixel(source) : Beside;
        });
    }

    static constexpr QRgb Beside = qRgb(1, 2, 3);
    TImageEnView view_{nullptr};
};

} // namespace

TEST_F(ViewPaintingTest, EveryZoomShowsTheNearestPixel)
{
    for (const int zoom : {100, 150, 200, 330, 70}) {
        for (const TPoint offset : {TPoint{0, 0}, TPoint{3, 5}, TPoint{-7, -2}}) {
            SCOPED_TRACE(std::to_string(zoom) + " " + std::to_string(offset.X));
            view_.GetLayer(0).SetPosX(offset.X > 0 ? 2 : 0);
            view_.ZoomAt(0, 0, zoom, false);
            view_.SetViewOffset(offset);
            ExpectNearest();
        }
    }
}

TEST_F(ViewPaintingTest, APartIsPaintedAsInTheWhole)
{
    view_.LayersAdd(6, 6, 5, 4);
    view_.GetCurrentLayer().Bitmap().Fill(clRed);
    view_.GetCurrentLayer().SetRotate(30);
    view_.SetLayersCurrent(0);
    for (const int zoom : {100, 150, 200}) {
        view_.ZoomAt(0, 0, zoom, false);
        const QImage whole = PictureOf(view_);
        QImage parts(whole.size(), QImage::Format_RGB32);
        parts.fill(Qt::magenta);
        TCanvas canvas(parts);
        for (const TRect part : {TRect{0, 0, 7, 20}, TRect{7, 0, 24, 9}, TRect{7, 9, 24, 20}})
            view_.PaintPartTo(canvas, part);
        canvas.End();
        EXPECT_EQ(parts, whole) << zoom;
    }
}

TEST_F(ViewPaintingTest, LayersMixByTheirOpacityAndAlpha)
{
    view_.Bitmap().Fill(clWhite);
    view_.LayersAdd(2, 2, 0, 0);
    view_.SetLayersCurrent(0);
    TIELayer& layer = view_.GetLayer(1);
    struct Case {
        int Alpha, Opacity, Grey;
    };
    for (const Case c : {Case{255, 255, 0}, Case{255, 128, 127}, Case{255, 0, 255}, Case{255, -40, 255},
             Case{255, 300, 0}, Case{64, 255, 191}, Case{64, 128, 223}}) {
        SetPicture(layer.Bitmap(), Plain(2, 2, qRgba(0, 0, 0, c.Alpha)));
        layer.SetOpacity(c.Opacity);
        EXPECT_NEAR(qRed(PictureOf(view_).pixel(0, 0)), c.Grey, 1) << c.Alpha << " " << c.Opacity;
    }
    layer.Bitmap().SetEnableAlphaChannel(false);
    layer.SetOpacity(255);
    EXPECT_EQ(qRed(PictureOf(view_).pixel(0, 0)), 0);
    layer.SetVisible(false);
    EXPECT_EQ(qRed(PictureOf(view_).pixel(0, 0)), 255);
}

TEST_F(ViewPaintingTest, AQuarterTurnIsExactAndCounterClockwise)
{
    view_.Blank();
    TIEBitmap source;
    SetPicture(source, Numbered(4, 2));
    view_.LayersAdd(source);
    view_.SetLayersCurrent(0);
    view_.GetLayer(1).SetPosX(5);
    view_.GetLayer(1).SetPosY(6);
    view_.GetLayer(1).SetRotate(90);                  // about (7, 7): covers 6..8 by 5..9
    ExpectPixels(PictureOf(view_), [](int x, int y) { // the layer's right end points up
        return PtInRect({6, 5, 8, 9}, {x, y}) ? Numbered(4, 2).pixel(8 - y, x - 6) : Beside;
    });
}

TEST_F(ViewPaintingTest, ASelectedLayerHasAnOutlineOnItsEdge)
{
    view_.Blank();
    view_.LayersAdd(10, 8, 4, 3);
    view_.Bitmap().Fill(clRed);
    const QImage selected = PictureOf(view_);
    view_.SetLayersCurrent(0);
    const QImage plain = PictureOf(view_);
    const TRect outside = Bounds(4, 3, 10, 8), inside = Bounds(5, 4, 8, 6);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 24; ++x) {
            const bool edge = PtInRect(outside, {x, y}) && !PtInRect(inside, {x, y});
            ASSERT_EQ(selected.pixel(x, y) != plain.pixel(x, y), edge) << x << ", " << y;
        }
}

TEST_F(ViewPaintingTest, AMovedLayerRepaintsWhatItLeftAndEntered)
{
    view_.SetBounds(0, 0, 400, 300);
    view_.LayersAdd(20, 20, 10, 10);
    view_.Widget()->show();
    PaintSpy spy(view_.Widget());
    const auto painted = [&] {
        ProcessEvents();
        return spy.Taken();
    };
    painted();
    TIELayer& layer = view_.GetLayer(1);
    layer.SetPosX(300);
    const QRegion moved = painted();
    EXPECT_TRUE(moved.contains(QRect(10, 10, 20, 20)));
    EXPECT_TRUE(moved.contains(QRect(300, 10, 20, 20)));
    EXPECT_FALSE(moved.intersects(QRect(40, 0, 250, 300)));
    layer.SetPosX(300);
    EXPECT_TRUE(painted().isEmpty());
    {
        const TUpdateLock outer(view_);
        const TUpdateLock inner(view_);
        layer.SetOpacity(100);
        EXPECT_TRUE(painted().isEmpty());
    }
    EXPECT_TRUE(painted().contains(QRect(300, 10, 20, 20)));
    view_.UnLockUpdate(); // one too many does no harm
    layer.SetOpacity(90);
    EXPECT_FALSE(painted().isEmpty());
}

} // namespace vorn::test
