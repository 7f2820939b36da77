#include "demo/dentition/surroundings.h"

#include "demo/dentition/layout.h"
#include "demo/dentition/outline.h"

#include <QFont>
#include <QPainter>

#include <cmath>
#include <numbers>

namespace vorn::demo {

namespace {

const QColor Ink(78, 92, 106);
const QColor FaintInk(150, 162, 172);
const QColor Line(206, 212, 217);
const QColor Gum(232, 134, 124, 10);

QFont SansFont(int pixels, bool bold)
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

void DrawCentred(QPainter& painter, const QPointF& middle, const QString& text)
{
    painter.drawText(QRectF(middle.x() - 60, middle.y() - 12, 120, 24), Qt::AlignCenter, text);
}

using Row = std::vector<const PlacedTooth*>;

/// The gums of one row of teeth, scalloped along the necks and `depth` millimetres deep in the middle.
QPainterPath GumOutline(const Row& row, double depth)
{
    const double unit = PermanentScale;
    const double margin = (2.0 - 0.16 * depth) * unit;
    const double toRoot = row.front()->number.Upper() ? -1 : 1;
    std::vector<OutlineNode> nodes;
    auto add = [&](const PlacedTooth& tooth, double x, double along) {
        nodes.push_back({x, tooth.shape.neckMiddle.y() + toRoot * along * unit});
    };
    auto crown = [](const PlacedTooth& tooth) { return tooth.shape.crown.boundingRect(); };
    const PlacedTooth& first = *row.front();
    const PlacedTooth& last = *row.back();
    add(first, crown(first).left() - margin, -0.4);
    for (size_t i = 0; i < row.size(); ++i) {
        const QRectF box = crown(*row[i]);
        add(*row[i], box.left() + box.width() * 0.2, -0.3);
        add(*row[i], box.center().x(), 0.25);
        add(*row[i], box.right() - box.width() * 0.2, -0.3);
        if (i + 1 == row.size())
            break;
        const double between = (box.right() + crown(*row[i + 1]).left()) / 2;
        const double neck = (row[i]->shape.neckMiddle.y() + row[i + 1]->shape.neckMiddle.y()) / 2;
        nodes.push_back({between, neck - toRoot * 3.0 * unit});
    }
    add(last, crown(last).right() + margin, -0.4);
    add(last, crown(last).right() + margin, depth * 0.35);
    for (size_t i = row.size(); i-- > 0;) {
        const bool end = i == 0 || i + 1 == row.size();
        add(*row[i], crown(*row[i]).center().x(), end ? depth * 0.8 : depth);
    }
    add(first, crown(first).left() - margin, depth * 0.35);
    return SmoothClosed(nodes);
}

/// Lays the gums in ever deeper sheets over each other, so that they fade out towards the root tips.
void PaintGums(QPainter& painter, const Row& row)
{
    constexpr int Sheets = 10;
    for (int sheet = 1; sheet <= Sheets; ++sheet)
        painter.fillPath(GumOutline(row, 0.8 + 7.0 * sheet / Sheets), Gum);
}

/// Only the permanent rows have gums: an adult's row of milk teeth, all veiled, stays quiet without.
void PaintAllGums(QPainter& painter)
{
    for (const bool upper : {true, false}) {
        Row row;
        for (const PlacedTooth& tooth : PlacedTeeth()) {
            if (tooth.number.Upper() == upper && !tooth.number.Deciduous())
                row.push_back(&tooth);
        }
        PaintGums(painter, row);
    }
}

void PaintCross(QPainter& painter)
{
    const QPointF middle = PictureMiddle();
    painter.setPen(QPen(Line, 1.0));
    const double top = 40, bottom = PictureSize().height() - 40.0;
    painter.drawLine(QPointF(middle.x(), top), QPointF(middle.x(), bottom));
    const double reach = PictureSize().width() / 2.0 - UpperArchArea().right() - 12;
    painter.drawLine(QPointF(middle.x() - reach, middle.y()), QPointF(middle.x() + reach, middle.y()));
}

/// A dental arch seen from above: small teeth along half an ellipse, open below (`up`) or above.
void PaintArch(QPainter& painter, const QPointF& middle, double halfWidth, double height, bool up, double size)
{
    painter.setPen(QPen(QColor(150, 140, 118), 0.7));
    painter.setBrush(QColor(250, 246, 236));
    constexpr int Teeth = 14;
    for (int i = 0; i < Teeth; ++i) {
        const double turn = std::numbers::pi * (i + 0.5) / Teeth;
        const double sign = up ? -1 : 1;
        const QPointF at(middle.x() - halfWidth * std::cos(turn), middle.y() + sign * height * std::sin(turn));
        const double middleness = std::sin(turn);
        const double along = size * (1.25 - 0.35 * middleness);
        painter.save();
        painter.translate(at);
        painter.rotate(std::atan2(sign * height * std::cos(turn), halfWidth * std::sin(turn)) * 180 / std::numbers::pi);
        painter.drawRoundedRect(QRectF(-along / 2, -size * 0.5, along, size), size * 0.35, size * 0.35);
        painter.restore();
    }
}

void PaintPlate(QPainter& painter, const QRect& area)
{
    painter.setPen(QPen(Line, 1.0));
    painter.setBrush(QColor(252, 253, 253));
    painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
}

void PaintArchArea(QPainter& painter, const QRect& area, bool upper)
{
    PaintPlate(painter, area);
    const QPointF middle = QRectF(area).center();
    PaintArch(painter, middle + QPointF(0, upper ? 8 : -16), 20, 26, upper, 6.2);
    painter.setFont(SansFont(11, true));
    painter.setPen(Ink);
    DrawCentred(painter, middle + QPointF(0, upper ? -1 : -7), upper ? QStringLiteral("AS") : QStringLiteral("AI"));
    painter.setFont(SansFont(9, false));
    painter.setPen(FaintInk);
    DrawCentred(painter, middle + QPointF(0, 22),
        upper ? QStringLiteral("arcata superiore") : QStringLiteral("arcata inferiore"));
}

} // namespace

QColor BackgroundColor()
{
    return {249, 250, 251};
}

void PaintBackground(QPainter& painter)
{
    painter.fillRect(QRect(QPoint(0, 0), PictureSize()), BackgroundColor());
    PaintCross(painter);
    PaintAllGums(painter);
}

void PaintCaptions(QPainter& painter)
{
    for (const PlacedTooth& tooth : PlacedTeeth()) {
        painter.setFont(SansFont(tooth.number.Deciduous() ? 11 : 13, !tooth.number.Deciduous()));
        painter.setPen(tooth.number.Deciduous() ? FaintInk.darker(125) : Ink);
        DrawCentred(painter, tooth.captionMiddle, tooth.number.Name());
    }
}

void PaintAreas(QPainter& painter)
{
    PaintArchArea(painter, UpperArchArea(), true);
    PaintArchArea(painter, LowerArchArea(), false);
    const QRect general = GeneralArea();
    painter.setPen(QPen(Line, 1.0));
    painter.setBrush(QColor(252, 253, 253));
    painter.drawEllipse(QRectF(general).adjusted(0.5, 0.5, -0.5, -0.5));
    const QPointF middle = QRectF(general).center();
    PaintArch(painter, middle + QPointF(0, -2.5), 13, 14, true, 4.2);
    PaintArch(painter, middle + QPointF(0, 2.5), 13, 14, false, 4.2);
    painter.setFont(SansFont(10, true));
    painter.setPen(Ink);
    DrawCentred(painter, middle, QStringLiteral("GL"));

    // The patient's right ("destra") is at the left of the picture.
    painter.setFont(SansFont(13, true));
    painter.setPen(FaintInk);
    DrawCentred(painter, {26, PictureMiddle().y()}, QStringLiteral("D"));
    DrawCentred(painter, {PictureSize().width() - 26.0, PictureMiddle().y()}, QStringLiteral("S"));
}

} // namespace vorn::demo
