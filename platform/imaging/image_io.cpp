#include "platform/imaging/image_io.h"

#include "platform/graphics/picture_decoding.h"
#include "platform/system/exceptions.h"
#include "platform/system/qt_convert.h"

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtGui/QImage>

#include <utility>

namespace vorn {

namespace {

constexpr std::size_t MostEncoded = std::size_t{1} << 30;
static_assert(MostPicturePixels == TIEBitmap::MostPixels);

bool Decode(const QByteArray& encoded, const QByteArray& format, TIEBitmap& bitmap)
{
    String why;
    QImage image = DecodePicture(encoded, format, why);
    if (image.isNull())
        return false;
    bitmap.SetImage(std::move(image));
    return true;
}

} // namespace

bool LoadBitmap(TStream& stream, TIEBitmap& bitmap)
{
    const Bytes content = ReadRest(stream);
    const auto size = static_cast<qsizetype>(content.size());
    return Decode(QByteArray::fromRawData(reinterpret_cast<const char*>(content.data()), size), {}, bitmap);
}

bool LoadBitmapFromFile(StringView fileName, TIEBitmap& bitmap, bool fromContent)
{
    const QFileInfo info(ToQt(fileName));
    const auto fail = [&](StringView why) {
        throw EStreamError(u"The picture \"" + String(fileName) + u"\" can't be read: " + String(why));
    };
    if (!info.exists())
        fail(u"there is no such file");
    if (!info.isFile()) // a pipe or a device may have no end
        fail(info.isDir() ? u"it is a directory" : u"it is no ordinary file");
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        fail(FromQt(file.errorString()));
    const QByteArray format = fromContent ? QByteArray() : info.suffix().toLatin1().toLower();
    if (!fromContent && format.isEmpty())
        return false;
    if (static_cast<std::uint64_t>(file.size()) > MostEncoded || !LooksDecodable(file, format))
        return false; // without having read all of it
    file.seek(0);
    const QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        fail(FromQt(file.errorString()));
    return Decode(content, format, bitmap);
}

void SaveBitmapAsPng(const TIEBitmap& bitmap, StringView fileName)
{
    const auto fail = [&](StringView why) {
        throw EStreamError(u"The picture can't be written to \"" + String(fileName) + u"\": " + String(why));
    };
    if (bitmap.IsEmpty())
        fail(u"it is empty");
    QSaveFile file(ToQt(fileName)); // what was there stays until all is written
    if (!file.open(QIODevice::WriteOnly) || !bitmap.Picture().save(&file, "PNG") || !file.commit())
        fail(FromQt(file.errorString()));
}

} // namespace vorn
