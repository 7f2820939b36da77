#include "demo/dentition/layout.h"

#include <algorithm>
#include <array>

namespace vorn::demo {

namespace {

constexpr int PictureWidth = 1120;
constexpr int PictureHeight = 818;
constexpr double SideMargin = 64;

// Pixels per millimetre of the milk teeth, and how far biting edges and captions lie from the middle line.
constexpr double DeciduousScale = 4.5;
constexpr double PermanentBite = 167;
constexpr double DeciduousBite = 58;
constexpr double PermanentCaptionGap = 10;
constexpr double DeciduousCaptionGap = 9;

// How far each biting edge stands back from the row's line, in millimetres, from the middle outwards.
constexpr std::array<double, 8> UpperStandBack{0.0, 0.6, 0.1, 0.5, 0.7, 0.6, 0.9, 1.3};
constexpr std::array<double, 8> LowerStandBack{0.3, 0.3, 0.0, 0.4, 0.5, 0.4, 0.3, 0.2};

using Columns = std::array<double, 8>;

/// Distance of each column's middle from the picture's middle line. Facing teeth share a column, and the
/// gap between columns is the same everywhere.
Columns ColumnMiddles()
{
    Columns widths{};
    double total = 0;
    for (int position = 1; position <= 8; ++position) {
        const double upper = MeasuresOf({1, position}).crownWidth;
        const double lower = MeasuresOf({4, position}).crownWidth;
        widths[static_cast<size_t>(position - 1)] = std::max(upper, lower) * PermanentScale;
        total += widths[static_cast<size_t>(position - 1)];
    }
    const double gap = (PictureWidth / 2.0 - SideMargin - total) / 8;
    Columns middles{};
    double edge = 0;
    for (size_t i = 0; i < widths.size(); ++i) {
        middles[i] = edge + (widths[i] + gap) / 2;
        edge += widths[i] + gap;
    }
    return middles;
}

PlacedTooth Place(const ToothNumber& number, const Columns& columns)
{
    const auto index = static_cast<size_t>(number.position - 1);
    const double scale = number.Deciduous() ? DeciduousScale : PermanentScale;
    const double bite = number.Deciduous() ? DeciduousBite : PermanentBite;
    const double gap = number.Deciduous() ? DeciduousCaptionGap : PermanentCaptionGap;
    const double side = number.PatientRight() ? -1 : 1;
    const double down = number.Upper() ? -1 : 1;
    const double back = (number.Upper() ? UpperStandBack : LowerStandBack).at(index);
    const QPointF middle = PictureMiddle();

    const ToothShape local = ShapeOf(number);
    const QRectF bounds = local.Bounds();
    QTransform toPicture;
    toPicture.translate(middle.x() + side * columns.at(index), middle.y() + down * bite);
    toPicture.scale(side * scale, down * scale);
    // The crown, not the crown with its leaning root, stands in the middle of the column.
    toPicture.translate(-local.crown.boundingRect().center().x(), back - bounds.top());

    PlacedTooth placed{number, local.Mapped(toPicture), {}, {}};
    // Half a pixel more on each side for the outline's pen.
    placed.rect = placed.shape.Bounds().adjusted(-0.5, -0.5, 0.5, 0.5).toAlignedRect();
    placed.captionMiddle = {middle.x() + side * columns.at(index), middle.y() + down * (bite - gap)};
    return placed;
}

std::vector<PlacedTooth> PlaceAll()
{
    const Columns columns = ColumnMiddles();
    std::vector<PlacedTooth> teeth;
    for (const ToothNumber& number : AllTeeth())
        teeth.push_back(Place(number, columns));
    return teeth;
}

} // namespace

QSize PictureSize()
{
    return {PictureWidth, PictureHeight};
}

QPointF PictureMiddle()
{
    return {PictureWidth / 2.0, PictureHeight / 2.0};
}

const std::vector<PlacedTooth>& PlacedTeeth()
{
    static const std::vector<PlacedTooth> teeth = PlaceAll();
    return teeth;
}

QRect GeneralArea()
{
    return {10, 12, 50, 50};
}

QRect UpperArchArea()
{
    return {192, PictureHeight / 2 - 30, 76, 60};
}

QRect LowerArchArea()
{
    QRect area = UpperArchArea();
    area.moveLeft(PictureWidth - area.left() - area.width());
    return area;
}

} // namespace vorn::demo
