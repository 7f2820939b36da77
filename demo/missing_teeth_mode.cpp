#include "demo/missing_teeth_mode.h"

#include "demo/chart_session.h"
#include "demo/guarded.h"
#include "demo/qt_strings.h"

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QSlider>
#include <QStatusBar>
#include <QToolBar>

namespace vorn::demo {

MissingTeethMode::MissingTeethMode(ChartSession& session, QMainWindow& window)
    : QObject(&window), session_(session), window_(window)
{
    QToolBar* bar = window.addToolBar(QStringLiteral("Barra dei denti"));
    bar->setMovable(false);
    on_ = bar->addAction(QStringLiteral("Denti mancanti"));
    on_->setToolTip(QStringLiteral("Un clic su un dente lo segna come mancante, o di nuovo presente"));
    on_->setCheckable(true);
    on_->setEnabled(!session.ReadOnly());
    connect(on_, &QAction::toggled, this, [this](bool on) {
        window_.statusBar()->showMessage(on ? QStringLiteral("Fare clic sui denti mancanti.") : QString());
    });

    bar->addWidget(new QLabel(QStringLiteral("  Velo ")));
    auto* veil = new QSlider(Qt::Horizontal);
    veil->setObjectName(QStringLiteral("opacitaVelo"));
    veil->setToolTip(QStringLiteral("Quanto il velo copre i denti mancanti"));
    veil->setRange(0, 255);
    veil->setValue(session.Chart().Opacity());
    veil->setFixedWidth(110);
    bar->addWidget(veil);
    connect(veil, &QSlider::valueChanged, this, [this](int value) { session_.Chart().SetOpacity(value); });
}

bool MissingTeethMode::Take(const TZone& zone)
{
    if (!on_->isChecked())
        return false;
    RunGuarded(window_, [&] {
        const QString name = ToQt(zone.numZona);
        QString message = QStringLiteral("La zona %1 non è un dente").arg(name);
        if (session_.IsTooth(zone))
            message = session_.ToggleMissing(zone) ? QStringLiteral("Dente %1 mancante").arg(name)
                                                   : QStringLiteral("Dente %1 presente").arg(name);
        window_.statusBar()->showMessage(message);
    });
    return true;
}

} // namespace vorn::demo
