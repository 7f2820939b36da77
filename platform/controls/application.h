#pragma once

#include "platform/system/types.h"

#include <functional>

namespace vorn {

/// Shows a text and waits until the user has read it. Without a screen to show it on (the offscreen platform) it goes
/// to standard error and the call returns.
void ShowMessage(StringView text);
/// Puts something else in the place of the message box, such as a test's list; none puts the box back. Gives what was
/// there.
std::function<void(StringView)> SetMessageHandler(std::function<void(StringView)> handler);

/// The process-wide services of the running program.
class TApplication {
public:
    /// Shows the hint of the control under a screen point, as if the pointer had rested there.
    void ActivateHint(const TPoint& screenPoint);
    void HideHint();
    /// The hint shown last, empty once it has been taken away.
    const String& ShownHint() const { return shownHint_; }

private:
    String shownHint_;
};

TApplication& Application();

} // namespace vorn
