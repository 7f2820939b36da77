#pragma once

#include <QObject>

class QAction;
class QMainWindow;

namespace vorn {
class TZone;
}

namespace vorn::demo {

class ChartSession;

/// While it is on, a click on a tooth marks it as missing, or as there again. Also sets how strong the veil over the
/// missing teeth is.
class MissingTeethMode : public QObject {
public:
    /// Adds itself to the window and belongs to it; `session` outlives both.
    MissingTeethMode(ChartSession& session, QMainWindow& window);

    /// What a click on a zone does in this mode. False if the mode is off: the click is somebody else's.
    bool Take(const TZone& zone);

private:
    ChartSession& session_;
    QMainWindow& window_;
    QAction* on_;
};

} // namespace vorn::demo
