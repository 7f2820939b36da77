#pragma once

#include "platform/imaging/bitmap.h"

#include <cstddef>
#include <functional>
#include <memory>

class QTransform;

namespace vorn {

class TImageEnView;

/// One picture of a view's stack, with its own place, size, rotation and opacity.
///
/// Position and display size are chart coordinates. Belongs to its view.
class TIELayer {
public:
    explicit TIELayer(TImageEnView& view);
    ~TIELayer();
    TIELayer(const TIELayer&) = delete;
    TIELayer& operator=(const TIELayer&) = delete;

    int GetPosX() const { return posX_; }
    void SetPosX(int x);
    int GetPosY() const { return posY_; }
    void SetPosY(int y);
    /// Display size; the bitmap's own size until it is set.
    int GetWidth() const;
    void SetWidth(int width);
    int GetHeight() const;
    void SetHeight(int height);
    /// Degrees about the layer's middle, counter-clockwise.
    double GetRotate() const { return rotate_; }
    void SetRotate(double degrees);
    /// 0 transparent to 255 opaque; a value outside draws as the nearest end.
    int Opacity() const { return opacity_; }
    void SetOpacity(int opacity);
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    /// May be selected by mouse.
    bool Selectable() const { return selectable_; }
    void SetSelectable(bool selectable) { selectable_ = selectable; }
    /// May not be moved or resized by mouse.
    bool Locked() const { return locked_; }
    void SetLocked(bool locked) { locked_ = locked; }
    bool Selected() const { return selected_; }
    void SetSelected(bool selected);

    TIEBitmap& Bitmap() { return bitmap_; }
    const TIEBitmap& Bitmap() const { return bitmap_; }
    /// What the layer covers with its rotation, in chart coordinates.
    TRect ChartBox() const;
    /// What the layer covers, in view coordinates.
    TRect Box() const;
    /// Whether a chart point lies inside the turned outline.
    bool Contains(const TPoint& chartPoint) const;

    /// A value that the application attaches; the layer owns it.
    std::shared_ptr<void> UserData;
    /// The size of what UserData holds, or any mark.
    int UserDataLen = 0;

    /// From the layer's own pixels, its left top corner at (0, 0), to chart coordinates. For the classes of this
    /// folder.
    QTransform ToChart() const;
    /// Drawn pixel by pixel at 100 percent: neither turned nor at another size than its bitmap's.
    bool IsPlain() const;

private:
    friend class TImageEnView;

    void Changed(const TRect& before);

    TImageEnView& view_;
    std::int64_t paintedPixels_ = -1; // which state of the bitmap the view has shown
    TIEBitmap bitmap_;
    int posX_ = 0;
    int posY_ = 0;
    int width_ = -1;
    int height_ = -1;
    double rotate_ = 0;
    int opacity_ = 255;
    bool visible_ = true;
    bool selectable_ = true;
    bool locked_ = false;
    bool selected_ = false;
};

} // namespace vorn
