#pragma once

#include "demo/chart_session.h"
#include "demo/dataset_model.h"

#include <QMainWindow>

#include <memory>

class QAction;
class QComboBox;
class QLabel;
class QTableView;

namespace vorn::demo {

/// The sample application's window: the chart in a scroll box, the treatments in a grid beside it, and what can be
/// done with them.
class MainWindow : public QMainWindow {
public:
    /// `session` outlives the window.
    explicit MainWindow(ChartSession& session);
    ~MainWindow() override;

    /// Shows errors to the user instead of letting them out.
    void ShowPatient(int number);

private:
    void MakeToolBar();
    void MakeGrid();
    void MakeDetails();
    QAction* AddAction(const QString& text, const QString& hint, std::function<void()> action);
    void Guarded(const std::function<void()>& action);
    void GridRowChosen(int row);
    void CurrentRowChanged(int row);
    void ShowDetails(const TVornRec& record, bool several);
    void ClearDetails();
    void ShowZoom();

    ChartSession& session_;
    std::unique_ptr<DataSetModel> model_;
    QComboBox* patients_ = nullptr;
    QTableView* grid_ = nullptr;
    QLabel* details_ = nullptr;
    QLabel* zoom_ = nullptr;
    bool following_ = false; // the grid follows the dataset, and isn't to move it
};

} // namespace vorn::demo
