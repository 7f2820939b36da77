#pragma once

#include "platform/data/dataset.h"

namespace vorn {

/// A handler has closed or reopened the dataset while an operation on its rows was under way; the operation isn't done.
class ERowsGone : public EDatabaseError {
public:
    using EDatabaseError::EDatabaseError;
};

/// Tells code that calls out to handlers whether the rows it works on are still there: the dataset alive, open, and not
/// opened anew meanwhile. Lives on the stack.
class TRowsWatch {
public:
    /// None counts as closed.
    explicit TRowsWatch(const TDataSet* dataset)
        : dataset_(dataset), watch_(dataset), opening_(dataset ? dataset->Opening() : 0)
    {
    }

    bool Alive() const { return watch_.Alive(); }
    bool Open() const { return Alive() && dataset_->Active() && dataset_->Opening() == opening_; }
    /// For an operation that is still to be done to the rows: false if the dataset has been freed. Raises ERowsGone if
    /// it is there without them.
    bool Check() const
    {
        if (Alive() && !Open())
            throw ERowsGone(
                dataset_->DisplayName() + (dataset_->Active() ? u" was opened anew meanwhile" : u" is not open"));
        return Alive();
    }

private:
    const TDataSet* dataset_;
    TLifeWatch watch_;
    std::uint64_t opening_;
};

/// Whether an event tells of rows, so that it means nothing once they are gone. The others tell of a state, which
/// whoever hears of it looks up.
inline bool ConcernsRows(TDataEvent event)
{
    return event != TDataEvent::deUpdateState && event != TDataEvent::deDisabledStateChange;
}

} // namespace vorn
