#include "chart/external_picture.h"

#include "platform/imaging/image_view.h"
#include "platform/imaging/processing.h"
#include "platform/system/exceptions.h"
#include "platform/system/extended.h"
#include "platform/system/files.h"
#include "platform/system/strings.h"

namespace vorn {

namespace {

constexpr char16_t ListMark = u';';
constexpr char16_t WidthMark = u',';
/// A step of the picture's size, in tenths.
constexpr int Larger = 11;
constexpr int Smaller = 9;
constexpr std::int16_t OpaqueAfterReset = 255;

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

void TExternalPicture::Name(StringView file)
{
    file_ = file;
    picture_.FreeImage();
}

TExternalPicture::TLoad TExternalPicture::Load(const TPoint& asked, const TPoint& background)
{
    if (file_.find(ListMark) != String::npos)
        return TLoad::ListOfFiles;
    TPoint size = asked.X != 0 ? asked : background;
    const String named = file_;
    if (const auto mark = named.find(WidthMark); mark != String::npos) {
        file_.resize(mark);
        size.X = StrToInt(named.substr(mark + 1));
    }
    if (!FileExists(file_))
        return TLoad::Missing;
    if (asked.X == 0 && background == TPoint{}) {
        file_ = named; // with its width
        waiting_ = true;
        return TLoad::Waits;
    }
    try {
        LoadResampled(file_, picture_, size);
    } catch (const EStreamError&) {
        // The file can't be read: nothing is loaded.
    } catch (const std::exception&) {
        return TLoad::TooLarge;
    }
    return Held() ? TLoad::Done : TLoad::Unreadable;
}

bool TExternalPicture::Step(const TPoint& shown, bool larger)
{
    const int tenths = larger ? Larger : Smaller;
    if (file_.empty() || !FileExists(file_))
        return false;
    return LoadResampled(file_, picture_, {TimesTenths(shown.X, tenths), TimesTenths(shown.Y, tenths)});
}

void TExternalPicture::Show(TImageEnView& view) const
{
    view.Bitmap().Assign(picture_);
    view.Bitmap().SetEnableAlphaChannel(true);
    view.GetLayer(0).SetOpacity(opacity_);
}

void TExternalPicture::SetOpacity(std::int16_t opacity, TImageEnView* view)
{
    if (opacity == opacity_)
        return;
    opacity_ = opacity;
    if (!view)
        return;
    if (!view->Bitmap().EnableAlphaChannel())
        view->Bitmap().SetEnableAlphaChannel(true);
    view->GetLayer(0).SetOpacity(opacity);
}

void TExternalPicture::Reset()
{
    picture_.FreeImage();
    file_.clear();
    opacity_ = OpaqueAfterReset;
}

} // namespace vorn
