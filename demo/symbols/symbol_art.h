#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <span>
#include <vector>

class QPainter;

namespace vorn::demo {

/// The part of a tooth on which a symbol is at home.
enum class Spot { Bite, Crown, Neck, Middle, Root, Apex };

/// One drawn symbol of the catalogue. It is drawn as on a lower tooth: biting edge at the top, root tips at the bottom.
struct SymbolArt {
    const char* name; ///< its "Nome" in the catalogue, UTF-8
    QSize box;        ///< what `paint` draws into, from the painter's origin, in pixels of the dentition's drawing
    Spot spot;
    void (*paint)(QPainter&);
    bool upright = false; ///< stays as it is on an upper tooth, where all others are turned by half

    QString Name() const { return QString::fromUtf8(name); }
};

/// Every symbol, family by family.
const std::vector<SymbolArt>& AllSymbols();

/// None if there is no such drawing. Regards case.
const SymbolArt* FindSymbol(const QString& name);

/// The symbol on a transparent ground with a faint light contour around it, which keeps it legible on teeth, gums and
/// dark grounds. The contour takes `SymbolMargin` pixels around the box. `scale` multiplies the size in pixels.
QImage RenderSymbol(const SymbolArt& symbol, double scale = 1.0);

inline constexpr int SymbolMargin = 2;

} // namespace vorn::demo
