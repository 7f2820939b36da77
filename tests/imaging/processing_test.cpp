#include "platform/imaging/processing.h"
#include "platform/system/exceptions.h"
#include "tests/imaging/pictures.h"
#include "tests/support/mouse.h"
#include "tests/support/strings_print.h"

#include <QtGui/QPainter>

#include <gtest/gtest.h>

#include <limits>

namespace vorn::test {

namespace {

constexpr TColor None = static_cast<TColor>(-1);

class ProcessingTest : public testing::Test {
protected:
    const QImage& Image() const { return view_.Bitmap().Image(); }
    void Show(const QImage& image) { view_.Bitmap().SetImage(image); }
    TPoint Size() const { return {view_.Bitmap().Width(), view_.Bitmap().Height()}; }
    TImageEnProc& Proc() { return view_.GetImageEnProc(); }
    void Rotate(double angle, TColor background = None)
    {
        Proc().Rotate(angle, true, TIEAntialiasMode::ierBilinear, background);
    }

    TImageEnView view_{nullptr};
};

/// 4 by 2: red, green over blue, black, each 2 by 1.
QImage Quarters()
{
    QImage image(4, 2, QImage::Format_RGB32);
    const QRgb colors[2][2] = {{0xFFFF0000, 0xFF00FF00}, {0xFF0000FF, 0xFF000000}};
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 4; ++x)
            image.setPixel(x, y, colors[y][x / 2]);
    return image;
}

/// At most 5 levels apart in every channel.
void ExpectNear(QRgb actual, QRgb expected)
{
    for (int shift = 0; shift < 32; shift += 8)
        EXPECT_NEAR(actual >> shift & 0xFF, expected >> shift & 0xFF, 5) << std::hex << actual << ' ' << expected;
}

} // namespace

TEST_F(ProcessingTest, SizesFollowInProportionAndAreAtLeastOne)
{
    const struct {
        int Width, Height;
        TPoint Expected;
    } cases[] = {
        {100, -1, {100, 50}},
        {-1, 100, {200, 100}},
        {33, -1, {33, 17}}, // 16.5
        {30, 7, {30, 7}},
        {-1, -1, {200, 100}},
        {0, -1, {1, 1}},
        {-7, 5, {1, 5}},
        {5, 0, {5, 1}},
        {300, -1, {300, 150}},
    };
    for (const TResampleFilter filter :
        {TResampleFilter::rfNone, TResampleFilter::rfLinear, TResampleFilter::rfFastLinear}) {
        for (const auto& c : cases) {
            Show(Plain(200, 100, 0xFF204060).convertToFormat(QImage::Format_RGB32));
            Proc().Resample(c.Width, c.Height, filter, false);
            EXPECT_EQ(Size(), c.Expected) << c.Width << " by " << c.Height;
            ExpectPixels(Image(), [](int, int) { return 0xFF204060; });
        }
    }
    EXPECT_EQ(static_cast<int>(TResampleFilter::rfFastLinear), 9);
}

TEST_F(ProcessingTest, ShrinkingTakesTheMeanOfWhatAPixelCovers)
{
    // Stripes one pixel wide turn to grey wherever they stand; taking single pixels would give black or white.
    QImage stripes(12, 4, QImage::Format_RGB32);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 12; ++x)
            stripes.setPixel(x, y, x % 2 ? 0xFFFFFFFF : 0xFF000000);
    Show(stripes);
    Proc().Resample(6, 2, TResampleFilter::rfFastLinear, false);
    EXPECT_EQ(Size(), (TPoint{6, 2}));
    for (int x = 0; x < 6; ++x)
        ExpectNear(Image().pixel(x, x % 2), 0xFF808080);

    // A pixel that is covered in part counts in part: 3 to 2.
    QImage three(3, 1, QImage::Format_RGB32);
    three.setPixel(0, 0, 0xFF000000);
    three.setPixel(1, 0, 0xFF00005A);
    three.setPixel(2, 0, 0xFF0000B4);
    Show(three);
    Proc().Resample(2, 1, TResampleFilter::rfFastLinear, false);
    ExpectNear(Image().pixel(0, 0), 0xFF00001E); // (1 * 0 + 0.5 * 90) / 1.5
    ExpectNear(Image().pixel(1, 0), 0xFF000096);

    // However many it covers, none of them counts for nothing, on sides of any length.
    for (const int length : {30'000, 200'000}) {
        QImage line(length, 1, QImage::Format_RGB32);
        line.fill(Qt::black);
        QPainter(&line).fillRect(length / 10 * 9, 0, length, 1, Qt::white);
        Show(line);
        Proc().Resample(1, 1, TResampleFilter::rfFastLinear, false);
        ExpectNear(Image().pixel(0, 0), 0xFF1A1A1A);
        Show(line);
        Proc().Resample(length / 10 * 9, 1, TResampleFilter::rfFastLinear, false);
        EXPECT_EQ(Image().pixel(length / 2, 0), 0xFF000000u);
        EXPECT_EQ(Image().pixel(length / 10 * 9 - 9, 0), 0xFFFFFFFFu);
    }
}

