#pragma once

#include "chart/vorndblabelIE.h"

namespace vorn {

/// Marks the chart as moving or writing rows for the user until the scope ends, however it ends. A handler inside may
/// free the chart.
class [[nodiscard]] TVornIEDBTerList::OperationScope {
public:
    explicit OperationScope(TVornIEDBTerList& chart)
        : chart_(chart), watch_(&chart), before_(std::exchange(chart.FIsOperation, true))
    {
    }
    ~OperationScope()
    {
        if (ChartAlive())
            chart_.FIsOperation = before_;
    }
    OperationScope(const OperationScope&) = delete;
    OperationScope& operator=(const OperationScope&) = delete;

    bool ChartAlive() const { return watch_.Alive(); }

private:
    TVornIEDBTerList& chart_;
    TLifeWatch watch_;
    bool before_;
};

} // namespace vorn
