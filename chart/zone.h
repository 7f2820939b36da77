#pragma once

#include "platform/system/object.h"

namespace vorn {

/// Name of the zone that stands for the whole mouth.
inline constexpr StringView GeneralZone = u"GL";

/// A sensitive zone: a tooth or an area of the background that answers to the mouse and collects labels.
class TZone : public TObject {
public:
    int dir = 0;       ///< where the labels of the zone stack up: 0 left, 1 up, 2 right, 3 down
    String numZona;    ///< zone name: a tooth number or an area such as "GL"
    TRect rect;        ///< the area in image coordinates, as stored
    TRect rectOffeset; ///< the area in chart coordinates, which the hit test uses
    TPoint pt;         ///< where the first label goes and leader lines start; image coordinates
};

} // namespace vorn
