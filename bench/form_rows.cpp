#include "bench/measuring.h"
#include "bench/rows.h"
#include "chart/published_properties.h"
#include "demo/forms/embedded_forms.h"
#include "platform/forms/form_file.h"
#include "platform/system/strings.h"

#include <memory>
#include <stdexcept>

namespace vorn::bench {

namespace {

/// The sample application's form, from its text to components that are wired up and loaded; beside it the same form as
/// text again.
void ReadAndWriteChart(benchmark::State& state)
{
    RegisterChartClasses();
    TFormOffers offers;
    offers.Offer<TDataSetNotifyEvent>(u"NewRow", [](TDataSet*) {});
    offers.Offer<TIELayerNotify>(u"LayerNotify", [](TObject*, int, TIELayerEvent) {});
    const String text = FromUtf8(demo::chart_form);
    std::unique_ptr<TComponent> form;
    const auto clear = [&] { form = std::make_unique<TComponent>(); };
    const auto read = [&] { ReadForm(text, *form, offers); };
    TComponent designed; // keeps the handlers' names, which a chart at work covers with its own handlers
    designed.SetDesigning(true);
    ReadForm(text, designed, offers);
    String written;
    MeasureTime(state, {clear, read, {}}, {{}, [&] { written = WriteForm(designed); }, {}});
    if (written != text || !form->FindComponent(u"carta"))
        throw std::runtime_error("The form doesn't come back as it was");
}

} // namespace

void AddFormRows(std::vector<BenchRow>& rows)
{
    rows.push_back({"form/chart", {Unit::Milliseconds, "writing it"},
        [](benchmark::State& state, Sides&) { ReadAndWriteChart(state); }});
}

} // namespace vorn::bench
