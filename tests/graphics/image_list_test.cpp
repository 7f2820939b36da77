#include "platform/graphics/image_list.h"
#include "platform/graphics/png_image_list.h"
#include "platform/system/exceptions.h"
#include "tests/support/pixels.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace vorn {

namespace {

QByteArray Encoded(const QColor& color, int size, const char* format)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(color);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data();
}

std::span<const std::byte> AsBytes(const QByteArray& bytes)
{
    return std::as_bytes(std::span(bytes.data(), static_cast<std::size_t>(bytes.size())));
}

} // namespace

TEST(ImageList, DrawsPicturesOfAnyFormatAtItsSize)
{
    TCustomImageList list(nullptr, 2, 2);
    EXPECT_EQ(list.AddPicture(AsBytes(Encoded(Qt::red, 2, "PNG"))), 0);
    EXPECT_EQ(list.AddPicture(AsBytes(Encoded(Qt::blue, 9, "BMP"))), 1);
    EXPECT_EQ(list.AddPicture(AsBytes(Encoded(Qt::transparent, 2, "PNG"))), 2);
    QImage image = test::Paper(5, 3);
    TCanvas canvas(image);
    list.Draw(canvas, 0, 0, 0);
    list.Draw(canvas, 3, 1, 1);
    list.Draw(canvas, 0, 0, 2);
    list.Draw(canvas, 0, 1, 3);
    list.Draw(canvas, 0, 1, -1);
    canvas.End();
    EXPECT_EQ(test::Rows(image), "rr...\nrr.bb\n...bb\n");
}

TEST(ImageList, RefusesWhatIsNoPicture)
{
    TCustomImageList list;
    QByteArray cut = Encoded(Qt::red, 64, "PNG");
    cut.truncate(40);
    EXPECT_THROW(list.AddPicture({}), EConvertError);
    EXPECT_THROW(list.AddPicture(AsBytes("no picture at all")), EConvertError);
    EXPECT_THROW(list.AddPicture(AsBytes(cut)), EConvertError);
    EXPECT_THROW(list.AddPicture(AsBytes(Encoded(Qt::red, 64, "JPG").chopped(2))), EConvertError);
    EXPECT_THROW(list.AddImage(QImage()), EConvertError);
    EXPECT_EQ(list.Count(), 0);
}

TEST(ImageList, TellsItsLinks)
{
    auto list = std::make_unique<TCustomImageList>(nullptr, 2, 2);
    int told = 0;
    TChangeLink link;
    link.OnChange = [&](TObject* sender) { told += sender == list.get(); };
    auto passing = std::make_unique<TChangeLink>();
    passing->OnChange = [&](TObject*) { passing.reset(); }; // goes in the middle of the round
    list->RegisterChanges(passing.get());
    list->RegisterChanges(&link);
    list->RegisterChanges(&link);
    list->AddImage(test::Paper(2, 2));
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(passing);
    list->SetSize(2, 2);
    EXPECT_EQ(told, 1);
    list->SetSize(3, 2);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(list->Count(), 0);
    list->UnRegisterChanges(&link);
    list->AddImage(test::Paper(2, 2));
    EXPECT_EQ(told, 2);
    list->RegisterChanges(&link);
    list.reset(); // the link outlives the list
}

TEST(ImageList, DisabledImagesAreGreyAndHalfAsStrong)
{
    TCustomImageList list(nullptr, 2, 2);
    list.AddPicture(AsBytes(Encoded(Qt::black, 2, "PNG")));
    list.AddPicture(AsBytes(Encoded(Qt::red, 2, "PNG")));
    QImage image = test::Paper(4, 2);
    TCanvas canvas(image);
    list.DrawDisabled(canvas, 0, 0, 0);
    list.DrawDisabled(canvas, 2, 0, 1);
    list.DrawDisabled(canvas, 0, 0, 2);
    canvas.End();
    EXPECT_NEAR(qRed(image.pixel(0, 0)), 128, 1);
    const QRgb red = image.pixel(2, 0);
    EXPECT_TRUE(qRed(red) == qGreen(red) && qGreen(red) == qBlue(red) && qRed(red) > 140) << std::hex << red;
}

TEST(PngImageList, NamesItsImages)
{
    TPngImageList list(nullptr, 2, 2);
    EXPECT_EQ(list.AddPng(u"edittrash", AsBytes(Encoded(Qt::red, 2, "PNG"))), 0);
    list.AddImage(test::Paper(2, 2));
    EXPECT_EQ(list.AddPng(u"Shear", AsBytes(Encoded(Qt::blue, 2, "PNG"))), 2);
    EXPECT_EQ(list.ImageName(0), u"edittrash");
    EXPECT_EQ(list.ImageName(1), u"");
    EXPECT_EQ(list.ImageName(3), u"");
    list.Clear();
    list.AddImage(test::Paper(2, 2));
    EXPECT_EQ(list.ImageName(0), u"");
}

TEST(PngImageList, RefusesWhatIsNoPngByName)
{
    TPngImageList list(nullptr, 2, 2);
    QByteArray cut = Encoded(Qt::red, 2, "PNG");
    cut.truncate(20);
    for (const QByteArray& bytes : {Encoded(Qt::red, 2, "BMP"), QByteArray(), cut}) {
        try {
            list.AddPng(u"shear", AsBytes(bytes));
            ADD_FAILURE() << bytes.size() << " bytes were taken";
        } catch (const EConvertError& e) {
            EXPECT_NE(e.Message().find(u"\"shear\""), String::npos);
        }
    }
    EXPECT_EQ(list.Count(), 0);
    list.AddImage(test::Paper(2, 2));
    EXPECT_EQ(list.ImageName(0), u"") << "the name of a refused image is forgotten";
}

} // namespace vorn
