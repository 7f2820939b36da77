#include "demo/main_window.h"

#include "demo/qt_strings.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace vorn::demo {

QAction* MainWindow::AddAction(QMenu* menu, const QString& text, const QString& hint, std::function<void()> action)
{
    QAction* entry = menu->addAction(text);
    entry->setToolTip(hint);
    connect(entry, &QAction::triggered, this, [this, action = std::move(action)] { Guarded(action); });
    bar_->addAction(entry);
    return entry;
}

void MainWindow::MakeChoosers()
{
    bar_ = addToolBar(QStringLiteral("Comandi"));
    bar_->setMovable(false);
    bar_->addWidget(new QLabel(QStringLiteral("Paziente  ")));
    patients_ = new QComboBox;
    patients_->setObjectName(QStringLiteral("pazienti"));
    for (const PatientEntry& entry : session_.Patients())
        patients_->addItem(entry.name, entry.number);
    connect(
        patients_, &QComboBox::activated, this, [this](int index) { ShowPatient(patients_->itemData(index).toInt()); });
    bar_->addWidget(patients_);
    bar_->addWidget(new QLabel(QStringLiteral("   Dottore  ")));
    doctors_ = new QComboBox;
    doctors_->setObjectName(QStringLiteral("dottori"));
    for (const DoctorEntry& entry : session_.Doctors())
        doctors_->addItem(entry.name, ToQt(entry.initials));
    bar_->addWidget(doctors_);
}

void MainWindow::MakeActions()
{
    bar_->addSeparator();
    MakeChartMenu();
    zoom_ = new QLabel;
    bar_->addWidget(zoom_);
    bar_->addSeparator();
    MakeTreatmentMenu();
}

void MainWindow::MakeChartMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Grafico"));
    AddAction(menu, QStringLiteral("Ingrandisci"), QStringLiteral("Ingrandisce il grafico"), [this] {
        session_.ZoomIn();
        ShowZoom();
    })->setShortcut(QKeySequence::ZoomIn);
    AddAction(menu, QStringLiteral("Riduci"), QStringLiteral("Riduce il grafico"), [this] {
        session_.ZoomOut();
        ShowZoom();
    })->setShortcut(QKeySequence::ZoomOut);
    AddAction(menu, QStringLiteral("Dimensione reale"), QStringLiteral("Torna al 100 percento"), [this] {
        session_.ShowZoom(MinZoom);
        ShowZoom();
    })->setShortcut(QKeySequence(QStringLiteral("Ctrl+0")));
}

void MainWindow::MakeTreatmentMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Prestazioni"));
    AddAction(menu, QStringLiteral("Eseguita / da eseguire"),
        QStringLiteral("Segna le prestazioni selezionate come eseguite, o di nuovo da eseguire"),
        [this] { session_.ToggleDone(); })
        ->setShortcut(QKeySequence(QStringLiteral("Ctrl+E")));
    AddAction(menu, QStringLiteral("Deseleziona"), QStringLiteral("Toglie la selezione"), [this] {
        session_.Chart().ResetSelection();
        ClearDetails();
    })->setShortcut(QKeySequence(Qt::Key_Escape));
    QAction* drag = AddAction(menu, QStringLiteral("Etichette spostabili"),
        QStringLiteral("Le etichette selezionate si spostano trascinando il quadratino rosso"), [] {});
    drag->setCheckable(true);
    drag->setChecked(true);
    connect(drag, &QAction::toggled, this, [this](bool on) { Guarded([&] { session_.SetDraggable(on); }); });
}

} // namespace vorn::demo