TEST_F(ProcessingTest, GrowingBlendsNeighboursOrRepeatsThem)
{
    QImage two(2, 1, QImage::Format_RGB32);
    two.setPixel(0, 0, 0xFF000000);
    two.setPixel(1, 0, 0xFFC8C8C8);
    Show(two);
    Proc().Resample(4, 1, TResampleFilter::rfFastLinear, false);
    const std::vector<QRgb> expected = {0xFF000000, 0xFF323232, 0xFF969696, 0xFFC8C8C8};
    ExpectPixels(Image(), [&](int x, int) { return expected[static_cast<std::size_t>(x)]; });
    Show(Quarters());
    Proc().Resample(8, 4, TResampleFilter::rfNone, false);
    ExpectPixels(Image(), [](int x, int y) { return Quarters().pixel(x / 2, y / 2); });
}

TEST_F(ProcessingTest, ColoursOfTransparentPixelsDontLeak)
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(qRgba(0, 255, 0, 0)); // green that nobody sees
    image.setPixel(0, 0, 0xFFFF0000);
    image.setPixel(0, 1, 0xFFFF0000);
    Show(image);
    Proc().Resample(1, 1, TResampleFilter::rfFastLinear, false);
    ASSERT_TRUE(Image().hasAlphaChannel());
    const QRgb mean = Image().convertToFormat(QImage::Format_ARGB32).pixel(0, 0);
    ExpectNear(mean, 0x80FF0000);
}

