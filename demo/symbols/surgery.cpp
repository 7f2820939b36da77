#include "demo/symbols/families.h"
#include "demo/symbols/symbol_ink.h"

#include <QLinearGradient>

namespace vorn::demo {

namespace {

using namespace ink;

/// A titanium screw: connection, polished neck, tapered thread.
void Implant(QPainter& p)
{
    Shape(p, Polyline({{9, 1}, {17, 1}, {18, 9}, {8, 9}, {9, 1}}), Steel(8, 18), Metal, 1.3);
    const QPainterPath body
        = SmoothClosed({{6.5, 16, true}, {19.5, 16, true}, {18.5, 34}, {16.8, 52}, {13, 60}, {9.2, 52}, {7.5, 34}});
    Shape(p, body, Steel(6, 20), Metal, 1.3);
    for (int turn = 0; turn < 8; ++turn) {
        const double y = 20.5 + turn * 4.6;
        const double half = 9.2 - turn * 0.55;
        Stroke(p, Polyline({{13 - half, y + 1.3}, {13 + half, y - 1.3}}), Metal, 2.6);
        Stroke(p, Polyline({{13 - half + 0.6, y + 0.9}, {13 + half - 1.4, y - 1.3}}), QColor(0xC9, 0xD3, 0xDC), 1.0);
    }
    Shape(p, Polyline({{5, 9}, {21, 9}, {20, 16}, {6, 16}, {5, 9}}), Steel(5, 21), Metal, 1.3);
}

/// A crown with its screw channel on an abutment.
void ImplantCrown(QPainter& p)
{
    Shape(p, Polyline({{15, 32}, {31, 32}, {28, 46}, {18, 46}, {15, 32}}), Steel(15, 31), Metal, 1.4);
    const QRectF box(1, 1, 44, 34);
    const QPainterPath cap = MolarCrown(box);
    Shape(p, cap, Lit(box, QColor(0xF2, 0xF9, 0xFF), QColor(0x8D, 0xBD, 0xEA)), Work, 2.2);
    QPainterPath channel;
    channel.addEllipse(QPointF(23, 19), 7, 7);
    Shape(p, channel, Steel(16, 30), Metal, 1.5);
    Stroke(p, Polyline({{19.5, 19}, {26.5, 19}}), Metal, 2.0);
    Stroke(p, Polyline({{23, 15.5}, {23, 22.5}}), Metal, 2.0);
}

/// Granules of bone under a membrane.
void BoneGraft(QPainter& p)
{
    const QPointF granules[] = {{9, 20}, {17, 15}, {25, 12}, {33, 15}, {40, 20}, {14, 24}, {22, 21}, {30, 22}, {37, 26},
        {18, 29}, {26, 29}, {33, 30}};
    double turn = 0;
    for (const QPointF& at : granules) {
        p.save();
        p.translate(at);
        p.rotate(turn += 47);
        Shape(p, SmoothClosed({{-4, -1}, {-1, -3.4}, {3.4, -2}, {3.6, 1.6}, {0, 3.2}, {-3.4, 2}}),
            Lit({-4, -4, 8, 8}, QColor(0xFF, 0xF6, 0xDD), QColor(0xDB, 0xB9, 0x7C)), QColor(0x8A, 0x63, 0x2A), 1.1);
        p.restore();
    }
    Stroke(p, SmoothOpen({{2, 22}, {9, 9}, {25, 3}, {41, 9}, {48, 22}}), Work, 2.4);
}

void Extraction(QPainter& p)
{
    for (const QPainterPath& stroke : {Polyline({{4, 4}, {40, 40}}), Polyline({{40, 4}, {4, 40}})}) {
        Stroke(p, stroke, QColor(0x8E, 0x12, 0x1E), 6.4);
        Stroke(p, stroke, QColor(0xDD, 0x2F, 0x36), 4.2);
    }
}

/// A tooth lying in the bone.
void ImpactedTooth(QPainter& p)
{
    QPainterPath bone;
    bone.addEllipse(QRectF(1.5, 1.5, 47, 47));
    p.fillPath(bone, WithAlpha(QColor(0xF4, 0xDA, 0xC0), 0.75));
    p.strokePath(bone, DashedPen(Finding, 2.2));
    p.save();
    p.translate(25, 25);
    p.rotate(-62);
    const QRectF box(-10, -17, 20, 34);
    Shape(p, LittleTooth(box), Lit(box, Qt::white, QColor(0xEA, 0xD8, 0xAE)), IvoryEdge, 1.5);
    p.restore();
}

/// The floor of the maxillary sinus: air above, bone below.
void Sinus(QPainter& p)
{
    const std::vector<OutlineNode> floor
        = {{2, 3}, {6, 15}, {14, 23}, {22, 20}, {30, 25}, {40, 28}, {50, 23}, {58, 25}, {66, 15}, {70, 3}};
    QPainterPath air = SmoothOpen(floor);
    QPainterPath closed = air;
    closed.quadTo(36, -2, 2, 3);
    QLinearGradient depth(0, 0, 0, 30);
    depth.setColorAt(0, WithAlpha(QColor(0xA9, 0xD8, 0xF5), 0.25));
    depth.setColorAt(1, WithAlpha(QColor(0x6E, 0xB5, 0xE6), 0.85));
    p.fillPath(closed, depth);
    Stroke(p, air, Work, 2.4);
    Stroke(p, air.translated(0, 4.4), QColor(0xB9, 0x8A, 0x4A), 1.6);
}

const SymbolArt Symbols[] = {
    {"Impianto", {26, 61}, Spot::Root, Implant},
    {"Capsula su impianto", {46, 47}, Spot::Crown, ImplantCrown},
    {"Innesto osseo", {50, 34}, Spot::Root, BoneGraft},
    {"Estrazione", {44, 44}, Spot::Middle, Extraction},
    {"Dente incluso", {50, 50}, Spot::Root, ImpactedTooth},
    {"Seno mascellare", {72, 34}, Spot::Apex, Sinus, true},
};

} // namespace

std::span<const SymbolArt> SurgicalSymbols()
{
    return Symbols;
}

} // namespace vorn::demo
