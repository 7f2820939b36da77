#include "demo/diagnosis_menu.h"

#include "demo/chart_session.h"
#include "demo/guarded.h"

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <utility>

namespace vorn::demo {

DiagnosisMenu::DiagnosisMenu(ChartSession& session, QMainWindow& window)
    : QObject(&window), session_(session), window_(window)
{
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("&Diagnosi"));
    auto* ways = new QActionGroup(this);
    const std::pair<TDiagnosiShow, QString> entries[] = {
        {TDiagnosiShow::diagSigla, QStringLiteral("Solo la sigla")},
        {TDiagnosiShow::diagSiglaDescr, QStringLiteral("Sigla e descrizione")},
        {TDiagnosiShow::diagDescr, QStringLiteral("Solo la descrizione")},
        {TDiagnosiShow::diagNone, QStringLiteral("Nessuna diagnosi")},
    };
    for (const auto& [way, text] : entries) {
        QAction* entry = ways->addAction(menu->addAction(text));
        entry->setCheckable(true);
        entry->setChecked(session.Chart().DiagnosiShow() == way);
        connect(entry, &QAction::triggered, this, [this, show = way] {
            RunGuarded(window_, [&] {
                session_.Chart().SetDiagnosiShow(show);
                session_.Rebuild(); // which puts the lines together
            });
        });
    }
    menu->addSeparator();
    shown_ = menu->addAction(QStringLiteral("Mostra riquadro"));
    shown_->setStatusTip(QStringLiteral("Mostra o nasconde il riquadro delle diagnosi"));
    shown_->setCheckable(true);
    connect(shown_, &QAction::triggered, this, [this](bool on) {
        RunGuarded(window_, [&] { session_.ShowDiagnosis(on); });
        Refresh();
    });
    connect(menu, &QMenu::aboutToShow, this, [this] { Refresh(); });
}

void DiagnosisMenu::Refresh()
{
    const TVornIEDBTerList& chart = session_.Chart();
    shown_->setChecked(chart.DiagPazVisible());
    shown_->setEnabled(
        chart.DiagPazExists() && chart.DiagnosiShow() != TDiagnosiShow::diagNone && !session_.ReadOnly());
}

} // namespace vorn::demo
