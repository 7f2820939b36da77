#include "demo/symbols/symbol_art.h"

#include "demo/symbols/families.h"

#include <QPainter>

#include <cmath>

namespace vorn::demo {

namespace {

constexpr double ContourReach = 1.4;
constexpr int ContourSteps = 16;
constexpr double ContourAlpha = 0.75;

QImage Transparent(const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage RenderInk(const SymbolArt& symbol, double scale)
{
    const QSize box = symbol.box + QSize(2 * SymbolMargin, 2 * SymbolMargin);
    QImage ink = Transparent((QSizeF(box) * scale).toSize());
    QPainter painter(&ink);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.translate(SymbolMargin, SymbolMargin);
    symbol.paint(painter);
    return ink;
}

/// White where the ink is, as opaque as it is.
QImage Bleached(const QImage& ink)
{
    QImage white = ink;
    QPainter painter(&white);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(white.rect(), Qt::white);
    return white;
}

/// A rim around the ink, and nothing under it: translucent fills go on letting the tooth through.
QImage Contour(const QImage& ink, double scale)
{
    const QImage white = Bleached(ink);
    QImage rim = Transparent(ink.size());
    QPainter painter(&rim);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int step = 0; step < ContourSteps; ++step) {
        const double angle = step * 2 * M_PI / ContourSteps;
        painter.drawImage(QPointF(std::cos(angle), std::sin(angle)) * ContourReach * scale, white);
    }
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    for (int pass = 0; pass < 4; ++pass)
        painter.drawImage(0, 0, white);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(rim.rect(), QColor::fromRgbF(0, 0, 0, static_cast<float>(ContourAlpha)));
    return rim;
}

std::vector<SymbolArt> Collect()
{
    std::vector<SymbolArt> symbols;
    for (const auto family : {ConservativeSymbols(), EndodonticSymbols(), ProstheticSymbols(), SurgicalSymbols(),
             PeriodontalSymbols(), OrthodonticSymbols(), GeneralSymbols()})
        symbols.insert(symbols.end(), family.begin(), family.end());
    return symbols;
}

} // namespace

const std::vector<SymbolArt>& AllSymbols()
{
    static const std::vector<SymbolArt> symbols = Collect();
    return symbols;
}

const SymbolArt* FindSymbol(const QString& name)
{
    for (const SymbolArt& symbol : AllSymbols())
        if (symbol.Name() == name)
            return &symbol;
    return nullptr;
}

QImage RenderSymbol(const SymbolArt& symbol, double scale)
{
    const QImage ink = RenderInk(symbol, scale);
    QImage picture = Contour(ink, scale);
    QPainter painter(&picture);
    painter.drawImage(0, 0, ink);
    painter.end();
    return picture.convertToFormat(QImage::Format_ARGB32);
}

} // namespace vorn::demo
