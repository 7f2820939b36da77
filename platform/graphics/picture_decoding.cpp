#include "platform/graphics/picture_decoding.h"

#include "platform/graphics/image_integrity.h"
#include "platform/system/guards.h"
#include "platform/system/qt_convert.h"
#include "platform/system/strings.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>

namespace vorn {

namespace {

constexpr int MostMegabytes = 1024;

/// Why the header is refused; empty if it isn't. Formats that don't tell their size there are held by the limit on
/// memory.
String Refusal(QImageReader& reader, const QByteArray& format)
{
    if (format.isEmpty())
        reader.setDecideFormatFromContent(true);
    else
        reader.setFormat(format);
    reader.setAutoDetectImageFormat(format.isEmpty());
    reader.setAutoTransform(true);
    if (!reader.canRead())
        return FromQt(reader.errorString());
    const QSize size = reader.size();
    if (size.isValid() && std::int64_t{size.width()} * size.height() > MostPicturePixels)
        return Format(u"%d by %d pixels are too many", {size.width(), size.height()});
    return {};
}

} // namespace

bool LooksDecodable(QIODevice& device, const QByteArray& format)
{
    QImageReader reader(&device);
    return Refusal(reader, format).empty();
}

QImage DecodePicture(const QByteArray& encoded, const QByteArray& format, String& why)
{
    if (!IsComplete(std::as_bytes(std::span(encoded)))) { // first, since decoders complain aloud
        why = u"it is cut short";
        return {};
    }
    QBuffer buffer;
    buffer.setData(encoded);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    why = Refusal(reader, format);
    if (!why.empty())
        return {};
    const int limit = QImageReader::allocationLimit();
    const ScopeExit done([&] { QImageReader::setAllocationLimit(limit); });
    QImageReader::setAllocationLimit(MostMegabytes);
    QImage image;
    if (!reader.read(&image) || image.isNull()) {
        why = FromQt(reader.errorString());
        return {};
    }
    return image;
}

} // namespace vorn
