#include "platform/controls/win_control_private.h"
#include "platform/graphics/painting.h"
#include "platform/system/guards.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QRegion>

namespace vorn {

namespace {

constexpr int ManyParts = 64;      // asked for one by one up to here, as a whole beyond
constexpr int ManyRegionRects = 8; // painted one by one up to here, as their bounding rectangle beyond

} // namespace

void TWinControl::Invalidate()
{
    if (d_->Surface)
        InvalidateRect(FromQRect(d_->Surface->rect()));
}

void TWinControl::InvalidateRect(const TRect& r)
{
    if (!d_->Surface)
        return;
    const TRect part = IntersectRect(r, FromQRect(d_->Surface->rect()));
    if (part.IsEmpty())
        return;
    if (UpdateLocked())
        d_->Held = UnionRect(d_->Held, part);
    else
        MarkDirty(part);
}

void TWinControl::MarkDirty(const TRect& r)
{
    if (d_->AllDirty)
        return;
    // The window system's region grows slow with many parts.
    d_->AllDirty = ++d_->DirtyCount > ManyParts;
    if (d_->AllDirty)
        d_->Surface->update();
    else
        d_->Surface->update(ToQRect(r));
}

void TWinControl::FlushUpdates()
{
    const TRect held = std::exchange(d_->Held, {});
    if (!held.IsEmpty())
        InvalidateRect(held);
}

void TWinControl::Update()
{
    if (!d_->Surface || !d_->Surface->isVisible() || UpdateLocked() || d_->Painting)
        return;
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(d_->Surface->window(), &request);
}

void TWinControl::PaintRegion(QPainter& painter, const QRegion& region)
{
    d_->DirtyCount = 0;
    d_->AllDirty = false;
    if (UpdateLocked()) {
        d_->Held = UnionRect(d_->Held, FromQRect(region.boundingRect()));
        return;
    }
    TCanvas canvas(painter);
    if (region.rectCount() > ManyRegionRects) {
        PaintPartTo(canvas, FromQRect(region.boundingRect()));
        return;
    }
    for (const QRect& r : region)
        PaintPartTo(canvas, FromQRect(r));
}

void TWinControl::PaintTo(TCanvas& canvas)
{
    PaintPartTo(canvas, ClientRect());
}

void TWinControl::PaintPartTo(TCanvas& canvas, const TRect& part)
{
    QPainter* painter = canvas.Painter();
    if (!painter || part.IsEmpty())
        return;
    const ScopedValue<bool> painting(d_->Painting, true);
    const PainterState state(*painter);
    painter->setClipRect(ToQRect(part), Qt::IntersectClip);
    TCanvas own(*painter); // the caller's pen, brush and font stay as they are
    PaintBackground(own, part);
    PaintChildren(own, *painter, part);
}

void TWinControl::PaintBackground(TCanvas& canvas, const TRect& part)
{
    canvas.Brush.Color = Color();
    canvas.Brush.Style = TBrushStyle::bsSolid;
    canvas.FillRect(part);
}

void TWinControl::PaintChildren(TCanvas& canvas, QPainter& painter, const TRect& part)
{
    // Every child is clipped to its bounds. Where the clip is one rectangle, the child's replaces it, which
    // is several times as fast as saving and restoring the painter.
    const QRegion clip = painter.clipRegion();
    const bool plain = clip.rectCount() <= 1;
    const TRect whole = FromQRect(clip.boundingRect());
    TPoint origin;
    const auto paint = [&](TControl& child) {
        const TRect bounds = child.BoundsRect();
        painter.translate(static_cast<double>(bounds.Left) - origin.X, static_cast<double>(bounds.Top) - origin.Y);
        origin = {bounds.Left, bounds.Top};
        const QRect inside(0, 0, bounds.Width(), bounds.Height());
        if (plain) {
            const TRect visible = IntersectRect(bounds, whole);
            if (visible.IsEmpty())
                return;
            painter.setClipRect(ToQRect(visible).translated(-bounds.Left, -bounds.Top));
            child.PaintTo(canvas);
        } else {
            const PainterState state(painter);
            painter.setClipRect(inside, Qt::IntersectClip);
            child.PaintTo(canvas);
        }
    };
    if (!d_->Index.IsLarge(part)) {
        for (TControl* child : d_->Index.Touching(part))
            paint(*child);
        return;
    }
    for (TControl* child : d_->Children) {
        if (child && child->indexNode_ >= 0 && !IntersectRect(child->BoundsRect(), part).IsEmpty())
            paint(*child);
    }
}

} // namespace vorn
