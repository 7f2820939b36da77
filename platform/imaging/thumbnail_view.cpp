#include "platform/imaging/thumbnail_view.h"

#include "platform/imaging/processing.h"
#include "platform/imaging/thumbnail_view_private.h"
#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <algorithm>

namespace vorn {

namespace {

constexpr int LargestSize = 4096; // of a thumbnail and of a border

/// As DrawText breaks lines.
int LinesOf(StringView text)
{
    int lines = 1;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool second = text[i] == u'\n' && i > 0 && text[i - 1] == u'\r';
        if ((text[i] == u'\r' || text[i] == u'\n') && !second)
            ++lines;
    }
    return lines;
}

} // namespace

TImageEnMView::TImageEnMView(TComponent* owner) : TWinControl(owner)
{
    SetTabStop(true);
}

TImageEnMView::Entry& TImageEnMView::At(int idx) const
{
    if (idx < 0 || idx >= GetImageCount())
        throw EListError(u"There is no thumbnail " + IntToStr(idx));
    return *entries_[static_cast<std::size_t>(idx)];
}

int TImageEnMView::AppendImage()
{
    entries_.push_back(std::make_unique<Entry>());
    Rearrange();
    InvalidateCell(GetImageCount() - 1);
    return GetImageCount() - 1;
}

void TImageEnMView::Clear()
{
    entries_.clear();
    textLines_ = 1;
    SetSelectedItem(-1);
    Rearrange();
    Invalidate();
}

void TImageEnMView::SetImageID(int idx, int id)
{
    At(idx).Id = id;
}

int TImageEnMView::GetImageID(int idx) const
{
    return At(idx).Id;
}

void TImageEnMView::SetImageBottomText(int idx, StringView text)
{
    At(idx).BottomText = text;
    if (idx == selected_)
        Describe();
    const int lines = std::max(textLines_, LinesOf(text));
    const bool taller = lines > textLines_;
    textLines_ = lines;
    if (!showText_)
        return;
    if (taller) {
        Rearrange();
        Invalidate();
    } else {
        InvalidateCell(idx);
    }
}

const String& TImageEnMView::GetImageBottomText(int idx) const
{
    return At(idx).BottomText;
}

void TImageEnMView::SetIEBitmap(int idx, const TIEBitmap& bitmap)
{
    Entry& entry = At(idx);
    entry.Bitmap.Assign(bitmap);
    entry.Size = {bitmap.Width(), bitmap.Height()};
    MakeThumbnail(entry);
    if (storeType_ == TIEStoreType::ietThumb)
        entry.Bitmap.FreeImage();
    InvalidateCell(idx);
}

int TImageEnMView::GetImageWidth(int idx) const
{
    return At(idx).Size.X;
}

int TImageEnMView::GetImageHeight(int idx) const
{
    return At(idx).Size.Y;
}

/// Here and not in the paint, so that a paint only copies pixels.
void TImageEnMView::MakeThumbnail(Entry& entry) const
{
    const QImage picture = entry.Bitmap.IsEmpty() ? entry.Thumbnail : entry.Bitmap.Picture();
    entry.Thumbnail = picture;
    if (picture.width() <= thumbSize_.X && picture.height() <= thumbSize_.Y)
        return;
    const TPoint size = FittingSize({picture.width(), picture.height()}, thumbSize_);
    entry.Thumbnail = Resampled(picture, size.X, size.Y, TResampleFilter::rfFastLinear);
}

void TImageEnMView::SetSelectedItem(int idx)
{
    if (idx < 0 || idx >= GetImageCount())
        idx = -1;
    if (idx != selected_) {
        InvalidateCell(selected_);
        selected_ = idx;
        InvalidateCell(selected_);
        Describe();
    }
    if (selectedAlwaysVisible_ && selected_ >= 0)
        ScrollInView(selected_);
}

void TImageEnMView::SetSelectedImageAlwaysVisible(bool always)
{
    selectedAlwaysVisible_ = always;
    if (always && selected_ >= 0)
        ScrollInView(selected_);
}

void TImageEnMView::SetShowText(bool show)
{
    if (showText_ == show)
        return;
    showText_ = show;
    Rearrange();
    Invalidate();
}

void TImageEnMView::SetThumbSize(const TPoint& size)
{
    const TPoint allowed{std::clamp(size.X, 1, LargestSize), std::clamp(size.Y, 1, LargestSize)};
    if (allowed == thumbSize_)
        return;
    thumbSize_ = allowed;
    for (const auto& entry : entries_)
        MakeThumbnail(*entry);
    Rearrange();
    Invalidate();
}

void TImageEnMView::SetHorizBorder(int width)
{
    border_.X = std::clamp(width, 0, LargestSize);
    Rearrange();
    Invalidate();
}

void TImageEnMView::SetVertBorder(int height)
{
    border_.Y = std::clamp(height, 0, LargestSize);
    Rearrange();
    Invalidate();
}

void TImageEnMView::SetGridWidth(int columns)
{
    gridWidth_ = columns;
    Rearrange();
    Invalidate();
}

void TImageEnMView::SetBackground(TColor color)
{
    if (background_ == color)
        return;
    background_ = color;
    Invalidate();
}

void TImageEnMView::SetThumbnailsBorderColor(TColor color)
{
    if (borderColor_ == color)
        return;
    borderColor_ = color;
    Invalidate();
}

void TImageEnMView::TextChanged()
{
    Describe();
}

void TImageEnMView::FontChanged()
{
    if (!showText_)
        return;
    Rearrange();
    Invalidate();
}

const String& TImageEnMView::HintAt(const TPoint& point) const
{
    const int idx = ImageAt(point);
    const bool tells = idx >= 0 && !showText_ && !At(idx).BottomText.empty();
    return tells ? At(idx).BottomText : TWinControl::HintAt(point);
}

} // namespace vorn
