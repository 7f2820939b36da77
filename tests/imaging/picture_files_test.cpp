#include "platform/imaging/image_io.h"
#include "platform/system/exceptions.h"
#include "tests/imaging/picture_bytes.h"
#include "tests/imaging/pictures.h"
#include "tests/support/strings_print.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImageReader>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

class PictureFilesTest : public testing::Test {
protected:
    String Write(const char* name, const QByteArray& content)
    {
        QFile file(folder_.filePath(QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName().toStdU16String();
    }
    bool Load(const QByteArray& content)
    {
        TMemoryStream stream;
        Fill(stream, content);
        return LoadBitmap(stream, bitmap_);
    }
    QColor At(int x, int y) { return bitmap_.Picture().pixelColor(x, y); }

    QTemporaryDir folder_;
    TIEBitmap bitmap_;
    TImageEnView view_{nullptr};
};

QImage Coloured(int width, int height, QColor left, QColor right)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(left);
    for (int y = 0; y < height; ++y)
        for (int x = width / 2; x < width; ++x)
            image.setPixelColor(x, y, right);
    return image;
}

bool Knows(const char* format)
{
    return QImageReader::supportedImageFormats().contains(format);
}

} // namespace

TEST_F(PictureFilesTest, TheContentSaysWhatAFileIs)
{
    const QByteArray png = Encoded(Numbered(5, 3), "PNG");
    TImageEnIO& io = view_.GetImageEnIO();
    for (const char* name : {"a.png", "radiografia è.jpg", "without ending", "a.txt"}) {
        view_.Bitmap().Allocate(1, 1);
        EXPECT_TRUE(io.LoadFromFile(Write(name, png), true)) << name;
        EXPECT_EQ(view_.Bitmap().Image(), Numbered(5, 3)) << name;
    }
    view_.Bitmap().Allocate(1, 1);
    for (const char* name : {"b.jpg", "b", "b.bmp", "b.xyz"})
        EXPECT_FALSE(io.LoadFromFile(Write(name, png), false)) << name;
    EXPECT_FALSE(io.LoadFromFile(Write("c.png", "no picture at all"), true));
    EXPECT_FALSE(io.LoadFromFile(Write("d.png", {}), true));
    EXPECT_EQ(view_.Bitmap().Width(), 1);
    EXPECT_TRUE(io.LoadFromFile(Write("e.PNG", png), false));
    EXPECT_EQ(view_.Bitmap().Width(), 5);
}

TEST_F(PictureFilesTest, AFileThatCantBeReadIsNamed)
{
    view_.Bitmap().Allocate(2, 2);
    const String missing = folder_.filePath(QStringLiteral("non c'è.png")).toStdU16String();
    const String directory = folder_.path().toStdU16String();
    const String locked = Write("locked.png", Encoded(Numbered(2, 2), "PNG"));
    QFile::setPermissions(QString::fromStdU16String(locked), {});
    std::vector<String> names{missing, directory, u"/dev/null"};
    if (!QFile(QString::fromStdU16String(locked)).open(QIODevice::ReadOnly)) // the superuser reads it all the same
        names.push_back(locked);
    for (const String& name : names) {
        const std::string message = MessageOf<EStreamError>([&] { view_.GetImageEnIO().LoadFromFile(name, true); });
        EXPECT_NE(message.find(Utf8(name)), std::string::npos) << message;
    }
    EXPECT_EQ(view_.Bitmap().Width(), 2);
}

TEST_F(PictureFilesTest, PhotographsStandUpright)
{
    const QByteArray jpeg = Encoded(Coloured(32, 16, Qt::red, Qt::blue), "JPG");
    struct Case {
        std::uint32_t Orientation;
        QSize Size;
        QPoint Red;
    };
    for (const Case c : {Case{1, {32, 16}, {2, 8}}, Case{6, {16, 32}, {8, 2}}, Case{8, {16, 32}, {8, 29}}}) {
        ASSERT_TRUE(Load(WithOrientation(jpeg, c.Orientation)));
        EXPECT_EQ(bitmap_.Image().size(), c.Size) << c.Orientation;
        EXPECT_GT(At(c.Red.x(), c.Red.y()).red(), 200) << c.Orientation;
        EXPECT_LT(At(c.Red.x(), c.Red.y()).blue(), 60) << c.Orientation;
    }
}

