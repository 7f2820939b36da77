#pragma once

#include "platform/system/object.h"

namespace vorn {

/// Name of the zone that stands for the whole mouth.
inline constexpr StringView GeneralZone = u"GL";

/// Where the labels of a zone stack up. With any other value they land on one another.
enum TZoneDirection : int { dirLeft = 0, dirUp = 1, dirRight = 2, dirDown = 3 };

/// A sensitive zone: a tooth or an area of the background that answers to the mouse and collects labels.
class TZone : public TObject {
public:
    int dir = dirLeft; ///< a TZoneDirection as stored; any number may stand there
    String numZona;    ///< zone name: a tooth number or an area such as "GL"
    TRect rect;        ///< the area in image coordinates, as stored
    TRect rectOffeset; ///< the area in chart coordinates, which the hit test uses
    TPoint pt;         ///< where the first label goes and leader lines start; image coordinates
};

} // namespace vorn
