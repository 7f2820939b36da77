#include "demo/symbols/families.h"
#include "demo/symbols/symbol_ink.h"

#include <QLinearGradient>
#include <QRadialGradient>

namespace vorn::demo {

namespace {

using namespace ink;

QBrush GuttaPercha()
{
    QLinearGradient filled(0, 0, 0, 58);
    filled.setColorAt(0, QColor(0xF7, 0x9A, 0x62));
    filled.setColorAt(1, Filling);
    return filled;
}

void SingleCanal(QPainter& p)
{
    const QPainterPath canal = SmoothClosed(
        {{2, 3}, {7, 1}, {12, 3}, {12, 12}, {10, 26}, {8.4, 44}, {7, 57, true}, {5.6, 44}, {4, 26}, {2, 12}});
    Shape(p, canal, GuttaPercha(), FillingEdge, 1.5);
}

/// The pulp chamber with its horns and two filled canals.
void TwoCanals(QPainter& p)
{
    const QPainterPath pulp = SmoothClosed(
        {{9, 2, true}, {13, 6}, {20, 7}, {27, 6}, {31, 2, true}, {33, 10}, {35, 22}, {37, 38}, {36, 53, true}, {33, 38},
            {29, 23}, {25, 16}, {20, 15}, {15, 16}, {11, 23}, {7, 38}, {4, 53, true}, {3, 38}, {5, 22}, {7, 10}});
    Shape(p, pulp, GuttaPercha(), FillingEdge, 1.5);
}

/// Only the chamber is filled; the canals go on empty.
void Pulpotomy(QPainter& p)
{
    const QPainterPath canals[] = {SmoothOpen({{7, 14}, {4, 22}, {3, 32}}), SmoothOpen({{23, 14}, {26, 22}, {27, 32}})};
    for (const QPainterPath& canal : canals)
        p.strokePath(canal, DashedPen(FillingEdge, 1.5));
    const QPainterPath chamber = SmoothClosed(
        {{4, 1, true}, {9, 5}, {15, 6}, {21, 5}, {26, 1, true}, {28, 9}, {25, 15}, {15, 14}, {5, 15}, {2, 9}});
    Shape(p, chamber, GuttaPercha(), FillingEdge, 1.5);
}

/// A core on a ribbed post that tapers into the root.
void Post(QPainter& p)
{
    const QPainterPath post = Polyline({{8, 18}, {16, 18}, {14, 54}, {12, 57}, {10, 54}, {8, 18}});
    Shape(p, post, Steel(8, 16), Metal, 1.4);
    for (double y = 24; y < 52; y += 5)
        Stroke(p, Polyline({{8.6, y + 1.2}, {15.2, y - 1.2}}), Metal, 1.0);
    const QPainterPath core = SmoothClosed({{3, 19, true}, {5, 6}, {8, 1}, {16, 1}, {19, 6}, {21, 19, true}});
    Shape(p, core, Lit({2, 0, 20, 20}, QColor(0xD6, 0xEA, 0xFC), QColor(0x5F, 0xA0, 0xDE)), Work);
}

/// A root whose tip is cut off aslant and sealed from below.
void Apicoectomy(QPainter& p)
{
    const QPainterPath root = Polyline({{8, 1}, {24, 1}, {21.5, 18}, {11.5, 22}, {8, 1}});
    Shape(p, root, Lit({6, 0, 20, 24}, Ivory, QColor(0xD9, 0xBE, 0x8C)), IvoryEdge, 1.4);
    Stroke(p, Polyline({{16, 1}, {16.3, 14}}), Filling, 3.0);
    Stroke(p, Polyline({{16.3, 15.5}, {16.5, 18.4}}), Work, 4.4);
    p.strokePath(SmoothOpen({{12.4, 27}, {15, 35}, {18, 36}, {20, 31}, {21, 23.6}}), DashedPen(Finding, 1.5));
    Stroke(p, Polyline({{2, 27.2}, {30, 16.4}}), Finding, 2.2);
}

/// Pus in a reddened swelling around the root tip.
void Abscess(QPainter& p)
{
    const QPainterPath swelling = SmoothClosed(
        {{3, 12}, {9, 4}, {17, 2}, {25, 5}, {30, 13}, {28, 22}, {21, 27}, {17, 25.5}, {12, 29}, {5, 25}, {1.5, 19}});
    QRadialGradient pus(QPointF(16, 13), 18);
    pus.setColorAt(0.00, QColor(0xFF, 0xF6, 0xC4));
    pus.setColorAt(0.40, QColor(0xF7, 0xD8, 0x7C));
    pus.setColorAt(0.62, QColor(0xE2, 0x5A, 0x52));
    pus.setColorAt(1.00, QColor(0xA8, 0x16, 0x24));
    Shape(p, swelling, pus, QColor(0x8E, 0x12, 0x1E), 1.6);
    Stroke(p, SmoothOpen({{7, 14}, {10, 8.5}, {15, 6}}), WithAlpha(Qt::white, 0.8), 1.8);
    const QColor bubble(0xC9, 0x8F, 0x2A);
    for (const QPointF& at : {QPointF(13, 14), QPointF(19, 11), QPointF(18, 17)}) {
        QPainterPath ring;
        ring.addEllipse(at, 1.7, 1.7);
        Stroke(p, ring, bubble, 1.0);
    }
}

const SymbolArt Symbols[] = {
    {"Devitalizzazione, un canale", {14, 58}, Spot::Root, SingleCanal},
    {"Devitalizzazione, due canali", {40, 55}, Spot::Root, TwoCanals},
    {"Pulpotomia", {30, 34}, Spot::Crown, Pulpotomy},
    {"Perno moncone", {24, 58}, Spot::Root, Post},
    {"Apicectomia", {32, 38}, Spot::Apex, Apicoectomy},
    {"Ascesso", {32, 31}, Spot::Apex, Abscess},
};

} // namespace

std::span<const SymbolArt> EndodonticSymbols()
{
    return Symbols;
}

} // namespace vorn::demo
