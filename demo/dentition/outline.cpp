#include "demo/dentition/outline.h"

#include <cmath>

namespace vorn::demo {

namespace {

QPointF PointOf(const OutlineNode& node)
{
    return {node.x, node.y};
}

double Length(const QPointF& v)
{
    return std::hypot(v.x(), v.y());
}

/// Unit tangent at `here`. The nearer neighbour weighs more, so that a dense row of nodes keeps its shape.
QPointF Tangent(const QPointF& before, const QPointF& here, const QPointF& after)
{
    const QPointF in = here - before;
    const QPointF out = after - here;
    const double inLength = Length(in);
    const double outLength = Length(out);
    if (inLength == 0 || outLength == 0)
        return {};
    const QPointF blend = in * (outLength / inLength) + out * (inLength / outLength);
    const double length = Length(blend);
    return length == 0 ? QPointF() : blend / length;
}

void CurveTo(
    QPainterPath& path, const QPointF& from, const QPointF& fromTangent, const QPointF& to, const QPointF& toTangent)
{
    const double reach = Length(to - from) * 0.36;
    path.cubicTo(from + fromTangent * reach, to - toTangent * reach, to);
}

QPointF Direction(const QPointF& from, const QPointF& to)
{
    const double length = Length(to - from);
    return length == 0 ? QPointF() : (to - from) / length;
}

} // namespace

QPainterPath SmoothClosed(const std::vector<OutlineNode>& nodes)
{
    const size_t count = nodes.size();
    auto at = [&](size_t i) { return PointOf(nodes[i % count]); };
    auto tangent = [&](size_t i) { return Tangent(at(i + count - 1), at(i), at(i + 1)); };
    QPainterPath path(at(0));
    for (size_t i = 0; i < count; ++i) {
        const QPointF along = Direction(at(i), at(i + 1));
        const QPointF leave = nodes[i].corner ? along : tangent(i);
        const QPointF arrive = nodes[(i + 1) % count].corner ? along : tangent(i + 1);
        CurveTo(path, at(i), leave, at(i + 1), arrive);
    }
    path.closeSubpath();
    return path;
}

QPainterPath SmoothOpen(const std::vector<OutlineNode>& nodes)
{
    QPainterPath path(PointOf(nodes.front()));
    for (size_t i = 0; i + 1 < nodes.size(); ++i) {
        const QPointF from = PointOf(nodes[i]);
        const QPointF to = PointOf(nodes[i + 1]);
        const QPointF along = Direction(from, to);
        const QPointF leave = i == 0 ? along : Tangent(PointOf(nodes[i - 1]), from, to);
        const QPointF arrive = i + 2 == nodes.size() ? along : Tangent(from, to, PointOf(nodes[i + 2]));
        CurveTo(path, from, leave, to, arrive);
    }
    return path;
}

} // namespace vorn::demo
