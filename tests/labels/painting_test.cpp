#include "tests/labels/label_fixture.h"

namespace vorn {
namespace {

class LabelPainting : public LabelTest {
protected:
    /// The picture with the text in one colour and no shadow.
    QImage PictureWithText(TDRLabel* label, TColor color)
    {
        label->Font().SetColor(color);
        return Picture(label);
    }
};

TEST_F(LabelPainting, BackgroundIsFilledUnlessTransparent)
{
    TDRLabel* label = MakeLabel("A");
    label->SetCaption(u"");
    EXPECT_EQ(CountPixels(Picture(label), Rgb(clWhite)), 80 * 40);
    label->SetTransparent(true);
    EXPECT_EQ(CountPixels(Picture(label), Rgb(clBlue)), 80 * 40);
}

TEST_F(LabelPainting, FrameStyles)
{
    struct Case {
        TDRBorder border;
        TColor topLeft, bottomRight;
    };
    TDRLabel* label = MakeLabel("A");
    label->SetCaption(u"");
    label->SetColor(clRed);
    const Case cases[] = {
        {TDRBorder::boNone, clRed, clRed},
        {TDRBorder::boSingle, clWindowFrame, clWindowFrame},
        {TDRBorder::boRaised, clBtnHighlight, clBtnShadow},
        {TDRBorder::boLowered, clBtnShadow, clBtnHighlight},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.border));
        label->SetBorder(c.border);
        const QImage picture = Picture(label);
        EXPECT_EQ(picture.pixel(40, 0), Rgb(c.topLeft));
        EXPECT_EQ(picture.pixel(0, 20), Rgb(c.topLeft));
        EXPECT_EQ(picture.pixel(40, 39), Rgb(c.bottomRight));
        EXPECT_EQ(picture.pixel(79, 20), Rgb(c.bottomRight));
        EXPECT_EQ(CountPixels(picture.copy(1, 1, 78, 38), Rgb(clRed)), 78 * 38);
    }
}

TEST_F(LabelPainting, DottedFrameTakesThePenOfTheDragHandle)
{
    TDRLabel* label = MakeLabel("A");
    label->SetCaption(u"");
    label->SetBorder(TDRBorder::boDotted);
    auto edge = [&] { return Picture(label).copy(12, 0, 60, 1); };
    EXPECT_EQ(CountPixels(edge(), Rgb(clBlack)), 30);
    EXPECT_EQ(CountPixels(edge(), Rgb(clWhite)), 30);
    EXPECT_EQ(CountPixels(Picture(label).copy(1, 1, 78, 38), Rgb(clWhite)), 78 * 38);

    label->ShowDrag = true;
    label->Add();
    Picture(label); // draws the handle after the frame
    label->AddToList(false);
    EXPECT_EQ(CountPixels(edge(), Rgb(clRed)), 30);
    EXPECT_EQ(CountPixels(edge(), Rgb(clBlack)), 0);
}

TEST_F(LabelPainting, ShadowIsTheTextMovedByDeep)
{
    TDRLabel* label = MakeLabel("A");
    const QImage text = PictureWithText(label, clBlack);
    ASSERT_GT(CountPixels(text, Rgb(clBlack)), 20);

    label->SetShadowColor(clBlack);
    EXPECT_EQ(PictureWithText(label, clBlack), text) << "without Ct3D there is no shadow";
    label->SetCtl3D(true);
    for (const int deep : {1, 2}) {
        SCOPED_TRACE(deep);
        label->SetDeep(deep);
        // A text without colour leaves the shadow alone to be seen.
        const QImage shadow = PictureWithText(label, clNone);
        EXPECT_EQ(shadow.copy(deep, deep, 80 - deep, 40 - deep), text.copy(0, 0, 80 - deep, 40 - deep));
        // The text lies over it.
        const QImage both = PictureWithText(label, clRed);
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 80; ++x)
                if (text.pixel(x, y) == Rgb(clBlack)) {
                    ASSERT_EQ(both.pixel(x, y), Rgb(clRed)) << x << "," << y;
                }
        EXPECT_GT(CountPixels(both, Rgb(clBlack)), 0);
    }
}

TEST_F(LabelPainting, GlyphPlaces)
{
    struct Case {
        int width, height; // of the label
        TXAlign xAlign;
        TYAlign yAlign;
        TPoint expected;
    };
    const Case cases[] = {
        {101, 51, TXAlign::alXNone, TYAlign::alYNone, {-3, 5}},
        {101, 51, TXAlign::alXLeft, TYAlign::alYTop, {0, 0}},
        {101, 51, TXAlign::alXRight, TYAlign::alYBottom, {85, 40}},
        {101, 51, TXAlign::alXCenter, TYAlign::alYCenter, {42, 20}},
        {100, 40, TXAlign::alXCenter, TYAlign::alYCenter, {42, 15}},
        {9, 5, TXAlign::alXRight, TYAlign::alYBottom, {-7, -6}},
        {9, 5, TXAlign::alXCenter, TYAlign::alYCenter, {-4, -3}}, // 4 - 8 and 2 - 5, each half by itself
        {101, 51, TXAlign::alXLeft, TYAlign::alYNone, {0, 5}},
        {101, 51, TXAlign::alXNone, TYAlign::alYTop, {-3, 0}},
    };
    TCustomImageList images(nullptr, 16, 11);
    images.AddImage(Coordinates(16, 11));
    TDRLabel* label = MakeLabel("A");
    label->SetCaption(u"");
    label->SetImages(&images);
    label->SetImageIndex(0);
    label->SetGliphVisible(true);
    label->SetXPicture(-3);
    label->SetYPicture(5);
    for (const Case& c : cases) {
        SCOPED_TRACE(
            testing::Message() << c.width << " " << static_cast<int>(c.xAlign) << " " << static_cast<int>(c.yAlign));
        label->SetBounds(20, 20, c.width, c.height);
        label->SetPictureXAlignment(c.xAlign);
        label->SetPictureYAlignment(c.yAlign);
        EXPECT_EQ(label->GlyphRect(), vorn::Bounds(c.expected.X, c.expected.Y, 16, 11));
        test::ExpectPixels(Picture(label), [&](int x, int y) {
            const TPoint in{x - c.expected.X, y - c.expected.Y};
            return PtInRect({0, 0, 16, 11}, in) ? qRgb(in.X, in.Y, 77) : Rgb(clWhite);
        });
    }
}

TEST_F(LabelPainting, LongCaptionIsCutBetweenCharacters)
{
    TDRLabel* label = MakeLabel("A", 0, 0, 390, 280);
    label->Font().SetHeight(-11);
    const auto shown = [&](std::size_t letters, const String& after = {}) {
        label->SetCaption(String(letters, u'H') + after);
        return Picture(label);
    };
    const String pair = u"\U0001D11E";
    EXPECT_NE(shown(254), shown(255));
    EXPECT_EQ(shown(300), shown(255));
    EXPECT_EQ(shown(254, pair), shown(254)) << "half a pair is not shown";
    EXPECT_NE(shown(253, pair), shown(253)) << "a pair that fits is shown";
    EXPECT_EQ(shown(253, pair + u"HHH"), shown(253, pair));
}

} // namespace
} // namespace vorn
