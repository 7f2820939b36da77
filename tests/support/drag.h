#pragma once

#include "platform/controls/win_control.h"

#include <vector>

namespace vorn::test {

/// A place where a dragged thing stops on its way; client coordinates of a control whose window is shown.
struct DragStop {
    TWinControl* Control = nullptr;
    TPoint At;
};

struct DragResult {
    bool Began = false; ///< the control's handlers have begun a drag
    bool Taken = false; ///< the last window took the drop
};

/// How a drag ends: let go, or given up as with Escape.
enum class DragEnding { Drop, GiveUp };

/// Presses on a control and moves the mouse; if a handler of the control begins a drag, the windows on the way get the
/// events that the window system would send. Returns when the drag is over. A stop whose control has been freed
/// meanwhile is passed over.
DragResult DragAlong(
    TControl& source, const TPoint& from, const std::vector<DragStop>& way, DragEnding ending = DragEnding::Drop);
DragResult DragFromTo(TControl& source, const TPoint& from, TWinControl& target, const TPoint& to);

/// Text that another program drags to a point and drops there. Gives whether the window takes it.
bool DropForeignText(TWinControl& target, const TPoint& at);

} // namespace vorn::test
