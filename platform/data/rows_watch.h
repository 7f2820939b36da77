#pragma once

#include "platform/data/dataset.h"

namespace vorn {

/// Tells code that calls out to handlers whether the rows it works on are still there: the dataset alive, open, and not
/// opened anew meanwhile. Lives on the stack.
class TRowsWatch {
public:
    /// None counts as closed.
    explicit TRowsWatch(const TDataSet* dataset)
        : dataset_(dataset), watch_(dataset), opening_(dataset ? dataset->Opening() : 0)
    {
    }

    bool Open() const { return watch_.Alive() && dataset_->Active() && dataset_->Opening() == opening_; }

private:
    const TDataSet* dataset_;
    TLifeWatch watch_;
    std::uint64_t opening_;
};

} // namespace vorn
