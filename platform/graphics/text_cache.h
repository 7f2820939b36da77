#pragma once

#include "platform/graphics/text_layout.h"

#include <string>
#include <unordered_map>

namespace vorn {

/// A layout with pictures of it in the colours last asked for.
class CachedText {
public:
    explicit CachedText(TextLayout layout) : layout_(std::move(layout)) {}

    const TextLayout& Layout() const { return layout_; }
    /// Small enough for pictures; the others are drawn glyph by glyph each time.
    bool HasImages() const;
    /// The text on a clear ground, as large as the layout.
    const QImage& Image(QRgb color);

private:
    struct Painted {
        QRgb color;
        QImage image;
    };

    TextLayout layout_;
    std::vector<Painted> images_;
    std::size_t oldest_ = 0;
};

/// The laid-out text for a call of DrawText: with DT_WORDBREAK the lines fit `width` pixels. The reference holds
/// until the next call.
CachedText& LaidOut(const FontFace& face, StringView text, unsigned flags, int width);

/// Draws the glyphs with the block's left top corner at the point.
void DrawGlyphs(QPainter& painter, const TextLayout& layout, int x, int y, QRgb color);

} // namespace vorn
