#pragma once

#include <QEvent>
#include <QWidget>

#include <utility>

namespace vorn {

/// Counts the paints that reach a window.
class PaintCount : public QObject {
public:
    explicit PaintCount(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count_ += event->type() == QEvent::Paint;
        return false;
    }
    /// Since the last call.
    int Taken() { return std::exchange(count_, 0); }

private:
    int count_ = 0;
};

} // namespace vorn
