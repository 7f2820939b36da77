#pragma once

#include "bench/chart_side.h"
#include "bench/peer_scene.h"
#include "bench/results.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vorn::bench {

/// What the rows share. The sides are made when first asked for and keep their patient from row to row.
class Sides {
public:
    explicit Sides(Database& database) : database_(database) {}

    ChartSide& Chart();
    PeerScene& Peer();
    /// A chart in a window on the screen; for events and repaints.
    ChartSide& Window() { return Opened(window_); }
    /// Another one, for a row that compares two patients.
    ChartSide& SecondWindow() { return Opened(secondWindow_); }
    Database& Data() { return database_; }

private:
    ChartSide& Opened(std::unique_ptr<ChartSide>& window);

    Database& database_;
    std::unique_ptr<ChartSide> chart_;
    std::unique_ptr<PeerScene> peer_;
    std::unique_ptr<ChartSide> window_;
    std::unique_ptr<ChartSide> secondWindow_;
};

struct BenchRow {
    std::string name;
    RowKind kind;
    std::function<void(benchmark::State&, Sides&)> run;
};

/// Open, rebuild, reload, repaint and memory.
void AddChartRows(std::vector<BenchRow>& rows);
/// Appearance rules, clicks, drags and blinking.
void AddInteractionRows(std::vector<BenchRow>& rows);
/// Symbol layers, drags of a symbol and the palette.
void AddSymbolRows(std::vector<BenchRow>& rows);
/// The symbol panel.
void AddPanelRows(std::vector<BenchRow>& rows);
/// Export, veils, leader lines and photographs.
void AddPictureRows(std::vector<BenchRow>& rows);
/// A form file read and written.
void AddFormRows(std::vector<BenchRow>& rows);

} // namespace vorn::bench
