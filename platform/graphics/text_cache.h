#pragma once

#include "platform/graphics/text_layout.h"

namespace vorn {

/// A layout with pictures of it in the colours last asked for.
class CachedText {
public:
    /// `width` limits the lines with DT_WORDBREAK.
    CachedText(const FontFace& face, unsigned flags, int width, StringView text);

    const TextLayout& Layout() const { return layout_; }
    /// Small enough for pictures; the others are drawn glyph by glyph each time.
    bool HasImages() const;
    /// The text on a clear ground, as large as the layout.
    QImage Image(QRgb color) const;

    const String& Text() const { return text_; }
    /// Memory that the entry holds, in bytes; its pictures come on top.
    std::size_t Held() const;
    /// Keeps this entry's pictures apart from all others'; 0 keeps none.
    void SetPictures(std::uint64_t number) { pictures_ = number; }

private:
    String text_;
    TextLayout layout_;
    std::uint64_t pictures_ = 0;
};

/// The laid-out text for a call of DrawText: with DT_WORDBREAK the lines fit `width` pixels. The reference holds
/// until the next call.
///
/// The texts asked for last are kept within a fixed number of bytes, whatever their number and their length.
const CachedText& LaidOut(const FontFace& face, StringView text, unsigned flags, int width);

/// Draws the glyphs with the block's left top corner at the point.
void DrawGlyphs(QPainter& painter, const TextLayout& layout, int x, int y, QRgb color);

} // namespace vorn
