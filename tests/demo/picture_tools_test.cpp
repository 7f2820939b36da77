#include "demo/qt_strings.h"
#include "tests/demo/window_fixture.h"

#include <QFile>
#include <QImage>

namespace vorn::demo {
namespace {

class PictureBehindTheChart : public WindowTest {
protected:
    /// A grey picture with a green left half.
    QString Picture(const QString& name, int width = 400, int height = 100)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(QColor(90, 90, 90));
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width / 2; ++x)
                image.setPixelColor(x, y, QColor(0, 200, 0));
        EXPECT_TRUE(image.save(Path(name), "PNG"));
        return Path(name);
    }
    TIELayer& Background() { return session_->View().GetLayer(0); }
    bool ShowsThePicture()
    {
        const TRGB left = Background().Bitmap().GetPixels_ie24RGB(5, 5);
        return left.g > 180 && left.r < 40;
    }

    const QString larger_ = QStringLiteral("Immagine più grande");
    const QString smaller_ = QStringLiteral("Immagine più piccola");
    const QString back_ = QStringLiteral("Torna al disegno");
};

TEST_F(PictureBehindTheChart, ComesGoesAndChangesItsSizeAndOpacity)
{
    const TPoint drawing{Background().Bitmap().Width(), Background().Bitmap().Height()};
    EXPECT_FALSE(Action(larger_).isEnabled());
    window_->OpenPicture(Picture(QStringLiteral("rx.png")));
    EXPECT_TRUE(ShowsThePicture());
    EXPECT_EQ(Background().Bitmap().Width(), drawing.X); // as large as fits into the drawing's place
    EXPECT_EQ(Background().Bitmap().Height(), drawing.X / 4);

    QSlider& opacity = Slider(QStringLiteral("opacitaImmagine"));
    EXPECT_TRUE(opacity.isEnabled());
    EXPECT_EQ(opacity.value(), Background().Opacity());
    opacity.setValue(128);
    EXPECT_EQ(Background().Opacity(), 128);

    Trigger(larger_);
    EXPECT_NEAR(Background().Bitmap().Width(), drawing.X * 1.1, 1);
    EXPECT_TRUE(ShowsThePicture());
    Trigger(smaller_);
    Trigger(smaller_);
    EXPECT_NEAR(Background().Bitmap().Width(), drawing.X * 1.1 * 0.81, 2);
    EXPECT_EQ(Background().Opacity(), 128);

    Trigger(back_);
    EXPECT_FALSE(ShowsThePicture());
    EXPECT_EQ(Background().Bitmap().Width(), drawing.X);
    EXPECT_EQ(Background().Opacity(), 255);
    EXPECT_FALSE(Action(back_).isEnabled());
    EXPECT_FALSE(opacity.isEnabled());
}

TEST_F(PictureBehindTheChart, ASelectedSymbolDoesntDecideTheNextSize)
{
    window_->OpenPicture(Picture(QStringLiteral("rx.png")));
    const int width = Background().Bitmap().Width();
    ASSERT_GT(session_->View().GetLayersCount(), 1);
    session_->View().SetLayersCurrent(1);
    Trigger(larger_);
    EXPECT_NEAR(Background().Bitmap().Width(), width * 1.1, 1);
}

TEST_F(PictureBehindTheChart, AnyFileNameWillDo)
{
    for (const char* name : {"destra, alto.png", "a;b.png", "è (1).png"}) {
        session_->OpenPicture(Picture(QString::fromUtf8(name)));
        EXPECT_TRUE(ShowsThePicture()) << name;
        session_->StepPicture(true);
        EXPECT_TRUE(ShowsThePicture()) << name;
        session_->ClosePicture();
    }
}

TEST_F(PictureBehindTheChart, WhatIsNoPictureIsNamedAndTheDrawingStays)
{
    QFile text(Path(QStringLiteral("lettera, copia.png")));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("Gentile collega,");
    text.close();
    for (const QString& file : {text.fileName(), Path(QStringLiteral("manca.png"))}) {
        session_->OpenPicture(Picture(QStringLiteral("rx.png")));
        try {
            session_->OpenPicture(file);
            ADD_FAILURE() << "opened";
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find(file.toStdString()), std::string::npos) << error.what();
        }
        EXPECT_FALSE(session_->PictureShown());
        EXPECT_FALSE(ShowsThePicture());
    }
}

TEST_F(PictureBehindTheChart, TheSameFileIsReadAnewAndAnotherPatientGetsNone)
{
    const QString file = Picture(QStringLiteral("rx.png"), 400, 100);
    window_->OpenPicture(file);
    const int height = Background().Bitmap().Height();
    Picture(QStringLiteral("rx.png"), 400, 200);
    window_->OpenPicture(file);
    EXPECT_EQ(Background().Bitmap().Height(), height * 2);
    window_->ShowPatient(AdultPatient);
    EXPECT_TRUE(session_->PictureShown());
    window_->ShowPatient(ChildPatient);
    EXPECT_FALSE(session_->PictureShown());
    EXPECT_FALSE(ShowsThePicture());
    EXPECT_FALSE(Action(back_).isEnabled());
}

} // namespace
} // namespace vorn::demo
