#pragma once

#include "demo/dentition/outline.h"

#include <QBrush>
#include <QColor>
#include <QPainter>
#include <QPainterPath>

namespace vorn::demo::ink {

// One palette for all symbols: findings are red, what the dentist makes is blue, movements are green, and what is to be
// kept in mind is amber; materials have colours of their own.
inline const QColor Finding(0xC6, 0x26, 0x2E);
inline const QColor FindingLight(0xF4, 0x9A, 0x96);
inline const QColor Work(0x1B, 0x5E, 0xA8);
inline const QColor WorkLight(0x9C, 0xC8, 0xF0);
inline const QColor Movement(0x0B, 0x74, 0x6B);
inline const QColor Attention(0xB4, 0x6A, 0x00);
inline const QColor AttentionLight(0xFF, 0xD0, 0x66);
inline const QColor Filling(0xE5, 0x6B, 0x2E); // gutta-percha
inline const QColor FillingEdge(0x9E, 0x3F, 0x10);
inline const QColor Metal(0x4C, 0x5A, 0x69);
inline const QColor MetalLight(0xF3, 0xF6, 0xF9);
inline const QColor MetalDark(0x97, 0xA5, 0xB3);
inline const QColor Gum(0xEE, 0x9A, 0xA6);
inline const QColor GumEdge(0xB0, 0x3A, 0x56);
inline const QColor Ivory(0xFB, 0xF3, 0xDF);
inline const QColor IvoryEdge(0x6E, 0x5B, 0x3C);

inline constexpr double Line = 1.8;
inline constexpr double ThinLine = 1.2;

QColor WithAlpha(QColor color, double alpha);

/// Round caps and joins, as all lines of the symbols have.
QPen Pen(const QColor& color, double width = Line);
QPen DashedPen(const QColor& color, double width = Line);

void Stroke(QPainter& painter, const QPainterPath& path, const QColor& color, double width = Line);
/// Fill and outline in one.
void Shape(QPainter& painter, const QPainterPath& path, const QBrush& fill, const QColor& edge, double width = Line);
/// A straight shaft with a full head whose tip lies on `to`.
void Arrow(QPainter& painter, QPointF from, QPointF to, const QColor& color, double width = 3.2, double head = 9);
/// An arrow's head alone, with its tip on `tip`.
void ArrowHead(QPainter& painter, QPointF tip, double degrees, const QColor& color, double size);

/// Steel lit from the left, across from `left` to `right`.
QBrush Steel(double left, double right);
/// A surface lit from the upper left within `box`.
QBrush Lit(const QRectF& box, const QColor& light, const QColor& dark);

QPainterPath Polyline(std::initializer_list<QPointF> points);
/// A molar's crown that fills `box`, cusps upwards.
QPainterPath MolarCrown(const QRectF& box);
/// A whole tooth with two roots that fills `box`, crown upwards.
QPainterPath LittleTooth(const QRectF& box);

} // namespace vorn::demo::ink
