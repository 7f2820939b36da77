#include "demo/dentition/tooth_crown.h"

#include "demo/dentition/outline.h"

#include <algorithm>

namespace vorn::demo {

namespace {

using Nodes = std::vector<OutlineNode>;

// Outlines run from the mesial side over the biting edge to the distal side, neck left out.
// x is in half crown widths, y in crown heights.

const Nodes UpperIncisorEdge = {{-0.93, 0.64}, {-0.995, 0.34}, {-0.985, 0.12}, {-0.90, 0.022}, {-0.45, 0.0},
    {0.30, 0.008}, {0.80, 0.045}, {0.965, 0.16}, {1.0, 0.36}, {0.92, 0.66}};

const Nodes LowerIncisorEdge = {{-0.82, 0.62}, {-0.965, 0.28}, {-1.0, 0.10}, {-0.92, 0.018}, {-0.40, 0.0},
    {0.40, 0.002}, {0.90, 0.025}, {1.0, 0.12}, {0.965, 0.30}, {0.82, 0.62}};

const Nodes CanineEdge = {{-0.88, 0.64}, {-0.99, 0.38}, {-0.95, 0.25}, {-0.66, 0.135}, {-0.26, 0.03}, {-0.06, 0.0},
    {0.16, 0.03}, {0.62, 0.17}, {0.94, 0.33}, {1.0, 0.46}, {0.90, 0.68}};

const Nodes PremolarEdge = {{-0.90, 0.66}, {-1.0, 0.40}, {-0.95, 0.25}, {-0.62, 0.115}, {-0.22, 0.02}, {-0.02, 0.0},
    {0.20, 0.025}, {0.62, 0.13}, {0.95, 0.28}, {1.0, 0.43}, {0.90, 0.68}};

const Nodes UpperMolarEdge = {{-0.94, 0.68}, {-1.0, 0.42}, {-0.96, 0.22}, {-0.80, 0.085}, {-0.55, 0.0}, {-0.28, 0.06},
    {0.02, 0.19}, {0.24, 0.11}, {0.48, 0.045}, {0.74, 0.10}, {0.94, 0.25}, {1.0, 0.44}, {0.93, 0.70}};

const Nodes LowerMolarEdge = {{-0.92, 0.66}, {-1.0, 0.36}, {-0.95, 0.17}, {-0.78, 0.05}, {-0.52, 0.0}, {-0.24, 0.06},
    {-0.02, 0.16}, {0.20, 0.06}, {0.48, 0.015}, {0.76, 0.07}, {0.95, 0.21}, {1.0, 0.40}, {0.91, 0.68}};

const Nodes ThreeCuspEdge = {{-0.92, 0.66}, {-1.0, 0.36}, {-0.95, 0.17}, {-0.80, 0.05}, {-0.58, 0.0}, {-0.36, 0.06},
    {-0.20, 0.15}, {-0.04, 0.07}, {0.18, 0.02}, {0.38, 0.075}, {0.53, 0.18}, {0.64, 0.135}, {0.76, 0.12}, {0.90, 0.19},
    {1.0, 0.40}, {0.90, 0.68}};

const Nodes& EdgeOf(ToothKind kind)
{
    switch (kind) {
    case ToothKind::UpperIncisor:
        return UpperIncisorEdge;
    case ToothKind::LowerIncisor:
        return LowerIncisorEdge;
    case ToothKind::Canine:
        return CanineEdge;
    case ToothKind::Premolar:
    case ToothKind::UpperFirstPremolar:
        return PremolarEdge;
    case ToothKind::UpperMolar:
    case ToothKind::UpperWisdom:
        return UpperMolarEdge;
    case ToothKind::LowerFirstMolar:
        return ThreeCuspEdge;
    case ToothKind::LowerMolar:
    case ToothKind::LowerWisdom:
        return LowerMolarEdge;
    }
    return PremolarEdge;
}

bool IsMolar(ToothKind kind)
{
    switch (kind) {
    case ToothKind::UpperMolar:
    case ToothKind::LowerFirstMolar:
    case ToothKind::LowerMolar:
    case ToothKind::UpperWisdom:
    case ToothKind::LowerWisdom:
        return true;
    default:
        return false;
    }
}

/// Turns nodes given in half widths and heights into millimetres.
Nodes Scaled(const Nodes& nodes, const ToothMeasures& m)
{
    Nodes scaled = nodes;
    for (OutlineNode& node : scaled) {
        node.x *= m.crownWidth / 2;
        node.y *= m.crownHeight;
    }
    return scaled;
}

/// The crown's whole outline: biting edge, sides and the neck, which bows towards the root.
QPainterPath CrownOutline(const ToothMeasures& m, bool deciduous)
{
    Nodes nodes = EdgeOf(m.kind);
    if (deciduous) {
        // A milk tooth is widest close to the neck and then drops in at once.
        for (OutlineNode& node : nodes)
            node.x *= std::min(0.98, 0.87 + 0.4 * node.y);
        nodes.front() = {-1.0, 0.70};
        nodes.back() = {1.0, 0.71};
    }
    nodes = Scaled(nodes, m);
    const double half = m.cervixWidth / 2;
    const double side = NeckSideHeight(m);
    const double bow = m.crownHeight - side;
    nodes.push_back({half, side, true});
    nodes.push_back({half * 0.62, side + bow * 0.72});
    nodes.push_back({0, m.crownHeight});
    nodes.push_back({-half * 0.62, side + bow * 0.72});
    nodes.push_back({-half, side, true});
    return SmoothClosed(nodes);
}

void AddGrooves(ToothShape& shape, const ToothMeasures& m)
{
    auto fissure = [&](const Nodes& nodes) { shape.fissures.push_back(SmoothOpen(Scaled(nodes, m))); };
    auto hollow = [&](const Nodes& nodes) { shape.hollows.push_back(SmoothOpen(Scaled(nodes, m))); };
    switch (m.kind) {
    case ToothKind::UpperIncisor:
    case ToothKind::LowerIncisor:
        hollow({{-0.36, 0.04}, {-0.38, 0.24}, {-0.30, 0.50}});
        hollow({{0.34, 0.05}, {0.38, 0.25}, {0.30, 0.50}});
        break;
    case ToothKind::Canine:
    case ToothKind::Premolar:
    case ToothKind::UpperFirstPremolar:
        hollow({{-0.54, 0.14}, {-0.50, 0.34}, {-0.36, 0.60}});
        hollow({{0.54, 0.17}, {0.50, 0.36}, {0.36, 0.62}});
        break;
    case ToothKind::UpperMolar:
    case ToothKind::UpperWisdom:
        fissure({{0.02, 0.19}, {0.05, 0.38}, {0.02, 0.60}});
        break;
    case ToothKind::LowerMolar:
    case ToothKind::LowerWisdom:
        fissure({{-0.02, 0.16}, {0.0, 0.36}, {-0.02, 0.58}});
        break;
    case ToothKind::LowerFirstMolar:
        fissure({{-0.20, 0.15}, {-0.17, 0.36}, {-0.18, 0.58}});
        fissure({{0.53, 0.18}, {0.53, 0.32}, {0.49, 0.48}});
        break;
    }
}

/// Far cusps peep over the valleys of the near ones.
void AddLingualCusps(ToothShape& shape, const ToothMeasures& m)
{
    if (!IsMolar(m.kind))
        return;
    const Nodes nodes = {{-0.66, 0.5}, {-0.62, 0.16}, {-0.34, 0.075}, {-0.08, 0.055}, {0.06, 0.085}, {0.24, 0.06},
        {0.46, 0.085}, {0.70, 0.17}, {0.74, 0.5}};
    shape.lingualCusps = SmoothClosed(Scaled(nodes, m));
}

} // namespace

double NeckSideHeight(const ToothMeasures& measures)
{
    const double bow = IsMolar(measures.kind) ? 0.08 : 0.15;
    return measures.crownHeight * (1 - bow);
}

void AddCrown(ToothShape& shape, const ToothMeasures& measures, bool deciduous)
{
    shape.crown = CrownOutline(measures, deciduous);
    AddGrooves(shape, measures);
    AddLingualCusps(shape, measures);
    shape.biteMiddle = {0, 0};
    shape.neckMiddle = {0, measures.crownHeight};
    shape.shine = {-0.16 * measures.crownWidth, 0.50 * measures.crownHeight};
}

} // namespace vorn::demo
