#include "demo/database_builder.h"
#include "demo/dentition/layout.h"
#include "demo/sample_placements.h"
#include "demo/symbols/symbol_art.h"

#include <gtest/gtest.h>

#include <QMap>

#include <algorithm>
#include <cstdlib>

namespace vorn::demo {
namespace {

constexpr int Faint = 40;
constexpr int Solid = 200;

/// How many pixels have at least this alpha.
int Count(const QImage& image, int alpha)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) >= alpha ? 1 : 0;
    return count;
}

/// The picture laid on a ground.
QImage On(const QImage& symbol, QRgb ground)
{
    QImage laid(symbol.size(), QImage::Format_RGB32);
    for (int y = 0; y < laid.height(); ++y) {
        for (int x = 0; x < laid.width(); ++x) {
            const QRgb ink = symbol.pixel(x, y);
            const auto mix
                = [&](int above, int below) { return (above * qAlpha(ink) + below * (255 - qAlpha(ink))) / 255; };
            laid.setPixel(x, y,
                qRgb(mix(qRed(ink), qRed(ground)), mix(qGreen(ink), qGreen(ground)), mix(qBlue(ink), qBlue(ground))));
        }
    }
    return laid;
}

/// Pixels that stand out clearly from the ground that the picture was laid on.
int Standing(const QImage& laid, QRgb ground)
{
    int count = 0;
    for (int y = 0; y < laid.height(); ++y)
        for (int x = 0; x < laid.width(); ++x)
            count += std::abs(qGray(laid.pixel(x, y)) - qGray(ground)) > 60 ? 1 : 0;
    return count;
}

TEST(SymbolArt, EverySymbolIsDrawnOnATransparentGroundWithinItsBox)
{
    ASSERT_GE(AllSymbols().size(), 24U);
    for (const SymbolArt& symbol : AllSymbols()) {
        SCOPED_TRACE(symbol.name);
        const QImage image = RenderSymbol(symbol);
        EXPECT_EQ(image.size(), symbol.box + QSize(2 * SymbolMargin, 2 * SymbolMargin));
        ASSERT_TRUE(image.hasAlphaChannel());
        EXPECT_GT(Count(image, Solid), 60) << "ink";
        EXPECT_LT(Count(image, Faint), image.width() * image.height()) << "ground that shows through";
        for (int x = 0; x < image.width(); ++x) {
            EXPECT_LT(qAlpha(image.pixel(x, 0)), Solid) << "cut off at the top, x " << x;
            EXPECT_LT(qAlpha(image.pixel(x, image.height() - 1)), Solid) << "cut off at the bottom, x " << x;
        }
        for (int y = 0; y < image.height(); ++y) {
            EXPECT_LT(qAlpha(image.pixel(0, y)), Solid) << "cut off at the left, y " << y;
            EXPECT_LT(qAlpha(image.pixel(image.width() - 1, y)), Solid) << "cut off at the right, y " << y;
        }
    }
}

TEST(SymbolArt, SymbolsFitOnTeeth)
{
    for (const SymbolArt& symbol : AllSymbols()) {
        SCOPED_TRACE(symbol.name);
        EXPECT_GE(std::max(symbol.box.width(), symbol.box.height()), 24);
        EXPECT_LE(symbol.box.width(), 72);
        EXPECT_LE(symbol.box.height(), 64);
    }
}

TEST(SymbolArt, NoTwoSymbolsLookOrAreCalledAlike)
{
    const std::vector<SymbolArt>& symbols = AllSymbols();
    for (std::size_t i = 0; i < symbols.size(); ++i) {
        EXPECT_EQ(FindSymbol(symbols[i].Name()), &symbols[i]) << symbols[i].name;
        const QImage one = RenderSymbol(symbols[i]);
        for (std::size_t j = i + 1; j < symbols.size(); ++j) {
            const QSize both = one.size().expandedTo(RenderSymbol(symbols[j]).size());
            const QImage a = one.copy(QRect(QPoint(), both));
            const QImage b = RenderSymbol(symbols[j]).copy(QRect(QPoint(), both));
            int different = 0;
            for (int y = 0; y < both.height(); ++y)
                for (int x = 0; x < both.width(); ++x)
                    different += std::abs(qAlpha(a.pixel(x, y)) - qAlpha(b.pixel(x, y))) > 100 ? 1 : 0;
            EXPECT_GT(different, 40) << symbols[i].name << " and " << symbols[j].name;
        }
    }
    EXPECT_EQ(FindSymbol(QStringLiteral("carie")), nullptr);
}

TEST(SymbolArt, SymbolsStandOutFromTeethGumsAndDarkGrounds)
{
    const QRgb grounds[] = {qRgb(250, 246, 232), qRgb(242, 200, 206), qRgb(40, 50, 60)};
    for (const SymbolArt& symbol : AllSymbols()) {
        const QImage image = RenderSymbol(symbol);
        for (const QRgb ground : grounds)
            EXPECT_GT(Standing(On(image, ground), ground), 60) << symbol.name << " on " << qGray(ground);
    }
}

TEST(SymbolArt, AContourSurroundsTheInkButDoesNotLieUnderIt)
{
    const QImage crown = RenderSymbol(*FindSymbol(QStringLiteral("Capsula provvisoria")));
    const QRgb inside = crown.pixel(crown.width() / 4, crown.height() / 2);
    EXPECT_LT(qAlpha(inside), Solid) << "the tooth shows through";
    const QImage cross = RenderSymbol(*FindSymbol(QStringLiteral("Estrazione")));
    int light = 0;
    for (int x = 0; x < cross.width() / 2; ++x) {
        const QRgb pixel = cross.pixel(x, cross.height() / 4);
        light += qAlpha(pixel) > 60 && qAlpha(pixel) < Solid && qGray(pixel) > 230 ? 1 : 0;
    }
    EXPECT_GT(light, 0);
}

TEST(SymbolArt, ALargerPictureShowsTheSameDrawing)
{
    const SymbolArt& implant = *FindSymbol(QStringLiteral("Impianto"));
    const QImage small = RenderSymbol(implant);
    const QImage large = RenderSymbol(implant, 3);
    EXPECT_EQ(large.size(), small.size() * 3);
    EXPECT_NEAR(Count(large, Solid) / 9.0, Count(small, Solid), Count(small, Solid) * 0.25);
}

/// Upright rectangle that a placement covers; half turns and none are all there are.
QRect Covered(const SamplePlacement& placement)
{
    const QSize size = RenderSymbol(*FindSymbol(placement.symbol)).size();
    return {placement.corner, size * placement.scale / 100};
}

TEST(SamplePlacements, EachSymbolLiesOnATooth)
{
    QMap<int, int> perPatient;
    for (const SamplePlacement& placement : SamplePlacements()) {
        ++perPatient[placement.patient];
        ASSERT_NE(FindSymbol(placement.symbol), nullptr) << placement.symbol.toStdString();
        EXPECT_TRUE(placement.angle == 0 || placement.angle == 180);
        const QRect covered = Covered(placement);
        EXPECT_TRUE(QRect(QPoint(), PictureSize()).contains(covered)) << placement.symbol.toStdString();
        const auto& teeth = PlacedTeeth();
        EXPECT_TRUE(std::any_of(teeth.begin(), teeth.end(), [&](const PlacedTooth& tooth) {
            return tooth.rect.adjusted(0, -6, 0, 6).contains(covered.center());
        })) << placement.symbol.toStdString();
    }
    EXPECT_EQ(perPatient, (QMap<int, int>{{AdultPatient, 14}, {ChildPatient, 3}, {LargePatient, 50}}));
}

} // namespace
} // namespace vorn::demo
