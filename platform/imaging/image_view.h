#pragma once

#include "platform/controls/win_control.h"
#include "platform/imaging/layer.h"
#include "platform/imaging/processing.h"
#include "platform/system/stream.h"

#include <memory>
#include <vector>

class QPainter;

namespace vorn {

class TImageEnView;

/// What happened to a layer. The numbers are seen by applications.
enum class TIELayerEvent { ielSelected = 0, ielMoved = 1, ielResized = 2, ielRotated = 6 };
using TIELayerNotify = std::function<void(TObject* Sender, int layer, TIELayerEvent event)>;
using TViewChangeEvent = std::function<void(TObject* Sender, int change)>;

/// What the mouse does in a view, as a set of bits by ordinal.
using TIEMouseInteract = unsigned;
inline constexpr TIEMouseInteract miMoveLayers = 1u << 8;

/// The view's loading side.
class TImageEnIO {
public:
    explicit TImageEnIO(TImageEnView& view) : view_(view) {}
    /// Replaces the picture of the current layer. `format` 0 tells the format from the content. False, and the picture
    /// as it was, if the content is no picture.
    bool LoadFromStream(TStream& stream, int format);
    /// The same from a file. `fromContent` tells the format from the content; else the name's ending has to name it.
    /// Raises EStreamError that names a file that isn't there, is a directory or can't be read.
    bool LoadFromFile(StringView fileName, bool fromContent);

private:
    bool Show(const std::function<bool(TIEBitmap&)>& load);

    TImageEnView& view_;
};

/// A window that shows a stack of layers and carries controls above them.
///
/// Layer 0 is the picture and always exists. Layers stand in chart coordinates: the client area at 100 percent, not
/// scrolled. Child controls stand in view coordinates.
class TImageEnView : public TWinControl {
public:
    explicit TImageEnView(TComponent* owner);
    ~TImageEnView() override;

    int GetLayersCount() const { return static_cast<int>(layers_.size()); }
    /// Raises EListError for an index outside the stack.
    TIELayer& GetLayer(int index) const;
    TIELayer& GetCurrentLayer() const { return GetLayer(LayersCurrent()); }
    int LayersCurrent() const { return current_; }
    /// A current layer above the picture is marked as selected, all others aren't. One that is being dragged goes back
    /// to where it stood when another takes its place.
    void SetLayersCurrent(int index);
    /// Adds a layer on top, white, makes it current and gives its index.
    int LayersAdd(int width, int height, int posX, int posY);
    int LayersAdd(int width, int height, TIEPixelFormat format, int posX, int posY);
    /// The same with a copy of a bitmap at (0, 0).
    int LayersAdd(const TIEBitmap& bitmap);
    /// Layer 0 can't be removed. A current layer above the removed one stays current; the removed one hands over to
    /// the one below.
    void LayersRemove(int index);
    /// Removes all layers but layer 0, and puts that at (0, 0), natural size, not turned, opaque.
    void LayersClear();
    /// Topmost visible layer whose outline holds a chart point, or -1. Layer 0 counts. With `onlySelectable`, only
    /// layers that the mouse may select.
    int FindLayerAt(int x, int y, bool onlySelectable) const;

    /// The current layer's bitmap.
    TIEBitmap& Bitmap() const { return GetCurrentLayer().Bitmap(); }
    TImageEnIO& GetImageEnIO() { return io_; }
    TImageEnProc& GetImageEnProc() { return proc_; }
    /// Draws all visible layers over what the bitmap holds: at 100 percent, not scrolled, its left top pixel at chart
    /// point (0, 0), without the mark of the selection and without the controls above the layers.
    void DrawLayersTo(TIEBitmap& target);
    /// Empties the picture and removes the other layers.
    void Blank();

    /// Holds back repainting; calls nest, and the last unlock paints once.
    void LockUpdate();
    void UnLockUpdate();

    /// Shows everything at `percent`, from 1 up, with the client point (x, y) staying on the same chart point; with
    /// `centre`, that chart point comes to the middle.
    void ZoomAt(int x, int y, int percent, bool centre);
    int Zoom() const { return zoom_; }
    /// The chart point shown at the left top corner, in zoomed pixels.
    TPoint ViewOffset() const { return offset_; }
    void SetViewOffset(const TPoint& offset);
    void SetZoomFilter(TResampleFilter filter);
    /// View to chart coordinates.
    int XScr2Bmp(int x) const;
    int YScr2Bmp(int y) const;
    /// Chart to view coordinates.
    TRect ChartToView(const TRect& chart) const;

    /// The colour beside and behind the layers.
    TColor Background() const { return background_; }
    void SetBackground(TColor color);
    TIEMouseInteract MouseInteract() const { return interact_; }
    void SetMouseInteract(TIEMouseInteract interact) { interact_ = interact; }

    /// Paints at once what has changed, bitmaps that were drawn on included.
    void Update() override;

    TIELayerNotify OnLayerNotify;
    /// `change` is 0 after scrolling, 1 after zooming.
    TViewChangeEvent OnViewChange;

    void WMLButtonDown(const TMouseMessage& message) override;
    /// The second of two quick presses selects and drags as any other.
    void WMLButtonDblClk(const TMouseMessage& message) override;
    void WMLButtonUp(const TMouseMessage& message) override;
    void WMLMouseMove(const TMouseMessage& message) override;

protected:
    QWidget* CreateWidget() override;
    void PaintBackground(TCanvas& canvas, const TRect& part) override;
    bool UpdateLocked() const override { return lockCount_ > 0; }

private:
    friend class TIELayer;
    void LayerChanged(const TRect& before, const TRect& after);
    /// Every view pixel that shows some of a part of the chart, with a rim for smoothing and the outline.
    TRect TouchedView(const TRect& chart) const;
    TIELayer& PushLayer();
    void SetView(int zoom, const TPoint& offset);

    void PaintLayers(QPainter& painter, const TRect& part) const;
    void FillBeside(QPainter& painter, const TRect& part) const;
    void PaintLayer(QPainter& painter, const TIELayer& layer, const TRect& part) const;
    void PaintNearest(QPainter& painter, const TIELayer& layer, const TRect& part) const;
    void PaintTransformed(QPainter& painter, const TIELayer& layer) const;
    void PaintOutline(QPainter& painter, const TIELayer& layer) const;

    struct Drag {
        int Layer = 0; // 0: none under way
        TPoint Last;   // chart coordinates of the pointer
        TPoint Moved;  // how far it has taken the layer
    };
    void PressLayer(const TMouseMessage& message);
    void GiveUpDrag();

    int selectedLayers_ = 0; // outlives the layers, which count themselves
    std::vector<std::unique_ptr<TIELayer>> layers_;
    TImageEnIO io_{*this};
    TImageEnProc proc_{*this};
    int current_ = 0;
    int zoom_ = 100;
    TPoint offset_;
    TColor background_ = clBtnFace;
    TIEMouseInteract interact_ = 0;
    TResampleFilter filter_ = TResampleFilter::rfNone;
    int lockCount_ = 0;
    Drag drag_;
};

/// LockUpdate for the length of a scope.
class [[nodiscard]] TUpdateLock {
public:
    explicit TUpdateLock(TImageEnView& view) : view_(view), watch_(&view) { view_.LockUpdate(); }
    ~TUpdateLock()
    {
        if (watch_.Alive())
            view_.UnLockUpdate();
    }
    TUpdateLock(const TUpdateLock&) = delete;
    TUpdateLock& operator=(const TUpdateLock&) = delete;

private:
    TImageEnView& view_;
    TLifeWatch watch_;
};

} // namespace vorn
