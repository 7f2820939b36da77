#pragma once

#include "platform/graphics/colors.h"
#include "platform/graphics/font.h"

#include <memory>
#include <span>

class QImage;
class QPainter;

namespace vorn {

enum class TPenStyle : std::uint8_t { psSolid, psDot, psClear };
enum class TBrushStyle : std::uint8_t { bsSolid, bsClear };

struct TPen {
    TColor Color = clBlack;
    TPenStyle Style = TPenStyle::psSolid;
    int Width = 1;
};

struct TBrush {
    TColor Color = clWhite;
    TBrushStyle Style = TBrushStyle::bsSolid;
};

/// Flags of DrawText, or-ed.
enum TDrawTextFlags : unsigned {
    DT_LEFT = 0,
    DT_CENTER = 1,
    DT_RIGHT = 2,
    DT_WORDBREAK = 0x10,
    DT_EXPANDTABS = 0x40,
    DT_CALCRECT = 0x400,
    DT_NOPREFIX = 0x800,
};

/// A surface to draw on with a pen, a brush and a font of its own.
///
/// Coordinates are pixels of the surface, or of the control being painted. A rectangle's right and bottom lie outside
/// what is drawn. Drawing on a canvas that isn't bound to a surface does nothing; measuring works on every canvas.
class TCanvas : public TPersistent {
public:
    TCanvas();
    /// Draws on `image`, which outlives the canvas; End() must come before the image is read. The image is not touched
    /// before the first drawing operation.
    explicit TCanvas(QImage& image);
    /// Draws through a painter of the caller's, which outlives the binding.
    explicit TCanvas(QPainter& painter);
    ~TCanvas() override;

    TPen Pen;
    TBrush Brush;
    TFont Font;

    /// Fills with the brush; a clear brush fills nothing.
    void FillRect(const TRect& r);
    /// Outline with the pen, inside with the brush.
    void Rectangle(const TRect& r);
    /// The same for the ellipse that fills the rectangle.
    void Ellipse(const TRect& r);
    /// A frame one pixel wide in the brush's colour, whatever the brush's style.
    void FrameRect(const TRect& r);
    /// An open line through the points, in the pen, last point included.
    void Polyline(std::span<const TPoint> points);
    void MoveTo(int x, int y);
    /// A line from the pen's place up to, but not including, the given point; the pen's place moves there.
    void LineTo(int x, int y);
    /// Inverts the colours inside.
    void InvertRect(const TRect& r);

    /// Draws text inside `r` in Font, clipped to it. Lines break at CR LF, CR and LF, and with DT_WORDBREAK between
    /// words and inside a word that is too long for a line. Without DT_NOPREFIX "&" underlines the next character and
    /// "&&" is one "&". A line end behind the last line adds no line. The brush, unless clear, fills behind the lines.
    /// With DT_CALCRECT nothing is drawn and `r` gets the size that the same call without it covers, from the same left
    /// top corner; the empty text has no width and no height. Gives the height of the text.
    int DrawText(StringView text, TRect& r, unsigned flags);

    /// Draws an image at its natural size.
    void DrawImage(int x, int y, const QImage& image);

    /// Ends drawing on an image; a later operation starts it again.
    void End();
    /// The painter drawn through, opened on the image if need be; none on a canvas that isn't bound.
    QPainter* Painter();

    /// For the control layer: binds to a painter, unbinds with none. Pen, brush and font stay.
    void Bind(QPainter* painter);

private:
    /// The pen's line between two points; the end point belongs to it or not.
    void Line(const TPoint& from, const TPoint& to, bool withEnd);
    void Outline(const TRect& r);

    std::unique_ptr<QPainter> own_;
    QImage* image_ = nullptr;
    QPainter* painter_ = nullptr;
    TPoint penPos_;
};

/// A frame one or more pixels wide just inside `r`: left and top in one colour, right and bottom in the other. `r`
/// shrinks by the width on each side. The pen is as before.
void Frame3D(TCanvas& canvas, TRect& r, TColor topColor, TColor bottomColor, int width);

/// The size of a text in a font as DrawText with these flags draws it; `width` limits the lines with DT_WORDBREAK.
TPoint MeasureText(const TFont& font, StringView text, unsigned flags, int width);
int LineHeight(const TFont& font);

} // namespace vorn
