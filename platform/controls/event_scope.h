#pragma once

#include "platform/controls/mouse.h"

#include <QtCore/qnamespace.h>

namespace vorn {

TShiftState ToShiftState(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons);

/// What CurrentShiftState and GetCursorPos tell while an event is handled.
class EventScope {
public:
    EventScope(TShiftState shift, const TPoint& screenPos);
    ~EventScope();
    EventScope(const EventScope&) = delete;
    EventScope& operator=(const EventScope&) = delete;

    static const EventScope* Current() { return current_; }
    TShiftState Shift() const { return shift_; }
    const TPoint& ScreenPos() const { return screenPos_; }

private:
    TShiftState shift_;
    TPoint screenPos_;
    const EventScope* outer_;
    friend class EventPause;
    static const EventScope* current_;
};

/// A menu or a message box runs events of its own: meanwhile keyboard and pointer are read as they are now.
class [[nodiscard]] EventPause {
public:
    EventPause() : held_(EventScope::current_) { EventScope::current_ = nullptr; }
    ~EventPause() { EventScope::current_ = held_; }
    EventPause(const EventPause&) = delete;
    EventPause& operator=(const EventPause&) = delete;

private:
    const EventScope* held_;
};

} // namespace vorn
