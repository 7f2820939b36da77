#pragma once

#include "platform/system/types.h"

#include <any>
#include <functional>
#include <memory>
#include <utility>

namespace vorn {

/// A handler that knows the name under which an application offers it. What it puts into an event keeps the name, so
/// that a form file can be written from the event.
class TNamedHandler {
public:
    /// `handler` is a std::function of the event's own type.
    template <typename... Args>
    TNamedHandler(StringView name, std::function<void(Args...)> handler)
        : name_(name), event_(std::function<void(Args...)>(
                           Call<Args...>{std::make_shared<const Named<Args...>>(String(name), std::move(handler))}))
    {
    }

    const String& Name() const { return name_; }
    /// What to assign to an event of this type; none if the handler is of another type.
    template <typename Event>
    const Event* As() const
    {
        return std::any_cast<Event>(&event_);
    }
    /// The name of the handler in an event; none if it is unassigned or holds anything else.
    template <typename... Args>
    static const String* NameIn(const std::function<void(Args...)>& event)
    {
        const auto* call = event.template target<Call<Args...>>();
        return call ? &call->Shared->Name : nullptr;
    }

private:
    template <typename... Args>
    struct Named {
        Named(String name, std::function<void(Args...)> handler) : Name(std::move(name)), Handler(std::move(handler)) {}
        String Name;
        std::function<void(Args...)> Handler;
    };
    /// Shared, since an event is copied each time it is raised.
    template <typename... Args>
    struct Call {
        std::shared_ptr<const Named<Args...>> Shared;
        void operator()(Args... args) const
        {
            if (Shared->Handler)
                Shared->Handler(std::forward<Args>(args)...);
        }
    };

    String name_;
    std::any event_;
};

} // namespace vorn
