#include "bench/measuring.h"
#include "bench/peer_symbols.h"
#include "bench/rows.h"
#include "bench/window.h"
#include "symbol_tools/vornSimbModify.h"

#include <QApplication>
#include <QGraphicsPixmapItem>

#include <algorithm>
#include <stdexcept>

namespace vorn::bench {

namespace {

constexpr int DragPlacements = 50;
constexpr int DragStep = 3;

enum class Pictures { Kept, Forgotten };

/// From the rows at hand to the picture, on a chart with few treatments. The peer always decodes the pictures; the
/// chart has kept them from the rebuild before, or begins like the peer, without pictures and layers.
void RebuildSymbols(benchmark::State& state, Sides& sides, int placements, Pictures pictures)
{
    constexpr int treatments = 30;
    ChartSide& chart = sides.Chart();
    PeerScene& peer = sides.Peer();
    chart.Show(treatments);
    peer.Show(treatments);
    chart.ShowSymbols(placements);
    PeerSymbols symbols(peer, sides.Data(), Database::PatientWithSymbols(placements));
    const bool cold = pictures == Pictures::Forgotten;
    const auto clearChart = [&] {
        if (cold)
            chart.ForgetSymbolPictures();
    };
    const auto clearPeer = [&] {
        if (cold)
            symbols.Clear();
    };
    const auto rebuildChart = [&] {
        chart.RebuildSymbols();
        chart.Paint();
    };
    const auto rebuildPeer = [&] {
        symbols.Rebuild();
        peer.Paint();
    };
    MeasureTime(state, {clearChart, rebuildChart, {}}, {clearPeer, rebuildPeer, {}});
    if (chart.Session().View().GetLayersCount() != placements + 1)
        throw std::runtime_error("Not every placement has its layer");
    chart.ShowSymbols(0);
}

QPoint MiddleOf(const TRect& box)
{
    return {(box.Left + box.Right) / 2, (box.Top + box.Bottom) / 2};
}

/// Placements in sight whose middle nothing else covers, by their place among the rows.
std::vector<int> FreeSymbols(ChartSide& side)
{
    constexpr int room = 20; // for the drag
    TImageEnView& view = side.Session().View();
    const QRect sight = view.Widget()->visibleRegion().boundingRect().adjusted(room, room, -room, -room);
    std::vector<int> found;
    for (int layer = 1; layer < view.GetLayersCount(); ++layer) {
        const TRect box = view.GetLayer(layer).Box();
        const QPoint middle = MiddleOf(box);
        if (sight.contains(QRect(box.Left, box.Top, box.Width(), box.Height()))
            && !view.ControlAt({middle.x(), middle.y()})
            && view.FindLayerAt(view.XScr2Bmp(middle.x()), view.YScr2Bmp(middle.y()), true) == layer)
            found.push_back(layer - 1);
    }
    return found;
}

int FirstOf(const std::vector<int>& placements)
{
    if (placements.empty())
        throw std::runtime_error("No symbol is free to be dragged");
    return placements.front();
}

/// A symbol of the chart held with the mouse. It is put back where it was, so nothing is saved.
class HeldSymbol {
public:
    HeldSymbol(ChartSide& side, int placement)
        : side_(side), layer_(side.Session().View().GetLayer(placement + 1)), from_(MiddleOf(layer_.Box())),
          start_(layer_.GetPosX())
    {
        SendMouse(side_, QEvent::MouseMove, from_, Qt::NoButton);
        SendMouse(side_, QEvent::MouseButtonPress, from_, Qt::LeftButton);
        Settle(side_);
        Step();
        if (layer_.GetPosX() == start_)
            throw std::runtime_error("The drag moved nothing");
    }
    ~HeldSymbol()
    {
        SendMouse(side_, QEvent::MouseMove, from_, Qt::LeftButton);
        SendMouse(side_, QEvent::MouseButtonRelease, from_, Qt::NoButton);
        side_.Session().Chart().ResetSimbPanel();
        Settle(side_);
    }
    HeldSymbol(const HeldSymbol&) = delete;
    HeldSymbol& operator=(const HeldSymbol&) = delete;

    /// To the right and back by turns, repainted.
    void Step()
    {
        SendMouse(side_, QEvent::MouseMove, from_ + QPoint(++turn_ % 2 * DragStep, 0), Qt::LeftButton);
        Settle(side_);
    }

private:
    ChartSide& side_;
    TIELayer& layer_;
    QPoint from_;
    int start_;
    int turn_ = 0;
};

/// The same in the peer's window, whose items the toolkit itself drags.
class HeldItem {
public:
    HeldItem(PeerWindow& window, QGraphicsItem& item)
        : window_(window), from_(window.At(item.sceneBoundingRect().center()))
    {
        const QPointF start = item.pos();
        if (!window_.Surface()->rect().contains(from_))
            throw std::runtime_error("The peer's symbol is out of sight");
        SendMouse(window_.Surface(), QEvent::MouseButtonPress, from_, Qt::LeftButton);
        QApplication::processEvents();
        Step();
        if (item.pos() == start)
            throw std::runtime_error("The peer's drag moved nothing");
    }
    ~HeldItem() { SendMouse(window_.Surface(), QEvent::MouseButtonRelease, from_, Qt::NoButton); }
    HeldItem(const HeldItem&) = delete;
    HeldItem& operator=(const HeldItem&) = delete;

