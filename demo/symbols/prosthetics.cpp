#include "demo/symbols/families.h"
#include "demo/symbols/symbol_ink.h"

namespace vorn::demo {

namespace {

using namespace ink;

const QColor CeramicLight(0xF2, 0xF9, 0xFF);
const QColor CeramicDark(0x8D, 0xBD, 0xEA);

/// The three grooves that make a molar's crown out of an outline.
void CrownGrooves(QPainter& p, const QRectF& box, const QColor& color)
{
    const double x = box.center().x();
    const double y = box.top() + box.height() * 0.16;
    Stroke(p, SmoothOpen({{x, y}, {x - 0.6, y + box.height() * 0.16}, {x, y + box.height() * 0.34}}), color, ThinLine);
}

void Crown(QPainter& p)
{
    const QRectF box(1, 1, 44, 36);
    const QPainterPath cap = MolarCrown(box);
    Shape(p, cap, Lit(box, CeramicLight, CeramicDark), Work, 2.2);
    // The margin that closes on the stump.
    p.save();
    p.setClipPath(cap);
    Stroke(p, SmoothOpen({{0, 25}, {11, 30}, {23, 29}, {35, 30}, {46, 25}}), Work, ThinLine);
    Stroke(p, SmoothOpen({{6, 16}, {8, 9}, {13, 6}}), Qt::white, 2.6);
    p.restore();
    CrownGrooves(p, box, Work);
}

void ProvisionalCrown(QPainter& p)
{
    const QRectF box(1, 1, 44, 36);
    const QPainterPath cap = MolarCrown(box);
    p.fillPath(cap, WithAlpha(AttentionLight, 0.62));
    p.strokePath(cap, DashedPen(Attention, 2.2));
    CrownGrooves(p, box, Attention);
}

/// A hanging tooth with the bars that carry it.
void BridgeSpan(QPainter& p)
{
    const QPainterPath bar = Polyline({{1, 14}, {63, 14}, {63, 22}, {1, 22}, {1, 14}});
    Shape(p, bar, Lit({0, 12, 64, 12}, QColor(0xCF, 0xE4, 0xF8), QColor(0x5F, 0x9B, 0xD6)), Work, 1.6);
    const QPainterPath hanging = SmoothClosed({{14, 14}, {18, 4}, {25, 2}, {32, 7, true}, {39, 2}, {46, 4}, {50, 14},
        {49, 23}, {43, 32}, {32, 36}, {21, 32}, {15, 23}});
    Shape(p, hanging, Lit({14, 0, 36, 38}, CeramicLight, CeramicDark), Work, 2.0);
    Stroke(p, SmoothOpen({{19, 15}, {21, 9}, {25, 7}}), Qt::white, 2.2);
    CrownGrooves(p, {14, 2, 36, 34}, Work);
}

/// A thin shell before an incisor; its thickness shows at one side.
void Veneer(QPainter& p)
{
    const QPainterPath shell = SmoothClosed(
        {{4, 3, true}, {17, 1.5}, {31, 3, true}, {33, 16}, {30, 30}, {24, 39}, {17, 41}, {10, 39}, {5, 30}, {2, 16}});
    Shape(p, shell, Lit({2, 0, 32, 42}, WithAlpha(CeramicLight, 0.95), WithAlpha(CeramicDark, 0.85)), Work, 2.0);
    const QPainterPath inside = SmoothOpen({{28, 4}, {29.5, 16}, {27, 28}, {22, 36}, {16, 38}});
    Stroke(p, inside, Work, ThinLine);
    for (const double shift : {0.0, 5.5})
        Stroke(p, Polyline({{8 + shift, 19 - shift * 0.2}, {14 + shift, 8 - shift * 0.2}}), Qt::white, 2.4);
}

/// Teeth on a pink saddle, with a clasp at each end.
void RemovableProsthesis(QPainter& p)
{
    const QPainterPath clasps[]
        = {SmoothOpen({{10, 25}, {3, 22}, {2, 14}, {6, 10}}), SmoothOpen({{62, 25}, {69, 22}, {70, 14}, {66, 10}})};
    for (const QPainterPath& clasp : clasps) {
        Stroke(p, clasp, Metal, 3.0);
        Stroke(p, clasp, QColor(0xD5, 0xDD, 0xE4), 1.2);
    }
    const QRectF teeth[] = {{11, 2, 16, 20}, {28, 1, 16, 21}, {45, 2, 16, 20}};
    for (const QRectF& tooth : teeth)
        Shape(p, MolarCrown(tooth), Lit(tooth, Qt::white, QColor(0xE9, 0xDC, 0xBD)), IvoryEdge, 1.3);
    const QPainterPath saddle = SmoothClosed({{7, 20}, {12, 17}, {19, 20}, {27.5, 16}, {36, 20}, {44.5, 16}, {53, 20},
        {60, 17}, {65, 20}, {65, 29}, {54, 32}, {36, 30}, {18, 32}, {7, 29}});
    Shape(p, saddle, Lit({6, 16, 60, 18}, QColor(0xF8, 0xBB, 0xC3), QColor(0xDF, 0x76, 0x88)), GumEdge, 1.6);
}

const SymbolArt Symbols[] = {
    {"Capsula", {46, 38}, Spot::Crown, Crown},
    {"Capsula provvisoria", {46, 38}, Spot::Crown, ProvisionalCrown},
    {"Elemento di ponte", {64, 38}, Spot::Crown, BridgeSpan},
    {"Faccetta", {35, 42}, Spot::Crown, Veneer},
    {"Protesi mobile", {72, 34}, Spot::Bite, RemovableProsthesis},
};

} // namespace

std::span<const SymbolArt> ProstheticSymbols()
{
    return Symbols;
}

} // namespace vorn::demo
