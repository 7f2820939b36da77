#include "platform/imaging/image_control.h"
#include "platform/system/exceptions.h"
#include "tests/imaging/pictures.h"
#include "tests/support/mouse.h"
#include "tests/support/strings_print.h"

#include <QtCore/QTemporaryDir>
#include <QtWidgets/QWidget>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

QImage Shown(TGraphicControl& control, int width, int height)
{
    QImage image = Paper(width, height);
    TCanvas canvas(image);
    control.PaintTo(canvas);
    canvas.End();
    return image;
}

class ImageControlTest : public testing::Test {
protected:
    ImageControlTest()
    {
        SetPicture(red_, Plain(4, 2, qRgb(255, 0, 0)));
        image_.SetBounds(0, 0, 6, 6);
        image_.Picture().Assign(red_);
    }

    TIEBitmap red_;
    TImage image_{nullptr};
};

} // namespace

TEST_F(ImageControlTest, APictureIsACopyOfItsOwn)
{
    TPicture& picture = image_.Picture();
    red_.Fill(clBlue);
    EXPECT_EQ(picture.Image().pixel(0, 0), qRgb(255, 0, 0));
    EXPECT_EQ(picture.Width(), 4);
    EXPECT_EQ(picture.Height(), 2);
    TPicture second;
    EXPECT_TRUE(second.IsEmpty());
    EXPECT_EQ(second.Width(), 0);
    second.Assign(picture);
    picture.Assign(picture);
    picture.Clear();
    EXPECT_TRUE(picture.IsEmpty());
    EXPECT_EQ(second.Image().size(), QSize(4, 2));
    EXPECT_THROW(second.Assign(image_.Font()), EConvertError);
    EXPECT_EQ(second.Width(), 4);
}

TEST_F(ImageControlTest, DrawsInTheCornerInTheMiddleOrOverAll)
{
    EXPECT_EQ(InkBox(Shown(image_, 8, 8)), QRect(0, 0, 4, 2));
    image_.SetCenter(true);
    EXPECT_EQ(InkBox(Shown(image_, 8, 8)), QRect(1, 2, 4, 2));
    image_.SetStretch(true);
    EXPECT_EQ(InkBox(Shown(image_, 8, 8)), QRect(0, 0, 6, 6));
    image_.SetStretch(false);
    image_.SetBounds(0, 0, 2, 2); // smaller than its picture
    EXPECT_EQ(InkBox(Shown(image_, 8, 8)), QRect(0, 0, 2, 2));
    image_.Picture().Clear();
    EXPECT_TRUE(InkBox(Shown(image_, 8, 8)).isEmpty());
}

TEST_F(ImageControlTest, UnderAutoSizeTheControlFollowsItsPicture)
{
    image_.SetAutoSize(true);
    EXPECT_EQ(image_.BoundsRect(), (TRect{0, 0, 4, 2}));
    SetPicture(red_, Plain(9, 7, qRgb(255, 0, 0)));
    image_.Picture().Assign(red_);
    EXPECT_EQ(image_.BoundsRect(), (TRect{0, 0, 9, 7}));
    image_.Picture().Clear();
    EXPECT_EQ(image_.BoundsRect(), (TRect{0, 0, 9, 7}));
    image_.SetAutoSize(false);
    SetPicture(red_, Plain(2, 2, qRgb(255, 0, 0)));
    image_.Picture().Assign(red_);
    EXPECT_EQ(image_.Width(), 9);
}

TEST_F(ImageControlTest, ANewPictureIsShownByTheParent)
{
    TImageEnView parent(nullptr);
    parent.SetBounds(0, 0, 20, 20);
    auto* child = new TImage(nullptr);
    child->SetParent(&parent);
    child->SetBounds(5, 6, 4, 2);
    parent.Widget()->show();
    ProcessEvents();
    PaintSpy spy(parent.Widget());
    child->Picture().Assign(red_);
    ProcessEvents();
    EXPECT_EQ(spy.Taken(), QRegion(5, 6, 4, 2));
    EXPECT_EQ(PictureOf(parent).pixel(6, 7), qRgb(255, 0, 0));
}

TEST_F(ImageControlTest, SavesAsPngAndNamesTheFileThatItCant)
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("cartella.png"));
    image_.Picture().SaveToFile(name.toStdU16String());
    EXPECT_EQ(QImage(name).pixel(3, 1), qRgb(255, 0, 0));
    const String nowhere = folder.filePath(QStringLiteral("none/x.png")).toStdU16String();
    const std::string message = MessageOf<EStreamError>([&] { image_.Picture().SaveToFile(nowhere); });
    EXPECT_NE(message.find(Utf8(nowhere)), std::string::npos) << message;
    image_.Picture().Clear();
    EXPECT_THROW(image_.Picture().SaveToFile(name.toStdU16String()), EStreamError);
    EXPECT_EQ(QImage(name).width(), 4);
}

} // namespace vorn::test
