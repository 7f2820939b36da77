#include "platform/imaging/processing.h"
#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <QtGui/QImage>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace vorn {

namespace {

constexpr int LongestSide = 1 << 18; // the tables of a line stay small

/// The pixels of a line that make one pixel of another: from First on, with weights that add up to 1.
struct Share {
    int First = 0;
    std::vector<float> Weights;
};

/// Where a line shrinks, a pixel is the mean of what it covers; where it grows, it lies between two neighbours.
Share ShareOf(int index, int from, int to)
{
    const double step = static_cast<double>(from) / to;
    double begin = index * step;
    double end = begin + step;
    if (to > from) {
        const double middle = (begin + end) / 2;
        begin = std::clamp(middle - 0.5, 0.0, from - 1.0);
        end = begin + 1;
    }
    constexpr double nothing = 1e-9; // less than arithmetic is off
    Share share;
    share.First = std::min(static_cast<int>(begin + nothing), from - 1);
    const int last = std::clamp(static_cast<int>(std::ceil(end - nothing)) - 1, share.First, from - 1);
    const double whole = std::min<double>(end, last + 1) - begin;
    for (int i = share.First; i <= last; ++i) {
        const double covered = std::max(std::min(end, i + 1.0) - std::max<double>(begin, i), 0.0);
        share.Weights.push_back(static_cast<float>(covered / whole));
    }
    return share;
}

std::vector<Share> SharesOf(int from, int to)
{
    std::vector<Share> shares;
    shares.reserve(static_cast<std::size_t>(to));
    for (int i = 0; i < to; ++i)
        shares.push_back(ShareOf(i, from, to));
    return shares;
}

using Sample = std::array<float, 4>; // blue, green, red, alpha; colours already multiplied by alpha

/// The rows of a picture, each brought to another width; keeps the last few.
class WideRows {
public:
    WideRows(const QImage& image, int width) : image_(image), columns_(SharesOf(image.width(), width)) {}

    const std::vector<Sample>& Row(int y)
    {
        Kept& kept = kept_[static_cast<std::size_t>(y % 2)];
        if (kept.Y != y) {
            kept.Y = y;
            kept.Samples.assign(columns_.size(), Sample{});
            Fill(reinterpret_cast<const QRgb*>(image_.constScanLine(y)), kept.Samples);
        }
        return kept.Samples;
    }

private:
    struct Kept {
        int Y = -1;
        std::vector<Sample> Samples;
    };

    void Fill(const QRgb* line, std::vector<Sample>& samples) const
    {
        for (std::size_t x = 0; x < columns_.size(); ++x) {
            const QRgb* pixel = line + columns_[x].First;
            for (const float weight : columns_[x].Weights) {
                const QRgb p = *pixel++;
                samples[x][0] += weight * static_cast<float>(p & 0xFF);
                samples[x][1] += weight * static_cast<float>(p >> 8 & 0xFF);
                samples[x][2] += weight * static_cast<float>(p >> 16 & 0xFF);
                samples[x][3] += weight * static_cast<float>(p >> 24);
            }
        }
    }

    const QImage& image_;
    std::vector<Share> columns_;
    std::array<Kept, 2> kept_;
};

QRgb ToPixel(const Sample& sample)
{
    const auto byte = [](float value) { return static_cast<QRgb>(std::clamp(value + 0.5F, 0.0F, 255.0F)); };
    return byte(sample[3]) << 24 | byte(sample[2]) << 16 | byte(sample[1]) << 8 | byte(sample[0]);
}

void FillLinear(const QImage& image, QImage& result)
{
    WideRows rows(image, result.width());
    std::vector<Sample> sums(static_cast<std::size_t>(result.width()));
    for (int y = 0; y < result.height(); ++y) {
        const Share share = ShareOf(y, image.height(), result.height());
        std::fill(sums.begin(), sums.end(), Sample{});
        int source = share.First;
        for (const float weight : share.Weights) {
            const std::vector<Sample>& row = rows.Row(source++);
            for (std::size_t x = 0; x < sums.size(); ++x)
                for (std::size_t channel = 0; channel < 4; ++channel)
                    sums[x][channel] += weight * row[x][channel];
        }
        std::transform(sums.begin(), sums.end(), reinterpret_cast<QRgb*>(result.scanLine(y)), ToPixel);
    }
}

void FillNearest(const QImage& image, QImage& result)
{
    const auto source = [](int index, int from, int to) {
        return static_cast<int>((2 * std::int64_t{index} + 1) * from / (2 * std::int64_t{to}));
    };
    for (int y = 0; y < result.height(); ++y) {
        const auto* from
            = reinterpret_cast<const QRgb*>(image.constScanLine(source(y, image.height(), result.height())));
        auto* to = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x)
            to[x] = from[source(x, image.width(), result.width())];
    }
}

} // namespace

QImage Resampled(const QImage& image, int width, int height, TResampleFilter filter)
{
    if (image.isNull() || (width == image.width() && height == image.height()))
        return image;
    QImage result;
    if (std::max(width, height) <= LongestSide && std::int64_t{width} * height <= TIEBitmap::MostPixels)
        result = QImage(width, height, image.format());
    if (result.isNull())
        throw EInvalidOperation(u"A picture of " + IntToStr(image.width()) + u" by " + IntToStr(image.height())
            + u" can't be brought to " + IntToStr(width) + u" by " + IntToStr(height) + u": that is too large");
    if (filter == TResampleFilter::rfNone)
        FillNearest(image, result);
    else
        FillLinear(image, result);
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
