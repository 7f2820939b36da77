#pragma once

#include "platform/system/types.h"

#include <exception>
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
    /// Takes what a handler let out while the event loop ran: an exception must not cross it. Gives it to OnException
    /// or, without one, shows its text. Throws nothing.
    void HandleException(std::exception_ptr exception);
    /// For an application that logs or shows errors in its own way.
    std::function<void(std::exception_ptr exception)> OnException;

    /// Shows the hint of the control under a screen point, as if the pointer had rested there.
    void ActivateHint(const TPoint& screenPoint);
    void HideHint();
    /// The hint that is shown stays where it is, although the toolkit has taken it away with a mouse button's release.
    void KeepHint();
    /// The hint shown last, empty once it has been taken away.
    const String& ShownHint() const { return shownHint_; }

private:
    void ShowHint();

    String shownHint_;
    TPoint shownAt_; // screen
    bool reporting_ = false;
};

/// What an exception says; for one that isn't a std::exception, that it is unknown.
String ExceptionText(const std::exception_ptr& exception);

TApplication& Application();

} // namespace vorn
