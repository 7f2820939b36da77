#include "platform/graphics/font_resolution.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QStandardPaths>
#include <QStringList>

#include <algorithm>
#include <map>
#include <memory>
#include <tuple>

namespace vorn {

namespace {

constexpr int minPixels = 1;
constexpr int maxPixels = 2000;
constexpr int defaultPixels = 11;

struct Substitutes {
    const char* name;
    QStringList families;
};

/// Families to try, best first, for the names that stored fonts carry.
const std::vector<Substitutes>& SubstituteTable()
{
    const QStringList tahoma = {"Tahoma", "DejaVu Sans Condensed", "Verdana", "DejaVu Sans"};
    const QStringList arial = {"Arial", "Liberation Sans", "Arimo", "Helvetica", "DejaVu Sans"};
    static const std::vector<Substitutes> table = {
        {"tahoma", tahoma},
        {"ms sans serif", tahoma},
        {"ms shell dlg", tahoma},
        {"ms shell dlg 2", tahoma},
        {"arial", arial},
        {"helvetica", arial},
        {"courier new", {"Courier New", "Liberation Mono", "Cousine", "DejaVu Sans Mono"}},
        {"times new roman", {"Times New Roman", "Liberation Serif", "Tinos", "DejaVu Serif"}},
    };
    return table;
}

/// A free Tahoma may be installed where the font system doesn't look.
void RegisterTahoma()
{
    if (QFontDatabase::hasFamily("Tahoma"))
        return;
    for (const char* file : {"wine/fonts/tahoma.ttf", "wine/fonts/tahomabd.ttf"}) {
        const QString path = QStandardPaths::locate(QStandardPaths::GenericDataLocation, file);
        if (!path.isEmpty())
            QFontDatabase::addApplicationFont(path);
    }
}

QStringList FamiliesFor(StringView name)
{
    [[maybe_unused]] static const bool registered = (RegisterTahoma(), true);
    QString wanted = QString::fromUtf16(name.data(), static_cast<qsizetype>(name.size())).trimmed();
    if (wanted.startsWith('@')) // the vertical variant
        wanted.remove(0, 1);
    const QString key = wanted.toLower();
    for (const Substitutes& entry : SubstituteTable())
        if (key == QLatin1String(entry.name))
            for (const QString& family : entry.families)
                if (QFontDatabase::hasFamily(family))
                    return {family};
    if (!wanted.isEmpty() && QFontDatabase::hasFamily(wanted))
        return {wanted};
    return {"Tahoma", "DejaVu Sans Condensed", "DejaVu Sans", "sans-serif"};
}

/// Whole-pixel advances and grey antialiasing, so that text measures alike on every device.
QFont MakeFont(const QStringList& families, int pixels, TFontStyles style)
{
    QFont font(families);
    font.setPixelSize(std::clamp(pixels, minPixels, maxPixels));
    font.setBold((style & fsBold) != 0);
    font.setItalic((style & fsItalic) != 0);
    font.setHintingPreference(QFont::PreferFullHinting);
    font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    font.setKerning(false);
    return font;
}

int LineHeightOf(const QFont& font)
{
    const QFontMetrics metrics(font);
    return metrics.ascent() + metrics.descent();
}

/// The largest character height whose line is no higher than `lineHeight`.
int PixelsForLine(const QStringList& families, int lineHeight, TFontStyles style)
{
    int low = minPixels;
    int high = std::min(lineHeight, maxPixels);
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (LineHeightOf(MakeFont(families, middle, style)) <= lineHeight)
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}

int PixelsFor(const QStringList& families, int height, TFontStyles style)
{
    if (height == 0)
        return defaultPixels;
    if (height > 0)
        return PixelsForLine(families, height, style);
    return height < -maxPixels ? maxPixels : -height;
}

FontFace MakeFace(StringView name, int height, TFontStyles style)
{
    const QStringList families = FamiliesFor(name);
    FontFace face;
    face.shaping = MakeFont(families, PixelsFor(families, height, style), style);
    face.underlined = (style & fsUnderline) != 0;
    face.struckOut = (style & fsStrikeOut) != 0;
    face.font = face.shaping;
    face.font.setUnderline(face.underlined);
    face.font.setStrikeOut(face.struckOut);

    const QFontMetrics metrics(face.shaping);
    face.ascent = metrics.ascent();
    face.lineHeight = std::max(1, metrics.ascent() + metrics.descent());
    face.tabWidth = std::max(1, 8 * metrics.averageCharWidth());
    face.ruleHeight = std::clamp(metrics.lineWidth(), 1, face.lineHeight);
    const int lowest = face.lineHeight - face.ruleHeight;
    face.underlineTop = std::clamp(metrics.ascent() + metrics.underlinePos(), 0, lowest);
    face.strikeOutTop = std::clamp(metrics.ascent() - metrics.strikeOutPos(), 0, lowest);
    return face;
}

} // namespace

const FontFace& ResolveFont(StringView name, int height, TFontStyles style)
{
    using Key = std::tuple<String, int, TFontStyles>;
    // Never freed: fonts point to their faces, and some live until the process ends.
    static auto& faces = *new std::map<Key, std::unique_ptr<FontFace>>;
    const int drawn = std::clamp(height, -maxPixels, 2 * maxPixels);
    std::unique_ptr<FontFace>& face = faces[Key(name, drawn, style)];
    if (!face)
        face = std::make_unique<FontFace>(MakeFace(name, drawn, style));
    return *face;
}

} // namespace vorn
