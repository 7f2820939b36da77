#pragma once

#include "bench/database.h"
#include "demo/chart_session.h"

#include <QImage>

namespace vorn::bench {

/// The chart as the sample application wires it, with what the rows make it do.
class ChartSide {
public:
    explicit ChartSide(Database& database, demo::ChartSession::Setting setting = demo::ChartSession::Setting::Export);

    /// The patient with this many treatments, at 100 percent, without symbols and veils.
    void Show(int treatments);
    /// Any patient of the database the same way, with what symbols he has.
    void ShowPatient(int patient);
    /// Lays the symbols of the patient with this many over the treatments; 0 for none.
    void ShowSymbols(int placements);
    /// Veils teeth from the next rebuild on: '1' in the place of each missing one.
    void SetMissing(StringView missing);
    void Close() { session_.Treatments().Close(); }
    void Open() { session_.Treatments().Open(); }
    void Rebuild() { session_.Chart().CreaCollection(); }
    void RebuildSymbols() { session_.Chart().ActiveChangedSimboli(); }
    /// Takes the symbols off until the next rebuild, which then decodes their pictures anew.
    void ForgetSymbolPictures();
    QImage Paint();
    /// Makes the row current, so that PostText and PaintLabel mean it.
    void GoToRow(int ordinal);
    void PostText(StringView text);
    QImage PaintLabel();
    /// Without and with the labels, for what they take of the heap.
    void ShowLabels(bool show) { session_.Chart().SetEnabledImg(show); }
    /// The rules by state, operator and type.
    void UseRules(bool use);

    demo::ChartSession& Session() { return session_; }

private:
    void ShowSymbolsOf(int patient);
    QImage PaintPart(const TRect& part);

    TComponent root_; // goes after the session, whose connection its dataset uses
    demo::ChartSession session_;
    TDataSource* appearance_;
    TSqlDataSet* record_; // one row, without a table behind it
    int patient_ = 0;
    int symbolsOf_ = 0; // the patient whose symbols are shown
};

} // namespace vorn::bench
