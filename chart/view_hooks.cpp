#include "chart/vorndblabelIE.h"

#include <utility>

namespace vorn {

/// A chart's hold on a view, shared by its hooks in the view's events. A chart that lets the view go ends the hold and
/// leaves the hooks: an application may have put handlers of its own around them.
struct TViewHold {
    TVornIEDBTerList* Chart; // none once the hold has ended
    TCursor Cursor;          // the view's own
};

namespace {

/// What a chart puts into an event: calls the chart and, once the hold has ended, what was there before.
template <typename... Args>
struct ViewHook {
    std::shared_ptr<TViewHold> Hold;
    void (TVornIEDBTerList::*Handler)(Args...);
    std::function<void(Args...)> Before;

    void operator()(Args... args) const
    {
        if (Hold->Chart)
            (Hold->Chart->*Handler)(std::forward<Args>(args)...);
        else if (Before)
            Before(std::forward<Args>(args)...);
    }
};

template <typename... Args>
void Hook(std::function<void(Args...)>& event, void (TVornIEDBTerList::*handler)(Args...),
    const std::shared_ptr<TViewHold>& hold)
{
    event = ViewHook<Args...>{hold, handler, event};
}

/// Takes the hooks of ended holds off an event, down to what was there before them. Gives the first of those holds.
template <typename... Args>
std::shared_ptr<TViewHold> TakeEndedHooksOff(std::function<void(Args...)>& event)
{
    std::shared_ptr<TViewHold> first;
    for (;;) {
        const auto* hook = event.template target<ViewHook<Args...>>();
        if (!hook || hook->Hold->Chart)
            return first;
        first = hook->Hold;
        event = std::function<void(Args...)>(hook->Before);
    }
}

} // namespace

/// Calls `visit` with each event that the chart takes and the handler that it takes it with.
template <typename F>
void TVornIEDBTerList::EachViewEvent(F visit)
{
    TControl::TMouseEvents& events = FSpace->View()->Events();
    visit(FSpace->View()->OnLayerNotify, &TVornIEDBTerList::ImageLayerNotify);
    visit(events.OnDragOver, &TVornIEDBTerList::ImageEnDragOver);
    visit(events.OnDragDrop, &TVornIEDBTerList::ImageEnDragDrop);
    visit(events.OnMouseMove, &TVornIEDBTerList::ImageEnMouseMove);
    visit(FSpace->View()->OnViewChange, &TVornIEDBTerList::ImageEnViewChange);
    visit(events.OnMouseUp, &TVornIEDBTerList::ImageEnMouseUp);
}

void TVornIEDBTerList::SetContainer(TImageEnView* value)
{
    if (value != FSpace->View()) {
        HidePalette(); // it lies on the view that goes
        FVeils->Forget();
        FDiagnosis->LeaveView();
    }
    LetGoOfView();
    FSpace->SetView(value);
    if (!value)
        return;
    value->FreeNotification(this);
    if (!InState(csDesigning))
        HookView();
}

void TVornIEDBTerList::HookView()
{
    FHold = std::make_shared<TViewHold>(TViewHold{this, FSpace->View()->Cursor()});
    EachViewEvent([this](auto& event, auto) {
        if (const auto earlier = TakeEndedHooksOff(event))
            FHold->Cursor = earlier->Cursor; // since then it may have been the chart's
    });
    FOnLayerNotify = FSpace->View()->OnLayerNotify;
    fOldMouseUp = FSpace->View()->Events().OnMouseUp;
    oldCursor = FHold->Cursor;
    EachViewEvent([this](auto& event, auto handler) { Hook(event, handler, FHold); });

    FSpace->View()->SetMouseInteract(miMoveLayers);
    FSpace->View()->SetZoomFilter(TResampleFilter::rfNone);
    FDiagnosis->PutOn(FSpace->View());
    FDiagnosis->Label().OnSavePosEvent = [this](TObject* Sender) { FSelection->SavePlaces(Sender); };
}

/// From here on the hooks in the view's events are as if they weren't there.
void TVornIEDBTerList::LetGoOfView()
{
    if (FHold)
        FHold->Chart = nullptr;
    FHold.reset();
    FOnLayerNotify = nullptr;
    fOldMouseUp = nullptr;
}

void TVornIEDBTerList::UnhookView()
{
    LetGoOfView();
    if (FSpace->View() && !FSpace->View()->InState(csDestroying))
        EachViewEvent([](auto& event, auto) { TakeEndedHooksOff(event); });
}

} // namespace vorn
