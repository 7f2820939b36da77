#include "demo/symbols/families.h"
#include "demo/symbols/symbol_ink.h"

namespace vorn::demo {

namespace {

using namespace ink;

/// Four wings, the wire in the slot, and the ligature that holds it.
void Bracket(QPainter& p)
{
    QPainterPath base;
    base.addRoundedRect(QRectF(7, 2, 26, 24), 4, 4);
    Shape(p, base, Steel(7, 33), Metal, 1.5);
    Stroke(p, Polyline({{2.5, 14}, {37.5, 14}}), Metal, 4.4);
    Stroke(p, Polyline({{2.5, 13.4}, {37.5, 13.4}}), QColor(0xE4, 0xEA, 0xEF), 1.8);
    const QPainterPath wings[] = {Polyline({{11, 6}, {17, 6}, {17, 10}, {11, 10}, {11, 6}}),
        Polyline({{23, 6}, {29, 6}, {29, 10}, {23, 10}, {23, 6}}),
        Polyline({{11, 18}, {17, 18}, {17, 22}, {11, 22}, {11, 18}}),
        Polyline({{23, 18}, {29, 18}, {29, 22}, {23, 22}, {23, 18}})};
    for (const QPainterPath& wing : wings)
        Shape(p, wing, QColor(0xF7, 0xF9, 0xFB), Metal, 1.4);
    for (const double x : {14.0, 26.0})
        Stroke(p, Polyline({{x, 10}, {x, 18}}), Movement, 2.4);
}

/// A band around one tooth, and the loop that keeps the gap before the next open.
void SpaceMaintainer(QPainter& p)
{
    const QPainterPath loop = SmoothOpen({{20, 8}, {36, 6}, {51, 7}, {54, 14}, {51, 21}, {36, 22}, {20, 20}});
    Stroke(p, loop, Metal, 4.0);
    Stroke(p, loop, QColor(0xE4, 0xEA, 0xEF), 1.6);
    const QPainterPath band
        = SmoothClosed({{2, 4, true}, {12, 6}, {23, 4, true}, {23, 24, true}, {12, 26}, {2, 24, true}});
    Shape(p, band, Steel(2, 23), Metal, 1.6);
    Arrow(p, {38, 14}, {28, 14}, Movement, 2.2, 6);
    Arrow(p, {38, 14}, {48, 14}, Movement, 2.2, 6);
}

void Rotation(QPainter& p)
{
    QPainterPath turn;
    const QRectF circle(5, 5, 32, 32);
    turn.arcMoveTo(circle, 60);
    turn.arcTo(circle, 60, 285);
    QPen pen = Pen(Movement, 4);
    p.strokePath(turn, pen);
    ArrowHead(p, {38.5, 17}, -72, Movement, 13);
}

/// A tooth's way along the arch.
void Drift(QPainter& p)
{
    Stroke(p, Polyline({{3, 4}, {3, 22}}), Movement, 2.6);
    Stroke(p, Polyline({{9, 7}, {9, 19}}), WithAlpha(Movement, 0.75), 2.2);
    Arrow(p, {12, 13}, {48, 13}, Movement, 4.6, 15);
}

/// Out of the socket, beyond the line of the neighbours.
void Extrusion(QPainter& p)
{
    p.strokePath(Polyline({{2, 20}, {32, 20}}), DashedPen(Movement, 2.0));
    Arrow(p, {17, 46}, {17, 2}, Movement, 4.6, 14);
}

/// Two teeth that leave a gap between them.
void Diastema(QPainter& p)
{
    const QPainterPath left = SmoothOpen({{3, 3, true}, {11, 5}, {13.5, 15}, {11, 26}, {7, 33}});
    Stroke(p, left, IvoryEdge, 3.0);
    Stroke(p, QTransform(-1, 0, 0, 1, 46, 0).map(left), IvoryEdge, 3.0);
    Stroke(p, Polyline({{23, 9}, {23, 27}}), Movement, 1.6);
    Arrow(p, {23, 18}, {14.5, 18}, Movement, 2.4, 6.5);
    Arrow(p, {23, 18}, {31.5, 18}, Movement, 2.4, 6.5);
}

const SymbolArt Symbols[] = {
    {"Attacco ortodontico", {40, 28}, Spot::Crown, Bracket},
    {"Mantenitore di spazio", {57, 28}, Spot::Crown, SpaceMaintainer},
    {"Rotazione", {44, 41}, Spot::Crown, Rotation},
    {"Deriva", {50, 26}, Spot::Crown, Drift},
    {"Estrusione", {34, 48}, Spot::Middle, Extrusion},
    {"Diastema", {46, 36}, Spot::Crown, Diastema},
};

} // namespace

std::span<const SymbolArt> OrthodonticSymbols()
{
    return Symbols;
}

} // namespace vorn::demo
