#pragma once

#include "labels/DrLabel.h"
#include "platform/system/object.h"

namespace vorn {

class TVornIEDBTerList;

/// "stato" of a row that isn't on the chart.
inline constexpr int StatoNotOnChart = 4;

/// One row of the treatments dataset on the chart.
class TVornRec : public TObject {
public:
    explicit TVornRec(TVornIEDBTerList* Source);
    /// Frees the label unless that is on its way out already.
    ~TVornRec() override;

    /// The row's marker label, or none for a child row and a row whose label could not be placed. Owned by the view,
    /// freed with the record; reads as none once it is gone.
    TDRLabel* FLabel = nullptr;
    String Zona;      ///< the row's zone names as placed; empty when the label stands on a stored position
    String Evidenzia; ///< description of the row's own appearance row
    int X = 0;        ///< stored position in image coordinates, 0 for none
    int Y = 0;
    TRect boundRect;    ///< the label's bounds when the row was last read, in chart coordinates at every zoom
    TPoint boundOffset; ///< the chart's offsets that boundRect goes by: a later shift of the chart leaves both alone

    int Row = -1;   ///< ordinal of the row in the dataset; rows that the chart leaves out count too
    int Index = -1; ///< place in the chart's list of records, -1 while the record is being built
};

} // namespace vorn
