#include "platform/imaging/thumbnail_view.h"
#include "platform/system/exceptions.h"
#include "tests/imaging/pictures.h"
#include "tests/support/mouse.h"
#include "tests/support/strings_print.h"

#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QScrollBar>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

/// Cells of 40 by 40 with one pixel between them.
class ThumbnailViewTest : public testing::Test {
protected:
    ThumbnailViewTest()
    {
        view_.SetThumbWidth(40);
        view_.SetThumbHeight(40);
        view_.SetHorizBorder(1);
        view_.SetVertBorder(1);
        view_.SetBackground(clWhite);
        view_.SetBounds(0, 0, 206, 124); // 5 columns, 3 rows, to the pixel
    }

    int Add(int width, int height, QRgb color)
    {
        TIEBitmap bitmap;
        bitmap.SetImage(Plain(width, height, color));
        const int idx = view_.AppendImage();
        view_.SetIEBitmap(idx, bitmap);
        return idx;
    }
    void Fill(int count)
    {
        for (int i = 0; i < count; ++i)
            Add(40, 40, 0xFF00FF00);
    }
    /// What is drawn inside a cell, where the selection doesn't cover it.
    QRect Ink(int idx, QRgb color)
    {
        const QImage picture = PictureOf(view_);
        const TRect cell = view_.ImageCell(idx);
        QRect ink;
        for (int y = cell.Top; y < cell.Bottom; ++y)
            for (int x = cell.Left; x < cell.Right; ++x)
                if (picture.valid(x, y) && picture.pixel(x, y) == color)
                    ink |= QRect(x - cell.Left, y - cell.Top, 1, 1);
        return ink;
    }
    QScrollBar* Bar() { return Area()->verticalScrollBar(); }
    QAbstractScrollArea* Area() { return dynamic_cast<QAbstractScrollArea*>(view_.Widget()); }

    TImageEnMView view_{nullptr};
};

} // namespace

TEST_F(ThumbnailViewTest, EntriesKeepWhatIsPutIntoThem)
{
    EXPECT_EQ(view_.GetImageCount(), 0);
    EXPECT_EQ(view_.AppendImage(), 0);
    EXPECT_EQ(view_.AppendImage(), 1);
    view_.SetImageID(0, 7);
    view_.SetImageID(1, -3);
    view_.SetImageBottomText(1, u"Corona\r\nProtesi");
    EXPECT_EQ(view_.GetImageID(0), 7);
    EXPECT_EQ(view_.GetImageID(1), -3);
    EXPECT_EQ(Utf8(view_.GetImageBottomText(1)), "Corona\r\nProtesi");
    EXPECT_EQ(Utf8(view_.GetImageBottomText(0)), "");
    EXPECT_EQ(view_.GetImageWidth(0), 0);
    Add(120, 30, 0xFFFF0000);
    EXPECT_EQ(view_.GetImageWidth(2), 120); // of the bitmap, not of the thumbnail
    EXPECT_EQ(view_.GetImageHeight(2), 30);
    EXPECT_EQ(view_.SelectedImage(), -1);
    view_.SetSelectedItem(2);
    view_.Clear();
    EXPECT_EQ(view_.GetImageCount(), 0);
    EXPECT_EQ(view_.SelectedImage(), -1);
    view_.SetSelectedItem(0); // there is none
    EXPECT_EQ(view_.SelectedImage(), -1);
}

TEST_F(ThumbnailViewTest, IndicesOutsideRaiseErrorsThatNameThem)
{
    Fill(2);
    const TIEBitmap bitmap;
    const std::vector<std::function<void(int)>> operations = {
        [this](int idx) { view_.SetImageID(idx, 1); },
        [this](int idx) { view_.GetImageID(idx); },
        [this](int idx) { view_.SetImageBottomText(idx, u"x"); },
        [this](int idx) { view_.GetImageBottomText(idx); },
        [&](int idx) { view_.SetIEBitmap(idx, bitmap); },
        [this](int idx) { view_.GetImageWidth(idx); },
        [this](int idx) { view_.GetImageHeight(idx); },
        [this](int idx) { view_.ScrollInView(idx); },
        [this](int idx) { view_.ImageCell(idx); },
    };
    for (const auto& operation : operations) {
        EXPECT_EQ(MessageOf<EListError>([&] { operation(-1); }), "There is no thumbnail -1");
        EXPECT_EQ(MessageOf<EListError>([&] { operation(2); }), "There is no thumbnail 2");
    }
}

