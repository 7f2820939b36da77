#include "demo/export_picture.h"
#include "demo/print_chart.h"
#include "tests/demo/window_fixture.h"
#include "tests/support/pixels.h"

#include <QClipboard>
#include <QDate>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>

namespace vorn::demo {
namespace {

class FinishedChartExport : public WindowTest {};

QByteArray Content(const QString& name)
{
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

TEST_F(FinishedChartExport, IsTheSameUnderEveryZoom)
{
    const QImage plain = FinishedChart(*session_);
    EXPECT_EQ(plain.width(), session_->Chart().MaxRect.Right);
    EXPECT_EQ(plain.height(), session_->Chart().MaxRect.Bottom);
    session_->ShowZoom(150);
    session_->View().SetViewOffset({40, 30});
    EXPECT_EQ(FinishedChart(*session_), plain);
    EXPECT_EQ(session_->Chart().CurrentZoom(), 150);
}

TEST_F(FinishedChartExport, NeedsNoWindow)
{
    ChartSession session(Path(QStringLiteral("studio.db")), ChartSession::Setting::Export);
    EXPECT_EQ(session.Box(), nullptr);
    EXPECT_EQ(session.View().Parent(), nullptr);
    session.ShowPatient(AdultPatient);
    EXPECT_EQ(FinishedChart(session), FinishedChart(*session_));
}

TEST_F(FinishedChartExport, HoldsTheLabelsAndWhatLiesBelow)
{
    const QImage whole = FinishedChart(*session_);
    const TDRLabel* label = nullptr;
    for (const TVornRec* record : session_->Chart().ListVornRec())
        if (record->FLabel && !label)
            label = record->FLabel;
    ASSERT_NE(label, nullptr);
    const QRect place(label->Left(), label->Top(), label->Width(), label->Height());
    TIEBitmap layers;
    layers.Allocate(whole.width(), whole.height());
    session_->View().DrawLayersTo(layers);
    EXPECT_NE(whole.copy(place), layers.Image().copy(place));
    // Far from labels, both are the drawing.
    session_->Chart().SetEnabledImg(false);
    session_->Chart().SetDiagnosiShow(TDiagnosiShow::diagNone);
    session_->Rebuild();
    const QImage bare = FinishedChart(*session_);
    layers.Allocate(bare.width(), bare.height());
    session_->View().DrawLayersTo(layers);
    EXPECT_EQ(bare, layers.Image());
}

TEST_F(FinishedChartExport, GoesToFilesByTheirEnding)
{
    const QString png = Path(QStringLiteral("grafico.png"));
    ExportFinishedChart(*session_, png);
    EXPECT_EQ(QImage(png).convertToFormat(QImage::Format_RGB32), FinishedChart(*session_));
    const QString pdf = Path(QStringLiteral("grafico.PDF"));
    ExportFinishedChart(*session_, pdf);
    const QByteArray document = Content(pdf);
    EXPECT_TRUE(document.startsWith("%PDF-"));
    EXPECT_TRUE(document.contains("/Count 1\n")) << "one page";
    EXPECT_TRUE(document.trimmed().endsWith("%%EOF"));
    for (const char* name : {"manca/grafico.png", "manca/grafico.pdf"}) {
        const QString file = Path(QString::fromLatin1(name));
        try {
            ExportFinishedChart(*session_, file);
            ADD_FAILURE() << "written";
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find(file.toStdString()), std::string::npos) << error.what();
        }
    }
}

TEST_F(FinishedChartExport, GoesToTheClipboard)
{
    Trigger(QStringLiteral("Copia il grafico"));
    EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), FinishedChart(*session_));
}

TEST_F(FinishedChartExport, APageHasItsHeadingAndThePictureFittedBelow)
{
    EXPECT_TRUE(PageHeading(*session_).startsWith(session_->PatientName()));
    EXPECT_TRUE(session_->PatientName().contains(QStringLiteral("Bellandi")));
    EXPECT_TRUE(PageHeading(*session_).contains(QString::number(QDate::currentDate().year())));

    QImage red(200, 100, QImage::Format_RGB32);
    red.fill(Qt::red);
    const QRect page(20, 10, 900, 500);
    for (const QSize& size : {QSize(200, 100), QSize(100, 200), QSize(4000, 100)}) {
        QImage paper = test::Paper(940, 520);
        QPainter painter(&paper);
        PaintChartPage(painter, page, QStringLiteral("Bellandi Marta"), red.scaled(size));
        painter.end();
        EXPECT_TRUE(page.contains(test::InkBox(paper)));
        QRect picture;
        for (int y = 0; y < paper.height(); ++y)
            for (int x = 0; x < paper.width(); ++x)
                if (paper.pixel(x, y) == qRgb(255, 0, 0))
                    picture |= QRect(x, y, 1, 1);
        EXPECT_NEAR(picture.width() * size.height(), picture.height() * size.width(), 2 * size.width());
        EXPECT_TRUE(picture.width() == page.width() || picture.bottom() >= page.bottom() - 1) << "as large as fits";
        EXPECT_FALSE(test::InkBox(paper.copy(0, 0, 940, picture.top())).isEmpty()) << "the heading lies above";
    }
}

TEST_F(FinishedChartExport, ThePreviewShowsOnePage)
{
    const std::unique_ptr<QPrinter> printer = MakePrinter();
    printer->setOutputFormat(QPrinter::PdfFormat);
    const std::unique_ptr<QPrintPreviewDialog> dialog(MakePreview(*session_, *printer, window_.get()));
    dialog->show();
    test::ProcessEvents();
    auto* preview = dialog->findChild<QPrintPreviewWidget*>();
    ASSERT_NE(preview, nullptr);
    preview->updatePreview();
    EXPECT_EQ(preview->pageCount(), 1);
}

} // namespace
} // namespace vorn::demo
