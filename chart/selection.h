#pragma once

#include "chart/chart_settings.h"
#include "chart/chart_space.h"
#include "chart/diagnosis_box.h"
#include "chart/operations.h"
#include "chart/treatments.h"
#include "platform/data/data_link.h"

namespace vorn {

/// What a selection tells the application, and what it ends. They belong to the chart.
struct TSelectionEvents {
    const TNotifyEvent& Single;
    const TNotifyEvent& Multiple;
    std::function<void()> EndSymbolEditing;
};

/// The chart's side of the selected labels, which the blink timer holds: clicks, done marks, dragged places.
class TSelection : public TObject {
public:
    TSelection(const TChartSettings& settings, const TChartSpace& space, TTreatments& treatments,
        const TDiagnosisBox& diagnosis, TDataLink& link, TOperations& operations, TSelectionEvents events);

    /// All labels leave it. Their handlers run, also those of other charts with the same timer.
    void Clear() const;
    /// Toggles the label with this key, with no event of the chart.
    void Toggle(int key) const;
    /// Makes the record of a row current and, unless the chart itself has moved there, selects its label.
    void FollowRow(int ordinal);
    /// Flips the done state of the selected records, with their child rows. Selection and row stay.
    void MarkDone();

    /// Takes the label's events.
    void Follow(TDRLabel& label);
    /// Saves what was dragged together, labels and diagnosis box, whichever of them `Sender` is: the box and then the
    /// labels, as far as a refused one.
    void SavePlaces(TObject* Sender);

private:
    void LabelSelected(TObject* Sender, bool select, TShiftState shift);
    TVornRec* EndEdit(TDataSet& dataset, TVornRec& record);
    void MarkRecord(std::int64_t key);

    const TChartSettings& settings_;
    const TChartSpace& space_;
    TTreatments& treatments_;
    const TDiagnosisBox& diagnosis_;
    TDataLink& link_;
    TOperations& operations_;
    TSelectionEvents events_;
};

} // namespace vorn
