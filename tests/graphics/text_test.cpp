#include "platform/graphics/canvas.h"
#include "platform/graphics/font_resolution.h"
#include "platform/graphics/text_cache.h"
#include "tests/support/pixels.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <malloc.h>

namespace vorn {

namespace {

const char16_t* const fontNames[] = {u"Tahoma", u"Arial", u"Courier New", u"Times New Roman"};
const TFontStyles styles[] = {0, fsBold, fsItalic, fsBold | fsItalic, fsUnderline | fsStrikeOut};
const char16_t* const texts[] = {u"Otturazione 16 MOD", u"jfgf", u"f", u"AVAWAf/", u"Perch\u00E9 \u00C5ngstr\u00F6m",
    u"one\r\ntwo fj\rthree", u"a\tb\tc", u"&Save && go", u"\u05E9\u05DC\u05D5\u05DD 16", u"\x01\x02 \x7F\xD800 x",
    u"the quick brown fox jumps over the lazy dog", u"Unbreakablelongword and more"};

void SetUp(TFont& font, const char16_t* name, TFontStyles style, int height)
{
    font.SetName(name);
    font.SetHeight(height);
    font.SetStyle(style);
}

template <typename Check>
void ForEachFont(Check check)
{
    for (const char16_t* name : fontNames)
        for (const TFontStyles style : styles)
            for (const int height : {-8, -11, -16, -29}) {
                TFont font;
                SetUp(font, name, style, height);
                check(font);
            }
}

std::string Describe(const TFont& font, StringView text)
{
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())).toStdString() + " in "
        + QString::fromStdU16String(font.Name()).toStdString() + " " + std::to_string(font.Height()) + " style "
        + std::to_string(font.Style());
}

QImage Drawn(const TFont& font, StringView text, const TRect& r, unsigned flags, int width = 200, int height = 60)
{
    QImage image = test::Paper(width, height);
    TCanvas canvas(image);
    canvas.Brush.Style = TBrushStyle::bsClear;
    canvas.Font.Assign(font);
    TRect area = r;
    canvas.DrawText(text, area, flags);
    canvas.End();
    return image;
}

} // namespace

TEST(Text, InkLiesWithinTheMeasuredWidth)
{
    static constexpr int margin = 30;
    ForEachFont([](const TFont& font) {
        for (const StringView text : texts) {
            const TPoint size = MeasureText(font, text, DT_EXPANDTABS, 0);
            const TextLayout& layout = LaidOut(font.Face(), text, DT_EXPANDTABS, 0).Layout();
            QImage image = test::Paper(size.X + 2 * margin, size.Y + 2 * margin);
            QPainter painter(&image);
            DrawGlyphs(painter, layout, margin, margin, qRgb(0, 0, 0));
            painter.end();
            const QRect ink = test::InkBox(image);
            EXPECT_GE(ink.left(), margin) << Describe(font, text);
            EXPECT_LT(ink.right(), margin + size.X) << Describe(font, text);
            EXPECT_GE(ink.right(), margin + size.X - size.X / 2) << Describe(font, text);
        }
    });
}

TEST(Text, BreaksAlikeInTheWidthThatItMeasured)
{
    ForEachFont([](const TFont& font) {
        for (const StringView text : texts)
            for (const int width : {-5, 0, 1, 9, 25, 40, 77, 130, 5000}) {
                const unsigned flags = DT_WORDBREAK | DT_EXPANDTABS;
                const TPoint size = MeasureText(font, text, flags, width);
                EXPECT_EQ(MeasureText(font, text, flags, size.X), size) << Describe(font, text) << " at " << width;
            }
    });
}

TEST(Text, WrapsBetweenWordsAndInsideLongOnes)
{
    TFont font;
    const int line = LineHeight(font);
    const auto width = [&](StringView text) { return MeasureText(font, text, 0, 0).X; };
    const auto wrapped = [&](StringView text, int limit) { return MeasureText(font, text, DT_WORDBREAK, limit); };
    EXPECT_EQ(wrapped(u"upper left", width(u"upper left")), (TPoint{width(u"upper left"), line}));
    EXPECT_EQ(wrapped(u"upper left", width(u"upper left") - 1), (TPoint{width(u"upper"), 2 * line}));
    EXPECT_EQ(wrapped(u"upper   left", width(u"upper")), (TPoint{width(u"upper"), 2 * line}));
    EXPECT_EQ(wrapped(u"mmmm", width(u"mm")), (TPoint{width(u"mm"), 2 * line}));
    EXPECT_EQ(wrapped(u"mmm", -1), (TPoint{width(u"m"), 3 * line}));
    EXPECT_EQ(MeasureText(font, u"upper left", 0, 3).Y, line);
}

