#include "demo/dentition/zones.h"

#include "demo/dentition/layout.h"

#include <QStringList>

namespace vorn::demo {

namespace {

// A label of the usual 39 pixels stands about centred on its tooth when it starts this far left of its
// middle.
constexpr int LabelHalfWidth = 18;
constexpr int LabelGap = 3;
// From the middle of a printed deciduous number to the first label beyond it.
constexpr int CaptionClearance = 8;
constexpr int LabelHalfHeight = 7;

enum Direction { Left = 0, Up = 1, Right = 2, Down = 3 };

int Bottom(const QRect& rect)
{
    return rect.top() + rect.height();
}

int RightEdge(const QRect& rect)
{
    return rect.left() + rect.width();
}

ZoneShape ToothZone(const PlacedTooth& tooth)
{
    const int x = qRound(tooth.captionMiddle.x()) - LabelHalfWidth;
    const int caption = qRound(tooth.captionMiddle.y());
    const bool upper = tooth.number.Upper();
    if (tooth.number.Deciduous()) {
        return {tooth.number.Name(), tooth.rect, upper ? Down : Up,
            {x, upper ? caption + CaptionClearance : caption - CaptionClearance}};
    }
    return {tooth.number.Name(), tooth.rect, upper ? Up : Down,
        {x, upper ? tooth.rect.top() - LabelGap : Bottom(tooth.rect) + LabelGap}};
}

} // namespace

std::vector<ZoneShape> Zones()
{
    const QRect general = GeneralArea();
    const QRect upper = UpperArchArea();
    const QRect lower = LowerArchArea();
    std::vector<ZoneShape> zones = {
        {QStringLiteral("GL"), general, Down, {general.left(), Bottom(general) + LabelGap}},
        {QStringLiteral("AS"), upper, Left, {upper.left() - LabelGap, upper.center().y() - LabelHalfHeight}},
        {QStringLiteral("AI"), lower, Right, {RightEdge(lower) + LabelGap, lower.center().y() - LabelHalfHeight}},
    };
    for (const PlacedTooth& tooth : PlacedTeeth())
        zones.push_back(ToothZone(tooth));
    return zones;
}

QString ZoneText()
{
    QString text;
    for (const ZoneShape& zone : Zones()) {
        const QRect& r = zone.rect;
        for (int number :
            {r.left(), r.top(), RightEdge(r), Bottom(r), zone.direction, zone.anchor.x(), zone.anchor.y()}) {
            text += QString::number(number) + QLatin1Char(' ');
        }
        text += zone.name + QStringLiteral("\r\n");
    }
    return text;
}

QString ZoneNameText()
{
    QStringList upperPermanent, lowerPermanent, upperDeciduous, lowerDeciduous;
    for (const ToothNumber& tooth : AllTeeth()) {
        QStringList& row = tooth.Deciduous() ? (tooth.Upper() ? upperDeciduous : lowerDeciduous)
                                             : (tooth.Upper() ? upperPermanent : lowerPermanent);
        row += tooth.Name();
    }
    const QStringList areas = {QStringLiteral("GL"), QStringLiteral("AS"), QStringLiteral("AI")};
    QString text;
    for (const QStringList& row : {upperPermanent, lowerPermanent, areas, upperDeciduous, lowerDeciduous})
        text += row.join(QLatin1Char(' ')) + QStringLiteral("\r\n");
    return text;
}

} // namespace vorn::demo
