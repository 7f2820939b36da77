#pragma once

#include <QPainterPath>

#include <vector>

namespace vorn::demo {

/// A point that an outline passes through; at a corner the outline may change its direction.
struct OutlineNode {
    double x = 0;
    double y = 0;
    bool corner = false;
};

/// A closed path that runs smoothly through the nodes, in order. Needs at least three.
QPainterPath SmoothClosed(const std::vector<OutlineNode>& nodes);

/// An open path that runs smoothly through the nodes, in order. Needs at least two.
QPainterPath SmoothOpen(const std::vector<OutlineNode>& nodes);

} // namespace vorn::demo
