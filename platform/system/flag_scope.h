#pragma once

#include "platform/system/object.h"

#include <utility>

namespace vorn {

/// Sets a flag of an object until the scope ends, however it ends. What runs in the scope may free the object.
class [[nodiscard]] TFlagScope {
public:
    TFlagScope(const TObject& owner, bool& flag) : flag_(flag), watch_(&owner), before_(std::exchange(flag, true)) {}
    ~TFlagScope()
    {
        if (watch_.Alive())
            flag_ = before_;
    }
    TFlagScope(const TFlagScope&) = delete;
    TFlagScope& operator=(const TFlagScope&) = delete;

    bool OwnerAlive() const { return watch_.Alive(); }

private:
    bool& flag_;
    TLifeWatch watch_;
    bool before_;
};

} // namespace vorn
