#pragma once

#include "chart/vorndblabelIE.h"
#include "platform/controls/scroll_box.h"
#include "platform/data/sql_dataset.h"
#include "platform/imaging/image_view.h"

#include <QString>

#include <functional>
#include <vector>

namespace vorn::demo {

inline constexpr int MinZoom = 100;
inline constexpr int MaxZoom = 400;
inline constexpr int ZoomStep = 10;

/// One entry of the patient chooser.
struct PatientEntry {
    int number = 0;
    QString name;
};

/// One open database with the datasets of one patient, and the chart that draws them.
///
/// Everything is owned by one component that goes with the session.
class ChartSession {
public:
    /// In a window the view sits in a scroll box; for an export it stands by itself.
    enum class Setting { Window, Export };

    /// Throws EDatabaseError that names the file.
    ChartSession(const QString& databaseFile, Setting setting);
    ~ChartSession();
    ChartSession(const ChartSession&) = delete;
    ChartSession& operator=(const ChartSession&) = delete;

    std::vector<PatientEntry> Patients();
    /// Throws std::runtime_error for a number that no patient has.
    void ShowPatient(int number);
    /// From MinZoom to MaxZoom in steps of ZoomStep; anything else changes nothing.
    void ShowZoom(int percent);
    void ZoomIn() { ShowZoom(chart_->CurrentZoom() + ZoomStep); }
    void ZoomOut() { ShowZoom(chart_->CurrentZoom() - ZoomStep); }
    /// Builds the chart anew at the zoom that it has.
    void Rebuild();
    /// Flips the done mark of the selected treatments and their steps.
    void ToggleDone();
    /// Whether the user may drag labels.
    void SetDraggable(bool draggable);

    TVornIEDBTerList& Chart() { return *chart_; }
    TImageEnView& View() { return *view_; }
    TScrollBox* Box() { return box_; }
    TSqlDataSet& Treatments() { return *treatments_; }
    TDataSource& TreatmentsSource() { return *treatmentsSource_; }
    TDRLabelTimer& BlinkTimer() { return *blinkTimer_; }
    bool ReadOnly() const { return connection_->ReadOnly(); }

private:
    TSqlDataSet* AddDataSet(StringView name, StringView select);
    TDataSource* AddSource(TDataSet* dataset);
    void MakeView(Setting setting);
    void MakeTemplate();
    void MakeChart();
    void KeepLabelsOnPicture();
    void Zoom(int percent);
    void ZoomLabelsAgain();
    void KeepingSelection(const std::function<void()>& rebuild);

    TComponent root_;
    TSqlConnection* connection_;
    TSqlDataSet* patients_;
    TSqlDataSet* backgrounds_;
    TSqlDataSet* treatments_;
    TSqlDataSet* record_;
    TDataSource* treatmentsSource_;
    TScrollBox* box_ = nullptr;
    TImageEnView* view_ = nullptr;
    TDRLabelTimer* blinkTimer_ = nullptr;
    TDRLabel* template_ = nullptr;
    TVornIEDBTerList* chart_ = nullptr;
};

} // namespace vorn::demo
