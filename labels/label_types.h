#pragma once

#include "platform/controls/mouse.h"
#include "platform/system/lists.h"

#include <functional>

namespace vorn {

enum class TXAlign : std::uint8_t { alXNone, alXLeft, alXRight, alXCenter };
enum class TYAlign : std::uint8_t { alYNone, alYTop, alYBottom, alYCenter };
enum class TDRBorder : std::uint8_t { boNone, boSingle, boRaised, boLowered, boDotted };
enum class TDRBlink : std::uint8_t { blNone, blHiLo, blInvert };

/// A label entered or left the selection. `ShiftState` is empty when it left.
using TDRLabelSelectEvent = std::function<void(TObject* Sender, bool select, TShiftState ShiftState)>;
/// For applications that store the positions of several labels at once; no event of the label has this type.
using TDRLabelSavePosEvent = std::function<void(TObject* Sender, TComponentList& ComponentList)>;

} // namespace vorn
