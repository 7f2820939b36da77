#include "platform/controls/label.h"
#include "tests/controls/blocks.h"

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

class CountingLabel : public TLabel {
public:
    using TLabel::TLabel;
    int Adjusted = 0;

protected:
    void AdjustBounds() override
    {
        ++Adjusted;
        TLabel::AdjustBounds();
    }
};

} // namespace

TEST(LabelTest, IsAsLargeAsItsCaptionNeeds)
{
    TWinControl window(nullptr);
    auto* label = new TLabel(nullptr);
    label->SetParent(&window);
    EXPECT_EQ(label->Width(), 0);
    EXPECT_EQ(label->Height(), LineHeight(label->Font()));

    label->SetCaption(u"Otturazione");
    const TPoint size = MeasureText(label->Font(), label->Caption(), DT_EXPANDTABS, 0);
    EXPECT_EQ(label->Width(), size.X);
    EXPECT_EQ(label->Height(), size.Y);

    label->Font().SetSize(20);
    EXPECT_GT(label->Width(), size.X);
    label->Font().SetSize(8);
    label->SetCaption(u"a&b");
    const int hiddenAmpersand = label->Width();
    label->SetShowAccelChar(false);
    EXPECT_GT(label->Width(), hiddenAmpersand);

    label->SetAutoSize(false);
    label->SetBounds(5, 5, 39, 13);
    label->SetCaption(u"a much longer caption than before");
    EXPECT_EQ(label->Width(), 39);
    label->SetAutoSize(true);
    EXPECT_GT(label->Width(), 39);
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
        int found = 0;
        for (int y = 0; y < 60; ++y) {
            for (int x = 0; x < 200; ++x) {
                const bool inside = PtInRect(label->BoundsRect(), {x, y});
                if (!inside) {
                    EXPECT_EQ(image.pixel(x, y), qRgb(255, 255, 255)) << x << ", " << y;
                }
                found += inside && image.pixel(x, y) == color ? 1 : 0;
            }
        }
        return found;
    };
    EXPECT_GT(count(qRgb(255, 255, 0)), 100);
    EXPECT_GT(count(qRgb(0, 0, 0)), 20);
    label->SetEnabled(false);
    EXPECT_EQ(count(qRgb(0, 0, 0)), 0);
    label->SetTransparent(true);
    EXPECT_EQ(count(qRgb(255, 255, 0)), 0);
}

} // namespace vorn::test
