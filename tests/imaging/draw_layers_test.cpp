#include "tests/imaging/pictures.h"
#include "tests/support/mouse.h"

#include <QtWidgets/QWidget>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

/// A picture, a veil, a turned and enlarged layer and one that can't be seen.
class DrawLayersTest : public testing::Test {
protected:
    DrawLayersTest()
    {
        view_.SetBounds(0, 0, 60, 40);
        view_.SetBackground(clWhite);
        SetPicture(view_.Bitmap(), Numbered(10, 8).scaled(40, 32));
        view_.LayersAdd(12, 9, TIEPixelFormat::ie24RGB, 5, 3);
        view_.GetCurrentLayer().Bitmap().Fill(16777215);
        view_.GetCurrentLayer().SetOpacity(230);
        TIEBitmap symbol;
        SetPicture(symbol, Plain(6, 4, qRgba(255, 0, 0, 160)));
        view_.LayersAdd(symbol);
        view_.GetCurrentLayer().SetPosX(30);
        view_.GetCurrentLayer().SetPosY(20);
        view_.GetCurrentLayer().SetWidth(11);
        view_.GetCurrentLayer().SetRotate(30);
        view_.LayersAdd(40, 40, 0, 0);
        view_.GetCurrentLayer().SetVisible(false);
        view_.SetLayersCurrent(0);
    }

    TImageEnView view_{nullptr};
};

} // namespace

TEST_F(DrawLayersTest, DrawsAsTheScreenDoesAtOneHundredPercent)
{
    const QImage screen = PictureOf(view_);
    TIEBitmap target;
    target.Allocate(60, 40, TIEPixelFormat::ie24RGB);
    view_.DrawLayersTo(target);
    EXPECT_EQ(target.Image(), screen);

    view_.ZoomAt(0, 0, 230, false);
    view_.SetViewOffset({17, 9});
    view_.SetLayersCurrent(2); // marked as selected on the screen
    const QImage zoomed = PictureOf(view_);
    target.Fill(clWhite);
    view_.DrawLayersTo(target);
    EXPECT_EQ(target.Image(), screen);
    EXPECT_EQ(view_.Zoom(), 230);
    EXPECT_EQ(view_.ViewOffset(), (TPoint{17, 9}));
    EXPECT_EQ(PictureOf(view_), zoomed);
}

TEST_F(DrawLayersTest, KeepsWhatNoLayerCovers)
{
    TIEBitmap target;
    target.Allocate(50, 50);
    target.Fill(clBlue);
    view_.GetLayer(0).SetPosX(4);
    view_.GetLayer(0).SetPosY(2);
    view_.DrawLayersTo(target);
    for (const QPoint beside : {QPoint(0, 0), QPoint(3, 20), QPoint(49, 10), QPoint(20, 49)})
        EXPECT_EQ(target.Image().pixel(beside), qRgb(0, 0, 255)) << beside.x() << ", " << beside.y();
    EXPECT_EQ(target.Image().pixel(4, 30), view_.GetLayer(0).Bitmap().Image().pixel(0, 28));
    TIEBitmap empty;
    view_.DrawLayersTo(empty);
    EXPECT_TRUE(empty.IsEmpty());
}

TEST_F(DrawLayersTest, ALayersOwnBitmapMayBeTheTarget)
{
    TIEBitmap expected;
    expected.Assign(view_.Bitmap());
    view_.DrawLayersTo(expected);
    view_.DrawLayersTo(view_.Bitmap());
    EXPECT_EQ(view_.Bitmap().Image(), expected.Image());
}

TEST_F(DrawLayersTest, LeavesTheScreensOwnRepaintAlone)
{
    view_.Widget()->show();
    ProcessEvents();
    PaintSpy spy(view_.Widget());
    view_.GetLayer(1).Bitmap().Fill(clRed);
    TIEBitmap target;
    target.Allocate(60, 40);
    view_.DrawLayersTo(target);
    EXPECT_TRUE(spy.Taken().isEmpty());
    view_.Update();
    EXPECT_TRUE(spy.Taken().contains(QRect(5, 3, 12, 9)));
}

} // namespace vorn::test
