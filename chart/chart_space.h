#pragma once

#include "chart/conventions.h"
#include "platform/imaging/image_view.h"

namespace vorn {

/// Where things on the chart stand: the view, the chart's shift against the image, the zoom, and the ways between the
/// coordinate spaces. It moves nothing by itself.
class TChartSpace {
public:
    /// None until the application gives one; not owned.
    TImageEnView* View() const { return view_; }
    void SetView(TImageEnView* view) { view_ = view; }

    /// The image point at which labels and zones have their chart's (0, 0).
    TPoint Offset() const { return offset_; }
    void SetOffset(const TPoint& offset) { offset_ = offset; }
    TPoint ChartToImage(const TPoint& p) const { return {WrapAdd(p.X, offset_.X), WrapAdd(p.Y, offset_.Y)}; }
    TPoint ImageToChart(const TPoint& p) const { return {WrapSub(p.X, offset_.X), WrapSub(p.Y, offset_.Y)}; }

    /// The same for layers: the offset too, but while an external picture keeps them where they are. These two are the
    /// only way between a layer's corner and what is stored of it.
    TPoint LayerOrigin() const { return layerOrigin_; }
    void SetLayerOrigin(const TPoint& origin) { layerOrigin_ = origin; }
    TPoint LayerToImage(const TPoint& p) const { return {WrapAdd(p.X, layerOrigin_.X), WrapAdd(p.Y, layerOrigin_.Y)}; }
    TPoint ImageToLayer(const TPoint& p) const { return {WrapSub(p.X, layerOrigin_.X), WrapSub(p.Y, layerOrigin_.Y)}; }

    /// In percent.
    int Zoom() const { return zoom_; }
    void SetZoom(int percent) { zoom_ = percent; }
    bool AtNaturalSize() const { return zoom_ == NaturalZoom; }
    /// A chart position as the zoom shows it: multiplied in 32 bits, then truncated towards 0.
    int Zoomed(int chart) const { return static_cast<int>(WrapMul(zoom_, chart) / 100.0); }
    /// A point of the view's client area, in chart coordinates. Needs a view.
    TPoint ViewToChart(const TPoint& p) const { return {view_->XScr2Bmp(p.X), view_->YScr2Bmp(p.Y)}; }

private:
    TImageEnView* view_ = nullptr;
    TPoint offset_;
    TPoint layerOrigin_;
    int zoom_ = NaturalZoom;
};

} // namespace vorn
