#include "labels/blink_timer.h"

#include "labels/DrLabel.h"

#include <vector>

namespace vorn {

namespace {

/// Walks the selection though handlers and repaints may change it: a label that has gone is passed over.
template <typename F>
void ForEachSelected(TComponentList& list, F step)
{
    std::vector<TComponent*> labels;
    for (int i = 0; i < list.Count(); ++i)
        labels.push_back(list.Items(i));
    for (int i = 0; i < static_cast<int>(labels.size()); ++i) {
        TComponent* const label = labels[static_cast<std::size_t>(i)];
        const bool inPlace = i < list.Count() && list.Items(i) == label;
        if (inPlace || list.IndexOf(label) >= 0)
            step(static_cast<TDRLabel&>(*label));
    }
}

} // namespace

TDRLabelTimer::TDRLabelTimer(TComponent* AOwner)
    : TTimer(AOwner), FComponentList(std::make_unique<TComponentList>(false)),
      FSelf(std::make_shared<TDRLabelTimer*>(this))
{
    SetEnabled(false);
    SetInterval(400);
    OnTimer = [this](TObject* sender) { TimeBLink(sender); };
}

TDRLabelTimer::~TDRLabelTimer()
{
    Destroying();
    ForEachSelected(*FComponentList, [](TDRLabel& label) { label.Leave(); });
    *FSelf = nullptr;
}

void TDRLabelTimer::SetHiColor(TColor value)
{
    if (value == FHiColor)
        return;
    FHiColor = value;
    FFontColor = value;
}

void TDRLabelTimer::Clear()
{
    const Handle life = FSelf; // a handler of OnSelect may free the timer
    // A handler that selects its label again is not to keep this going for ever.
    for (int left = FComponentList->Count(); left > 0 && *life && FComponentList->Count() > 0; --left)
        static_cast<TDRLabel*>(FComponentList->Items(0))->AddToList(true);
}

void TDRLabelTimer::TimeBLink(TObject*)
{
    ForEachSelected(*FComponentList, [this](TDRLabel& label) {
        switch (FBlink) {
        case TDRBlink::blHiLo:
            label.Font().SetColor(FFontColor == FHiColor ? FLoColor : FHiColor);
            label.ShowTick(false);
            break;
        case TDRBlink::blInvert:
            label.ShowTick(!label.FInverted);
            break;
        case TDRBlink::blNone:
            label.FTimerLink(FHiColor, FLoColor, FBlink);
            label.ShowTick(false);
            break;
        }
    });
    if (FBlink == TDRBlink::blHiLo)
        FFontColor = FFontColor == FHiColor ? FLoColor : FHiColor;
}

} // namespace vorn
