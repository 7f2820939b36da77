#include "demo/picture_tools.h"

#include "demo/chart_session.h"
#include "demo/guarded.h"

#include <QAction>
#include <QFileDialog>
#include <QImageReader>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolBar>

namespace vorn::demo {

namespace {

constexpr int Opaque = 255;

QString PictureFilter()
{
    QStringList patterns;
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        patterns += QStringLiteral("*.") + QString::fromLatin1(format);
    return QStringLiteral("Immagini (%1);;Tutti i file (*)").arg(patterns.join(u' '));
}

} // namespace

PictureTools::PictureTools(ChartSession& session, QMainWindow& window)
    : QObject(&window), session_(session), window_(window),
      bar_(window.addToolBar(QStringLiteral("Barra dell'immagine")))
{
    bar_->setMovable(false);
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("&Immagine"));
    Add(menu, QStringLiteral("Apri immagine…"),
        QStringLiteral("Mostra un'immagine, per esempio una radiografia, al posto del disegno"), [this] { Ask(); })
        ->setShortcut(QKeySequence::Open);
    const auto step = [this](bool larger) { return [this, larger] { session_.StepPicture(larger); }; };
    needPicture_ = {
        Add(menu, QStringLiteral("Immagine più grande"), QStringLiteral("Ingrandisce l'immagine di un decimo"),
            step(true)),
        Add(menu, QStringLiteral("Immagine più piccola"), QStringLiteral("Riduce l'immagine di un decimo"),
            step(false)),
        Add(menu, QStringLiteral("Torna al disegno"), QStringLiteral("Toglie l'immagine"),
            [this] { session_.ClosePicture(); }),
    };
    MakeSlider(bar_);
    Refresh();
}

QAction* PictureTools::Add(QMenu* menu, const QString& text, const QString& hint, const std::function<void()>& action)
{
    QAction* entry = menu->addAction(text);
    entry->setToolTip(hint);
    connect(entry, &QAction::triggered, this, [this, action] {
        RunGuarded(window_, action);
        Refresh();
    });
    bar_->addAction(entry);
    return entry;
}

void PictureTools::MakeSlider(QToolBar* bar)
{
    bar->addWidget(new QLabel(QStringLiteral("  Opacità ")));
    opacity_ = new QSlider(Qt::Horizontal);
    opacity_->setObjectName(QStringLiteral("opacitaImmagine"));
    opacity_->setToolTip(QStringLiteral("Quanto copre l'immagine"));
    opacity_->setRange(0, Opaque);
    opacity_->setFixedWidth(110);
    bar->addWidget(opacity_);
    connect(opacity_, &QSlider::valueChanged, this,
        [this](int value) { session_.Chart().SetInitPictureOpacity(static_cast<std::int16_t>(value)); });
}

void PictureTools::Open(const QString& file)
{
    RunGuarded(window_, [&] { session_.OpenPicture(file); });
    Refresh();
}

void PictureTools::Ask()
{
    const QString file
        = QFileDialog::getOpenFileName(&window_, QStringLiteral("Apri immagine"), QString(), PictureFilter());
    if (!file.isEmpty())
        session_.OpenPicture(file);
}

void PictureTools::Refresh()
{
    const bool shown = session_.PictureShown();
    for (QAction* action : needPicture_)
        action->setEnabled(shown);
    opacity_->setEnabled(shown);
    const QSignalBlocker silent(opacity_);
    opacity_->setValue(shown ? session_.Chart().InitPictureOpacity() : Opaque);
}

} // namespace vorn::demo
