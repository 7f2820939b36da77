#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;
class QSlider;
class QToolBar;

namespace vorn::demo {

class ChartSession;

/// Menu and tool bar for a picture of the user's, an x-ray say, in place of the drawing behind the chart.
class PictureTools : public QObject {
public:
    /// Adds itself to the window and belongs to it; `session` outlives both.
    PictureTools(ChartSession& session, QMainWindow& window);

    /// Shows a picture file; what is wrong with it is shown to the user.
    void Open(const QString& file);
    /// The tools say again what the chart shows; for after another patient was chosen.
    void Refresh();

private:
    QAction* Add(QMenu* menu, const QString& text, const QString& hint, const std::function<void()>& action);
    void MakeSlider(QToolBar* bar);
    void Ask();

    ChartSession& session_;
    QMainWindow& window_;
    QToolBar* bar_;
    QSlider* opacity_ = nullptr;
    std::vector<QAction*> needPicture_; // what makes sense only while one is shown
};

} // namespace vorn::demo
