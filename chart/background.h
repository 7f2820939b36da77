#pragma once

#include "chart/zone_map.h"
#include "platform/imaging/bitmap.h"

namespace vorn {

class TDataSet;
class TImageEnView;

/// The drawing of the dentition as it was loaded, and the zones that came with it.
class TBackground {
public:
    explicit TBackground(TZoneMap& zones) : zones_(zones) {}

    /// (0, 0) as long as nothing was loaded.
    TPoint Size() const { return {drawing_.Width(), drawing_.Height()}; }
    /// Takes drawing and zones from a row of the backgrounds; the drawing goes onto the view's current layer, which is
    /// layer 0. There is at least the zone of the whole mouth afterwards. Raises EDatabaseError for a missing column.
    void Read(const TDataSet& row, TImageEnView& view);
    /// Puts the drawing onto the view's current layer. That wipes what was drawn into it.
    void PutBack(TImageEnView& view) const;

private:
    void ReadDrawing(const TDataSet& row, TImageEnView& view);
    void ReadZones(const TDataSet& row);

    TZoneMap& zones_;
    TIEBitmap drawing_;
};

} // namespace vorn
