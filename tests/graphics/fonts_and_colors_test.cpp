#include "platform/graphics/canvas.h"

#include <QFont>

#include <gtest/gtest.h>

#include <climits>

namespace vorn {

TEST(Fonts, SizeAndHeightKeepStep)
{
    TFont font;
    EXPECT_EQ(font.Name(), u"Tahoma");
    EXPECT_EQ(font.Size(), 8);
    EXPECT_EQ(font.Height(), -11);
    const struct {
        int size;
        int height;
    } cases[]
        = {{6, -8}, {7, -9}, {8, -11}, {9, -12}, {10, -13}, {11, -15}, {12, -16}, {24, -32}, {72, -96}, {-12, 16}};
    for (const auto& testCase : cases) {
        font.SetSize(testCase.size);
        EXPECT_EQ(font.Height(), testCase.height) << testCase.size;
        font.SetHeight(1);
        font.SetHeight(testCase.height);
        EXPECT_EQ(font.Size(), testCase.size) << testCase.height;
    }
    font.SetSize(INT_MIN);
    EXPECT_EQ(font.Height(), INT_MAX);
    font.SetHeight(INT_MIN);
    EXPECT_GT(font.Size(), 0);
}

TEST(Fonts, LinesAreAsHighAsInTheNamedFont)
{
    const struct {
        const char16_t* name;
        int height;
        int lineHeight;
    } cases[] = {{u"Tahoma", -11, 13}, {u"tahoma", -11, 13}, {u"Arial", -16, 18}, {u"Arial", 16, 16},
        {u"Tahoma", 13, 13}, {u"Tahoma", 0, 13}};
    for (const auto& testCase : cases) {
        TFont font;
        font.SetName(testCase.name);
        font.SetHeight(testCase.height);
        EXPECT_EQ(LineHeight(font), testCase.lineHeight) << testCase.height;
    }
}

TEST(Fonts, AbsurdSizesMeasure)
{
    for (const int height : {INT_MIN, -1'000'000, -1, 1, 2, 1'000'000, INT_MAX}) {
        TFont font;
        font.SetHeight(height);
        EXPECT_GE(font.Resolved().pixelSize(), 1) << height;
        EXPECT_LE(font.Resolved().pixelSize(), 2000) << height;
        EXPECT_EQ(font.Height(), height);
        const TPoint size = MeasureText(font, String(5000, u'W'), DT_WORDBREAK, 300);
        EXPECT_GT(size.X, 0) << height;
        EXPECT_GT(size.Y, 0) << height;
    }
}

} // namespace vorn
