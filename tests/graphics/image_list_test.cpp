#include "platform/graphics/image_list.h"
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

} // namespace vorn