TEST_F(ProcessingTest, WhatIsTooLargeIsRefusedAndThePictureStays)
{
    Show(Quarters());
    for (const auto& [width, height] : {std::pair{1 << 20, 1 << 20}, {std::numeric_limits<int>::max(), -1},
             {-1, std::numeric_limits<int>::max()}, {1 << 28, 1}}) {
        const auto resample
            = [&, w = width, h = height] { Proc().Resample(w, h, TResampleFilter::rfFastLinear, false); };
        const std::string message = MessageOf<EInvalidOperation>(resample);
        EXPECT_NE(message.find("4 by 2"), std::string::npos) << message;
    }
    EXPECT_EQ(Image(), Quarters());
    Show(Plain(200'000, 1, 0xFF123456));
    EXPECT_THROW(Rotate(45), EInvalidOperation);
    EXPECT_EQ(Size(), (TPoint{200'000, 1}));
}

TEST_F(ProcessingTest, AnEmptyBitmapStaysEmpty)
{
    Proc().Resample(10, -1, TResampleFilter::rfFastLinear, false);
    Rotate(30);
    TIEBitmap target;
    target.Allocate(3, 3);
    Proc().ResampleTo(target, 10, 10, TResampleFilter::rfFastLinear, true);
    EXPECT_TRUE(view_.Bitmap().IsEmpty());
    EXPECT_TRUE(target.IsEmpty());
}

TEST_F(ProcessingTest, ResampleToFitsInsideAndLeavesTheBitmap)
{
    const struct {
        TPoint Size, Room, Expected;
    } cases[] = {
        {{200, 100}, {50, 50}, {50, 25}},
        {{100, 200}, {50, 50}, {25, 50}},
        {{40, 20}, {100, 200}, {100, 50}}, // grows too
        {{300, 2}, {30, 30}, {30, 1}},
        {{3, 3}, {-5, 0}, {1, 1}},
    };
    for (const auto& c : cases) {
        Show(Plain(c.Size.X, c.Size.Y, 0xFFABCDEF).convertToFormat(QImage::Format_RGB32));
        TIEBitmap target;
        Proc().ResampleTo(target, c.Room.X, c.Room.Y, TResampleFilter::rfFastLinear, true);
        EXPECT_EQ((TPoint{target.Width(), target.Height()}), c.Expected);
        ExpectPixels(target.Image(), [](int, int) { return 0xFFABCDEF; });
        EXPECT_EQ(Size(), c.Size);
    }
    TIEBitmap target;
    Proc().ResampleTo(target, 7, 9, TResampleFilter::rfFastLinear, false);
    EXPECT_EQ((TPoint{target.Width(), target.Height()}), (TPoint{7, 9}));
}

TEST_F(ProcessingTest, QuarterTurnsAreExact)
{
    Show(Quarters());
    Rotate(90); // clockwise: what was on the left is on top
    EXPECT_EQ(Rows(Image()),
        "br\n"
        "br\n"
        "#g\n"
        "#g\n");
    Rotate(-90);
    EXPECT_EQ(Image(), Quarters());
    Rotate(180);
    EXPECT_EQ(Rows(Image()), "##bb\nggrr\n");
    Rotate(36'000'180); // a hundred thousand turns more
    EXPECT_EQ(Image(), Quarters());
    Rotate(360);
    Rotate(std::numeric_limits<double>::infinity());
    Rotate(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(Image(), Quarters());
}

TEST_F(ProcessingTest, ThePictureGrowsToHoldTheTurnedOne)
{
    for (const double angle : {45.0, 36'000'045.0, -315.0}) {
        Show(Plain(100, 100, 0xFF0000FF));
        Rotate(angle);
        EXPECT_EQ(Size(), (TPoint{142, 142})) << angle;
        for (const QPoint corner : {QPoint(0, 0), QPoint(141, 0), QPoint(0, 141), QPoint(141, 141)})
            EXPECT_EQ(Image().pixel(corner), 0u);
        EXPECT_EQ(Image().pixel(71, 71), 0xFF0000FFu);
        EXPECT_EQ(Image().pixel(71, 5), 0xFF0000FFu);
    }
}

TEST_F(ProcessingTest, ABackgroundFillsTheCornersOpaquely)
{
    Show(Plain(20, 20, 0xFF0000FF));
    Rotate(30, clRed);
    EXPECT_FALSE(Image().hasAlphaChannel());
    EXPECT_EQ(Image().pixel(0, 0), 0xFFFF0000u);
    Show(Plain(20, 20, 0)); // transparent through and through
    Rotate(0, clRed);
    ExpectPixels(Image(), [](int, int) { return 0xFFFF0000; });
}

TEST_F(ProcessingTest, EdgesAreSmoothOnlyWhenAsked)
{
    const auto halves = [this](bool antiAlias, TIEAntialiasMode mode) {
        Show(Plain(40, 40, 0xFF0000FF));
        Proc().Rotate(20, antiAlias, mode, None);
        int count = 0;
        for (int y = 0; y < Image().height(); ++y)
            for (int x = 0; x < Image().width(); ++x)
                count += qAlpha(Image().pixel(x, y)) % 255 != 0;
        return count;
    };
    EXPECT_GT(halves(true, TIEAntialiasMode::ierBilinear), 50);
    EXPECT_EQ(halves(true, TIEAntialiasMode::ierFast), 0);
    EXPECT_EQ(halves(false, TIEAntialiasMode::ierBilinear), 0);
}

/// The turned bitmap is what a layer that is turned by the same angle shows.
TEST_F(ProcessingTest, LooksLikeALayerTurnedByMinusTheAngle)
{
    QImage mark(41, 41, QImage::Format_RGB32);
    mark.fill(Qt::white);
    QPainter(&mark).fillRect(25, 3, 12, 8, Qt::red); // above on the right
    for (const double angle : {30.0, -70.0, 200.0}) {
        TImageEnView layered(nullptr);
        layered.SetBounds(0, 0, 80, 80);
        layered.SetBackground(clWhite);
        TIEBitmap bitmap;
        const int layer = layered.LayersAdd(SetPicture(bitmap, mark));
        layered.GetLayer(layer).SetRotate(-angle);
        layered.SetLayersCurrent(0);
        Show(mark);
        Rotate(angle);
        const TRect box = layered.GetLayer(layer).ChartBox();
        EXPECT_LE(std::abs(Size().X - box.Width()), 1) << angle;
        layered.GetLayer(layer).SetPosX(-box.Left);
        layered.GetLayer(layer).SetPosY(-box.Top);
        const QPoint shown = InkBox(PictureOf(layered)).center();
        QImage own = Paper(Image().width(), Image().height());
        QPainter(&own).drawImage(0, 0, Image());
        EXPECT_LE((shown - InkBox(own).center()).manhattanLength(), 2) << angle;
    }
}

TEST_F(ProcessingTest, WorksOnTheCurrentLayerAndRepaintsIt)
{
    view_.SetBounds(0, 0, 100, 100);
    Show(Plain(10, 10, 0xFF0000FF));
    TIEBitmap bitmap;
    const int layer = view_.LayersAdd(SetPicture(bitmap, Plain(20, 20, 0xFFFF0000)));
    view_.Widget()->show();
    ProcessEvents();
    PaintSpy spy(view_.Widget());
    Proc().Resample(60, -1, TResampleFilter::rfFastLinear, false);
    ProcessEvents();
    EXPECT_TRUE(spy.Taken().contains(QRect(0, 0, 60, 60)));
    EXPECT_EQ(view_.GetLayer(layer).Bitmap().Width(), 60);
    EXPECT_EQ(view_.GetLayer(0).Bitmap().Width(), 10);
    EXPECT_EQ(bitmap.Width(), 20);
}

} // namespace vorn::test
