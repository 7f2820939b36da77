#include "demo/main_window.h"

#include "demo/qt_strings.h"
#include "platform/system/guards.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

namespace vorn::demo {

namespace {

std::vector<GridColumn> GridColumns()
{
    return {
        {u"Data", QStringLiteral("Data")},
        {u"Dente", QStringLiteral("Dente")},
        {u"Terapia", QStringLiteral("Terapia")},
        {u"Descrizione", QStringLiteral("Descrizione")},
        {u"Dottore", QStringLiteral("Dottore")},
        {u"Fatto", QStringLiteral("Fatto")},
        {u"DataFatto", QStringLiteral("Eseguita il")},
    };
}

} // namespace

MainWindow::MainWindow(ChartSession& session) : session_(session)
{
    setWindowTitle(QStringLiteral("Cartella grafica"));
    resize(QSize(1600, 920).boundedTo(screen()->availableSize()));
    MakeToolBar();
    MakeGrid();
    MakeDetails();

    auto* side = new QWidget;
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(grid_, 1);
    column->addWidget(details_);
    auto* splitter = new QSplitter(this);
    splitter->addWidget(session_.Box()->Widget());
    splitter->addWidget(side);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({1180, 420});
    setCentralWidget(splitter);
    if (session_.ReadOnly())
        statusBar()->showMessage(QStringLiteral("Archivio in sola lettura: le modifiche non si possono salvare."));

    session_.Chart().OnSingleSelect = [this](TObject* sender) { ShowDetails(static_cast<TVornRec&>(*sender), false); };
    session_.Chart().OnMultipleSelect = [this](TObject* sender) { ShowDetails(static_cast<TVornRec&>(*sender), true); };
    session_.Chart().OnZoneClick = [this](TObject* sender) {
        statusBar()->showMessage(QStringLiteral("Zona %1").arg(ToQt(static_cast<TZone&>(*sender).numZona)));
    };
    ShowZoom();
}

MainWindow::~MainWindow()
{
    session_.Chart().OnSingleSelect = nullptr;
    session_.Chart().OnMultipleSelect = nullptr;
    session_.Chart().OnZoneClick = nullptr;
    // The session owns the scroll box; the window only showed it.
    if (QWidget* box = session_.Box()->Widget())
        box->setParent(nullptr);
}

QAction* MainWindow::AddAction(const QString& text, const QString& hint, std::function<void()> action)
{
    auto* entry = new QAction(text, this);
    entry->setToolTip(hint);
    connect(entry, &QAction::triggered, this, [this, action = std::move(action)] { Guarded(action); });
    findChild<QToolBar*>()->addAction(entry);
    return entry;
}

void MainWindow::MakeToolBar()
{
    QToolBar* bar = addToolBar(QStringLiteral("Comandi"));
    bar->setMovable(false);
    bar->addWidget(new QLabel(QStringLiteral("Paziente  ")));
    patients_ = new QComboBox;
    patients_->setObjectName(QStringLiteral("pazienti"));
    for (const PatientEntry& entry : session_.Patients())
        patients_->addItem(entry.name, entry.number);
    connect(patients_, &QComboBox::activated, this,
        [this](int index) { ShowPatient(patients_->itemData(index).toInt()); });
    bar->addWidget(patients_);
    bar->addSeparator();

    TVornIEDBTerList& chart = session_.Chart();
    AddAction(QStringLiteral("Ingrandisci"), QStringLiteral("Ingrandisce il grafico"), [this] {
        session_.ZoomIn();
        ShowZoom();
    })->setShortcut(QKeySequence::ZoomIn);
    AddAction(QStringLiteral("Riduci"), QStringLiteral("Riduce il grafico"), [this] {
        session_.ZoomOut();
        ShowZoom();
    })->setShortcut(QKeySequence::ZoomOut);
    AddAction(QStringLiteral("Dimensione reale"), QStringLiteral("Torna al 100 percento"), [this] {
        session_.ShowZoom(MinZoom);
        ShowZoom();
    })->setShortcut(QKeySequence(QStringLiteral("Ctrl+0")));
    zoom_ = new QLabel;
    bar->addWidget(zoom_);
    bar->addSeparator();

    AddAction(QStringLiteral("Eseguita / da eseguire"),
        QStringLiteral("Segna le prestazioni selezionate come eseguite, o di nuovo da eseguire"),
        [this] { session_.ToggleDone(); })
        ->setShortcut(QKeySequence(QStringLiteral("Ctrl+E")));
    AddAction(QStringLiteral("Deseleziona"), QStringLiteral("Toglie la selezione"), [&chart, this] {
        chart.ResetSelection();
        ClearDetails();
    })->setShortcut(QKeySequence(Qt::Key_Escape));
    QAction* drag = AddAction(QStringLiteral("Etichette spostabili"),
        QStringLiteral("Le etichette selezionate si spostano trascinando il quadratino rosso"), [] {});
    drag->setCheckable(true);
    drag->setChecked(true);
    connect(drag, &QAction::toggled, this, [this](bool on) { Guarded([&] { session_.SetDraggable(on); }); });
}

void MainWindow::MakeGrid()
{
    model_ = std::make_unique<DataSetModel>(session_.TreatmentsSource(), GridColumns());
    model_->onCurrentRow = [this](int row) { CurrentRowChanged(row); };
    grid_ = new QTableView;
    grid_->setObjectName(QStringLiteral("prestazioni"));
    grid_->setModel(model_.get());
    grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid_->setSelectionMode(QAbstractItemView::SingleSelection);
    grid_->setAlternatingRowColors(true);
    grid_->verticalHeader()->setDefaultSectionSize(22);
    grid_->horizontalHeader()->setStretchLastSection(true);
    constexpr int widths[] = {80, 60, 70, 200, 60, 45};
    for (int i = 0; i < static_cast<int>(std::size(widths)); ++i)
        grid_->setColumnWidth(i, widths[i]);
    connect(grid_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        [this](const QModelIndex& current) { GridRowChosen(current.row()); });
}

void MainWindow::MakeDetails()
{
    details_ = new QLabel;
    details_->setObjectName(QStringLiteral("dettagli"));
    details_->setMinimumHeight(110);
    details_->setMargin(8);
    details_->setWordWrap(true);
    details_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    details_->setTextFormat(Qt::PlainText);
    details_->setFrameShape(QFrame::StyledPanel);
    ClearDetails();
}

void MainWindow::Guarded(const std::function<void()>& action)
{
    try {
        action();
    } catch (const std::exception& error) {
        QMessageBox::warning(this, windowTitle(), QString::fromUtf8(error.what()));
    }
}

void MainWindow::ShowPatient(int number)
{
    Guarded([&] {
        session_.ShowPatient(number);
        patients_->setCurrentIndex(patients_->findData(number));
        ClearDetails();
        ShowZoom();
    });
}

void MainWindow::GridRowChosen(int row)
{
    if (following_ || row < 0)
        return;
    Guarded([&] {
        TDataSet& dataset = session_.Treatments();
        dataset.MoveBy(row - dataset.RowIndex());
    });
}

void MainWindow::CurrentRowChanged(int row)
{
    const ScopedValue guard(following_, true);
    if (row >= 0)
        grid_->selectRow(row);
    else
        grid_->clearSelection();
}

void MainWindow::ShowDetails(const TVornRec& record, bool several)
{
    if (!record.FLabel)
        return;
    const int count = session_.BlinkTimer().ComponentList().Count();
    QString text = ToQt(record.FLabel->Caption()) + u'\n' + ToQt(record.FLabel->Hint());
    if (!record.Zona.empty())
        text += QStringLiteral("\nZona: %1").arg(ToQt(record.Zona));
    if (several)
        text += QStringLiteral("\n%1 prestazioni selezionate").arg(count);
    details_->setText(text);
}

void MainWindow::ClearDetails()
{
    details_->setText(QStringLiteral("Selezionare una prestazione sul grafico; con Maiusc se ne aggiungono altre."));
}

void MainWindow::ShowZoom()
{
    zoom_->setText(QStringLiteral("  %1 %  ").arg(session_.Chart().CurrentZoom()));
}

} // namespace vorn::demo
