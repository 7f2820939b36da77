#include "platform/graphics/image_list.h"
#include "platform/imaging/image_io.h"
#include "platform/system/exceptions.h"
#include "platform/system/guards.h"
#include "tests/imaging/pictures.h"
#include "tests/support/strings_print.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QImageReader>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

QImage Noise(int width, int height)
{
    QImage image = Numbered(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, static_cast<QRgb>((x * 7919 + y * 104729) * 2654435761u) | 0xFF000000u);
    }
    return image;
}

/// A GIF of two by two red pixels, written out since the toolkit writes none.
QByteArray SmallGif()
{
    return QByteArray::fromHex("47494638396102000200800000ff0000000000" // screen, palette
                               "2c000000000200020000"                   // the picture's place
                               "02028451003b");                         // its data, the end
}

bool Loads(const QByteArray& bytes, TIEBitmap& bitmap)
{
    TMemoryStream stream;
    Fill(stream, bytes);
    return LoadBitmap(stream, bitmap);
}

} // namespace

TEST(ImageIoTest, TellsTheFormatFromTheContent)
{
    for (const char* format : {"PNG", "BMP", "JPG"}) {
        TIEBitmap bitmap;
        ASSERT_TRUE(Loads(Encoded(Numbered(5, 3), format), bitmap)) << format;
        EXPECT_EQ(bitmap.Image().size(), QSize(5, 3)) << format;
        ASSERT_TRUE(Loads(Encoded(Numbered(1, 1), format), bitmap)) << format;
        EXPECT_EQ(bitmap.Image().size(), QSize(1, 1)) << format;
    }
    TIEBitmap bitmap;
    ASSERT_TRUE(Loads(Encoded(Numbered(5, 3), "PNG"), bitmap));
    EXPECT_EQ(bitmap.Image(), Numbered(5, 3));
    ASSERT_TRUE(Loads(SmallGif(), bitmap));
    EXPECT_EQ(bitmap.GetPixels_ie24RGB(1, 1).r, 255);
}

TEST(ImageIoTest, NeverGivesHalfAPicture)
{
    TIEBitmap bitmap;
    bitmap.Allocate(1, 1);
    for (const char* format : {"PNG", "BMP", "JPG"}) {
        const QByteArray whole = Encoded(Noise(60, 60), format);
        for (const int percent : {1, 10, 50, 90, 99})
            EXPECT_FALSE(Loads(whole.left(whole.size() * percent / 100), bitmap)) << format << percent;
        if (qstrcmp(format, "PNG") != 0) { // there the last bytes are a checksum of nothing
            EXPECT_FALSE(Loads(whole.chopped(2), bitmap)) << format;
        }
    }
    const QByteArray gif = SmallGif();
    for (qsizetype size = 0; size < gif.size() - 2; ++size)
        EXPECT_FALSE(Loads(gif.left(size), bitmap)) << size;
    for (const QByteArray& junk : {QByteArray(), QByteArray("no picture"), QByteArray(5000, '\0')})
        EXPECT_FALSE(Loads(junk, bitmap));
}

TEST(ImageIoTest, AThumbnailsEndIsNotThePicturesEnd)
{
    const QByteArray jpeg = Encoded(Noise(40, 40), "JPG");
    const QByteArray thumbnail = Encoded(Noise(8, 8), "JPG");
    const int length = static_cast<int>(thumbnail.size()) + 2;
    QByteArray segment("\xFF\xEC", 2); // an application's segment
    segment.append(static_cast<char>(length >> 8)).append(static_cast<char>(length & 0xFF)).append(thumbnail);
    const QByteArray whole = jpeg.left(2) + segment + jpeg.mid(2);
    TIEBitmap bitmap;
    EXPECT_TRUE(Loads(whole, bitmap));
    EXPECT_EQ(bitmap.Width(), 40);
    EXPECT_FALSE(Loads(whole.left(whole.size() - jpeg.size() / 2), bitmap));
}

TEST(ImageIoTest, WhatTheApplicationAllowsTheToolkitNeitherCountsNorChanges)
{
    const int before = QImageReader::allocationLimit();
    const ScopeExit done([&] { QImageReader::setAllocationLimit(before); });
    QImageReader::setAllocationLimit(1);
    const QByteArray large = Encoded(Numbered(600, 600), "PNG");
    TIEBitmap bitmap;
    EXPECT_TRUE(Loads(large, bitmap));
    EXPECT_EQ(TCustomImageList().AddPicture(std::as_bytes(std::span(large))), 0);
    EXPECT_EQ(QImageReader::allocationLimit(), 1);
}

TEST(ImageIoTest, SavesAndNamesTheFileThatItCant)
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("è.png"));
    TIEBitmap bitmap;
    SetPicture(bitmap, Numbered(4, 4));
    SaveBitmapAsPng(bitmap, name.toStdU16String());
    EXPECT_EQ(QImage(name).convertToFormat(QImage::Format_RGB32), Numbered(4, 4));

    const String nowhere = folder.filePath(QStringLiteral("none/x.png")).toStdU16String();
    const std::string message = MessageOf<EStreamError>([&] { SaveBitmapAsPng(bitmap, nowhere); });
    EXPECT_NE(message.find(Utf8(nowhere)), std::string::npos) << message;
    EXPECT_THROW(SaveBitmapAsPng(TIEBitmap(), name.toStdU16String()), EStreamError);
    EXPECT_EQ(QImage(name).width(), 4);
}

} // namespace vorn::test
