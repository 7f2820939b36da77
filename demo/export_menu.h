#pragma once

#include <QObject>

class QMainWindow;

namespace vorn::demo {

class ChartSession;

/// The menu that takes the finished chart out of the program: to a file, to paper, to the clipboard.
class ExportMenu : public QObject {
public:
    /// Adds itself to the window's menu bar and belongs to the window; `session` outlives both.
    ExportMenu(ChartSession& session, QMainWindow& window);

private:
    void AskAndExport();
    void Preview();
    void Copy();

    ChartSession& session_;
    QMainWindow& window_;
};

} // namespace vorn::demo
