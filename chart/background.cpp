#include "chart/vorndblabelIE.h"
#include "platform/controls/application.h"
#include "platform/controls/scroll_box.h"
#include "platform/system/guards.h"
#include "platform/system/strings.h"

namespace vorn {

void TVornIEDBTerList::ActiveChangedSfondi()
{
    if (InState(csDestroying))
        return;
    FZones->Clear();
    SetOffsetX(0);
    SetOffsetY(0);
    if (!FSpace->View())
        return;

    ReadBackground();
    LoadPendingPicture();
}

/// Takes picture and zones from the current row. An active dataset gives at least the zone of the whole mouth.
void TVornIEDBTerList::ReadBackground()
{
    if (!FSfondiDataLink->Active())
        return;
    const ScopeExit fallback([this] {
        if (FZones->Empty())
            FZones->UseFallback();
    });
    TDataSet& dataset = *FSfondiDataLink->DataSet();
    LoadBackground(dataset);
    LoadZones(dataset);
}

void TVornIEDBTerList::LoadBackground(TDataSet& dataset)
{
    TMemoryStream stream;
    dataset.FieldByName(u"grafico_ie").SaveToStream(stream);
    stream.SetPosition(0);
    ResetSimbPanel();
    const bool loaded = FSpace->View()->GetImageEnIO().LoadFromStream(stream, 0);
    FSpace->View()->SetClientWidth(FSpace->View()->Bitmap().Width());
    FSpace->View()->SetClientHeight(FSpace->View()->Bitmap().Height());
    // What can't be read isn't reported: the chart goes on with the last picture, without what was drawn into it.
    if (loaded || wd->IsEmpty())
        wd->Assign(FSpace->View()->Bitmap());

    // The second pixel of the second row: an image's very edge may be a frame. One that is too small to have it leaves
    // the colour as it was.
    if (wd->Width() < 2 || wd->Height() < 2)
        return;
    const TColor surround = TRGB2TColor(wd->GetPixels_ie24RGB(1, 1));
    FSpace->View()->SetBackground(surround);
    if (auto* box = dynamic_cast<TScrollBox*>(FSpace->View()->Parent()))
        box->SetColor(surround);
}

void TVornIEDBTerList::LoadZones(TDataSet& dataset)
{
    TStringList lines;
    const auto load = [&](StringView column) {
        TMemoryStream stream;
        dataset.FieldByName(column).SaveToStream(stream);
        stream.SetPosition(0);
        lines.LoadFromStream(stream);
    };
    load(u"Zone");
    FZones->ReadZones(lines);
    load(u"Dialoghi");
    FZones->ReadNames(lines);
}

void TVornIEDBTerList::ScrollByBeginSfondi(int Distance)
{
    ShowMessage(u"Scroll " + IntToStr(Distance));
}

} // namespace vorn
