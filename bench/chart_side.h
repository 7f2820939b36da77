#pragma once

#include "bench/database.h"
#include "demo/chart_session.h"

#include <QImage>

namespace vorn::bench {

/// The chart as the sample application wires it, with what the rows make it do.
class ChartSide {
public:
    explicit ChartSide(
        Database& database, demo::ChartSession::Setting setting = demo::ChartSession::Setting::Export);

    /// The patient with this many treatments, at 100 percent.
    void Show(int treatments);
    void Close() { session_.Treatments().Close(); }
    void Open() { session_.Treatments().Open(); }
    void Rebuild() { session_.Chart().CreaCollection(); }
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
    QImage PaintPart(const TRect& part);

    demo::ChartSession session_;
    TDataSource* appearance_;
    int shown_ = 0;
};

} // namespace vorn::bench
