#include "demo/dentition/tooth_shape.h"

#include "demo/dentition/outline.h"
#include "demo/dentition/tooth_crown.h"

namespace vorn::demo {

namespace {

/// What one root of a molar looks like, in millimetres; `side` is -1 mesial, 1 distal.
struct MolarRoot {
    double side;
    double length; ///< neck to tip
    double flare;  ///< how far the root's belly stands out beyond the neck
    double apex;   ///< x of the tip
    double tip;    ///< half width close to the tip
};

/// A conical root from the neck to its tip. `half` is its half width at the neck, `apex` the x of the tip.
QPainterPath ConicalRoot(const ToothMeasures& m, double middle, double half, double length, double apex)
{
    const double neck = m.crownHeight;
    const double lean = apex - middle;
    auto node = [&](double side, double width, double along, double bend) {
        return OutlineNode{middle + side * half * width + lean * bend, neck + length * along};
    };
    const double hidden = -0.22 * m.crownHeight / length;
    return SmoothClosed({node(-1, 0.90, hidden, 0), node(-1, 0.985, 0.0, 0), node(-1, 0.93, 0.20, 0.02),
        node(-1, 0.80, 0.46, 0.10), node(-1, 0.59, 0.72, 0.32), node(-1, 0.39, 0.89, 0.62), node(-1, 0.22, 0.975, 0.90),
        node(0, 0, 1.0, 1.0), node(1, 0.20, 0.975, 0.96), node(1, 0.38, 0.89, 0.70), node(1, 0.59, 0.72, 0.36),
        node(1, 0.80, 0.46, 0.10), node(1, 0.93, 0.20, 0.02), node(1, 0.985, 0.0, 0), node(1, 0.90, hidden, 0)});
}

/// Where the near roots part: depth below the neck and half the gap between them just beyond that point.
struct Furcation {
    double depth;
    double halfGap;
};

/// Nodes of one molar root from the neck's side around the tip to the inner side, stopping at the furcation.
std::vector<OutlineNode> MolarRootNodes(const ToothMeasures& m, const MolarRoot& r, const Furcation& fork)
{
    const double neck = m.crownHeight;
    const double half = m.cervixWidth / 2;
    const double belly = r.side * (half + r.flare);
    const double outerTip = r.apex + r.side * r.tip;
    const double innerTip = r.apex - r.side * r.tip;
    const double innerStart = r.side * fork.halfGap;
    auto mix = [](double a, double b, double share) { return a + (b - a) * share; };
    auto inner = [&](double share) { return neck + mix(fork.depth, r.length, share); };
    return {{r.side * half * 0.94, neck * 0.80}, {r.side * half, neck + r.length * 0.02},
        {r.side * (half + r.flare * 0.45), neck + r.length * 0.25}, {belly, neck + r.length * 0.52},
        {mix(belly, outerTip, 0.50) + r.side * r.tip * 0.25, neck + r.length * 0.79},
        {outerTip, neck + r.length * 0.945}, {r.apex, neck + r.length}, {innerTip, inner(0.915)},
        {mix(innerStart, innerTip, 0.55), inner(0.58)}, {innerStart, inner(0.14)}};
}

void AddMolarRoots(
    ToothShape& shape, const ToothMeasures& m, const MolarRoot& mesial, const MolarRoot& distal, const Furcation& fork)
{
    std::vector<OutlineNode> nodes = MolarRootNodes(m, mesial, fork);
    nodes.push_back({0, m.crownHeight + fork.depth});
    std::vector<OutlineNode> back = MolarRootNodes(m, distal, fork);
    nodes.insert(nodes.end(), back.rbegin(), back.rend());
    shape.root = SmoothClosed(nodes);
    for (const MolarRoot& root : {mesial, distal}) {
        const double half = m.cervixWidth / 2;
        const double belly = root.side * (half + root.flare + fork.halfGap) / 2;
        shape.rootRidges.push_back(SmoothOpen({{root.side * half * 0.45, m.crownHeight},
            {belly, m.crownHeight + root.length * 0.52}, {root.apex, m.crownHeight + root.length * 0.97}}));
    }
}

void AddUpperMolarRoots(ToothShape& shape, const ToothMeasures& m, bool deciduous)
{
    const double half = m.cervixWidth / 2;
    const double flare = deciduous ? 1.1 : 0.45;
    const double tip = deciduous ? 0.42 : 0.62;
    const double inset = deciduous ? 0.0 : 0.75;
    AddMolarRoots(shape, m, {-1, m.rootLength * 0.95, flare, -half + inset, tip},
        {1, m.rootLength * 0.91, flare, half - inset * 0.3, tip * 0.92},
        {m.rootLength * (deciduous ? 0.12 : 0.32), deciduous ? half * 0.36 : half * 0.22});
    shape.farRoot = ConicalRoot(m, 0.05, half * 0.66, m.rootLength, 0.15);
}

void AddLowerMolarRoots(ToothShape& shape, const ToothMeasures& m, bool deciduous)
{
    const double half = m.cervixWidth / 2;
    const double flare = deciduous ? 1.2 : 0.15;
    const double tip = deciduous ? 0.45 : 0.72;
    AddMolarRoots(shape, m, {-1, m.rootLength, flare, -half + (deciduous ? 0.0 : 1.3), tip},
        {1, m.rootLength * 0.95, flare, half + (deciduous ? 0.1 : -0.5), tip * 0.94},
        {m.rootLength * (deciduous ? 0.14 : 0.25), deciduous ? half * 0.36 : half * 0.17});
}

/// Wisdom teeth: roots grown together, only the tips stand apart, all leaning to distal.
void AddWisdomRoots(ToothShape& shape, const ToothMeasures& m)
{
    const double half = m.cervixWidth / 2;
    AddMolarRoots(shape, m, {-1, m.rootLength * 0.97, -0.25, -half * 0.28, half * 0.21},
        {1, m.rootLength, -0.20, half * 0.50, half * 0.20}, {m.rootLength * 0.68, half * 0.06});
}

void AddForkedRoot(ToothShape& shape, const ToothMeasures& m)
{
    const double half = m.cervixWidth / 2;
    AddMolarRoots(shape, m, {-1, m.rootLength * 0.94, -0.22, -half * 0.45, half * 0.19},
        {1, m.rootLength, -0.18, half * 0.62, half * 0.20}, {m.rootLength * 0.46, half * 0.07});
}

void AddSingleRoot(ToothShape& shape, const ToothMeasures& m)
{
    const double apex = m.cervixWidth * 0.09;
    shape.root = ConicalRoot(m, 0, m.cervixWidth / 2, m.rootLength, apex);
    shape.rootRidges.push_back(
        SmoothOpen({{-m.cervixWidth * 0.06, m.crownHeight}, {-m.cervixWidth * 0.02, m.crownHeight + m.rootLength * 0.5},
            {apex * 0.9, m.crownHeight + m.rootLength * 0.95}}));
}

void AddRoots(ToothShape& shape, const ToothMeasures& m, bool deciduous)
{
    switch (m.kind) {
    case ToothKind::UpperMolar:
        AddUpperMolarRoots(shape, m, deciduous);
        break;
    case ToothKind::LowerFirstMolar:
    case ToothKind::LowerMolar:
        AddLowerMolarRoots(shape, m, deciduous);
        break;
    case ToothKind::UpperWisdom:
    case ToothKind::LowerWisdom:
        AddWisdomRoots(shape, m);
        break;
    case ToothKind::UpperFirstPremolar:
        AddForkedRoot(shape, m);
        break;
    default:
        AddSingleRoot(shape, m);
        break;
    }
}

} // namespace

QRectF ToothShape::Bounds() const
{
    QRectF bounds = crown.boundingRect() | root.boundingRect();
    if (!farRoot.isEmpty())
        bounds |= farRoot.boundingRect();
    if (!lingualCusps.isEmpty())
        bounds |= lingualCusps.boundingRect();
    return bounds;
}

ToothShape ToothShape::Mapped(const QTransform& transform) const
{
    ToothShape mapped;
    mapped.crown = transform.map(crown);
    mapped.lingualCusps = transform.map(lingualCusps);
    mapped.root = transform.map(root);
    mapped.farRoot = transform.map(farRoot);
    for (const QPainterPath& ridge : rootRidges)
        mapped.rootRidges.push_back(transform.map(ridge));
    for (const QPainterPath& fissure : fissures)
        mapped.fissures.push_back(transform.map(fissure));
    for (const QPainterPath& hollow : hollows)
        mapped.hollows.push_back(transform.map(hollow));
    mapped.biteMiddle = transform.map(biteMiddle);
    mapped.neckMiddle = transform.map(neckMiddle);
    mapped.shine = transform.map(shine);
    return mapped;
}

ToothShape ShapeOf(const ToothNumber& tooth)
{
    const ToothMeasures& measures = MeasuresOf(tooth);
    ToothShape shape;
    AddCrown(shape, measures, tooth.Deciduous());
    AddRoots(shape, measures, tooth.Deciduous());
    // The tooth leans about the middle of its neck: the root to distal, the crown a little to mesial.
    QTransform lean;
    lean.translate(0, measures.crownHeight).rotate(-measures.tilt).translate(0, -measures.crownHeight);
    return shape.Mapped(lean);
}

} // namespace vorn::demo
