#include "demo/symbols/families.h"
#include "demo/symbols/symbol_ink.h"

#include <QLinearGradient>

namespace vorn::demo {

namespace {

using namespace ink;

/// A tooth that gives way to both sides.
void Mobility(QPainter& p)
{
    for (const double lean : {-9.0, 9.0}) {
        p.save();
        p.translate(26, 30);
        p.rotate(lean);
        p.strokePath(LittleTooth({-8, -28, 16, 27}), Pen(WithAlpha(IvoryEdge, 0.55), 1.1));
        p.restore();
    }
    const QRectF box(18, 3, 16, 26);
    Shape(p, LittleTooth(box), Lit(box, Qt::white, QColor(0xEA, 0xD8, 0xAE)), IvoryEdge, 1.4);
    Arrow(p, {13, 10}, {1, 10}, Finding);
    Arrow(p, {39, 10}, {51, 10}, Finding);
}

/// The gum has sunk from the dashed line.
void Recession(QPainter& p)
{
    const std::vector<OutlineNode> margin
        = {{2, 9}, {8, 9}, {13, 15}, {18, 26}, {24, 29}, {30, 26}, {35, 15}, {40, 9}, {46, 9}};
    QPainterPath gum = SmoothOpen(margin);
    gum.lineTo(46, 38);
    gum.quadTo(24, 42, 2, 38);
    gum.closeSubpath();
    p.fillPath(gum, Lit({2, 8, 44, 32}, QColor(0xF9, 0xBF, 0xC7), QColor(0xE0, 0x78, 0x8B)));
    Stroke(p, SmoothOpen(margin), GumEdge, 2.0);
    p.strokePath(SmoothOpen({{6, 7}, {14, 9}, {24, 10}, {34, 9}, {42, 7}}), DashedPen(Finding, 1.5));
    Arrow(p, {24, 2}, {24, 25}, Finding, 3.0, 9);
}

/// A probe with its marks, and how deep it went.
void Pocket(QPainter& p)
{
    const QPainterPath probe = SmoothOpen({{2, 3}, {11, 3}, {14, 7}, {14.5, 22}, {15, 49}});
    Stroke(p, probe, Metal, 4.2);
    Stroke(p, probe, MetalLight, 2.0);
    for (const double y : {24.0, 34.0, 44.0})
        Stroke(p, Polyline({{12.8, y}, {16.8, y}}), QColor(0x20, 0x28, 0x30), 2.6);
    Stroke(p, Polyline({{26, 20}, {26, 50}}), Finding, 2.0);
    Stroke(p, Polyline({{22.5, 20}, {29.5, 20}}), Finding, 2.0);
    Stroke(p, Polyline({{22.5, 50}, {29.5, 50}}), Finding, 2.0);
}

/// A crust along the neck of the tooth.
void Tartar(QPainter& p)
{
    const QPainterPath crust
        = SmoothClosed({{2, 10}, {5, 4}, {10, 6}, {14, 2}, {19, 6}, {24, 3}, {29, 6}, {33, 2}, {38, 6}, {42, 4},
            {45, 10}, {42, 15}, {37, 13}, {33, 18}, {28, 14}, {24, 19}, {19, 14}, {14, 18}, {10, 13}, {5, 15}});
    QLinearGradient scale(0, 2, 0, 19);
    scale.setColorAt(0, QColor(0xF5, 0xE1, 0x8A));
    scale.setColorAt(1, QColor(0xB9, 0x86, 0x2B));
    Shape(p, crust, scale, QColor(0x70, 0x4A, 0x10), 1.5);
    const QColor speck(0x84, 0x5A, 0x1A);
    for (const QPointF& at :
        {QPointF(9, 10), QPointF(15, 8), QPointF(20, 11), QPointF(26, 8), QPointF(31, 11), QPointF(37, 9)})
        Stroke(p, Polyline({at, at + QPointF(1.2, 0.4)}), speck, 1.8);
}

void Bleeding(QPainter& p)
{
    const QPainterPath drop
        = SmoothClosed({{11, 1, true}, {15, 9}, {20, 17}, {20, 24}, {15, 29}, {7, 29}, {2, 24}, {2, 17}, {7, 9}});
    Shape(p, drop, Lit({2, 4, 18, 26}, QColor(0xF0, 0x56, 0x58), QColor(0xA8, 0x10, 0x1C)), QColor(0x7C, 0x0A, 0x14),
        1.5);
    Stroke(p, SmoothOpen({{6, 19}, {6, 23}, {9, 26}}), WithAlpha(Qt::white, 0.85), 2.0);
}

const SymbolArt Symbols[] = {
    {"Mobilità", {52, 32}, Spot::Bite, Mobility},
    {"Recessione gengivale", {48, 41}, Spot::Neck, Recession},
    {"Tasca parodontale", {32, 52}, Spot::Neck, Pocket},
    {"Tartaro", {47, 21}, Spot::Neck, Tartar},
    {"Sanguinamento", {22, 31}, Spot::Neck, Bleeding, true},
};

} // namespace

std::span<const SymbolArt> PeriodontalSymbols()
{
    return Symbols;
}

} // namespace vorn::demo
