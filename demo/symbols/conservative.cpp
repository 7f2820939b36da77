#include "demo/symbols/families.h"
#include "demo/symbols/symbol_ink.h"

#include <QRadialGradient>

namespace vorn::demo {

namespace {

using namespace ink;

/// A brown hole with ragged edges.
void Caries(QPainter& p)
{
    const QPainterPath hole = SmoothClosed({{3, 10}, {5, 5}, {9, 5}, {11, 1}, {16, 3}, {20, 2}, {22, 7}, {25, 10},
        {22, 15}, {23, 19}, {18, 19}, {14, 22}, {10, 19}, {5, 20}, {5, 15}});
    QRadialGradient depth(QPointF(13, 11), 12);
    depth.setColorAt(0.0, QColor(0x1E, 0x10, 0x08));
    depth.setColorAt(0.5, QColor(0x55, 0x30, 0x16));
    depth.setColorAt(1.0, QColor(0x9A, 0x62, 0x2E));
    Shape(p, hole, depth, Finding, 1.6);
}

/// A filling on the biting surface, with the grooves carved into it.
void OneSurface(QPainter& p)
{
    const QPainterPath leaf = SmoothClosed(
        {{1, 11}, {3, 4}, {9, 1}, {15, 4}, {21, 1}, {27, 4}, {29, 11}, {27, 18}, {21, 21}, {15, 18}, {9, 21}, {3, 18}});
    Shape(p, leaf, Lit({0, 0, 30, 22}, QColor(0xC8, 0xE4, 0xFC), QColor(0x4C, 0x93, 0xD8)), Work);
    Stroke(p, SmoothOpen({{9, 11}, {15, 10.4}, {21, 11}}), Work, ThinLine);
    for (const QPainterPath& groove : {Polyline({{9, 11}, {6, 7}}), Polyline({{9, 11}, {6, 15}}),
             Polyline({{21, 11}, {24, 7}}), Polyline({{21, 11}, {24, 15}})})
        Stroke(p, groove, Work, ThinLine);
}

/// A dovetail on the biting surface, which runs out over the side of the tooth in a box.
void TwoSurfaces(QPainter& p)
{
    const QPainterPath filling = SmoothClosed({{1, 7}, {6, 1}, {12, 5}, {17, 6}, {21, 3, true}, {35, 3, true},
        {35, 25, true}, {22, 25, true}, {20, 16, true}, {16, 15}, {12, 16}, {6, 21}, {1, 15}, {4, 11}});
    Shape(p, filling, Lit({0, 0, 36, 26}, QColor(0xBF, 0xDF, 0xFA), QColor(0x4C, 0x93, 0xD8)), Work);
    Stroke(p, Polyline({{22.5, 16}, {35, 16}}), Work, ThinLine);
}

/// A milled block with bevelled edges.
void Inlay(QPainter& p)
{
    const QPainterPath block = Polyline({{6, 1}, {30, 1}, {35, 8}, {31, 23}, {5, 23}, {1, 8}, {6, 1}});
    Shape(p, block, Lit({0, 0, 36, 24}, Qt::white, QColor(0x8F, 0xBE, 0xEA)), Work);
    Stroke(p, Polyline({{10, 6}, {26, 6}, {29, 10}, {26, 18}, {10, 18}, {7, 10}, {10, 6}}), Work, ThinLine);
    for (const auto& [outer, inner] :
        {std::pair(QPointF(6, 1), QPointF(10, 6)), std::pair(QPointF(30, 1), QPointF(26, 6)),
            std::pair(QPointF(31, 23), QPointF(26, 18)), std::pair(QPointF(5, 23), QPointF(10, 18))})
        Stroke(p, Polyline({outer, inner}), Work, ThinLine);
}

/// The grooves of a molar, flooded.
void Sealant(QPainter& p)
{
    QPainterPath grooves = SmoothOpen({{3, 13}, {10, 11}, {18, 14}, {26, 11}, {33, 13}});
    for (const QPainterPath& branch : {SmoothOpen({{10, 11}, {8, 6}, {9, 2}}), SmoothOpen({{10, 11}, {7, 17}, {8, 22}}),
             SmoothOpen({{26, 11}, {28, 6}, {27, 2}}), SmoothOpen({{26, 11}, {29, 17}, {28, 22}})})
        grooves.addPath(branch);
    Stroke(p, grooves, Work, 5.6);
    Stroke(p, grooves, QColor(0x74, 0xD3, 0xE8), 3.0);
    Stroke(p, grooves.translated(-0.5, -0.6), WithAlpha(Qt::white, 0.75), 0.9);
}

/// A jagged line from the biting edge down, with a side crack.
void Fracture(QPainter& p)
{
    const QPainterPath crack = Polyline({{13, 1}, {8, 10}, {15, 16}, {8, 26}, {15, 32}, {10, 43}});
    const QPainterPath side = Polyline({{15, 16}, {22, 21}});
    Stroke(p, crack, Finding, 3.0);
    Stroke(p, side, Finding, 2.2);
    Stroke(p, crack, QColor(0x4A, 0x08, 0x0C), 1.1);
}

const SymbolArt Symbols[] = {
    {"Carie", {27, 23}, Spot::Crown, Caries},
    {"Otturazione", {30, 22}, Spot::Crown, OneSurface},
    {"Otturazione due superfici", {36, 26}, Spot::Crown, TwoSurfaces},
    {"Intarsio", {36, 24}, Spot::Crown, Inlay},
    {"Sigillatura", {36, 24}, Spot::Crown, Sealant},
    {"Frattura", {23, 44}, Spot::Crown, Fracture},
};

} // namespace

std::span<const SymbolArt> ConservativeSymbols()
{
    return Symbols;
}

} // namespace vorn::demo
