#include "demo/chart_session.h"

#include "demo/qt_strings.h"
#include "platform/controls/application.h"
#include "platform/system/guards.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <stdexcept>

namespace vorn::demo {

namespace {

/// What the chart would have shown in a message box while it ran `action`; empty if all went well.
template <typename Action>
QString MessageOf(Action action)
{
    QString message;
    auto before = SetMessageHandler([&message](StringView text) { message = ToQt(text); });
    const ScopeExit restore([&before] { SetMessageHandler(std::move(before)); });
    action();
    return message;
}

} // namespace

/// A file name as the chart takes it: a comma in it would start a width, a semicolon a list of files.
QString ChartSession::NameForChart(const QString& file)
{
    const QFileInfo info(file);
    const QString path = info.absoluteFilePath();
    pictureLink_.reset();
    if (!info.exists() || (!path.contains(u',') && !path.contains(u';')))
        return path;
    pictureLink_ = std::make_unique<QTemporaryDir>();
    const QString link = pictureLink_->filePath(QStringLiteral("immagine"));
    if (!QFile::link(path, link) && !QFile::copy(path, link))
        throw std::runtime_error(QStringLiteral("Impossibile leggere %1").arg(file).toStdString());
    return link;
}

void ChartSession::OpenPicture(const QString& file)
{
    ClosePicture(); // the file may be the same one, changed meanwhile
    const String name = FromQt(NameForChart(file));
    chart_->ResetSimbPanel();
    QString message = MessageOf([&] {
        chart_->SetPictureContainer(name);
        chart_->SetShowPictureContainer(true);
    });
    if (!message.isEmpty()) {
        ClosePicture();
        throw std::runtime_error(message.replace(ToQt(name), file).toStdString());
    }
    ZoomLabelsAgain();
}

void ChartSession::ClosePicture()
{
    if (!PictureShown() && chart_->PictureContainer().empty())
        return;
    chart_->ResetPictureContainer();
    chart_->SetPictureContainer({}); // also leaves the mode if nothing could be loaded
    ZoomLabelsAgain();
}

void ChartSession::StepPicture(bool larger)
{
    if (!PictureShown())
        return;
    chart_->ResetSimbPanel(); // the step starts from the size of the view's current layer
    chart_->ResizePictureContainer(larger);
    if (chart_->CurrentZoom() != MinZoom)
        Rebuild();
}

} // namespace vorn::demo
