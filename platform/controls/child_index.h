#pragma once

#include "platform/system/types.h"

#include <array>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace vorn {

class TControl;

/// Finds a window's visible graphic controls by place, without walking over all of them.
///
/// A grid of square cells; each cell lists the controls that touch it. A control that would fill many cells
/// stands in one list beside the grid, which every search walks. Adding, moving and removing take constant
/// time, however many controls lie on one spot. Empty controls are kept but never found.
class ChildIndex {
public:
    void Add(TControl* control, const TRect& bounds);
    void Remove(TControl* control);
    void Move(TControl* control, const TRect& bounds);
    void Clear();
    std::size_t Count() const { return nodes_.size() - freeNodes_.size(); }

    /// Whether a search in `area` would look at so many that a plain walk over all is cheaper.
    bool IsLarge(const TRect& area) const;
    /// Those whose bounds touch `area`, each once, lowest first.
    std::vector<TControl*> Touching(const TRect& area) const;
    /// Those under a point, in no order.
    std::vector<TControl*> At(const TPoint& point) const;

private:
    static constexpr int CellShift = 7;         // cells of 128 pixels
    static constexpr std::int64_t MaxCells = 6; // more make a control a large one

    struct Cells {
        int Left = 0, Top = 0, Right = -1, Bottom = -1; // inclusive
        std::int64_t Count() const;
    };
    struct Node {
        TControl* Control = nullptr;
        TRect Bounds;
        Cells Range;
        bool Large = false;
        std::array<std::uint32_t, MaxCells> Places{}; // where it stands in each of its cells' lists
    };
    struct Entry {
        int Node;
        std::uint32_t Slot; // which of the node's places this is
    };
    using Cell = std::vector<Entry>;

    static Cells CellsOf(const TRect& r);
    static std::uint64_t Key(int x, int y);
    void Link(int node);
    void Unlink(int node);
    void TakeOut(Cell& cell, std::uint32_t place);

    std::unordered_map<std::uint64_t, Cell> grid_;
    Cell large_;
    std::vector<Node> nodes_;
    std::vector<int> freeNodes_;
};

} // namespace vorn
