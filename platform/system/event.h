#pragma once

#include <functional>
#include <utility>

namespace vorn {

class TObject;

/// The plain event: `Sender` is the object that it concerns.
using TNotifyEvent = std::function<void(TObject* Sender)>;

/// Raises an event if it is assigned. Works on a copy, so a handler may reassign the event or free what holds it.
template <typename... Params, typename... Args>
void Raise(const std::function<void(Params...)>& event, Args&&... args)
{
    if (event) {
        const auto handler = event;
        handler(std::forward<Args>(args)...);
    }
}

} // namespace vorn
