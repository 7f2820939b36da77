#pragma once

#include "chart/chart_settings.h"
#include "chart/chart_space.h"
#include "chart/diagnosis_box.h"
#include "chart/treatments.h"

namespace vorn {

/// Moves and measures what stands on the chart, and sizes the view to it. All of it does nothing without a view.
class TLayout {
public:
    /// `covered` is where the measured area is kept.
    TLayout(const TChartSettings& settings, TChartSpace& space, TZoneMap& zones, const TTreatments& treatments,
        const TDiagnosisBox& diagnosis, TRect& covered)
        : settings_(settings), space_(space), zones_(zones), treatments_(treatments), diagnosis_(diagnosis),
          covered_(covered)
    {
    }

    /// Shifts the chart against the image: labels, zones and, but over an external picture, layers.
    void SetOffset(const TPoint& offset);
    /// Measures everything on the chart, shifts it if something lies left of or above the image, and sizes the view.
    void AdjustBounds();
    /// The same for a diagnosis box that has come up. While the chart is zoomed its bounds stay as they are: they are
    /// measured at natural size.
    void MakeRoomForDiagnosis();
    /// Shows everything at the chart's zoom.
    void ShowZoom() const;

private:
    void MoveLayers(const TPoint& origin);
    void Measure(const TRect& image);

    const TChartSettings& settings_;
    TChartSpace& space_;
    TZoneMap& zones_;
    const TTreatments& treatments_;
    const TDiagnosisBox& diagnosis_;
    TRect& covered_;
};

} // namespace vorn
