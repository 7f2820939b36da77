#include "chart/symbol_panel.h"

#include "chart/vorndblabelIE.h"
#include "platform/controls/application.h"
#include "platform/imaging/processing.h"
#include "platform/imaging/thumbnail_view.h"
#include "platform/system/guards.h"
#include "symbol_tools/vornSimbSelect.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace vorn {

namespace {

/// The panel's mouse interaction but for a drag under way.
constexpr TIEMMouseInteract SelectOnly = 2;
constexpr int NaturalScale = 100;

struct Thumbnail {
    int Id = 0;
    String Text;
    std::unique_ptr<TIEBitmap> Picture = std::make_unique<TIEBitmap>();
};

/// Scales and turns the loader's picture as the catalogue's row wants it. Defaults that no memory holds leave it as far
/// as it came: the other symbols are to be seen all the same.
void ApplyDefaults(TImageEnView& loader, const TDataSet& ds)
{
    const int scale = ds.FieldByName(u"SCALE").AsInteger();
    const int angle = ds.FieldByName(u"ANGLE").AsInteger();
    if (loader.Bitmap().IsEmpty())
        return;
    const double width = std::clamp(loader.Bitmap().Width() * static_cast<double>(scale) / 100.0, 1.0, 1e9);
    TImageEnProc& processing = loader.GetImageEnProc();
    try {
        if (scale != NaturalScale && scale != 0)
            processing.Resample(static_cast<int>(width), -1, TResampleFilter::rfFastLinear, false);
        if (angle != 0)
            processing.Rotate(angle, true, TIEAntialiasMode::ierBilinear, static_cast<TColor>(-1));
    } catch (const EInvalidOperation&) {
    }
}

Thumbnail ReadThumbnail(const TDataSet& ds, TImageEnView& loader, TMemoryStream& stream)
{
    stream.Clear();
    loader.Blank();
    ds.FieldByName(u"Grafico_ie").SaveToStream(stream);
    stream.SetPosition(0);
    loader.GetImageEnIO().LoadFromStream(stream, 0);
    ApplyDefaults(loader, ds);

    Thumbnail thumbnail;
    thumbnail.Id = ds.FieldByName(u"SIMB_ID").AsInteger();
    thumbnail.Text = ds.FieldByName(u"Nome").AsString();
    if (const String therapy = ds.FieldByName(u"Terapia").AsString(); !therapy.empty())
        thumbnail.Text += u"\r\n" + therapy;
    thumbnail.Picture->Assign(loader.Bitmap());
    return thumbnail;
}

std::vector<Thumbnail> ReadThumbnails(TDataSet& ds)
{
    std::vector<Thumbnail> thumbnails;
    TMemoryStream stream;
    TImageEnView loader(nullptr);
    const TLifeWatch watch(&ds);
    const auto readable = [&] { return watch.Alive() && ds.Active(); }; // a handler may close or free it
    const TControlsDisabled disabled(ds);
    ds.Open();
    if (readable())
        ds.First();
    while (readable() && !ds.Eof()) {
        thumbnails.push_back(ReadThumbnail(ds, loader, stream));
        ds.Next();
    }
    if (readable())
        ds.First();
    return thumbnails;
}

} // namespace

void CaricaSimboliMView(TImageEnMView& mview, TDataSet& ds)
{
    mview.SetShowText(false);
    const TLifeWatch watch(&mview);
    const std::vector<Thumbnail> thumbnails = ReadThumbnails(ds);
    if (!watch.Alive())
        return;
    for (const Thumbnail& thumbnail : thumbnails) {
        const int index = mview.AppendImage();
        mview.SetImageID(index, thumbnail.Id);
        mview.SetImageBottomText(index, thumbnail.Text);
        mview.SetIEBitmap(index, *thumbnail.Picture);
    }
    if (mview.GetImageCount() > 0)
        mview.SetSelectedItem(0);
}

/// What the chart puts into a panel's events; does nothing once the chart is gone.
struct TVornIEDBTerList::PanelHook {
    std::shared_ptr<TVornIEDBTerList*> Chart;

    void operator()(TObject* Sender, TShiftState Shift, int X, int Y) const
    {
        if (auto* chart = *Chart)
            chart->ImageEnSimbMouseMove(Sender, Shift, X, Y);
    }
    void operator()(TObject* Sender, TObject* Target, int X, int Y) const
    {
        ImageEnSimbEndDrag(Sender, Target, X, Y); // also once the chart is gone: the panel is to work on
    }
    void operator()(TObject* Sender, int idx) const
    {
        if (auto* chart = *Chart)
            chart->ImageEnSimbImageSelect(Sender, idx);
    }
};

void TVornIEDBTerList::CreaMViewPanel(TImageEnMView* FMViewDib)
{
    if (!FMViewDib || !FSettings->Catalogue || !FSettings->Catalogue->DataSet())
        return;
    const PanelHook hook{FSelf};
    FMViewDib->Events().OnMouseMove = hook;
    FMViewDib->Events().OnEndDrag = hook;
    FMViewDib->OnImageSelect = hook;
    CaricaSimboliMView(*FMViewDib, *FSettings->Catalogue->DataSet());
}

void TVornIEDBTerList::ImageEnSimbMouseMove(TObject* Sender, TShiftState Shift, int, int)
{
    auto* panel = dynamic_cast<TImageEnMView*>(Sender);
    // Without a selected thumbnail there is nothing to drag.
    if (!panel || (Shift & ssLeft) == 0 || panel->SelectedImage() < 0)
        return;
    panel->SetMouseInteract({}); // the drag is not to change the selection on its way
    panel->IEBeginDrag(true, -1);
}

void TVornIEDBTerList::ImageEnSimbEndDrag(TObject* Sender, TObject*, int, int)
{
    if (auto* panel = dynamic_cast<TImageEnMView*>(Sender)) {
        panel->IEEndDrag();
        panel->SetMouseInteract(SelectOnly);
    }
}

void TVornIEDBTerList::ImageEnSimbImageSelect(TObject* Sender, int idx)
{
    auto* panel = dynamic_cast<TImageEnMView*>(Sender);
    if (!panel)
        return;
    panel->SetHint(panel->GetImageBottomText(idx));
    Application().ActivateHint(GetCursorPos());
}

void TVornIEDBTerList::ImageEnDragOver(TObject*, TObject* Source, int, int, TDragState, bool& Accept)
{
    Accept = FSettings->Enabled && dynamic_cast<TImageEnMView*>(Source);
}

bool TVornIEDBTerList::SelezionaSimbolo(int& simb_id, TDataSet* ds, TWinControl* parent)
{
    if (!ds)
        return false;
    const auto dialog = new TvornSimbSelectDlg(parent);
    vornSimbSelectDlg = dialog;
    const TLifeWatch watch(dialog); // its owner may go while it is open
    const ScopeExit release([&] {
        if (watch.Alive())
            delete dialog;
    });
    CaricaSimboliMView(*dialog->ImageEnMView1, *ds);
    if (!watch.Alive())
        return false;
    dialog->simb_id = simb_id;
    if (dialog->ShowModal() != mrOk || !watch.Alive())
        return false;
    simb_id = dialog->simb_id;
    return true;
}

} // namespace vorn
