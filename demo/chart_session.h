#pragma once

#include "chart/vorndblabelIE.h"
#include "platform/controls/scroll_box.h"
#include "platform/data/sql_dataset.h"
#include "platform/imaging/image_view.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QTemporaryDir;

namespace vorn::demo {

inline constexpr int MinZoom = 100;
inline constexpr int MaxZoom = 400;
inline constexpr int ZoomStep = 10;

/// One entry of the patient chooser.
struct PatientEntry {
    int number = 0;
    QString name;
};

/// One entry of the doctor chooser.
struct DoctorEntry {
    String initials;
    QString name;
};

/// One open database with the datasets of one patient, and the chart that draws them.
///
/// Its components come from forms/chart.form; they are owned by one component that goes with the session.
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

    // --- symbols ---
    /// Whether the database has a symbol catalogue and placements. Without them the chart shows no symbols.
    bool HasSymbols() const { return catalogue_ != nullptr; }
    /// The symbol catalogue; there is one only if HasSymbols.
    TSqlDataSet& Catalogue() { return *catalogue_; }
    /// The patient's symbols; there are some only if HasSymbols.
    TSqlDataSet& Placements() { return *placements_; }
    void SetSymbolsShown(bool shown);
    /// Places a symbol of the catalogue beside the label of the treatment that was selected last. False if none is.
    bool AddSymbolBesideSelection(int symbol);
    /// Adds the treatment that the catalogue's current symbol stands for: `zone` is treated, today, by `doctor` (his
    /// "Sigla"). What the price list says about the treatment goes into the row.
    void AddTreatmentOfSymbol(const TZone& zone, StringView doctor);
    std::vector<DoctorEntry> Doctors();

    // --- the patient's record ---
    /// Surname and name of the patient who is shown.
    QString PatientName();
    /// Whether a zone is a tooth that can be marked as missing, by its place in the chart's table of names.
    bool IsTooth(const TZone& zone) const;
    /// Marks a tooth as missing, or as there again, and saves; gives whether it is missing now. Throws EDatabaseError
    /// for a record that can't be written.
    bool ToggleMissing(const TZone& zone);
    /// Shows or hides the box of the diagnoses, and saves that.
    void ShowDiagnosis(bool shown);

    // --- a picture behind the chart, in place of the drawing ---
    /// Throws std::runtime_error that names the file; the drawing is shown then.
    void OpenPicture(const QString& file);
    bool PictureShown() const { return chart_->ShowPictureContainer(); }
    /// Back to the drawing.
    void ClosePicture();
    /// A tenth larger or smaller. Nothing without a picture.
    void StepPicture(bool larger);

    TVornIEDBTerList& Chart() { return *chart_; }
    TImageEnView& View() { return *view_; }
    TScrollBox* Box() { return box_; }
    TSqlDataSet& Treatments() { return *treatments_; }
    TDataSource& TreatmentsSource() { return *treatmentsSource_; }
    TDRLabelTimer& BlinkTimer() { return *blinkTimer_; }
    bool ReadOnly() const { return connection_->ReadOnly(); }

private:
    void ReadChartForm();
    template <typename T>
    T* Part(StringView name) const;
    void LeaveOutSymbols();
    std::optional<std::size_t> PlaceInMissing(const TZone& zone) const;
    QString NameForChart(const QString& file);
    const TVornRec* LastSelected() const;
    void MoveOffLabel(const TDRLabel& label);
    void KeepPaletteInSight();
    void KeepLabelsOnPicture();
    void Zoom(int percent);
    void ZoomLabelsAgain();
    void KeepingSight(const std::function<void()>& change);

    TComponent root_;
    std::unique_ptr<QTemporaryDir> pictureLink_; // a picture whose own name the chart can't take
    int patient_ = 0;
    // Parts of the form.
    TSqlConnection* connection_ = nullptr;
    TSqlDataSet* patients_ = nullptr;
    TSqlDataSet* backgrounds_ = nullptr;
    TSqlDataSet* treatments_ = nullptr;
    TSqlDataSet* record_ = nullptr;
    TSqlDataSet* priceList_ = nullptr;
    TSqlDataSet* doctors_ = nullptr;
    TSqlDataSet* catalogue_ = nullptr;  // none in an older database
    TSqlDataSet* placements_ = nullptr; // likewise
    TDataSource* treatmentsSource_ = nullptr;
    TScrollBox* box_ = nullptr; // none for an export
    TImageEnView* view_ = nullptr;
    TDRLabelTimer* blinkTimer_ = nullptr;
    TVornIEDBTerList* chart_ = nullptr;
};

} // namespace vorn::demo
