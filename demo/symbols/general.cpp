#include "demo/symbols/families.h"
#include "demo/symbols/symbol_ink.h"

namespace vorn::demo {

namespace {

using namespace ink;

/// To be watched: an open eye.
void Watch(QPainter& p)
{
    const QPainterPath eye
        = SmoothClosed({{1, 14, true}, {8, 6}, {19, 2}, {30, 6}, {37, 14, true}, {30, 22}, {19, 26}, {8, 22}});
    Shape(p, eye, QColor(0xFF, 0xFB, 0xF0), Attention, 2.2);
    QPainterPath iris;
    iris.addEllipse(QPointF(19, 14), 8, 8);
    Shape(p, iris, Lit({11, 6, 16, 16}, AttentionLight, QColor(0xD8, 0x86, 0x10)), Attention, 1.4);
    QPainterPath pupil;
    pupil.addEllipse(QPointF(19, 14), 3.6, 3.6);
    p.fillPath(pupil, QColor(0x2A, 0x1A, 0x06));
    QPainterPath gleam;
    gleam.addEllipse(QPointF(16.6, 11.4), 1.8, 1.8);
    p.fillPath(gleam, Qt::white);
}

/// Pain at cold and touch.
void Sensitivity(QPainter& p)
{
    QPainterPath bolt = Polyline({{16, 1}, {3, 21}, {11, 21}, {7, 37}, {23, 14}, {14, 14}, {20, 1}});
    bolt.closeSubpath();
    Shape(p, bolt, Lit({3, 0, 20, 38}, QColor(0xFF, 0xE6, 0x8A), QColor(0xF5, 0xA6, 0x1B)), Attention, 1.7);
}

/// A film with a tooth on it.
void Radiograph(QPainter& p)
{
    QPainterPath film;
    film.addRoundedRect(QRectF(1, 1, 30, 40), 4, 4);
    Shape(p, film, Lit({0, 0, 32, 42}, QColor(0x46, 0x54, 0x62), QColor(0x12, 0x1A, 0x22)), QColor(0x0A, 0x10, 0x16),
        1.5);
    const QRectF box(7, 6, 18, 30);
    Shape(p, LittleTooth(box), Lit(box, Qt::white, QColor(0xA9, 0xB6, 0xC2)), QColor(0xD8, 0xE0, 0xE7), 1.0);
    Stroke(p, Polyline({{12, 13}, {20, 13}}), QColor(0x46, 0x54, 0x62), 1.8);
    Stroke(p, SmoothOpen({{12, 13}, {11, 21}, {10.5, 31}}), QColor(0x46, 0x54, 0x62), 1.2);
    Stroke(p, SmoothOpen({{20, 13}, {21, 21}, {21.5, 31}}), QColor(0x46, 0x54, 0x62), 1.2);
}

const SymbolArt Symbols[] = {
    {"Da controllare", {38, 28}, Spot::Crown, Watch, true},
    {"Sensibilità", {26, 38}, Spot::Neck, Sensitivity, true},
    {"Radiografia", {32, 42}, Spot::Middle, Radiograph, true},
};

} // namespace

std::span<const SymbolArt> GeneralSymbols()
{
    return Symbols;
}

} // namespace vorn::demo
