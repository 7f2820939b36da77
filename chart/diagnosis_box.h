#pragma once

#include "chart/chart_settings.h"
#include "chart/chart_space.h"
#include "chart/treatment_columns.h"
#include "platform/system/string_list.h"

#include <memory>
#include <optional>
#include <unordered_set>

namespace vorn {

/// The box that lists the diagnoses of the treatments: a label on the view, its lines, and its place and visibility in
/// the patient's chart row. It takes no part in offsets and zoom.
class TDiagnosisBox {
public:
    TDiagnosisBox(const TChartSettings& settings, const TChartSpace& space);

    /// A child of the view, but freed with the box alone.
    TDRLabel& Label() const { return *label_; }
    bool Visible() const { return label_->Visible(); }
    /// Shown, and not switched off since.
    bool Painted() const { return settings_.DiagnosiShow != TDiagnosiShow::diagNone && Visible(); }
    /// Left and top, in pixels of the view.
    TPoint Place() const { return {label_->Left(), label_->Top()}; }
    void SetPlace(const TPoint& place);
    /// There are lines, shown or not.
    bool HasLines() const { return lines_.Count() > 0; }

    /// Puts the box on a view, unseen.
    void PutOn(TImageEnView* view);
    /// A view that goes would free the box with its children.
    void TakeOff() { label_->SetParent(nullptr); }
    /// Takes the box off its view, out of the selection and out of sight.
    void LeaveView();

    /// A rebuild begins: no lines, unseen, without a place.
    void Clear();
    /// The line of the row's diagnosis, none for a row without one. Moves the table of diagnoses, whose handlers may do
    /// anything.
    std::optional<String> LineOf(TTreatmentColumns& row) const;
    /// Adds a line unless it is empty or there already, case aside.
    void Add(const String& line);
    /// Shows the lines at the stored place, or else beside the picture; nothing if there are none or the user has
    /// hidden the box.
    void Refresh();
    /// As Refresh, but the user asks for it: what was hidden comes back. Gives up its place if there is nothing to
    /// show.
    void Ask();
    void Hide();
    /// Writes place and visibility to the patient's chart row; nothing without one.
    void Save() const;

private:
    String Wording(const String& code) const;
    bool GoToStoredPlace();
    void LeaveCorner();

    const TChartSettings& settings_;
    const TChartSpace& space_;
    std::unique_ptr<TDRLabel> label_ = std::make_unique<TDRLabel>(nullptr);
    TStringList lines_;
    std::unordered_set<String> folded_; // the same, folded
    bool asked_ = false;                // it is being shown on demand, whatever was stored
};

} // namespace vorn
