#include "demo/export_picture.h"

#include "demo/print_chart.h"
#include "platform/imaging/image_control.h"
#include "platform/system/guards.h"

#include <QImageWriter>
#include <QSaveFile>

#include <stdexcept>

namespace vorn::demo {

namespace {

void Write(ChartSession& session, const QString& file, QImage (*picture)(ChartSession&))
{
    const auto fail = [&file](const QString& why) {
        throw std::runtime_error(QStringLiteral("Impossibile scrivere %1: %2").arg(file, why).toStdString());
    };
    const bool pdf = file.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive);
    if (!pdf && !file.endsWith(QStringLiteral(".png"), Qt::CaseInsensitive))
        fail(QStringLiteral("il nome deve finire con .png o .pdf"));
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly))
        fail(target.errorString());
    if (pdf) {
        if (!WriteChartPdf(session, target))
            fail(target.errorString());
    } else {
        QImageWriter writer(&target, "png");
        if (!writer.write(picture(session)))
            fail(writer.errorString());
    }
    if (!target.commit())
        fail(target.errorString());
}

} // namespace

QImage ChartPicture(ChartSession& session)
{
    QImage picture(session.View().Width(), session.View().Height(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    TCanvas canvas(picture);
    session.View().PaintTo(canvas);
    canvas.End();
    return picture;
}

QImage FinishedChart(ChartSession& session)
{
    // Labels stand where the zoom has put them, so the picture is taken at 100 percent, unseen.
    const TUpdateLock unseen(session.View());
    const int zoom = session.Chart().CurrentZoom();
    const ScopeExit zoomAgain([&session, zoom] {
        try {
            session.ShowZoom(zoom);
        } catch (const std::exception&) {
            // A chart that can't be built anew stays at 100 percent.
        }
    });
    session.ShowZoom(MinZoom);
    TImage image(nullptr);
    session.Chart().CreaPicture(&image);
    return image.Picture().Image();
}

void ExportChart(ChartSession& session, const QString& file)
{
    Write(session, file, ChartPicture);
}

void ExportFinishedChart(ChartSession& session, const QString& file)
{
    Write(session, file, FinishedChart);
}

} // namespace vorn::demo
