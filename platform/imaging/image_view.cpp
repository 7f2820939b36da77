#include "platform/imaging/image_view.h"

#include "platform/imaging/image_io.h"
#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <cmath>

namespace vorn {

namespace {

constexpr std::int64_t FarOut = (1 << 30) - 1; // as far as view and chart coordinates go

int Saturate(std::int64_t value)
{
    return static_cast<int>(std::clamp(value, -FarOut, FarOut));
}

/// value * numerator / denominator, rounded down; the denominator is above 0.
std::int64_t ScaleDown(std::int64_t value, std::int64_t numerator, std::int64_t denominator)
{
    const std::int64_t product = value * numerator;
    return product / denominator - (product % denominator < 0 ? 1 : 0);
}

} // namespace

TImageEnView::TImageEnView(TComponent* owner) : TWinControl(owner)
{
    layers_.push_back(std::make_unique<TIELayer>(*this));
}

TImageEnView::~TImageEnView()
{
    Destroying();
}

QWidget* TImageEnView::CreateWidget()
{
    QWidget* widget = TWinControl::CreateWidget();
    widget->setFocusPolicy(Qt::ClickFocus);
    return widget;
}

TIELayer& TImageEnView::GetLayer(int index) const
{
    if (index < 0 || index >= GetLayersCount())
        throw EListError(u"There is no layer " + IntToStr(index));
    return *layers_[static_cast<std::size_t>(index)];
}

void TImageEnView::SetLayersCurrent(int index)
{
    TIELayer& layer = GetLayer(index);
    if (index != drag_.Layer)
        GiveUpDrag();
    if (current_ != index && current_ < GetLayersCount())
        GetLayer(current_).SetSelected(false);
    current_ = index;
    const auto others = [&] { return selectedLayers_ > (layer.Selected() ? 1 : 0); };
    for (int i = 0; others() && i < GetLayersCount(); ++i) // that the application has marked
        if (i != index)
            GetLayer(i).SetSelected(false);
    layer.SetSelected(index > 0);
}

TIELayer& TImageEnView::PushLayer()
{
    layers_.push_back(std::make_unique<TIELayer>(*this));
    SetLayersCurrent(GetLayersCount() - 1);
    return *layers_.back();
}

int TImageEnView::LayersAdd(int width, int height, int posX, int posY)
{
    return LayersAdd(width, height, TIEPixelFormat::ie24RGB, posX, posY);
}

int TImageEnView::LayersAdd(int width, int height, TIEPixelFormat format, int posX, int posY)
{
    TIEBitmap bitmap;
    bitmap.Allocate(width, height, format);
    TIELayer& layer = PushLayer();
    layer.bitmap_.Assign(bitmap);
    layer.posX_ = posX;
    layer.posY_ = posY;
    layer.Changed({});
    return current_;
}

int TImageEnView::LayersAdd(const TIEBitmap& bitmap)
{
    TIELayer& layer = PushLayer();
    layer.bitmap_.Assign(bitmap);
    layer.Changed({});
    return current_;
}

void TImageEnView::LayersRemove(int index)
{
    if (index == 0)
        throw EInvalidOperation(u"Layer 0 can't be removed");
    GiveUpDrag();
    const TRect left = GetLayer(index).ChartBox();
    layers_.erase(layers_.begin() + index);
    if (current_ >= index)
        SetLayersCurrent(current_ - 1);
    LayerChanged(left, {});
}

void TImageEnView::LayersClear()
{
    layers_.resize(1);
    drag_ = {};
    TIELayer& picture = GetLayer(0);
    picture.posX_ = 0;
    picture.posY_ = 0;
    picture.width_ = -1;
    picture.height_ = -1;
    picture.rotate_ = 0;
    picture.opacity_ = 255;
    SetLayersCurrent(0);
    Invalidate();
}

void TImageEnView::Blank()
{
    LayersClear();
    GetLayer(0).bitmap_.FreeImage();
}

int TImageEnView::FindLayerAt(int x, int y, bool onlySelectable) const
{
    for (int i = GetLayersCount() - 1; i >= 0; --i) {
        const TIELayer& layer = GetLayer(i);
        if (layer.Visible() && (layer.Selectable() || !onlySelectable) && layer.Contains({x, y}))
            return i;
    }
    return -1;
}

bool TImageEnIO::LoadFromStream(TStream& stream, int)
{
    return Show([&](TIEBitmap& bitmap) { return LoadBitmap(stream, bitmap); });
}

bool TImageEnIO::LoadFromFile(StringView fileName, bool fromContent)
{
    return Show([&](TIEBitmap& bitmap) { return LoadBitmapFromFile(fileName, bitmap, fromContent); });
}

/// Loads into the current layer and repaints what that covered and covers now.
bool TImageEnIO::Show(const std::function<bool(TIEBitmap&)>& load)
{
    TIELayer& layer = view_.GetCurrentLayer();
    const TRect before = layer.ChartBox();
    if (!load(layer.Bitmap()))
        return false;
    view_.InvalidateRect(view_.ChartToView(before));
    view_.InvalidateRect(layer.Box());
    return true;
}

void TImageEnView::LockUpdate()
{
    ++lockCount_;
}

void TImageEnView::UnLockUpdate()
{
    if (lockCount_ > 0 && --lockCount_ == 0)
        FlushUpdates();
}

void TImageEnView::Update()
{
    if (UpdateLocked())
        return;
    for (const auto& layer : layers_) {
        if (layer->paintedPixels_ != layer->Bitmap().Image().cacheKey())
            LayerChanged({}, layer->ChartBox());
    }
    TWinControl::Update();
}

void TImageEnView::LayerChanged(const TRect& before, const TRect& after)
{
    if (!before.IsEmpty() && before != after)
        InvalidateRect(TouchedView(before));
    if (!after.IsEmpty())
        InvalidateRect(TouchedView(after));
}

void TImageEnView::SetView(int zoom, const TPoint& offset)
{
    const bool zoomed = zoom != zoom_;
    if (!zoomed && offset == offset_)
        return;
    zoom_ = zoom;
    offset_ = offset;
    Invalidate();
    Raise(OnViewChange, this, zoomed ? 1 : 0);
}

void TImageEnView::ZoomAt(int x, int y, int percent, bool centre)
{
    const int zoom = std::max(percent, 1);
    const auto offset = [&](int point, int from, int extent) {
        const double fixed = (static_cast<double>(point) + from) * zoom / zoom_;
        return Saturate(std::llround(fixed) - (centre ? extent / 2 : point));
    };
    SetView(zoom, {offset(x, offset_.X, ClientWidth()), offset(y, offset_.Y, ClientHeight())});
}

void TImageEnView::SetViewOffset(const TPoint& offset)
{
    SetView(zoom_, {Saturate(offset.X), Saturate(offset.Y)});
}

void TImageEnView::SetZoomFilter(TResampleFilter filter)
{
    if (filter_ == filter)
        return;
    filter_ = filter;
    Invalidate();
}

void TImageEnView::SetBackground(TColor color)
{
    if (background_ == color)
        return;
    background_ = color;
    Invalidate();
}

int TImageEnView::XScr2Bmp(int x) const
{
    return Saturate(ScaleDown(static_cast<std::int64_t>(x) + offset_.X, 100, zoom_));
}

int TImageEnView::YScr2Bmp(int y) const
{
    return Saturate(ScaleDown(static_cast<std::int64_t>(y) + offset_.Y, 100, zoom_));
}

TRect TImageEnView::ChartToView(const TRect& chart) const
{
    const auto across = [this](int x) { return Saturate(ScaleDown(x, zoom_, 100) - offset_.X); };
    const auto down = [this](int y) { return Saturate(ScaleDown(y, zoom_, 100) - offset_.Y); };
    return {across(chart.Left), down(chart.Top), across(chart.Right), down(chart.Bottom)};
}

TRect TImageEnView::TouchedView(const TRect& chart) const
{
    constexpr int rim = 2;
    TRect view = ChartToView(chart);
    return {view.Left - rim, view.Top - rim, view.Right + rim + 1, view.Bottom + rim + 1};
}

/// Selects the layer under the pointer, which may now be dragged. The view may be gone afterwards.
void TImageEnView::PressLayer(const TMouseMessage& message)
{
    GiveUpDrag(); // its release went to a menu or a message box
    const TPoint point{XScr2Bmp(message.Pos.X), YScr2Bmp(message.Pos.Y)};
    const int index = std::max(FindLayerAt(point.X, point.Y, true), 0);
    SetLayersCurrent(index);
    if (index > 0 && (interact_ & miMoveLayers) != 0 && !GetLayer(index).Locked())
        drag_ = {index, point, {}};
    Raise(OnLayerNotify, this, index, TIELayerEvent::ielSelected);
}

/// A drag ends with the release or not at all: otherwise nobody would be told of the layer's new place.
void TImageEnView::GiveUpDrag()
{
    const Drag drag = std::exchange(drag_, {});
    if (drag.Layer == 0)
        return;
    TIELayer& layer = GetLayer(drag.Layer);
    layer.SetPosX(WrapSub(layer.GetPosX(), drag.Moved.X));
    layer.SetPosY(WrapSub(layer.GetPosY(), drag.Moved.Y));
}

void TImageEnView::WMLButtonDown(const TMouseMessage& message)
{
    const TLifeWatch watch(this);
    PressLayer(message);
    if (watch.Alive())
        TWinControl::WMLButtonDown(message);
}

void TImageEnView::WMLButtonDblClk(const TMouseMessage& message)
{
    const TLifeWatch watch(this);
    PressLayer(message);
    if (watch.Alive())
        TWinControl::WMLButtonDblClk(message);
}

void TImageEnView::WMLMouseMove(const TMouseMessage& message)
{
    if ((message.Shift & ssLeft) == 0) {
        GiveUpDrag();
    } else if (drag_.Layer > 0) {
        // Step by step: others may move the layer meanwhile.
        const TPoint point{XScr2Bmp(message.Pos.X), YScr2Bmp(message.Pos.Y)};
        const TPoint step{WrapSub(point.X, drag_.Last.X), WrapSub(point.Y, drag_.Last.Y)};
        TIELayer& layer = GetLayer(drag_.Layer);
        layer.SetPosX(WrapAdd(layer.GetPosX(), step.X));
        layer.SetPosY(WrapAdd(layer.GetPosY(), step.Y));
        drag_.Last = point;
        drag_.Moved = {WrapAdd(drag_.Moved.X, step.X), WrapAdd(drag_.Moved.Y, step.Y)};
    }
    TWinControl::WMLMouseMove(message);
}

void TImageEnView::WMLButtonUp(const TMouseMessage& message)
{
    const TLifeWatch watch(this);
    const int dragged = std::exchange(drag_, {}).Layer;
    if (dragged > 0)
        Raise(OnLayerNotify, this, dragged, TIELayerEvent::ielMoved);
    if (watch.Alive())
        TWinControl::WMLButtonUp(message);
}

} // namespace vorn
