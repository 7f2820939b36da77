#pragma once

#include "demo/dentition/tooth_measures.h"

#include <QPainterPath>
#include <QTransform>

#include <vector>

namespace vorn::demo {

/// The paths that one tooth is painted from, seen from the cheek or the lip.
///
/// As made by `ShapeOf` they are in millimetres: x grows to distal from the middle of the tooth, y from the
/// biting edge (0) towards the root tip.
struct ToothShape {
    QPainterPath crown;
    QPainterPath lingualCusps;            ///< what shows of the far cusps above the near ones; may be empty
    QPainterPath root;                    ///< near roots, one outline
    QPainterPath farRoot;                 ///< palatal root, behind; may be empty
    std::vector<QPainterPath> rootRidges; ///< middle line of each near root, lit in painting
    std::vector<QPainterPath> fissures;   ///< sharp grooves between the cusps, from the biting edge on
    std::vector<QPainterPath> hollows;    ///< shallow troughs between the lobes of a crown
    QPointF biteMiddle;                   ///< middle of the biting edge
    QPointF neckMiddle;                   ///< middle of the neck
    QPointF shine;                        ///< where the crown is brightest

    /// Smallest rectangle that holds crown and roots.
    QRectF Bounds() const;
    ToothShape Mapped(const QTransform& transform) const;
};

ToothShape ShapeOf(const ToothNumber& tooth);

} // namespace vorn::demo
