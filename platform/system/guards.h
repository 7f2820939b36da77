#pragma once

#include <utility>

namespace vorn {

/// Runs an action on every way out of a scope. The action must not throw.
template <typename F>
class [[nodiscard]] ScopeExit {
public:
    explicit ScopeExit(F action) : action_(std::move(action)) {}
    ~ScopeExit() { action_(); }
    ScopeExit(const ScopeExit&) = delete;
    ScopeExit& operator=(const ScopeExit&) = delete;

private:
    F action_;
};

/// Sets a variable for the length of a scope and puts its old value back.
template <typename T>
class [[nodiscard]] ScopedValue {
public:
    ScopedValue(T& variable, T value) : variable_(variable), old_(std::exchange(variable, std::move(value))) {}
    ~ScopedValue() { variable_ = std::move(old_); }
    ScopedValue(const ScopedValue&) = delete;
    ScopedValue& operator=(const ScopedValue&) = delete;

private:
    T& variable_;
    T old_;
};

} // namespace vorn