TEST_F(PictureFilesTest, SixteenBitsBecomeEightOverTheWholeRange)
{
    constexpr std::uint16_t values[] = {0, 257, 4095, 32768, 65535};
    constexpr int greys[] = {0, 1, 16, 128, 255};
    QImage image(5, 1, QImage::Format_Grayscale16);
    QByteArray strip;
    for (int x = 0; x < 5; ++x) {
        reinterpret_cast<std::uint16_t*>(image.scanLine(0))[x] = values[x];
        strip += Little(values[x], 2);
    }
    std::vector<QByteArray> files{Encoded(image, "PNG")};
    if (Knows("tiff"))
        files.push_back(Tiff(5, 1, strip));
    for (const QByteArray& file : files) {
        ASSERT_TRUE(Load(file));
        for (int x = 0; x < 5; ++x)
            EXPECT_EQ(At(x, 0), QColor(greys[x], greys[x], greys[x])) << x;
    }
}

TEST_F(PictureFilesTest, TransparencyIsKept)
{
    ASSERT_TRUE(Load(Encoded(Plain(3, 3, qRgba(200, 100, 0, 128)), "PNG")));
    view_.SetBounds(0, 0, 3, 3);
    view_.SetBackground(clWhite);
    view_.Bitmap().Assign(bitmap_);
    const QColor seen(PictureOf(view_).pixel(1, 1));
    EXPECT_NEAR(seen.red(), 227, 1);
    EXPECT_NEAR(seen.green(), 177, 1);
    EXPECT_NEAR(seen.blue(), 127, 1);
}

TEST_F(PictureFilesTest, AnAnimationShowsItsFirstFrame)
{
    ASSERT_TRUE(Load(TwoFrameGif()));
    EXPECT_EQ(At(1, 1), QColor(Qt::red));
    if (!Knows("webp"))
        GTEST_SKIP() << "no decoder for WebP is installed";
    const QByteArray green = Encoded(Plain(8, 8, qRgb(0, 255, 0)), "WEBP");
    const QByteArray blue = Encoded(Plain(8, 8, qRgb(0, 0, 255)), "WEBP");
    ASSERT_TRUE(Load(AnimatedWebp(8, 8, green, blue)));
    EXPECT_GT(At(4, 4).green(), 240);
    EXPECT_LT(At(4, 4).blue(), 30);
}

TEST_F(PictureFilesTest, WhatIsCutShortIsNoPicture)
{
    bitmap_.Allocate(1, 1);
    std::vector<std::pair<const char*, QByteArray>> files{{"run-length bmp", RunLengthBmp(20, 30)},
        {"xbm", Encoded(Coloured(40, 40, Qt::black, Qt::white), "XBM")}, {"gif", TwoFrameGif().left(42)},
        {"ico", Encoded(Numbered(9, 9), "ICO")}};
    if (Knows("tiff")) {
        files.emplace_back("grey tiff", Tiff(9, 9, QByteArray(162, '\x55')));
        files.emplace_back("palette tiff", Tiff(2, 2, QByteArray("\0\1\2\3", 4), QByteArray(256 * 6, '\x77')));
    }
    if (Knows("webp"))
        files.emplace_back("webp", Encoded(Numbered(9, 9), "WEBP"));
    for (const auto& [name, whole] : files) {
        for (qsizetype size = 0; size < whole.size() - 4; ++size)
            ASSERT_FALSE(Load(whole.left(size))) << name << " " << size << " of " << whole.size();
        EXPECT_EQ(bitmap_.Width(), 1) << name;
        EXPECT_TRUE(Load(whole)) << name;
        bitmap_.Allocate(1, 1);
    }
}

TEST_F(PictureFilesTest, SizesOutOfReachAreRefusedByTheHeader)
{
    bitmap_.Allocate(1, 1);
    QImage huge(20'000, 20'000, QImage::Format_Mono); // 50 megabytes as it stands, 1.6 gigabytes as a bitmap
    huge.fill(1);
    const QByteArray whole = Encoded(huge, "PNG");
    huge = QImage();
    EXPECT_FALSE(Load(whole));
    EXPECT_FALSE(view_.GetImageEnIO().LoadFromFile(Write("huge.png", whole), true));
    const QByteArray small = Encoded(Numbered(1, 1), "PNG");
    EXPECT_TRUE(Load(WithPngSize(small, 1, 1)));
    for (const auto& [width, height] :
        {std::pair{0u, 5u}, {5u, 0u}, {0u, 0u}, {0x7FFFFFFFu, 0x7FFFFFFFu}, {0xFFFFFFFFu, 1u}, {16'385u, 16'384u}})
        EXPECT_FALSE(Load(WithPngSize(small, width, height))) << width << " by " << height;
    EXPECT_FALSE(Load(RunLengthBmp(0, 0)));
    EXPECT_EQ(bitmap_.Width(), 1);
}

} // namespace vorn::test
