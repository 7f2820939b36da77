#include "platform/controls/label.h"
#include "tests/controls/blocks.h"

#include <gtest/gtest.h>

namespace vorn::test {

TEST(LabelTest, IsAsLargeAsItsCaptionNeedsUnlessItsSizeIsFixed)
{
    TLabel label(nullptr);
    label.SetCaption(u"Otturazione");
    const TPoint size = MeasureText(label.Font(), label.Caption(), DT_EXPANDTABS, 0);
    EXPECT_EQ((TPoint{label.Width(), label.Height()}), size);
    label.Font().SetSize(20);
    EXPECT_GT(label.Width(), size.X);
    label.SetAutoSize(false);
    label.SetBounds(5, 5, 39, 13);
    label.SetCaption(u"a much longer caption than before");
    EXPECT_EQ(label.Width(), 39);
    label.SetAutoSize(true);
    EXPECT_GT(label.Width(), 39);
}

TEST(LabelTest, PaintsItsTextInItsPlace)
{
    TWinControl window(nullptr);
    window.SetColor(clWhite);
    window.SetBounds(0, 0, 200, 60);
    auto* label = new TLabel(nullptr);
    label->SetParent(&window);
    label->SetBounds(10, 10, 0, 0);
    label->SetColor(0x00FFFF); // yellow
    label->Font().SetHeight(-20);
    label->Font().SetColor(clBlack);
    label->SetCaption(u"MMM");

    const auto count = [&](QRgb color) {
        const QImage image = PictureOf(window);
        const QImage text = image.copy(label->Left(), label->Top(), label->Width(), label->Height());
        const int beside = 200 * 60 - text.width() * text.height();
        EXPECT_EQ(CountPixels(image, qRgb(255, 255, 255)) - CountPixels(text, qRgb(255, 255, 255)), beside);
        return CountPixels(text, color);
    };
    EXPECT_GT(count(qRgb(255, 255, 0)), 100);
    EXPECT_GT(count(qRgb(0, 0, 0)), 20);
    label->SetEnabled(false);
    EXPECT_EQ(count(qRgb(0, 0, 0)), 0);
    label->SetTransparent(true);
    EXPECT_EQ(count(qRgb(255, 255, 0)), 0);
}

} // namespace vorn::test
