#pragma once

#include "chart/vorndblabelIE.h"

namespace vorn {

/// Marks the chart as moving or writing rows for the user until the scope ends, however it ends. A handler inside may
/// free the chart.
class [[nodiscard]] TVornIEDBTerList::OperationScope {
public:
    explicit OperationScope(TVornIEDBTerList& chart)
        : self_(chart.FSelf), before_(std::exchange(chart.FIsOperation, true))
    {
    }
    ~OperationScope()
    {
        if (ChartAlive())
            (*self_)->FIsOperation = before_;
    }
    OperationScope(const OperationScope&) = delete;
    OperationScope& operator=(const OperationScope&) = delete;

    bool ChartAlive() const { return *self_ != nullptr; }

private:
    std::shared_ptr<TVornIEDBTerList*> self_;
    bool before_;
};

} // namespace vorn
