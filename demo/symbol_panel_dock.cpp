#include "demo/symbol_panel_dock.h"

#include "chart/vorndblabelIE.h"

namespace vorn::demo {

namespace {

constexpr int ThumbnailSize = 66;
constexpr int ThumbnailGap = 6;
constexpr int PanelWidth = 178; // two columns with the scroll bar

} // namespace

SymbolPanelDock::SymbolPanelDock(TVornIEDBTerList& chart, QWidget* parent)
    : QDockWidget(QStringLiteral("Simboli"), parent), panel_(std::make_unique<TImageEnMView>(nullptr))
{
    setObjectName(QStringLiteral("pannelloSimboli"));
    setFeatures(DockWidgetMovable | DockWidgetClosable);
    toggleViewAction()->setText(QStringLiteral("Pannello dei simboli"));
    panel_->SetThumbWidth(ThumbnailSize);
    panel_->SetThumbHeight(ThumbnailSize);
    panel_->SetHorizBorder(ThumbnailGap);
    panel_->SetVertBorder(ThumbnailGap);
    panel_->SetBackground(clWhite);
    chart.CreaMViewPanel(panel_.get());
    QWidget* widget = panel_->Widget();
    widget->setMinimumWidth(PanelWidth);
    setWidget(widget);
}

// The panel takes its window along, before the dock would.
SymbolPanelDock::~SymbolPanelDock() = default;

} // namespace vorn::demo
