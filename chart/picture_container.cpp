#include "chart/vorndblabelIE.h"

#include "platform/controls/application.h"
#include "platform/imaging/image_control.h"

namespace vorn {

namespace {

constexpr TColor White = 0xFFFFFF;

} // namespace

void TVornIEDBTerList::ActiveChangedSfondi()
{
    if (InState(csDestroying))
        return;
    FZones->Clear();
    FLayout->SetOffset({});
    if (!FSpace->View())
        return;
    if (FSfondiDataLink->Active()) {
        ResetSimbPanel();
        FBackground->Read(*FSfondiDataLink->DataSet(), *FSpace->View());
    }
    LoadPendingPicture();
}

void TVornIEDBTerList::SetShowPictureContainer(bool value)
{
    if (value == FSettings->ShowPictureContainer)
        return;
    FSettings->ShowPictureContainer = value;
    FPicture->SetWaiting(InState(csLoading));
    if (FPicture->Waiting())
        return;
    const TLifeWatch chart(this);
    if (value && !FPicture->Held())
        CaricaImmagineEsterna();
    if (chart.Alive())
        CreaCollection();
}

void TVornIEDBTerList::SetPictureContainer(StringView value)
{
    if (value == FPicture->File())
        return;
    FPicture->Name(value);
    FPicture->SetWaiting(InState(csLoading));
    if (FPicture->Waiting())
        return;
    if (FPicture->File().empty()) {
        InitPictureSize = {};
        SetShowPictureContainer(false);
    } else if (FSettings->ShowPictureContainer) {
        CaricaImmagineEsterna();
    }
}

/// What was said about the picture while a form was read, or without a background to size it by, counts from now on.
void TVornIEDBTerList::LoadPendingPicture()
{
    if (!FPicture->Waiting() || InState(csLoading) || FBackground->Size() == TPoint{})
        return;
    FPicture->SetWaiting(false);
    if (FSettings->ShowPictureContainer && !FPicture->File().empty())
        CaricaImmagineEsterna();
}

void TVornIEDBTerList::CaricaImmagineEsterna()
{
    using enum TExternalPicture::TLoad;
    const TLifeWatch chart(this);
    const auto loaded = FPicture->Load(InitPictureSize, FBackground->Size());
    const String file = FPicture->File();
    if (loaded == ListOfFiles) {
        SetShowPictureContainer(false);
        throw Exception(u"Puo essere gestito un solo file");
    }
    if (loaded == Missing) {
        ShowMessage(u"File " + file + u" non trovato");
        if (chart.Alive())
            SetShowPictureContainer(false);
    } else if (loaded == Unreadable) {
        ShowMessage(u"Errore nel caricamento del file " + file);
    }
}

void TVornIEDBTerList::ResetPictureContainer()
{
    if (!FPicture->Held())
        return;
    const TLifeWatch chart(this);
    SetShowPictureContainer(false);
    if (!chart.Alive())
        return;
    FPicture->Reset();
    InitPictureSize = {};
    InitPictureId = 0;
    CreaCollection();
}

void TVornIEDBTerList::ResizePictureContainer(bool aumenta)
{
    TImageEnView* view = FSpace->View();
    if (!view || view->Bitmap().IsEmpty() || !FPicture->Step(GetSizePictureContainer(), aumenta))
        return; // with no picture any more, the one that is shown stays
    ResetSimbPanel();
    FPicture->Show(*view);
    DrawLinesOnPicture(); // the fresh picture has none
    view->Update();
    AdjustBounds();
}

TPoint TVornIEDBTerList::GetSizePictureContainer() const
{
    if (!FSpace->View())
        return {};
    return {FSpace->View()->Bitmap().Width(), FSpace->View()->Bitmap().Height()};
}

void TVornIEDBTerList::CreaPicture(TImage* image) const
{
    if (!FSpace->View() || !image)
        return;
    TIEBitmap picture;
    picture.Allocate(MaxRect.Right, MaxRect.Bottom, TIEPixelFormat::ie24RGB);
    picture.Fill(White);
    FSpace->View()->DrawLayersTo(picture);
    FListPaintTo(picture.GetCanvas(), 0, 0);
    image->Picture().Assign(picture);
}

} // namespace vorn
