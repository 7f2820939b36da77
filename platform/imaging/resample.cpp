#include "platform/imaging/processing.h"
#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <QtGui/QImage>

#include <algorithm>
#include <cmath>

namespace vorn {

namespace {

constexpr int LongestSide = 1 << 18;

// The toolkit's scaler counts in whole numbers: longer sides overflow, and where a pixel covers more than this many of
// a line, the last of them count for nothing.
constexpr int LongestSmoothSide = (1 << 16) - 1;
constexpr int MostCovered = 128;

QImage Nearest(const QImage& image, const QSize& size)
{
    if (image.size() == size)
        return image;
    QImage result(size, image.format());
    if (image.isNull() || result.isNull())
        return {};
    const auto source = [](int index, int from, int to) {
        return static_cast<int>((2 * std::int64_t{index} + 1) * from / (2 * std::int64_t{to}));
    };
    for (int y = 0; y < size.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(image.constScanLine(source(y, image.height(), size.height())));
        auto* to = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            to[x] = from[source(x, image.width(), size.width())];
    }
    return result;
}

/// The mean of what a pixel covers or, where the picture grows, what lies between two neighbours. Colours are already
/// multiplied by their alpha.
QImage Smooth(const QImage& image, const QSize& size)
{
    const QSize longest(LongestSmoothSide, LongestSmoothSide);
    const QSize aim = size.boundedTo(longest);
    const auto step = [](int from, int to) { return to < from ? std::max(to, from / MostCovered) : to; };
    QImage result = Nearest(image, image.size().boundedTo(longest));
    while (!result.isNull() && result.size() != aim)
        result = result.scaled(step(result.width(), aim.width()), step(result.height(), aim.height()),
            Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return Nearest(result, size);
}

} // namespace

QImage Resampled(const QImage& image, int width, int height, TResampleFilter filter)
{
    const QSize size(width, height);
    if (image.isNull() || size == image.size())
        return image;
    QImage result;
    if (std::max(width, height) <= LongestSide && std::int64_t{width} * height <= TIEBitmap::MostPixels)
        result = filter == TResampleFilter::rfNone ? Nearest(image, size) : Smooth(image, size);
    if (result.isNull())
        throw EInvalidOperation(u"A picture of " + IntToStr(image.width()) + u" by " + IntToStr(image.height())
            + u" can't be brought to " + IntToStr(width) + u" by " + IntToStr(height) + u": that is too large");
    return result;
}

TPoint FittingSize(const TPoint& size, const TPoint& room)
{
    const double scale = std::min(static_cast<double>(room.X) / size.X, static_cast<double>(room.Y) / size.Y);
    const auto scaled = [scale](int extent, int limit) {
        return static_cast<int>(std::clamp(std::round(extent * scale), 1.0, std::max(limit, 1) * 1.0));
    };
    return {scaled(size.X, room.X), scaled(size.Y, room.Y)};
}

} // namespace vorn
