#pragma once

#include <functional>

class QWidget;

namespace vorn::demo {

/// Runs an action; what it throws is shown to the user instead of being let out.
void RunGuarded(QWidget& window, const std::function<void()>& action);

} // namespace vorn::demo
