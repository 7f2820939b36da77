#include "platform/controls/drag_session.h"
#include "platform/controls/keyboard.h"
#include "platform/imaging/thumbnail_view_private.h"

#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdlib>

namespace vorn {

void TImageEnMView::SelectByUser(int idx)
{
    SetSelectedItem(idx);
    Raise(OnImageSelect, this, idx);
}

void TImageEnMView::WMLButtonDown(const TMouseMessage& message)
{
    const TLifeWatch watch(this);
    const int idx = ImageAt(message.Pos);
    pressedBeside_ = idx < 0;
    dragThreshold_ = -1;
    if (idx >= 0 && (mouseInteract_ & mmiSelect) != 0)
        SelectByUser(idx);
    if (watch.Alive())
        TWinControl::WMLButtonDown(message);
}

void TImageEnMView::WMLButtonUp(const TMouseMessage& message)
{
    dragThreshold_ = -1;
    TWinControl::WMLButtonUp(message);
}

void TImageEnMView::WMLMouseMove(const TMouseMessage& message)
{
    const TLifeWatch watch(this);
    if ((message.Shift & ssLeft) == 0)
        dragThreshold_ = -1;
    const std::int64_t way
        = std::abs(std::int64_t{message.Pos.X} - dragFrom_.X) + std::abs(std::int64_t{message.Pos.Y} - dragFrom_.Y);
    if (dragThreshold_ >= 0 && way >= dragThreshold_)
        StartDrag();
    else
        TWinControl::WMLMouseMove(message);
}

void TImageEnMView::IEBeginDrag(bool immediate, int threshold)
{
    if (immediate) {
        StartDrag();
        return;
    }
    dragThreshold_ = threshold < 0 ? QApplication::startDragDistance() : threshold;
    dragFrom_ = ScreenToClient(GetCursorPos());
}

void TImageEnMView::StartDrag()
{
    dragThreshold_ = -1;
    const DragSession* underWay = DragSession::Current();
    if (underWay && underWay->IsFrom(*this))
        return;
    if (selected_ < 0 || pressedBeside_ || underWay)
        RaiseEndDrag(nullptr, {}); // what the application changed for the drag it changes back
    else
        RunDrag(At(selected_).Thumbnail);
}

void TImageEnMView::IEEndDrag()
{
    dragThreshold_ = -1;
    CancelDrag();
}

bool TImageEnMView::KeyDown(unsigned key, TShiftState shift)
{
    if ((keyInteract_ & mkiMoveSelected) != 0 && MoveSelection(key))
        return true;
    return TWinControl::KeyDown(key, shift);
}

bool TImageEnMView::MoveSelection(unsigned key)
{
    const int target = KeyTarget(key);
    if (target < 0)
        return false;
    ScrollInView(target);
    if (target != selected_)
        SelectByUser(target);
    return true;
}

int TImageEnMView::KeyTarget(unsigned key) const
{
    const int last = GetImageCount() - 1;
    const std::int64_t columns = columns_; // maybe far more than there are entries
    const std::int64_t page = std::max(ClientHeight() / Pitch().Y, 1) * columns;
    const auto moved = [&](std::int64_t by) {
        if (selected_ < 0)
            return std::min(0, last);
        const std::int64_t target = selected_ + by;
        if (target < 0)
            return by < -columns ? selected_ % columns_ : selected_;
        // Down from above a short last row ends on the last one; in the last row it stays.
        const bool lower = by > 1 && selected_ / columns_ < last / columns_;
        return target <= last ? static_cast<int>(target) : lower ? last : selected_;
    };
    switch (key) {
    case VK_LEFT:
        return moved(-1);
    case VK_RIGHT:
        return moved(1);
    case VK_UP:
        return moved(-columns);
    case VK_DOWN:
        return moved(columns);
    case VK_PRIOR:
        return moved(-page);
    case VK_NEXT:
        return moved(page);
    case VK_HOME:
        return std::min(0, last);
    case VK_END:
        return last;
    default:
        return -1;
    }
}

} // namespace vorn