TEST(Text, LineEndsTabsAndPrefixes)
{
    TFont font;
    const int line = LineHeight(font);
    const auto size = [&](StringView text, unsigned flags = 0) { return MeasureText(font, text, flags, 0); };
    EXPECT_EQ(size(u""), TPoint{});
    EXPECT_EQ(size(u"a\r\nb\nc\rd").Y, 4 * line);
    EXPECT_EQ(size(u"a\r\n"), size(u"a"));
    EXPECT_EQ(size(u"a\n\nb").Y, 3 * line);
    EXPECT_EQ(size(u"\n"), (TPoint{0, line}));
    EXPECT_EQ(size(u"&Save"), size(u"Save"));
    EXPECT_EQ(size(u"S&&e"), size(u"S&e", DT_NOPREFIX));
    EXPECT_EQ(size(u"tail&"), size(u"tail"));
    const int stop = font.Face().tabWidth;
    EXPECT_EQ(size(u"\t", DT_EXPANDTABS).X, stop);
    EXPECT_EQ(size(u"a\tb", DT_EXPANDTABS).X, stop + size(u"b").X);
    EXPECT_EQ(size(u"a\tb"), size(u"a b"));
    EXPECT_EQ(size(String(1, u'\0')), size(u" "));
}

TEST(Text, StandsLeftMiddleAndRight)
{
    TFont font;
    const int width = MeasureText(font, u"HH", 0, 0).X;
    const QRect ink = test::InkBox(Drawn(font, u"HH", {20, 5, 120, 30}, DT_LEFT));
    const QRect middle = test::InkBox(Drawn(font, u"HH", {20, 5, 120, 30}, DT_CENTER));
    const QRect right = test::InkBox(Drawn(font, u"HH", {20, 5, 120, 30}, DT_RIGHT));
    EXPECT_EQ(middle, ink.translated((100 - width) / 2, 0));
    EXPECT_EQ(right, ink.translated(100 - width, 0));
    EXPECT_GE(ink.top(), 5);
    EXPECT_LE(ink.bottom(), 5 + 13);
}

TEST(Text, IsClippedToItsRectangle)
{
    TFont font;
    const QImage whole = Drawn(font, u"HHHHH", {10, 5, 100, 30}, 0);
    const QImage part = Drawn(font, u"HHHHH", {10, 5, 23, 12}, 0);
    EXPECT_EQ(part.copy(10, 5, 13, 7), whole.copy(10, 5, 13, 7));
    EXPECT_TRUE(QRect(10, 5, 13, 7).contains(test::InkBox(part)));
    EXPECT_TRUE(test::InkBox(Drawn(font, u"H", {10, 5, 10, 30}, 0)).isNull());
}

TEST(Text, CachedPixelsAreThoseOfTheFirstTime)
{
    ForEachFont([](const TFont& font) {
        TFont red;
        red.Assign(font);
        red.SetColor(clRed);
        const TRect r{3, 4, 197, 56};
        const StringView text = u"Devitalizzazione &12";
        const QImage first = Drawn(font, text, r, 0);
        const QImage other = Drawn(red, text, r, 0);
        EXPECT_EQ(Drawn(font, text, r, 0), first) << Describe(font, text);
        EXPECT_EQ(Drawn(red, text, r, 0), other);
        EXPECT_NE(first, other);
        EXPECT_FALSE(test::InkBox(first).isNull());
    });
}

TEST(Text, WhatIsKeptOfManyLongTextsStaysBounded)
{
    TFont fonts[2];
    fonts[1].SetColor(clRed);
    const auto text
        = [](int i) { return u"Una didascalia lunga " + String(180, u'x') + String(2, char16_t(u'a' + i)); };
    const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
    for (int i = 0; i < 1000; ++i) // measured all before the first is painted, as labels are
        MeasureText(fonts[0], text(i), 0, 0);
    for (const TFont& font : fonts)
        for (int i = 0; i < 1000; ++i)
            Drawn(font, text(i), {0, 0, 20, 20}, 0, 20, 20);
    EXPECT_LT(mallinfo2().uordblks + mallinfo2().hblkhd - before, std::size_t{56} << 20);
}

TEST(Text, ColoursGroundAndMark)
{
    TFont font;
    font.SetColor(clNone);
    EXPECT_TRUE(test::InkBox(Drawn(font, u"HH", {0, 0, 90, 30}, 0)).isNull());

    QImage image = test::Paper(60, 30);
    TCanvas canvas(image);
    canvas.Font.SetColor(clBlue);
    canvas.Brush.Color = clRed;
    TRect r{2, 3, 60, 30};
    canvas.DrawText(u"H", r, 0);
    canvas.End();
    const TPoint size = MeasureText(canvas.Font, u"H", 0, 0);
    EXPECT_EQ(test::InkBox(image), QRect(2, 3, size.X, size.Y));

    font.SetColor(clBlack);
    const int underline = font.Face().underlineTop;
    const QImage marked = Drawn(font, u"a&bc", {0, 0, 90, 30}, 0);
    const int left = MeasureText(font, u"a", 0, 0).X;
    EXPECT_EQ(marked.pixel(left + 1, underline), qRgb(0, 0, 0));
    EXPECT_EQ(marked.pixel(left - 2, underline), qRgb(255, 255, 255));
    EXPECT_GT(MeasureText(font, u"a&bc", DT_NOPREFIX, 0).X, MeasureText(font, u"a&bc", 0, 0).X);
}

} // namespace vorn
