#pragma once

#include "platform/graphics/canvas.h"
#include "platform/system/object.h"

#include <memory>

class QImage;

namespace vorn {

/// One pixel as red, green, blue.
struct TRGB {
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
};

inline TColor TRGB2TColor(const TRGB& p)
{
    return static_cast<TColor>(p.r | (p.g << 8) | (p.b << 16));
}

/// How the pixels of a new picture are held. The numbers are seen by applications.
enum class TIEPixelFormat {
    ie24RGB = 5, ///< red, green and blue, opaque
};

/// A raster picture. Copies share their pixels until one of them is drawn on.
class TIEBitmap : public TPersistent {
public:
    /// A gigabyte at 32 bits each. Larger pictures are refused, allocated and loaded ones alike.
    static constexpr std::int64_t MostPixels = std::int64_t{1} << 28;

    TIEBitmap();
    ~TIEBitmap() override;

    bool IsEmpty() const;
    int Width() const;
    int Height() const;
    /// All pixels white; sizes below 1 make it empty. Raises EInvalidOperation for more pixels than memory allows.
    void Allocate(int width, int height, TIEPixelFormat format = TIEPixelFormat::ie24RGB);
    void FreeImage();
    void Assign(const TPersistent& source) override;
    /// Every pixel opaque in this 24-bit colour.
    void Fill(TColor color);
    /// Pixels outside are black.
    TRGB GetPixels_ie24RGB(int x, int y) const;
    /// A canvas on the pixels; what is drawn is there when the pixels are next read.
    TCanvas& GetCanvas();
    /// Pixels with alpha are mixed with what lies below; else alpha counts as opaque.
    bool EnableAlphaChannel() const { return alpha_; }
    void SetEnableAlphaChannel(bool enable) { alpha_ = enable; }

    /// For the classes of this folder: valid until the bitmap changes.
    const QImage& Image() const;
    void SetImage(QImage image);
    /// The pixels as they are drawn: opaque without EnableAlphaChannel.
    const QImage& Picture() const;

private:
    struct Private;
    std::unique_ptr<Private> d_;
    bool alpha_ = true;
};

} // namespace vorn
