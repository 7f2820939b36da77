#include "platform/controls/application.h"
#include "tests/support/pixels.h"
#include "tests/symbol_tools/palette_fixture.h"

#include <cstdlib>

namespace vorn::test {

namespace {

/// One button as it is drawn on a background.
QImage DrawnOn(TPngSpeedButton& button, QColor background)
{
    QImage image(button.Width(), button.Height(), QImage::Format_RGB32);
    image.fill(background);
    TCanvas canvas(image);
    button.PaintTo(canvas);
    canvas.End();
    return image;
}

/// Pixels whose grey value is at least `contrast` away from the background's.
int Contrasting(const QImage& image, QColor background, int contrast)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += std::abs(qGray(image.pixel(x, y)) - qGray(background.rgb())) >= contrast;
    return count;
}

} // namespace

TEST_F(PaletteFixture, ButtonsStandInThreeRowsWithTheirHintsAndImages)
{
    struct Expected {
        TPoint place;
        StringView hint;
        int image;
        StringView name;
    };
    const TvornSimbModifyFrm palette(nullptr);
    const std::vector<Expected> expected{
        {{0, 0}, u"Ruota +1\u00B0", 1, u"rotate_cw"},
        {{25, 0}, u"Ruota -1\u00B0", 0, u"rotate_ccw"},
        {{50, 0}, u"Ruota +45\u00B0", 2, u"view_orientation"},
        {{0, 25}, u"Scala +", 3, u"resizecol"},
        {{25, 25}, u"Scala -", 4, u"resizecol2"},
        {{50, 25}, u"Elimina simbolo", 5, u"edittrash"},
        {{0, 50}, u"Trasparente +", 6, u"shear"},
        {{25, 50}, u"Trasparente +", 7, u"shear2"},
        {{50, 50}, u"Azzera Angolo e Scala", 8, u"editclear"},
    };
    ASSERT_EQ(palette.FlowPanel1->ControlCount(), 9);
    EXPECT_EQ(palette.FlowPanel1->BoundsRect(), Bounds(0, 0, 81, 73));
    for (int i = 0; i < 9; ++i) {
        const auto& [place, hint, image, name] = expected[static_cast<std::size_t>(i)];
        const auto* button = dynamic_cast<TPngSpeedButton*>(palette.FlowPanel1->Controls(i));
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(button->BoundsRect(), Bounds(place.X, place.Y, 25, 25)) << i;
        EXPECT_EQ(button->Hint(), hint) << i;
        EXPECT_TRUE(button->Flat());
        EXPECT_EQ(button->Action()->ImageIndex(), image) << i;
        EXPECT_EQ(button->Action()->ImageName(), name) << i;
        EXPECT_EQ(palette.PngImageList1->ImageName(image), name) << i;
        EXPECT_EQ(palette.ActionList1->Actions(image), button->Action()) << i;
    }
    EXPECT_EQ(palette.BorderStyle(), TFormBorderStyle::bsNone);
    EXPECT_EQ((TPoint{palette.ClientWidth(), palette.ClientHeight()}), (TPoint{210, 122}));
}

TEST_F(PaletteFixture, FloatsBesideTheSymbolAsLargeAsItsContents)
{
    Select();
    EXPECT_TRUE(vornSimbModifyFrm->Visible());
    EXPECT_EQ(vornSimbModifyFrm->Parent(), view);
    EXPECT_EQ(vornSimbModifyFrm->BoundsRect(), Bounds(Layer().GetPosX() + 110, Layer().GetPosY(), 81, 73));
    Mouse().Rest(*vornSimbModifyFrm->PngSpeedButton6, {12, 12});
    EXPECT_EQ(Application().ShownHint(), u"Elimina simbolo");
    Application().HideHint();
}

TEST_F(PaletteFixture, EachIconIsItsOwnAndStandsOutOnEveryBackground)
{
    TvornSimbModifyFrm palette(nullptr);
    std::vector<QImage> seen;
    for (int i = 0; i < 9; ++i) {
        auto& button = *dynamic_cast<TPngSpeedButton*>(palette.FlowPanel1->Controls(i));
        for (const int grey : {240, 255, 32, 128}) {
            const QColor background(grey, grey, grey);
            EXPECT_GE(Contrasting(DrawnOn(button, background), background, 40), 20) << i << " on " << grey;
        }
        const QImage image = DrawnOn(button, Qt::white);
        for (const QImage& other : seen)
            EXPECT_NE(image, other) << i;
        EXPECT_TRUE(QRect(4, 4, 17, 17).contains(InkBox(image))) << i;
        seen.push_back(image);
    }
}

} // namespace vorn::test
