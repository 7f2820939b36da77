#include "symbol_tools/vornSimbModify.h"

#include "platform/imaging/image_view.h"
#include "platform/system/extended.h"
#include "symbol_tools/palette_icons.h"

#include <array>
#include <functional>
#include <utility>

namespace vorn {

TvornSimbModifyFrm* vornSimbModifyFrm = nullptr;

namespace {

constexpr int Enlarged = 11; // tenths
constexpr int Reduced = 9;
constexpr int OpacityStep = 10;
constexpr double GridStep = 45;
constexpr int ButtonSize = 25;

/// The next multiple of 45 degrees below, as an angle from 0 to 315. An angle that one turn doesn't bring into
/// range is 0.
double NextStep(double rotation)
{
    double angle = rotation - GridStep;
    if (angle < 0)
        angle += 360;
    if (!(angle >= GridStep && angle < 360))
        return 0;
    return static_cast<int>(angle / GridStep) * GridStep;
}

} // namespace

TvornSimbModifyFrm::TvornSimbModifyFrm(TComponent* AOwner) : TForm(AOwner)
{
    MakeComponents();
    SetBounds(0, 0, 210, 122);
    SetBorderStyle(TFormBorderStyle::bsNone);
    SetCaption(u"vornSimbModifyFrm");
    SetColor(clBtnFace);
    SetShowHint(true);
    Font().SetName(u"Tahoma");
    Font().SetHeight(-11);
    Font().SetColor(clWindowText);
    Font().SetCharset(DEFAULT_CHARSET);
    LoadImages();
    SetUpActions();
    SetUpButtons();
    DoCreate();
}

TvornSimbModifyFrm::~TvornSimbModifyFrm()
{
    Destroying();
    if (vornSimbModifyFrm == this)
        vornSimbModifyFrm = nullptr;
}

void TvornSimbModifyFrm::MakeComponents()
{
    const auto make = [this]<typename T>(T*& component, StringView name) {
        component = new T(this);
        component->SetName(name);
    };
    make(PngImageList1, u"PngImageList1");
    make(ActionList1, u"ActionList1");
    make(Action1, u"Action1");
    make(Action2, u"Action2");
    make(Action3, u"Action3");
    make(Action4, u"Action4");
    make(Action5, u"Action5");
    make(Action6, u"Action6");
    make(FlowPanel1, u"FlowPanel1");
    make(PngSpeedButton2, u"PngSpeedButton2");
    make(PngSpeedButton1, u"PngSpeedButton1");
    make(PngSpeedButton3, u"PngSpeedButton3");
    make(PngSpeedButton4, u"PngSpeedButton4");
    make(PngSpeedButton5, u"PngSpeedButton5");
    make(PngSpeedButton6, u"PngSpeedButton6");
    make(Action7, u"Action7");
    make(Action8, u"Action8");
    make(Action9, u"Action9");
    make(PngSpeedButton7, u"PngSpeedButton7");
    make(PngSpeedButton8, u"PngSpeedButton8");
    make(PngSpeedButton9, u"PngSpeedButton9");
}

void TvornSimbModifyFrm::LoadImages()
{
    PngImageList1->SetBackground(clWindow);
    for (const PaletteIcon& icon : PaletteIcons())
        PngImageList1->AddPng(icon.Name, std::as_bytes(icon.Png));
}

void TvornSimbModifyFrm::SetUpActions()
{
    using Handler = void (TvornSimbModifyFrm::*)(TObject*);
    struct Setting {
        TAction* action;
        StringView hint;
        Handler handler;
    };
    const std::array settings{
        Setting{Action1, u"Ruota -1\u00B0", &TvornSimbModifyFrm::Action1Execute},
        Setting{Action2, u"Ruota +1\u00B0", &TvornSimbModifyFrm::Action1Execute},
        Setting{Action3, u"Ruota +45\u00B0", &TvornSimbModifyFrm::Action3Execute},
        Setting{Action4, u"Scala +", &TvornSimbModifyFrm::Action4Execute},
        Setting{Action5, u"Scala -", &TvornSimbModifyFrm::Action4Execute},
        Setting{Action6, u"Elimina simbolo", &TvornSimbModifyFrm::Action6Execute},
        Setting{Action7, u"Trasparente +", &TvornSimbModifyFrm::Action7Execute},
        Setting{Action8, u"Trasparente +", &TvornSimbModifyFrm::Action7Execute},
        Setting{Action9, u"Azzera Angolo e Scala", &TvornSimbModifyFrm::Action9Execute},
    };
    ActionList1->SetImages(PngImageList1);
    int image = 0;
    for (const Setting& setting : settings) {
        setting.action->SetActionList(ActionList1);
        setting.action->SetHint(setting.hint);
        setting.action->SetImageIndex(image);
        setting.action->SetImageName(PngImageList1->ImageName(image++));
        setting.action->OnExecute = std::bind_front(setting.handler, this);
    }
}

void TvornSimbModifyFrm::SetUpButtons()
{
    FlowPanel1->SetBounds(0, 0, 81, 73);
    FlowPanel1->SetBevelOuter(TBevelCut::bvNone);
    FlowPanel1->SetParent(this);
    // From left to right and from top to bottom; the first two stand the other way round.
    const std::array<std::pair<TPngSpeedButton*, TAction*>, 9> buttons{
        {{PngSpeedButton2, Action2}, {PngSpeedButton1, Action1}, {PngSpeedButton3, Action3}, {PngSpeedButton4, Action4},
            {PngSpeedButton5, Action5}, {PngSpeedButton6, Action6}, {PngSpeedButton7, Action7},
            {PngSpeedButton8, Action8}, {PngSpeedButton9, Action9}}};
    for (const auto& [button, action] : buttons) {
        button->SetBounds(0, 0, ButtonSize, ButtonSize);
        button->SetFlat(true);
        button->SetAction(action);
        button->SetParent(FlowPanel1);
    }
}

TImageEnView* TvornSimbModifyFrm::ViewWithSymbol() const
{
    TImageEnView* view = VornIEDBTerList1 ? VornIEDBTerList1->Container() : nullptr;
    return view && view->LayersCurrent() != 0 ? view : nullptr;
}

void TvornSimbModifyFrm::SaveAndUpdate(TImageEnView* view, TIELayerEvent event)
{
    const TLifeWatch watch(view);
    VornIEDBTerList1->SalvaCurrentLayerDib(event, false);
    if (watch.Alive())
        view->Update();
}

void TvornSimbModifyFrm::Action1Execute(TObject* Sender)
{
    TImageEnView* view = ViewWithSymbol();
    if (!view)
        return;
    TIELayer& layer = view->GetCurrentLayer();
    layer.SetRotate(layer.GetRotate() + (Sender == Action1 ? 1 : -1));
    SaveAndUpdate(view, TIELayerEvent::ielRotated);
}

void TvornSimbModifyFrm::Action3Execute(TObject*)
{
    TImageEnView* view = ViewWithSymbol();
    if (!view)
        return;
    TIELayer& layer = view->GetCurrentLayer();
    layer.SetRotate(NextStep(layer.GetRotate()));
    SaveAndUpdate(view, TIELayerEvent::ielRotated);
}

void TvornSimbModifyFrm::Action4Execute(TObject* Sender)
{
    TImageEnView* view = ViewWithSymbol();
    if (!view)
        return;
    TIELayer& layer = view->GetCurrentLayer();
    const int tenths = Sender == Action4 ? Enlarged : Reduced;
    layer.SetWidth(TimesTenths(layer.GetWidth(), tenths));
    layer.SetHeight(TimesTenths(layer.GetHeight(), tenths));
    UpdateAndSave(view, TIELayerEvent::ielResized);
}

void TvornSimbModifyFrm::Action6Execute(TObject*)
{
    if (ViewWithSymbol())
        VornIEDBTerList1->SalvaCurrentLayerDib(TIELayerEvent::ielSelected, true);
}

void TvornSimbModifyFrm::Action7Execute(TObject* Sender)
{
    TImageEnView* view = ViewWithSymbol();
    if (!view)
        return;
    TIELayer& layer = view->GetCurrentLayer();
    layer.SetOpacity(WrapAdd(layer.Opacity(), Sender == Action7 ? -OpacityStep : OpacityStep));
    UpdateAndSave(view, TIELayerEvent::ielMoved);
}

void TvornSimbModifyFrm::Action9Execute(TObject*)
{
    if (ViewWithSymbol())
        VornIEDBTerList1->SalvaCurrentDibReset();
}

void TvornSimbModifyFrm::UpdateAndSave(TImageEnView* view, TIELayerEvent event)
{
    const TLifeWatch watch(this);
    view->Update();
    if (watch.Alive() && ViewWithSymbol())
        VornIEDBTerList1->SalvaCurrentLayerDib(event, false);
}

void TvornSimbModifyFrm::Notification(TComponent* component, TOperation operation)
{
    TForm::Notification(component, operation);
    if (operation == TOperation::opRemove && VornIEDBTerList1
        && dynamic_cast<TSymbolEditing*>(component) == VornIEDBTerList1)
        VornIEDBTerList1 = nullptr;
}

} // namespace vorn
