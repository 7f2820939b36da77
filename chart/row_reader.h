#pragma once

#include "chart/diagnosis_box.h"
#include "chart/label_look.h"

#include <optional>

namespace vorn {

/// What one row of the treatments says about its label. A value: showing it runs no handler.
struct TRowReading {
    std::optional<String> Diagnosis; ///< line of the diagnosis box
    String Caption;
    TLabelLook Look;
    TColor Color = clBlack;     ///< of the text, wins over the look; 0 for none
    std::optional<String> Hint; ///< none leaves the label's
    TPoint Stored;              ///< position in image coordinates; a 0 in either counts as none
    std::optional<bool> Drag;   ///< whether the user may drag the label; none leaves it
    String Zones;               ///< names separated by a blank
    std::optional<String> Done; ///< none without a done column
};

/// Reads rows. It only reads: nothing on the chart changes.
class TRowReader {
public:
    TRowReader(const TChartSettings& settings, const TDRLabelProperties& rules, const TDiagnosisBox& diagnosis)
        : settings_(settings), diagnosis_(diagnosis), looks_(settings, rules)
    {
    }

    /// The current row, which is on the chart. None if a handler of a table that is looked up has ended the visit:
    /// neither the row nor the chart may be there any more. Raises EDatabaseError for a missing column.
    std::optional<TRowReading> Read(TTreatmentColumns& row, const TVisit& visit) const;

private:
    std::optional<String> HintOf(TTreatmentColumns& row, const String& description) const;
    void ReadPosition(TRowReading& reading, TTreatmentColumns& row) const;

    const TChartSettings& settings_;
    const TDiagnosisBox& diagnosis_;
    TLookReader looks_;
};

} // namespace vorn
