#pragma once

namespace vorn {

class TImageEnView;
enum class TIELayerEvent;

/// What the palette needs of a chart. The implementing class is a component, which tells the palette when it goes.
class TSymbolEditing {
public:
    /// The view whose current layer is the symbol being edited; none if the chart has none.
    virtual TImageEnView* Container() const = 0;
    /// Writes the current symbol to its row: its place after a move (1) and, with its size, after a resize (2), its
    /// angle after a turn (6), its opacity after each. Or deletes the row. A row that is gone is passed over.
    virtual void SalvaCurrentLayerDib(TIELayerEvent event, bool fordelete) = 0;
    /// Gives the current symbol and its row the natural size, no rotation and full opacity.
    virtual void SalvaCurrentDibReset() = 0;

protected:
    ~TSymbolEditing() = default;
};

} // namespace vorn
