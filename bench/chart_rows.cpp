#include "bench/measuring.h"
#include "bench/rows.h"

namespace vorn::bench {

namespace {

constexpr StringView Texts[] = {u"OTT", u"RIC"};
const QString PeerTexts[] = {QStringLiteral("OTT"), QStringLiteral("RIC")};

std::string NameOf(const char* what, int number)
{
    return std::string(what) + '/' + std::to_string(number);
}

/// From the closed dataset to the picture.
void Open(benchmark::State& state, Sides& sides, int treatments)
{
    ChartSide& chart = sides.Chart();
    PeerScene& peer = sides.Peer();
    chart.Show(treatments);
    peer.Show(treatments);
    const auto openChart = [&] {
        chart.Open();
        chart.Paint();
    };
    const auto openPeer = [&] {
        peer.Open();
        peer.Paint();
    };
    MeasureTime(state, {[&] { chart.Close(); }, openChart, {}}, {[&] { peer.Close(); }, openPeer, {}});
}

/// With the rows at hand.
void Rebuild(benchmark::State& state, Sides& sides, int treatments)
{
    ChartSide& chart = sides.Chart();
    PeerScene& peer = sides.Peer();
    chart.Show(treatments);
    peer.Show(treatments);
    const auto rebuildChart = [&] {
        chart.Rebuild();
        chart.Paint();
    };
    const auto rebuildPeer = [&] {
        peer.Rebuild();
        peer.Paint();
    };
    MeasureTime(state, {{}, rebuildChart, {}}, {{}, rebuildPeer, {}});
}

/// From a posted text to its painted label.
void Reload(benchmark::State& state, Sides& sides, int treatments)
{
    ChartSide& chart = sides.Chart();
    PeerScene& peer = sides.Peer();
    chart.Show(treatments);
    peer.Show(treatments);
    peer.UseIndex(true);
    const int row = treatments / 2;
    const int peerRow = row + 1; // each side its own: a row that somebody else has changed isn't overwritten
    chart.GoToRow(row);
    peer.PaintLabel(peerRow);
    unsigned chartTurn = 0;
    unsigned peerTurn = 0;
    const auto reloadChart = [&] {
        chart.PostText(Texts[++chartTurn % 2]);
        chart.PaintLabel();
    };
    const auto reloadPeer = [&] {
        peer.PostText(peerRow, PeerTexts[++peerTurn % 2]);
        peer.PaintLabel(peerRow);
    };
    MeasureTime(state, {{}, reloadChart, {}}, {{}, reloadPeer, {}});
    peer.UseIndex(false);
}

void Repaint(benchmark::State& state, Sides& sides, int percent)
{
    constexpr int treatments = 300;
    ChartSide& chart = sides.Chart();
    PeerScene& peer = sides.Peer();
    chart.Show(treatments);
    peer.Show(treatments);
    chart.Session().ShowZoom(percent);
    peer.ZoomTo(percent / 100.0);
    MeasureTime(state, {{}, [&] { chart.Paint(); }, {}}, {{}, [&] { peer.Paint(); }, {}});
}

/// What the labels take of the heap once they have been painted, each; the rows are there before.
void Memory(benchmark::State& state, Sides& sides, int treatments)
{
    ChartSide& chart = sides.Chart();
    PeerScene& peer = sides.Peer();
    chart.Show(treatments);
    peer.Show(treatments);
    chart.Paint(); // what the whole process shares, such as glyphs, is there then
    peer.Paint();
    double ours = 0;
    double beside = 0;
    for ([[maybe_unused]] auto round : state) {
        chart.ShowLabels(false);
        double before = HeapBytes();
        chart.ShowLabels(true);
        chart.Paint();
        ours = HeapBytes() - before;

        peer.ClearItems();
        before = HeapBytes();
        peer.Rebuild();
        peer.Paint();
        beside = HeapBytes() - before;
        state.SetIterationTime(1); // one round tells
    }
    state.counters[OursCounter] = ours / treatments;
    state.counters[BesideCounter] = beside / treatments;
}

} // namespace

ChartSide& Sides::Chart()
{
    if (!chart_)
        chart_ = std::make_unique<ChartSide>(database_);
    return *chart_;
}

PeerScene& Sides::Peer()
{
    if (!peer_)
        peer_ = std::make_unique<PeerScene>(database_);
    return *peer_;
}

void AddChartRows(std::vector<BenchRow>& rows)
{
    const auto add = [&rows](const char* what, auto run, std::initializer_list<int> numbers, RowKind kind = {}) {
        for (const int number : numbers)
            rows.push_back({NameOf(what, number), kind,
                [run, number](benchmark::State& state, Sides& sides) { run(state, sides, number); }});
    };
    add("open", Open, {30, 300, 3000, 30000});
    add("rebuild", Rebuild, {30, 300, 3000, 30000});
    add("reload", Reload, {300, 30000});
    add("repaint", Repaint, {100, 150});
    add("memory", Memory, {300, 3000, 30000}, {Unit::Bytes, "peer"});
}

} // namespace vorn::bench