TEST_F(ThumbnailViewTest, ThePictureIsACopy)
{
    TIEBitmap bitmap;
    bitmap.SetImage(Plain(40, 40, 0xFFFF0000));
    view_.SetIEBitmap(view_.AppendImage(), bitmap);
    bitmap.Fill(clBlack);
    EXPECT_EQ(Ink(0, 0xFFFF0000), QRect(0, 0, 40, 40));
}

TEST_F(ThumbnailViewTest, CellsFillRowsFromTheLeft)
{
    Fill(7);
    EXPECT_EQ(view_.ImageCell(0), (TRect{1, 1, 41, 41}));
    EXPECT_EQ(view_.ImageCell(4), (TRect{165, 1, 205, 41}));
    EXPECT_EQ(view_.ImageCell(5), (TRect{1, 42, 41, 82}));
    view_.SetGridWidth(3);
    EXPECT_EQ(view_.ImageCell(3), (TRect{1, 42, 41, 82}));
    view_.SetGridWidth(-1);
    view_.SetBounds(0, 0, 205, 124); // a pixel less: four columns
    EXPECT_EQ(view_.ImageCell(4), (TRect{1, 42, 41, 82}));
    view_.SetBounds(0, 0, 10, 300); // never none
    EXPECT_EQ(view_.ImageCell(1), (TRect{1, 42, 41, 82}));
}

