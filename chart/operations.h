#pragma once

#include "platform/system/flag_scope.h"

namespace vorn {

/// Whether the chart itself is moving or writing rows for the user. What that brings about must not come back as the
/// user's own doing. It goes with the chart.
class TOperations : public TObject {
public:
    bool Running() const { return running_; }
    /// Until the scope ends. A handler inside may free the chart.
    TFlagScope Begin() { return {*this, running_}; }

private:
    bool running_ = false;
};

} // namespace vorn
