#include "platform/imaging/image_control.h"

#include "platform/graphics/painting.h"
#include "platform/imaging/image_io.h"

#include <QtGui/QImage>

namespace vorn {

void TPicture::Assign(const TPersistent& source)
{
    if (&source == this)
        return;
    const auto* picture = dynamic_cast<const TPicture*>(&source);
    bitmap_.Assign(picture ? picture->bitmap_ : source);
    Raise(changed_);
}

void TPicture::Clear()
{
    bitmap_.FreeImage();
    Raise(changed_);
}

void TPicture::SaveToFile(StringView fileName) const
{
    SaveBitmapAsPng(bitmap_, fileName);
}

TImage::TImage(TComponent* owner) : TGraphicControl(owner)
{
    picture_.changed_ = [this] { FitPicture(); };
}

TImage::~TImage()
{
    Destroying();
}

void TImage::SetStretch(bool stretch)
{
    if (stretch_ == stretch)
        return;
    stretch_ = stretch;
    Invalidate();
}

void TImage::SetCenter(bool center)
{
    if (center_ == center)
        return;
    center_ = center;
    Invalidate();
}

void TImage::SetAutoSize(bool autoSize)
{
    if (autoSize_ == autoSize)
        return;
    autoSize_ = autoSize;
    FitPicture();
}

void TImage::FitPicture()
{
    if (autoSize_ && !picture_.IsEmpty())
        SetBounds(Left(), Top(), picture_.Width(), picture_.Height());
    Invalidate();
}

void TImage::Paint()
{
    QPainter* painter = Canvas().Painter();
    if (!painter || picture_.IsEmpty())
        return;
    const QRect client = ToQRect(ClientRect());
    QRect place(QPoint(0, 0), picture_.Image().size());
    if (stretch_)
        place = client;
    else if (center_)
        place.moveTopLeft({(client.width() - place.width()) / 2, (client.height() - place.height()) / 2});
    const PainterState state(*painter);
    painter->setClipRect(client, Qt::IntersectClip);
    painter->setRenderHint(QPainter::SmoothPixmapTransform, stretch_);
    painter->drawImage(place, picture_.Image());
}

} // namespace vorn
