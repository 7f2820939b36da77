#include "platform/imaging/thumbnail_view_private.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace vorn {

namespace {

constexpr TColor SelectedFill = 0xFFE8CC;  // light blue
constexpr TColor SelectedFrame = 0xD77800; // blue

} // namespace

TRect TImageEnMView::Framed(TRect cell) const
{
    // The frame lies in the border, as far as there is one; neighbours share it.
    const int across = std::min(border_.X, 1);
    const int down = std::min(border_.Y, 1);
    return {cell.Left - across, cell.Top - down, cell.Right + across, cell.Bottom + down};
}

void TImageEnMView::PaintBackground(TCanvas& canvas, const TRect& part)
{
    canvas.Brush.Color = background_;
    canvas.FillRect(part);
    const auto [first, end] = EntriesBetween(part.Top, part.Bottom);
    for (int i = first; i < end; ++i) {
        if (!IntersectRect(Framed(ImageCell(i)), part).IsEmpty())
            PaintEntry(canvas, i);
    }
    PaintSelection(canvas);
}

void TImageEnMView::PaintEntry(TCanvas& canvas, int idx) const
{
    const Entry& entry = At(idx);
    const TRect cell = ImageCell(idx);
    if (idx == selected_) {
        canvas.Brush.Color = SelectedFill;
        canvas.FillRect(cell);
    }
    const QImage& picture = entry.Thumbnail;
    if (!picture.isNull())
        canvas.DrawImage(cell.Left + (thumbSize_.X - picture.width()) / 2,
            cell.Top + (thumbSize_.Y - picture.height()) / 2, picture);
    if (showText_ && !entry.BottomText.empty()) {
        TRect room{cell.Left, cell.Top + thumbSize_.Y, cell.Right, cell.Bottom};
        canvas.Font.Assign(Font());
        canvas.Brush.Style = TBrushStyle::bsClear;
        canvas.DrawText(entry.BottomText, room, DT_CENTER | DT_NOPREFIX);
        canvas.Brush.Style = TBrushStyle::bsSolid;
    }
    if (borderColor_ != clNone) {
        canvas.Brush.Color = borderColor_;
        canvas.FrameRect(Framed({cell.Left, cell.Top, cell.Right, cell.Top + thumbSize_.Y}));
    }
}

/// Above all thumbnails, whose frames run through the same pixels.
void TImageEnMView::PaintSelection(TCanvas& canvas) const
{
    TRect frame = selected_ >= 0 ? Framed(ImageCell(selected_)) : ClientRect();
    if (selected_ >= 0) {
        canvas.Brush.Color = SelectedFrame;
        for (int ring = 0; ring < 2; ++ring) {
            canvas.FrameRect(frame);
            frame = {frame.Left + 1, frame.Top + 1, frame.Right - 1, frame.Bottom - 1};
        }
    }
    if (!Focused() || frame.IsEmpty())
        return;
    canvas.Brush.Color = clWhite;
    canvas.FrameRect(frame);
    canvas.Brush.Style = TBrushStyle::bsClear;
    canvas.Pen = {clBlack, TPenStyle::psDot, 1};
    canvas.Rectangle(frame);
    canvas.Brush.Style = TBrushStyle::bsSolid;
}

} // namespace vorn
