#include "chart/vorndblabelIE.h"

#include "platform/controls/application.h"
#include "platform/imaging/image_control.h"
#include "platform/imaging/processing.h"
#include "platform/system/extended.h"
#include "platform/system/files.h"
#include "platform/system/guards.h"
#include "platform/system/strings.h"

namespace vorn {

namespace {

constexpr char16_t ListMark = u';';
constexpr char16_t WidthMark = u',';
/// A step of the picture's size, in tenths.
constexpr int Larger = 11;
constexpr int Smaller = 9;
constexpr std::int16_t OpaqueAfterReset = 255;
constexpr TColor White = 0xFFFFFF;

/// Reads a file and puts its picture into `target`, as large as fits into the size. False if it holds no picture.
bool LoadResampled(StringView file, TIEBitmap& target, const TPoint& size)
{
    TImageEnView loader(nullptr);
    if (!loader.GetImageEnIO().LoadFromFile(file, true))
        return false;
    loader.GetImageEnProc().ResampleTo(target, size.X, size.Y, TResampleFilter::rfFastLinear, true);
    return true;
}

} // namespace

void TVornIEDBTerList::SetShowPictureContainer(bool value)
{
    if (value == FSettings->ShowPictureContainer)
        return;
    FSettings->ShowPictureContainer = value;
    FPicturePending = InState(csLoading);
    if (FPicturePending)
        return;
    const TLifeWatch chart(this);
    if (value && InternalPictureContainer->IsEmpty())
        CaricaImmagineEsterna();
    if (chart.Alive())
        CreaCollection();
}

void TVornIEDBTerList::SetPictureContainer(StringView value)
{
    if (value == FPictureContainer)
        return;
    FPictureContainer = value;
    InternalPictureContainer->FreeImage();
    FPicturePending = InState(csLoading);
    if (FPicturePending)
        return;
    if (FPictureContainer.empty()) {
        InitPictureSize = {};
        SetShowPictureContainer(false);
    } else if (FSettings->ShowPictureContainer) {
        CaricaImmagineEsterna();
    }
}

/// What was said about the picture while a form was read, or without a background to size it by, counts from now on.
void TVornIEDBTerList::LoadPendingPicture()
{
    if (!FPicturePending || InState(csLoading) || wd->IsEmpty())
        return;
    FPicturePending = false;
    if (FSettings->ShowPictureContainer && !FPictureContainer.empty())
        CaricaImmagineEsterna();
}

void TVornIEDBTerList::CaricaImmagineEsterna()
{
    TPoint size = InitPictureSize.X != 0 ? InitPictureSize : TPoint{wd->Width(), wd->Height()};
    const TLifeWatch chart(this);
    if (FPictureContainer.find(ListMark) != String::npos) {
        SetShowPictureContainer(false);
        throw Exception(u"Puo essere gestito un solo file");
    }
    const String named = FPictureContainer;
    if (const auto mark = named.find(WidthMark); mark != String::npos) {
        FPictureContainer.resize(mark);
        size.X = StrToInt(named.substr(mark + 1));
    }
    const String file = FPictureContainer;
    if (!FileExists(file)) {
        ShowMessage(u"File " + file + u" non trovato");
        if (chart.Alive())
            SetShowPictureContainer(false);
        return;
    }
    if (InitPictureSize.X == 0 && wd->IsEmpty()) {
        FPictureContainer = named; // with its width
        FPicturePending = true;
        return;
    }
    try {
        LoadResampled(file, *InternalPictureContainer, size);
    } catch (const EStreamError&) {
        // The file can't be read: nothing is loaded, which the user is told below.
    } catch (const std::exception&) {
        return; // a picture that can't be brought to its size is passed over without a word
    }
    if (InternalPictureContainer->IsEmpty())
        ShowMessage(u"Errore nel caricamento del file " + file);
}

void TVornIEDBTerList::ResetPictureContainer()
{
    if (InternalPictureContainer->IsEmpty())
        return;
    const TLifeWatch chart(this);
    SetShowPictureContainer(false);
    if (!chart.Alive())
        return;
    InternalPictureContainer->FreeImage();
    FPictureContainer.clear();
    InitPictureSize = {};
    FInitPictureOpacity = OpaqueAfterReset;
    InitPictureId = 0;
    CreaCollection();
}

void TVornIEDBTerList::ResizePictureContainer(bool aumenta)
{
    if (FPictureContainer.empty() || !FSpace->View() || FSpace->View()->Bitmap().IsEmpty()
        || !FileExists(FPictureContainer))
        return;
    const int tenths = aumenta ? Larger : Smaller;
    const TPoint size = GetSizePictureContainer();
    const TPoint stepped{TimesTenths(size.X, tenths), TimesTenths(size.Y, tenths)};
    if (!LoadResampled(FPictureContainer, *InternalPictureContainer, stepped))
        return; // no picture any more: the one that is shown stays
    ShowPicture();
    DrawLinesOnPicture(); // the fresh picture has none
    FSpace->View()->Update();
    AdjustBounds();
}

/// Puts the external picture onto layer 0.
void TVornIEDBTerList::ShowPicture()
{
    ResetSimbPanel();
    FSpace->View()->Bitmap().Assign(*InternalPictureContainer);
    FSpace->View()->Bitmap().SetEnableAlphaChannel(true);
    FSpace->View()->GetLayer(0).SetOpacity(FInitPictureOpacity);
}

void TVornIEDBTerList::SetInitPictureOpacity(std::int16_t value)
{
    if (value == FInitPictureOpacity)
        return;
    FInitPictureOpacity = value;
    if (!FSpace->View())
        return;
    if (!FSpace->View()->Bitmap().EnableAlphaChannel())
        FSpace->View()->Bitmap().SetEnableAlphaChannel(true);
    FSpace->View()->GetLayer(0).SetOpacity(value);
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
