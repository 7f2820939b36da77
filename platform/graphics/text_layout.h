#pragma once

#include "platform/graphics/canvas.h"
#include "platform/graphics/font_resolution.h"

#include <QGlyphRun>
#include <QImage>
#include <QList>

#include <vector>

namespace vorn {

/// Shaped text with its offset from the line's left edge and from the line's top.
struct TextPiece {
    QList<QGlyphRun> runs;
    int x = 0;
    double y = 0;
};

/// A line drawn under one character.
struct TextRule {
    int x = 0;
    int width = 0;
};

struct TextLine {
    std::vector<TextPiece> pieces;
    std::vector<TextRule> marks;
    /// From the block's left edge.
    int x = 0;
    /// Whole advance and ink: nothing is drawn left of the line's edge or beyond this.
    int width = 0;
};

/// A text broken into lines and shaped: what measuring and drawing share. All lengths are whole pixels.
class TextLayout {
public:
    /// `wrapWidth` limits the lines with DT_WORDBREAK.
    TextLayout(const FontFace& face, StringView text, unsigned flags, int wrapWidth);

    int Width() const { return width_; }
    int Height() const { return height_; }
    const FontFace& Face() const { return *face_; }
    const std::vector<TextLine>& Lines() const { return lines_; }

private:
    void AlignLines(unsigned flags);

    const FontFace* face_;
    std::vector<TextLine> lines_;
    int width_ = 0;
    int height_ = 0;
};

} // namespace vorn
