#include "demo/main_window.h"

#include "demo/qt_strings.h"
#include "demo/symbol_panel_dock.h"

#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

namespace vorn::demo {

void MainWindow::MakeSymbols()
{
    if (!session_.HasSymbols())
        return;
    auto* dock = new SymbolPanelDock(session_.Chart(), this);
    addDockWidget(Qt::LeftDockWidgetArea, dock);

    bar_->addSeparator();
    QMenu* menu = menuBar()->addMenu(QStringLiteral("Si&mboli"));
    AddAction(menu, QStringLiteral("Aggiungi simbolo…"),
        QStringLiteral("Sceglie un simbolo e lo mette accanto alla prestazione selezionata"), [this] { AddSymbol(); })
        ->setShortcut(QKeySequence(QStringLiteral("Ctrl+M")));
    QAction* shown
        = AddAction(menu, QStringLiteral("Mostra simboli"), QStringLiteral("Mostra o nasconde i simboli"), [] {});
    shown->setCheckable(true);
    shown->setChecked(true);
    connect(shown, &QAction::toggled, this, [this](bool on) { Guarded([&] { session_.SetSymbolsShown(on); }); });
    menu->addSeparator();
    menu->addAction(dock->toggleViewAction());

    session_.Chart().OnAddTerFromSimb = [this](TObject* sender) { AddTreatmentOfSymbol(static_cast<TZone&>(*sender)); };
}

void MainWindow::AddSymbol()
{
    if (session_.BlinkTimer().ComponentList().Count() == 0) {
        statusBar()->showMessage(QStringLiteral("Selezionare prima la prestazione a cui aggiungere un simbolo."));
        return;
    }
    int symbol = lastSymbol_;
    if (!TVornIEDBTerList::SelezionaSimbolo(symbol, &session_.Catalogue(), session_.Box()) || symbol == NoSymbol)
        return;
    lastSymbol_ = symbol;
    session_.AddSymbolBesideSelection(symbol);
}

void MainWindow::AddTreatmentOfSymbol(const TZone& zone)
{
    Guarded([&] {
        const QString name = ToQt(zone.numZona);
        session_.AddTreatmentOfSymbol(zone, FromQt(doctors_->currentData().toString()));
        statusBar()->showMessage(QStringLiteral("Aggiunta la prestazione nella zona %1").arg(name));
    });
}

} // namespace vorn::demo