    void Step()
    {
        SendMouse(window_.Surface(), QEvent::MouseMove, from_ + QPoint(++turn_ % 2 * DragStep, 0), Qt::LeftButton);
        QApplication::processEvents();
    }

private:
    PeerWindow& window_;
    QPoint from_;
    int turn_ = 0;
};

void ShowWithSymbols(ChartSide& side, int treatments, int percent)
{
    ShowInWindow(side, treatments, percent);
    side.ShowSymbols(DragPlacements);
    Settle(side);
}

/// One mouse move with a symbol, repainted.
void Drag(benchmark::State& state, Sides& sides, int treatments, int percent)
{
    ChartSide& side = sides.Window();
    ShowWithSymbols(side, treatments, percent);
    const int placement = FirstOf(FreeSymbols(side));
    PeerScene& peer = sides.Peer();
    peer.Show(treatments);
    peer.ZoomTo(percent / 100.0);
    peer.UseIndex(true);
    {
        PeerSymbols symbols(peer, sides.Data(), Database::PatientWithSymbols(DragPlacements));
        PeerWindow window(peer, WindowSize);
        HeldItem item(window, symbols.Item(placement));
        HeldSymbol symbol(side, placement);
        MeasureTime(state, {{}, [&] { symbol.Step(); }, {}}, {{}, [&] { item.Step(); }, {}});
    }
    peer.UseIndex(false);
}

/// The same step among many labels and among few.
void DragGrowth(benchmark::State& state, Sides& sides, int percent)
{
    constexpr int many = 30000;
    constexpr int few = 300;
    ChartSide& crowded = sides.Window();
    ChartSide& sparse = sides.SecondWindow();
    ShowWithSymbols(crowded, many, percent);
    ShowWithSymbols(sparse, few, percent);
    const std::vector<int> here = FreeSymbols(crowded);
    const std::vector<int> there = FreeSymbols(sparse);
    std::vector<int> both;
    std::set_intersection(here.begin(), here.end(), there.begin(), there.end(), std::back_inserter(both));
    const int placement = FirstOf(both);
    HeldSymbol amongMany(crowded, placement);
    HeldSymbol amongFew(sparse, placement);
    MeasureTime(state, {{}, [&] { amongMany.Step(); }, {}}, {{}, [&] { amongFew.Step(); }, {}});
}

/// From a click on a palette button to the posted row and the repainted symbol.
void PressPalette(benchmark::State& state, Sides& sides, int treatments)
{
    ChartSide& side = sides.Window();
    ShowWithSymbols(side, treatments, 100);
    side.Session().Chart().SelectLastDib();
    Settle(side);
    const TvornSimbModifyFrm& palette = *vornSimbModifyFrm;
    QWidget* panel = palette.FlowPanel1->Widget();
    const TPngSpeedButton* buttons[] = {palette.PngSpeedButton1, palette.PngSpeedButton2};
    const auto rowAngle = [&] {
        const TSqlDataSet& rows = side.Session().Placements();
        return rows.FieldByName(u"Angle").AsInteger();
    };
    unsigned turn = 0;
    const auto press = [&] {
        const TPngSpeedButton& button = *buttons[++turn % 2];
        const QPoint at(button.Left() + button.Width() / 2, button.Top() + button.Height() / 2);
        SendMouse(panel, QEvent::MouseButtonPress, at, Qt::LeftButton);
        SendMouse(panel, QEvent::MouseButtonRelease, at, Qt::NoButton);
        Settle(side);
    };
    press();
    const int turned = rowAngle();
    press();
    if (rowAngle() == turned)
        throw std::runtime_error("The palette changed nothing");
    MeasureTime(state, {{}, press, {}});
    side.Session().Chart().ResetSimbPanel();
}

} // namespace

void AddSymbolRows(std::vector<BenchRow>& rows)
{
    const auto add = [&rows](std::string name, RowKind kind, auto run, auto... numbers) {
        rows.push_back({std::move(name), kind,
            [run, numbers...](benchmark::State& state, Sides& sides) { run(state, sides, numbers...); }});
    };
    const RowKind ownGrowth{Unit::Milliseconds, "300 labels"};
    for (const int placements : PlacementCounts)
        add("symbols/" + std::to_string(placements), {}, RebuildSymbols, placements, Pictures::Kept);
    for (const int placements : PlacementCounts)
        add("symbols-cold/" + std::to_string(placements), {}, RebuildSymbols, placements, Pictures::Forgotten);
    for (const int treatments : {300, 30000})
        add("dragsym/" + std::to_string(treatments), {}, Drag, treatments, 100);
    add("dragsym/growth", ownGrowth, DragGrowth, 100);
    for (const int treatments : {300, 30000})
        add("dragsym150/" + std::to_string(treatments), {}, Drag, treatments, 150);
    add("dragsym150/growth", ownGrowth, DragGrowth, 150);
    add("palette/300", {}, PressPalette, 300);
}

} // namespace vorn::bench