TEST_F(ThumbnailViewTest, PointsBelongToCellsAndNotToBorders)
{
    Fill(7);
    const struct {
        TPoint Point;
        int Expected;
    } cases[] = {{{1, 1}, 0}, {{40, 40}, 0}, {{41, 20}, -1}, {{42, 20}, 1}, {{0, 0}, -1}, {{20, 41}, -1}, {{20, 42}, 5},
        {{83, 60}, -1}, {{205, 20}, -1}, {{-5, 20}, -1}, {{20, 100'000}, -1}};
    for (const auto& c : cases)
        EXPECT_EQ(view_.ImageAt(c.Point), c.Expected) << c.Point.X << ", " << c.Point.Y;
}

TEST_F(ThumbnailViewTest, PicturesShrinkInProportionButNeverGrow)
{
    Add(80, 40, 0xFFFF0000);
    Add(10, 200, 0xFFFF0000);
    Add(6, 4, 0xFFFF0000);
    Add(40, 40, 0xFFFF0000);
    EXPECT_EQ(Ink(0, 0xFFFF0000), QRect(0, 10, 40, 20));
    EXPECT_EQ(Ink(1, 0xFFFF0000), QRect(19, 0, 2, 40));
    EXPECT_EQ(Ink(2, 0xFFFF0000), QRect(17, 18, 6, 4));
    EXPECT_EQ(Ink(3, 0xFFFF0000), QRect(0, 0, 40, 40));
    view_.SetThumbWidth(60);
    EXPECT_EQ(Ink(0, 0xFFFF0000), QRect(0, 5, 60, 30)); // from the stored bitmap anew
}

TEST_F(ThumbnailViewTest, KeptAsThumbnailsOnlyPicturesStillKnowTheirSize)
{
    view_.SetStoreType(TIEStoreType::ietThumb);
    Add(80, 40, 0xFFFF0000);
    EXPECT_EQ(view_.GetImageWidth(0), 80);
    EXPECT_EQ(Ink(0, 0xFFFF0000), QRect(0, 10, 40, 20));
    view_.SetThumbWidth(60); // nothing is left to enlarge from
    EXPECT_EQ(Ink(0, 0xFFFF0000), QRect(10, 10, 40, 20));
    view_.SetThumbWidth(20);
    EXPECT_EQ(Ink(0, 0xFFFF0000), QRect(0, 15, 20, 10));
}

TEST_F(ThumbnailViewTest, TransparencyShowsTheBackground)
{
    QImage image = Plain(40, 40, 0);
    image.setPixel(5, 5, 0xFFFF0000);
    TIEBitmap bitmap;
    view_.SetIEBitmap(view_.AppendImage(), SetPicture(bitmap, image));
    const QImage picture = PictureOf(view_);
    ExpectPixels(picture, [](int x, int y) { return x == 6 && y == 6 ? 0xFFFF0000 : 0xFFFFFFFF; });
}

TEST_F(ThumbnailViewTest, BorderAndSelectionFrameTheCell)
{
    Fill(2);
    view_.SetThumbnailsBorderColor(clBlack);
    QImage picture = PictureOf(view_);
    EXPECT_EQ(picture.pixel(0, 0), 0xFF000000u);
    EXPECT_EQ(picture.pixel(41, 20), 0xFF000000u); // shared by both
    EXPECT_EQ(picture.pixel(82, 41), 0xFF000000u);
    EXPECT_EQ(picture.pixel(83, 20), 0xFFFFFFFFu);
    EXPECT_EQ(picture.pixel(1, 1), 0xFF00FF00u);
    view_.SetSelectedItem(0);
    picture = PictureOf(view_);
    const QRgb frame = picture.pixel(0, 0);
    EXPECT_NE(frame, 0xFF000000u);
    for (const QPoint p : {QPoint(1, 1), QPoint(41, 20), QPoint(40, 40), QPoint(20, 41)})
        EXPECT_EQ(picture.pixel(p), frame) << p.x() << ", " << p.y();
    EXPECT_EQ(picture.pixel(2, 2), 0xFF00FF00u);
    EXPECT_EQ(picture.pixel(82, 20), 0xFF000000u);
    EXPECT_EQ(picture.pixel(42, 1), 0xFF00FF00u);
}

TEST_F(ThumbnailViewTest, TextsTakeRoomUnderTheThumbnailsOnlyWhenShown)
{
    Fill(6);
    view_.SetImageBottomText(0, u"Uno\r\nDue");
    view_.SetThumbnailsBorderColor(clNone);
    const TRect without = view_.ImageCell(5);
    view_.SetShowText(true);
    EXPECT_EQ(view_.ImageCell(5).Top, without.Top + 2 * LineHeight(view_.Font()));
    const QImage picture = PictureOf(view_);
    const auto inked = [&](int left, int line) {
        const int top = 41 + line * LineHeight(view_.Font());
        return !InkBox(picture.copy(left, top, 40, LineHeight(view_.Font()))).isEmpty();
    };
    EXPECT_TRUE(inked(1, 0));
    EXPECT_TRUE(inked(1, 1));
    EXPECT_FALSE(inked(42, 0));
    view_.SetShowText(false);
    EXPECT_EQ(view_.ImageCell(5), without);
}

TEST_F(ThumbnailViewTest, ABarComesWhenTheRowsDontFit)
{
    Fill(15);
    EXPECT_EQ(view_.ClientWidth(), 206);
    EXPECT_EQ(Bar()->maximum(), 0);
    Fill(1);
    EXPECT_LT(view_.ClientWidth(), 206);
    EXPECT_EQ(view_.ImageCell(4).Left, 1); // the bar takes a column's room
    EXPECT_EQ(Bar()->maximum(), 1 + 4 * 41 - 124);
    view_.SetScrollPosition({0, 100});
    EXPECT_EQ(view_.ScrollPosition(), (TPoint{0, 41}));
    EXPECT_EQ(view_.ImageCell(0).Top, 1 - 41);
    EXPECT_EQ(view_.ImageAt({20, 2}), 4);
    view_.Clear();
    EXPECT_EQ(view_.ScrollPosition(), TPoint{});
    EXPECT_EQ(view_.ClientWidth(), 206);
}

TEST_F(ThumbnailViewTest, TheSelectedOneIsBroughtIntoSightOnRequest)
{
    Fill(40);
    view_.SetSelectedItem(39);
    EXPECT_EQ(view_.ScrollPosition().Y, 0);
    view_.SetSelectedImageAlwaysVisible(true);
    const TRect last = view_.ImageCell(39);
    EXPECT_EQ(last.Bottom + 1, 124);
    view_.SetSelectedItem(0);
    EXPECT_EQ(view_.ScrollPosition().Y, 0);
    view_.SetSelectedItem(12); // the row below the lowest visible one
    EXPECT_EQ(view_.ImageCell(12).Bottom + 1, 124);
    view_.SetBounds(0, 0, 206, 60);
    EXPECT_GE(view_.ImageCell(12).Top, 0);
    EXPECT_LE(view_.ImageCell(12).Bottom, 60);
}

TEST_F(ThumbnailViewTest, SelectingRepaintsTwoCells)
{
    Fill(15);
    view_.SetSelectedItem(0);
    view_.Widget()->show();
    ProcessEvents();
    PaintSpy spy(view_.Widget()->findChild<QWidget*>("qt_scrollarea_viewport")->findChild<QWidget*>());
    view_.SetSelectedItem(14);
    ProcessEvents();
    const QRegion painted = spy.Taken();
    EXPECT_TRUE(painted.contains(QRect(0, 0, 42, 42)));
    EXPECT_TRUE(painted.contains(QRect(164, 82, 42, 42)));
    EXPECT_FALSE(painted.intersects(QRect(50, 0, 100, 124)));
    view_.SetSelectedItem(14);
    ProcessEvents();
    EXPECT_TRUE(spy.Taken().isEmpty());
}

} // namespace vorn::test
