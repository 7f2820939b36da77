#include "demo/export_picture.h"

#include <QImageWriter>
#include <QSaveFile>

#include <stdexcept>

namespace vorn::demo {

QImage ChartPicture(ChartSession& session)
{
    QImage picture(session.View().Width(), session.View().Height(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    TCanvas canvas(picture);
    session.View().PaintTo(canvas);
    canvas.End();
    return picture;
}

void ExportChart(ChartSession& session, const QString& file)
{
    const auto fail = [&file](const QString& why) {
        throw std::runtime_error(QStringLiteral("Impossibile scrivere %1: %2").arg(file, why).toStdString());
    };
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly))
        fail(target.errorString());
    QImageWriter writer(&target, "png");
    if (!writer.write(ChartPicture(session)))
        fail(writer.errorString());
    if (!target.commit())
        fail(target.errorString());
}

} // namespace vorn::demo
