#pragma once

#include "platform/imaging/thumbnail_view.h"

#include <QDockWidget>

namespace vorn {
class TVornIEDBTerList;
}

namespace vorn::demo {

/// The symbol catalogue in a panel of its own, from which symbols are dragged onto the chart.
class SymbolPanelDock : public QDockWidget {
public:
    /// `chart` has its catalogue already. Either may go first.
    SymbolPanelDock(TVornIEDBTerList& chart, QWidget* parent);
    ~SymbolPanelDock() override;

    TImageEnMView& Panel() { return *panel_; }

private:
    std::unique_ptr<TImageEnMView> panel_;
};

} // namespace vorn::demo
