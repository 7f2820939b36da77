#pragma once

#include "platform/imaging/bitmap.h"

namespace vorn {

class TImageEnView;

/// How a picture is brought to another size. The numbers are the ones that applications store. None takes the nearest
/// pixel; the linear ones average over what a pixel covers, so that fine detail doesn't break up.
enum class TResampleFilter { rfNone = 0, rfLinear = 1, rfFastLinear = 9 };

/// Turning with smooth edges: the nearest pixel, or a mean of the four around.
enum class TIEAntialiasMode { ierFast = 0, ierBilinear = 1 };

/// The view's processing side: works on the bitmap of the current layer. Transparency is kept, and colours of
/// transparent pixels don't leak into their neighbours. An empty bitmap stays empty.
class TImageEnProc {
public:
    explicit TImageEnProc(TImageEnView& view) : view_(view) {}

    /// Brings the bitmap to a size in pixels. A width or height of -1 follows the other in proportion, -1 for both
    /// keeps the size; other values below 1 become 1. The layer's alpha stays as it is; the flag changes nothing.
    /// Raises EInvalidOperation for more pixels than a bitmap may have; the bitmap is then as it was.
    void Resample(int width, int height, TResampleFilter filter, bool affectAlpha);
    /// Turns the bitmap by degrees, clockwise: a layer that is to look the same takes minus the angle in SetRotate. The
    /// bitmap grows to hold the turned picture; what lies beside it is transparent. With a 24-bit `background` other
    /// than -1 (cast to TColor) the colour lies there and behind everything transparent. Without `antiAlias` every
    /// pixel is the nearest one, whatever the mode. Quarter turns lose nothing. An angle that is no number turns
    /// nothing. Raises EInvalidOperation for what is too large, and the bitmap is then as it was.
    void Rotate(double angle, bool antiAlias, TIEAntialiasMode mode, TColor background);
    /// Puts a copy of the bitmap, brought to another size, into `target`; the bitmap itself stays. With
    /// `keepProportions` the copy is as large as fits into width by height, else it has that size. Sizes and errors
    /// are those of Resample.
    void ResampleTo(TIEBitmap& target, int width, int height, TResampleFilter filter, bool keepProportions) const;

private:
    void Replace(const QImage& image);

    TImageEnView& view_;
};

/// For the classes of this folder: the picture in another size, both above 0. Raises EInvalidOperation as Resample
/// does.
QImage Resampled(const QImage& image, int width, int height, TResampleFilter filter);
/// The largest size of the same proportions that fits into width by height, never below 1.
TPoint FittingSize(const TPoint& size, const TPoint& room);

} // namespace vorn
