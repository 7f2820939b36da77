#pragma once

#include "chart/diagnosis_show.h"
#include "labels/DrLabel.h"
#include "platform/data/data_source.h"

namespace vorn {

/// What the application has set and the parts of a chart go by. Only the chart's face writes it.
struct TChartSettings {
    // Columns of the treatments dataset, and keys of rows of the look table.
    String ParentField;
    String RootValue = u"0"; ///< parent key, as decimal text, of rows that stand on the chart by themselves
    String KeyField;
    String FieldFatto;
    String IDEsclusa;
    String IDFatto;
    String IDNONAccettata;

    bool Enabled = true;
    bool EnabledImg = true;
    bool EnabledDib = true;
    bool ShowPictureContainer = false;
    bool ShowDragPrestazioni = false;
    bool RiposizionaPrestazioni = false;
    TDate DataPrev = 0; ///< older records are shown greyed; 0 switches that off
    TDiagnosiShow DiagnosiShow = TDiagnosiShow::diagSigla;

    // The application's; each may be none.
    TDataSource* Catalogue = nullptr;
    TDataSource* Diagnoses = nullptr;
    TDataSource* Record = nullptr; ///< the patient's chart row
    TDataSource* Appearance = nullptr;
    TDRLabel* DefaultLabel = nullptr;

    /// The timer that holds the selection, or none.
    TDRLabelTimer* Timer() const { return DefaultLabel ? DefaultLabel->BTimer() : nullptr; }
    /// The open dataset behind a source, or none.
    static TDataSet* OpenRows(const TDataSource* source)
    {
        TDataSet* dataset = source ? source->DataSet() : nullptr;
        return dataset && dataset->Active() ? dataset : nullptr;
    }
    /// A component that goes is referred to no more.
    void Forget(const TComponent* component);
};

} // namespace vorn
