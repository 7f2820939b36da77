#include "bench/measuring.h"
#include "bench/rows.h"
#include "bench/window.h"

#include <QWidget>

#include <stdexcept>

namespace vorn::bench {

namespace {

using demo::ChartSession;

QPoint MiddleOf(const TDRLabel& label)
{
    return {label.Left() + label.Width() / 2, label.Top() + label.Height() / 2};
}

/// Labels in sight with their middle free, from the first row on.
std::vector<TDRLabel*> LabelsInSight(ChartSide& side, std::size_t count)
{
    ChartSession& session = side.Session();
    const QRect sight = session.View().Widget()->visibleRegion().boundingRect();
    std::vector<TDRLabel*> labels;
    for (const TVornRec* record : session.Chart().ListVornRec()) {
        TDRLabel* label = record->FLabel;
        if (!label || !sight.contains(MiddleOf(*label)))
            continue;
        const QPoint middle = MiddleOf(*label);
        if (session.View().ControlAt({middle.x(), middle.y()}) == label)
            labels.push_back(label);
        if (labels.size() == count)
            return labels;
    }
    throw std::runtime_error("Too few labels in sight");
}

ChartSide& Shown(Sides& sides, int treatments)
{
    ChartSide& side = sides.Window();
    ShowInWindow(side, treatments);
    return side;
}

/// From a press on a label to the end of what it brings about, paints included; the label before was another
/// one.
void Click(benchmark::State& state, Sides& sides, int treatments)
{
    ChartSide& side = Shown(sides, treatments);
    const std::vector<TDRLabel*> labels = LabelsInSight(side, 2);
    side.Session().Chart().ResetSelection(); // a click on what is selected takes it out
    std::size_t turn = 0;
    const auto at = [&] { return MiddleOf(*labels[turn % labels.size()]); };
    const auto press = [&] {
        SendMouse(side, QEvent::MouseButtonPress, at(), Qt::LeftButton);
        Settle(side);
    };
    const auto release = [&] {
        if (!labels[turn % labels.size()]->InList())
            throw std::runtime_error("The click selected nothing");
        SendMouse(side, QEvent::MouseButtonRelease, at(), Qt::NoButton);
        Settle(side);
        ++turn;
    };
    MeasureTime(state, {{}, press, release});
}

/// One mouse move with a group of labels, repainted.
void Drag(benchmark::State& state, Sides& sides, int treatments)
{
    constexpr int step = 3;
    ChartSide& side = Shown(sides, treatments);
    const std::vector<TDRLabel*> labels = LabelsInSight(side, 20);
    side.Session().BlinkTimer().Clear();
    for (TDRLabel* label : labels)
        label->Add();
    const QPoint handle = QPoint(labels[0]->Left(), labels[0]->Top()) + QPoint(4, 4);
    SendMouse(side, QEvent::MouseMove, handle, Qt::NoButton);
    SendMouse(side, QEvent::MouseButtonPress, handle, Qt::LeftButton);
    Settle(side);
    int turn = 0;
    const auto move = [&] {
        SendMouse(side, QEvent::MouseMove, handle + QPoint(++turn % 2 * step, 0), Qt::LeftButton);
        Settle(side);
    };
    MeasureTime(state, {{}, move, {}});
    if (!labels[1]->isMoved())
        throw std::runtime_error("The drag moved nothing");
    side.Close(); // the mouse was never released, so nothing has been saved
}

void Blink(benchmark::State& state, Sides& sides, int treatments)
{
    ChartSide& side = Shown(sides, treatments);
    TDRLabelTimer& timer = side.Session().BlinkTimer();
    timer.Clear();
    for (const TVornRec* record : side.Session().Chart().ListVornRec())
        if (record->FLabel)
            record->FLabel->Add();
    Settle(side);
    const auto tick = [&] {
        timer.TimeBLink(nullptr);
        Settle(side);
    };
    MeasureTime(state, {{}, tick, {}});
    timer.Clear();
}

void Appearance(benchmark::State& state, Sides& sides, int treatments)
{
    ChartSide& chart = sides.Chart();
    chart.Show(treatments);
    const auto rebuild = [&] { chart.Rebuild(); };
    MeasureTime(state, {[&] { chart.UseRules(true); }, rebuild, {}}, {[&] { chart.UseRules(false); }, rebuild, {}});
    chart.UseRules(true);
    chart.Rebuild();
}

} // namespace

ChartSide& Sides::Opened(std::unique_ptr<ChartSide>& window)
{
    if (!window) {
        window = std::make_unique<ChartSide>(database_, ChartSession::Setting::Window);
        QWidget* box = window->Session().Box()->Widget();
        box->resize(WindowSize);
        box->show();
        Settle(*window);
    }
    return *window;
}

void AddInteractionRows(std::vector<BenchRow>& rows)
{
    const auto add = [&rows](const char* name, auto run, int treatments, RowKind kind = {}) {
        rows.push_back(
            {name, kind, [run, treatments](benchmark::State& state, Sides& sides) { run(state, sides, treatments); }});
    };
    add("appearance/3000", Appearance, 3000, {Unit::Milliseconds, "without rules"});
    add("click/300", Click, 300);
    add("click/30000", Click, 30000);
    add("drag20/300", Drag, 300);
    add("blink300", Blink, 300);
}

} // namespace vorn::bench
