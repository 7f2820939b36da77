#include "platform/system/exceptions.h"
#include "tests/imaging/pictures.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorn::test {

namespace {

QRgb At(const TIEBitmap& bitmap, int x, int y)
{
    const TRGB p = bitmap.GetPixels_ie24RGB(x, y);
    return qRgb(p.r, p.g, p.b);
}

} // namespace

TEST(BitmapTest, AllocatesWhiteAndRefusesTheImpossible)
{
    TIEBitmap bitmap;
    EXPECT_TRUE(bitmap.IsEmpty());
    bitmap.Allocate(3, 2);
    EXPECT_EQ(bitmap.Width(), 3);
    EXPECT_EQ(bitmap.Height(), 2);
    EXPECT_EQ(At(bitmap, 2, 1), qRgb(255, 255, 255));
    for (const TPoint outside : {TPoint{-1, 0}, TPoint{3, 0}, TPoint{0, 2}})
        EXPECT_EQ(At(bitmap, outside.X, outside.Y), qRgb(0, 0, 0));
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_THROW(bitmap.Allocate(most, most), EInvalidOperation);
    EXPECT_THROW(bitmap.Allocate(100'000, 100'000), EInvalidOperation);
    EXPECT_EQ(bitmap.Width(), 3);
    bitmap.Allocate(0, 5);
    EXPECT_TRUE(bitmap.IsEmpty());
    bitmap.Fill(clRed);
    EXPECT_TRUE(bitmap.IsEmpty());
    EXPECT_EQ(At(bitmap, 0, 0), qRgb(0, 0, 0));
}

TEST(BitmapTest, CopiesPartWhenOneIsDrawnOn)
{
    TIEBitmap first, copy;
    first.Allocate(4, 4);
    TCanvas& canvas = first.GetCanvas();
    const auto dot = [&](TColor color) {
        canvas.Brush.Color = color;
        canvas.FillRect({0, 0, 1, 1});
    };
    dot(clRed);
    copy.Assign(first);
    EXPECT_EQ(copy.Image().constBits(), first.Image().constBits()); // nothing was copied yet
    dot(clBlue);                                                    // through the canvas that was there before the copy
    EXPECT_EQ(At(copy, 0, 0), qRgb(255, 0, 0));
    EXPECT_EQ(At(first, 0, 0), qRgb(0, 0, 255));
    copy.Fill(0x332211);
    EXPECT_EQ(At(copy, 3, 3), qRgb(0x11, 0x22, 0x33));
    EXPECT_EQ(At(first, 3, 3), qRgb(255, 255, 255));
    first.FreeImage();
    dot(clRed);
    EXPECT_TRUE(first.IsEmpty());
}

} // namespace vorn::test
