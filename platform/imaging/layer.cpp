#include "platform/imaging/layer.h"

#include "platform/imaging/image_view.h"

#include <QtGui/QTransform>

#include <algorithm>
#include <cmath>

namespace vorn {

namespace {

/// Far outside every screen, yet a rectangle between two such points has a size.
constexpr double FarOut = (1 << 30) - 1;
/// Less than a turned corner is off by arithmetic alone.
constexpr double Nothing = 1e-6;

int Floor(double value)
{
    return static_cast<int>(std::floor(std::clamp(value, -FarOut, FarOut) + Nothing));
}

int Ceil(double value)
{
    return static_cast<int>(std::ceil(std::clamp(value, -FarOut, FarOut) - Nothing));
}

} // namespace

TIELayer::TIELayer(TImageEnView& view) : view_(view) {}

TIELayer::~TIELayer()
{
    if (selected_)
        --view_.selectedLayers_;
}

void TIELayer::Changed(const TRect& before)
{
    view_.LayerChanged(before, ChartBox());
}

void TIELayer::SetPosX(int x)
{
    if (posX_ == x)
        return;
    const TRect before = ChartBox();
    posX_ = x;
    Changed(before);
}

void TIELayer::SetPosY(int y)
{
    if (posY_ == y)
        return;
    const TRect before = ChartBox();
    posY_ = y;
    Changed(before);
}

int TIELayer::GetWidth() const
{
    return width_ < 0 ? bitmap_.Width() : width_;
}

void TIELayer::SetWidth(int width)
{
    const TRect before = ChartBox();
    width_ = std::max(width, 0);
    Changed(before);
}

int TIELayer::GetHeight() const
{
    return height_ < 0 ? bitmap_.Height() : height_;
}

void TIELayer::SetHeight(int height)
{
    const TRect before = ChartBox();
    height_ = std::max(height, 0);
    Changed(before);
}

void TIELayer::SetRotate(double degrees)
{
    if (rotate_ == degrees || !std::isfinite(degrees))
        return;
    const TRect before = ChartBox();
    rotate_ = degrees;
    Changed(before);
}

void TIELayer::SetOpacity(int opacity)
{
    if (opacity_ == opacity)
        return;
    opacity_ = opacity;
    Changed(ChartBox());
}

void TIELayer::SetVisible(bool visible)
{
    if (visible_ == visible)
        return;
    visible_ = visible;
    Changed(ChartBox());
}

void TIELayer::SetSelected(bool selected)
{
    if (selected_ == selected)
        return;
    selected_ = selected;
    view_.selectedLayers_ += selected ? 1 : -1;
    Changed(ChartBox());
}

QTransform TIELayer::ToChart() const
{
    const double middleX = GetWidth() / 2.0;
    const double middleY = GetHeight() / 2.0;
    QTransform transform;
    transform.translate(posX_ + middleX, posY_ + middleY);
    transform.rotate(-std::fmod(rotate_, 360));
    transform.translate(-middleX, -middleY);
    return transform;
}

bool TIELayer::IsPlain() const
{
    return std::fmod(rotate_, 360) == 0 && GetWidth() == bitmap_.Width() && GetHeight() == bitmap_.Height();
}

TRect TIELayer::ChartBox() const
{
    const QRectF box = ToChart().mapRect(QRectF(0, 0, GetWidth(), GetHeight()));
    return {Floor(box.left()), Floor(box.top()), Ceil(box.right()), Ceil(box.bottom())};
}

TRect TIELayer::Box() const
{
    return view_.ChartToView(ChartBox());
}

bool TIELayer::Contains(const TPoint& chartPoint) const
{
    const QPointF inside = ToChart().inverted().map(QPointF(chartPoint.X + 0.5, chartPoint.Y + 0.5));
    return inside.x() >= 0 && inside.y() >= 0 && inside.x() < GetWidth() && inside.y() < GetHeight();
}

} // namespace vorn
