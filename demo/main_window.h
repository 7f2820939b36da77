#pragma once

#include "demo/chart_session.h"
#include "demo/dataset_model.h"

#include <QMainWindow>

#include <memory>

class QAction;
class QComboBox;
class QLabel;
class QMenu;
class QTableView;
class QToolBar;

namespace vorn::demo {

class MissingTeethMode;
class PictureTools;

/// The sample application's window: the chart in a scroll box, the treatments in a grid beside it, the symbols
/// in a panel, and what can be done with them.
class MainWindow : public QMainWindow {
public:
    /// `session` outlives the window.
    explicit MainWindow(ChartSession& session);
    ~MainWindow() override;

    /// Shows errors to the user instead of letting them out.
    void ShowPatient(int number);
    /// Shows a picture file in place of the drawing.
    void OpenPicture(const QString& file);

private:
    // main_window_actions.cpp
    void MakeChoosers();
    void MakeActions();
    void MakeChartMenu();
    void MakeTreatmentMenu();
    /// An entry of the menu and of the tool bar.
    QAction* AddAction(QMenu* menu, const QString& text, const QString& hint, std::function<void()> action);

    // main_window_symbols.cpp
    void MakeSymbols();
    void AddSymbol();
    void AddTreatmentOfSymbol(const TZone& zone);

    void MakeGrid();
    void MakeDetails();
    void Guarded(const std::function<void()>& action);
    void GridRowChosen(int row);
    void CurrentRowChanged(int row);
    void ShowDetails(const TVornRec& record, bool several);
    void ClearDetails();
    void ShowZoom();

    static constexpr int NoSymbol = 0;

    ChartSession& session_;
    std::unique_ptr<DataSetModel> model_;
    QToolBar* bar_ = nullptr;
    QComboBox* patients_ = nullptr;
    QComboBox* doctors_ = nullptr; // who does what is added
    QTableView* grid_ = nullptr;
    QLabel* details_ = nullptr;
    QLabel* zoom_ = nullptr;
    PictureTools* pictures_ = nullptr;
    MissingTeethMode* missingTeeth_ = nullptr;
    int lastSymbol_ = NoSymbol;
    bool following_ = false; // the grid follows the dataset, and isn't to move it
};

} // namespace vorn::demo
