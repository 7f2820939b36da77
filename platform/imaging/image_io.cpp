#include "platform/imaging/image_io.h"

#include "platform/controls/qt_convert.h"
#include "platform/imaging/image_integrity.h"
#include "platform/system/exceptions.h"

#include <QtCore/QBuffer>
#include <QtCore/QSaveFile>
#include <QtGui/QImage>
#include <QtGui/QImageReader>

#include <algorithm>

namespace vorn {

namespace {

constexpr int MostMegabytes = 1024;

Bytes ReadRest(TStream& stream)
{
    const std::size_t size = stream.Size();
    Bytes content(size - std::min(stream.Position(), size));
    std::size_t filled = 0;
    while (filled < content.size()) {
        const std::size_t count = stream.Read(std::span(content).subspan(filled));
        if (count == 0)
            break;
        filled += count;
    }
    content.resize(filled);
    return content;
}

QImage Decode(const Bytes& content)
{
    if (content.empty() || !IsComplete(content))
        return {};
    auto encoded = QByteArray::fromRawData(
        reinterpret_cast<const char*>(content.data()), static_cast<qsizetype>(content.size()));
    QBuffer buffer(&encoded);
    buffer.open(QIODevice::ReadOnly);
    QImageReader::setAllocationLimit(MostMegabytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    QImage image;
    return reader.read(&image) ? image : QImage();
}

} // namespace

bool LoadBitmap(TStream& stream, TIEBitmap& bitmap)
{
    const QImage image = Decode(ReadRest(stream));
    if (image.isNull())
        return false;
    bitmap.SetImage(image);
    return true;
}

void SaveBitmapAsPng(const TIEBitmap& bitmap, StringView fileName)
{
    const auto fail = [&](StringView why) {
        throw EStreamError(u"The picture can't be written to \"" + String(fileName) + u"\": " + String(why));
    };
    if (bitmap.IsEmpty())
        fail(u"it is empty");
    QSaveFile file(ToQString(fileName)); // what was there stays until all is written
    if (!file.open(QIODevice::WriteOnly) || !bitmap.Picture().save(&file, "PNG") || !file.commit())
        fail(file.errorString().toStdU16String());
}

} // namespace vorn
