#include "platform/graphics/image_list.h"

#include "platform/graphics/picture_decoding.h"
#include "platform/system/exceptions.h"

#include <QByteArray>
#include <QImage>

#include <algorithm>

namespace vorn {

TChangeLink::~TChangeLink()
{
    if (sender_)
        sender_->UnRegisterChanges(this);
}

TCustomImageList::TCustomImageList(TComponent* owner, int width, int height)
    : TComponent(owner), width_(std::max(1, width)), height_(std::max(1, height))
{
}

/// A handler may register, unregister or free links; those that come meanwhile aren't told.
template <typename F>
void TCustomImageList::TellLinks(F tell)
{
    const TLifeWatch watch(this);
    ++telling_;
    const std::size_t count = links_.size();
    for (std::size_t i = 0; i < count && watch.Alive(); ++i)
        if (links_[i])
            tell(*links_[i]);
    if (watch.Alive())
        --telling_;
}

TCustomImageList::~TCustomImageList()
{
    Destroying();
    TellLinks([](TChangeLink& link) { link.SenderGoes(); });
    for (TChangeLink* link : links_)
        if (link)
            link->sender_ = nullptr;
}

void TCustomImageList::SetSize(int width, int height)
{
    width = std::max(1, width);
    height = std::max(1, height);
    if (width_ == width && height_ == height)
        return;
    width_ = width;
    height_ = height;
    images_.clear();
    Change();
}

int TCustomImageList::Count() const
{
    return static_cast<int>(images_.size());
}

int TCustomImageList::AddPicture(std::span<const std::byte> encoded)
{
    const auto size = static_cast<qsizetype>(encoded.size());
    String why;
    const QImage image
        = DecodePicture(QByteArray::fromRawData(reinterpret_cast<const char*>(encoded.data()), size), {}, why);
    if (image.isNull())
        throw EConvertError(u"The picture can't be read: " + why);
    return AddImage(image);
}

int TCustomImageList::AddImage(const QImage& image)
{
    if (image.isNull())
        throw EConvertError(u"The image list can't take an empty image");
    // Premultiplied before scaling, so that the colour of clear pixels doesn't bleed into the edges.
    QImage stored = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (stored.width() != width_ || stored.height() != height_)
        stored = stored.scaled(width_, height_, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    stored.setDevicePixelRatio(1.0);
    images_.push_back(std::move(stored));
    Change();
    return Count() - 1;
}

void TCustomImageList::Clear()
{
    if (images_.empty())
        return;
    images_.clear();
    Change();
}

void TCustomImageList::Draw(TCanvas& canvas, int x, int y, int index) const
{
    if (index >= 0 && index < Count())
        canvas.DrawImage(x, y, images_[static_cast<std::size_t>(index)]);
}

void TCustomImageList::DrawDisabled(TCanvas& canvas, int x, int y, int index) const
{
    if (index < 0 || index >= Count())
        return;
    QImage grey = images_[static_cast<std::size_t>(index)].convertToFormat(QImage::Format_ARGB32);
    for (int row = 0; row < grey.height(); ++row) {
        auto* pixel = reinterpret_cast<QRgb*>(grey.scanLine(row));
        for (const auto* end = pixel + grey.width(); pixel != end; ++pixel)
            *pixel = qRgba(qGray(*pixel), qGray(*pixel), qGray(*pixel), qAlpha(*pixel) / 2);
    }
    canvas.DrawImage(x, y, grey);
}

void TCustomImageList::RegisterChanges(TChangeLink* link)
{
    if (!link || link->sender_ == this)
        return;
    if (link->sender_)
        link->sender_->UnRegisterChanges(link);
    link->sender_ = this;
    link->place_ = links_.size();
    links_.push_back(link);
}

void TCustomImageList::UnRegisterChanges(TChangeLink* link)
{
    if (!link || link->sender_ != this)
        return;
    link->sender_ = nullptr;
    links_[link->place_] = nullptr;
    ++gaps_;
    if (telling_ == 0 && gaps_ > links_.size() / 2)
        CloseGaps();
}

void TCustomImageList::CloseGaps()
{
    std::erase(links_, nullptr);
    for (std::size_t i = 0; i < links_.size(); ++i)
        links_[i]->place_ = i;
    gaps_ = 0;
}

void TCustomImageList::Change()
{
    TellLinks([this](TChangeLink& link) { Raise(link.OnChange, this); });
}

} // namespace vorn
