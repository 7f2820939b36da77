#pragma once

#include "platform/system/object.h"
#include "platform/system/types.h"

#include <functional>

namespace vorn {

/// Keys and buttons that are down, as a set of bits.
enum TShiftStateBits : unsigned {
    ssShift = 1u << 0,
    ssAlt = 1u << 1,
    ssCtrl = 1u << 2,
    ssLeft = 1u << 3,
    ssRight = 1u << 4,
    ssMiddle = 1u << 5,
    ssDouble = 1u << 6,
};
using TShiftState = unsigned;

enum class TMouseButton { mbLeft, mbRight, mbMiddle };

using TMouseEvent = std::function<void(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y)>;
using TMouseMoveEvent = std::function<void(TObject* Sender, TShiftState Shift, int X, int Y)>;
using TContextPopupEvent = std::function<void(TObject* Sender, const TPoint& MousePos, bool& Handled)>;
/// What a dragged thing does over a control: it comes, it goes, it moves.
enum class TDragState { dsDragEnter, dsDragLeave, dsDragMove };

/// `Source` is what is dragged, X and Y are client coordinates of `Sender`. Accept is false at first; when the thing
/// leaves, it isn't looked at.
using TDragOverEvent
    = std::function<void(TObject* Sender, TObject* Source, int X, int Y, TDragState State, bool& Accept)>;
using TDragDropEvent = std::function<void(TObject* Sender, TObject* Source, int X, int Y)>;
/// A drag of `Sender` is over. `Target` is the control that took the drop, with the place in its client coordinates;
/// none if nobody did, or if it is gone by now.
using TEndDragEvent = std::function<void(TObject* Sender, TObject* Target, int X, int Y)>;

/// Mouse pointers, by the framework's numbers.
using TCursor = std::int16_t;
inline constexpr TCursor crDefault = 0;
inline constexpr TCursor crArrow = -2;
inline constexpr TCursor crHandPoint = -21;
inline constexpr TCursor crSizeAll = -22;

/// A mouse message for one control: position in its client coordinates.
struct TMouseMessage {
    TPoint Pos;
    TShiftState Shift = 0;
};

/// The keys and buttons of the event being handled, else as they are now.
TShiftState CurrentShiftState();
/// The pointer of the event being handled, else as it is now; screen coordinates.
TPoint GetCursorPos();

} // namespace vorn
