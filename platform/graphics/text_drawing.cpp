#include "platform/graphics/canvas.h"
#include "platform/graphics/painting.h"
#include "platform/graphics/text_cache.h"

namespace vorn {

namespace {

int BlockLeft(const TRect& r, int width, unsigned flags)
{
    if ((flags & DT_CENTER) != 0)
        return r.Left + (r.Width() - width) / 2;
    return (flags & DT_RIGHT) != 0 ? r.Right - width : r.Left;
}

void FillBehind(QPainter& painter, const TextLayout& layout, const TPoint& at, const TRect& clip, QRgb color)
{
    int top = at.Y;
    for (const TextLine& line : layout.Lines()) {
        const TRect box = Bounds(at.X + line.x, top, line.width, layout.Face().lineHeight);
        const TRect ground = IntersectRect(box, clip);
        if (!ground.IsEmpty())
            painter.fillRect(ToQRect(ground), QColor(color));
        top += layout.Face().lineHeight;
    }
}

void DrawBlock(QPainter& painter, const CachedText& text, const TPoint& at, const TRect& clip, QRgb color)
{
    const TextLayout& layout = text.Layout();
    const TRect block = Bounds(at.X, at.Y, layout.Width(), layout.Height());
    const TRect visible = IntersectRect(block, clip);
    if (visible.IsEmpty())
        return;
    if (text.HasImages() && IsPixelExact(painter)) {
        const QImage image = text.Image(color);
        if (visible == block)
            painter.drawImage(ToQPoint(at), image);
        else
            painter.drawImage(QPoint(visible.Left, visible.Top), image,
                ToQRect({visible.Left - at.X, visible.Top - at.Y, visible.Right - at.X, visible.Bottom - at.Y}));
        return;
    }
    const PainterState state(painter);
    if (visible != block)
        painter.setClipRect(ToQRect(clip), Qt::IntersectClip);
    DrawGlyphs(painter, layout, at.X, at.Y, color);
}

} // namespace

int TCanvas::DrawText(StringView text, TRect& r, unsigned flags)
{
    if (text.empty()) {
        if ((flags & DT_CALCRECT) != 0)
            r = {r.Left, r.Top, r.Left, r.Top};
        return 0;
    }
    const TRect area = Reachable(r);
    const CachedText& laidOut = LaidOut(Font.Face(), text, flags, area.Width());
    const TextLayout& layout = laidOut.Layout();
    if ((flags & DT_CALCRECT) != 0) {
        r.Right = WrapAdd(r.Left, layout.Width());
        r.Bottom = WrapAdd(r.Top, layout.Height());
        return layout.Height();
    }
    QPainter* painter = area.IsEmpty() ? nullptr : Painter();
    if (!painter)
        return layout.Height();
    const TPoint at{BlockLeft(area, layout.Width(), flags), area.Top};
    if (Brush.Style == TBrushStyle::bsSolid && Brush.Color != clNone)
        FillBehind(*painter, layout, at, area, ToQRgb(Brush.Color));
    if (Font.Color() != clNone)
        DrawBlock(*painter, laidOut, at, area, ToQRgb(Font.Color()));
    return layout.Height();
}

TPoint MeasureText(const TFont& font, StringView text, unsigned flags, int width)
{
    if (text.empty())
        return {};
    const TextLayout& layout = LaidOut(font.Face(), text, flags, Reachable(width)).Layout();
    return {layout.Width(), layout.Height()};
}

int LineHeight(const TFont& font)
{
    return font.Face().lineHeight;
}

} // namespace vorn
