#include "demo/guarded.h"

#include <QMessageBox>

namespace vorn::demo {

void RunGuarded(QWidget& window, const std::function<void()>& action)
{
    try {
        action();
    } catch (const std::exception& error) {
        QMessageBox::warning(&window, window.windowTitle(), QString::fromUtf8(error.what()));
    }
}

} // namespace vorn::demo
