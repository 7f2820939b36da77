#include "demo/main_window.h"

#include "demo/diagnosis_menu.h"
#include "demo/export_menu.h"
#include "demo/guarded.h"
#include "demo/missing_teeth_mode.h"
#include "demo/picture_tools.h"
#include "demo/qt_strings.h"
#include "platform/system/guards.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
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
    MakeChoosers();
    MakeActions();
    MakeGrid();
    MakeDetails();
    MakeSymbols();
    addToolBarBreak();
    pictures_ = new PictureTools(session_, *this);
    missingTeeth_ = new MissingTeethMode(session_, *this);
    new DiagnosisMenu(session_, *this);
    new ExportMenu(session_, *this);

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
    splitter->setSizes({1150, 280});
    setCentralWidget(splitter);
    statusBar(); // there from the start: a first message is not to move the chart
    if (!session_.HasSymbols())
        statusBar()->showMessage(QStringLiteral("Archivio di una versione precedente: non ha simboli."));
    if (session_.ReadOnly())
        statusBar()->showMessage(QStringLiteral("Archivio in sola lettura: le modifiche non si possono salvare."));

    session_.Chart().OnSingleSelect = [this](TObject* sender) { ShowDetails(static_cast<TVornRec&>(*sender), false); };
    session_.Chart().OnMultipleSelect = [this](TObject* sender) { ShowDetails(static_cast<TVornRec&>(*sender), true); };
    session_.Chart().OnZoneClick = [this](TObject* sender) {
        const auto& zone = static_cast<TZone&>(*sender);
        if (!missingTeeth_->Take(zone))
            statusBar()->showMessage(QStringLiteral("Zona %1").arg(ToQt(zone.numZona)));
    };
    ShowZoom();
}

MainWindow::~MainWindow()
{
    session_.Chart().OnSingleSelect = nullptr;
    session_.Chart().OnMultipleSelect = nullptr;
    session_.Chart().OnZoneClick = nullptr;
    session_.Chart().OnAddTerFromSimb = nullptr;
    // The session owns the scroll box; the window only showed it.
    if (QWidget* box = session_.Box()->Widget())
        box->setParent(nullptr);
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
    RunGuarded(*this, action);
}

void MainWindow::ShowPatient(int number)
{
    Guarded([&] {
        session_.ShowPatient(number);
        patients_->setCurrentIndex(patients_->findData(number));
        ClearDetails();
        ShowZoom();
        pictures_->Refresh();
    });
}

void MainWindow::OpenPicture(const QString& file)
{
    pictures_->Open(file);
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
