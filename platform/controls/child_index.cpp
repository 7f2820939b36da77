#include "platform/controls/child_index.h"

#include "platform/controls/control.h"

#include <algorithm>

namespace vorn {

namespace {

bool Touch(const TRect& a, const TRect& b)
{
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

} // namespace

std::int64_t ChildIndex::Cells::Count() const
{
    return (static_cast<std::int64_t>(Right) - Left + 1) * (static_cast<std::int64_t>(Bottom) - Top + 1);
}

ChildIndex::Cells ChildIndex::CellsOf(const TRect& r)
{
    if (r.IsEmpty())
        return {};
    return {r.Left >> CellShift, r.Top >> CellShift, (r.Right - 1) >> CellShift, (r.Bottom - 1) >> CellShift};
}

std::uint64_t ChildIndex::Key(int x, int y)
{
    return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(x)) << 32) | static_cast<std::uint32_t>(y);
}

void ChildIndex::Add(TControl* control, const TRect& bounds)
{
    if (freeNodes_.empty()) {
        control->indexNode_ = static_cast<int>(nodes_.size());
        nodes_.emplace_back();
    } else {
        control->indexNode_ = freeNodes_.back();
        freeNodes_.pop_back();
    }
    Node& node = nodes_[static_cast<std::size_t>(control->indexNode_)];
    node.Control = control;
    node.Bounds = bounds;
    Link(control->indexNode_);
}

void ChildIndex::Remove(TControl* control)
{
    Unlink(control->indexNode_);
    nodes_[static_cast<std::size_t>(control->indexNode_)].Control = nullptr;
    freeNodes_.push_back(control->indexNode_);
    control->indexNode_ = -1;
}

void ChildIndex::Move(TControl* control, const TRect& bounds)
{
    const int index = control->indexNode_;
    Node& node = nodes_[static_cast<std::size_t>(index)];
    const Cells cells = CellsOf(bounds);
    const bool sameCells = cells.Left == node.Range.Left && cells.Top == node.Range.Top
        && cells.Right == node.Range.Right && cells.Bottom == node.Range.Bottom;
    if (sameCells) {
        node.Bounds = bounds;
        return;
    }
    Unlink(index);
    node.Bounds = bounds;
    Link(index);
}

void ChildIndex::Clear()
{
    for (Node& node : nodes_) {
        if (node.Control)
            node.Control->indexNode_ = -1;
    }
    nodes_.clear();
    freeNodes_.clear();
    grid_.clear();
    large_.clear();
}

void ChildIndex::Link(int index)
{
    Node& node = nodes_[static_cast<std::size_t>(index)];
    node.Range = CellsOf(node.Bounds);
    node.Large = node.Range.Count() > MaxCells;
    if (node.Large) {
        node.Places[0] = static_cast<std::uint32_t>(large_.size());
        large_.push_back({index, 0});
        return;
    }
    std::uint32_t slot = 0;
    for (int y = node.Range.Top; y <= node.Range.Bottom; ++y) {
        for (int x = node.Range.Left; x <= node.Range.Right; ++x) {
            Cell& cell = grid_[Key(x, y)];
            node.Places[slot] = static_cast<std::uint32_t>(cell.size());
            cell.push_back({index, slot++});
        }
    }
}

void ChildIndex::Unlink(int index)
{
    const Node& node = nodes_[static_cast<std::size_t>(index)];
    if (node.Large) {
        TakeOut(large_, node.Places[0]);
        return;
    }
    std::uint32_t slot = 0;
    for (int y = node.Range.Top; y <= node.Range.Bottom; ++y) {
        for (int x = node.Range.Left; x <= node.Range.Right; ++x) {
            const auto found = grid_.find(Key(x, y));
            TakeOut(found->second, node.Places[slot++]);
            if (found->second.empty())
                grid_.erase(found);
        }
    }
}

void ChildIndex::TakeOut(Cell& cell, std::uint32_t place)
{
    cell[place] = cell.back();
    nodes_[static_cast<std::size_t>(cell[place].Node)].Places[cell[place].Slot] = place;
    cell.pop_back();
}

bool ChildIndex::IsLarge(const TRect& area) const
{
    const std::int64_t cells = CellsOf(area).Count();
    return cells > static_cast<std::int64_t>(grid_.size()) / 4 + MaxCells;
}

std::vector<TControl*> ChildIndex::Touching(const TRect& area) const
{
    std::vector<TControl*> found;
    const Cells range = CellsOf(area);
    const auto take = [&](const Node& node) {
        if (!node.Bounds.IsEmpty() && Touch(node.Bounds, area))
            found.push_back(node.Control);
    };
    const auto inOrder = [](const TControl* a, const TControl* b) { return a->parentIndex_ < b->parentIndex_; };
    if (IsLarge(area)) {
        for (const Node& node : nodes_) {
            if (node.Control)
                take(node);
        }
        std::sort(found.begin(), found.end(), inOrder);
        return found;
    }
    for (const Entry& entry : large_)
        take(nodes_[static_cast<std::size_t>(entry.Node)]);
    for (int y = range.Top; y <= range.Bottom; ++y) {
        for (int x = range.Left; x <= range.Right; ++x) {
            const auto cell = grid_.find(Key(x, y));
            if (cell == grid_.end())
                continue;
            for (const Entry& entry : cell->second) {
                // A control in several cells counts in the first one that the search meets.
                const Node& node = nodes_[static_cast<std::size_t>(entry.Node)];
                if (x == std::max(range.Left, node.Range.Left) && y == std::max(range.Top, node.Range.Top))
                    take(node);
            }
        }
    }
    std::sort(found.begin(), found.end(), inOrder);
    return found;
}

std::vector<TControl*> ChildIndex::At(const TPoint& point) const
{
    std::vector<TControl*> found;
    const auto search = [&](const Cell& cell) {
        for (const Entry& entry : cell) {
            const Node& node = nodes_[static_cast<std::size_t>(entry.Node)];
            if (PtInRect(node.Bounds, point))
                found.push_back(node.Control);
        }
    };
    search(large_);
    const auto cell = grid_.find(Key(point.X >> CellShift, point.Y >> CellShift));
    if (cell != grid_.end())
        search(cell->second);
    return found;
}

} // namespace vorn
