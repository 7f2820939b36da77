#pragma once

#include <QObject>

class QAction;
class QMainWindow;

namespace vorn::demo {

class ChartSession;

/// The menu of the diagnosis box: what its lines show, and whether it is there at all.
class DiagnosisMenu : public QObject {
public:
    /// Adds itself to the window's menu bar and belongs to the window; `session` outlives both.
    DiagnosisMenu(ChartSession& session, QMainWindow& window);

private:
    void Refresh();

    ChartSession& session_;
    QMainWindow& window_;
    QAction* shown_;
};

} // namespace vorn::demo
