#include "platform/graphics/font_resolution.h"

#include "platform/system/qt_convert.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QRawFont>
#include <QStandardPaths>
#include <QStringList>

#include <algorithm>
#include <map>
#include <memory>
#include <tuple>
#include <vector>

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

/// A free Tahoma may be installed where the font system doesn't look. Its bold file is left out: the outlines in
/// it are as thin as the regular ones, while a regular file alone is made bold by the font engine.
void RegisterTahoma()
{
    if (QFontDatabase::hasFamily("Tahoma"))
        return;
    const QString path = QStandardPaths::locate(QStandardPaths::GenericDataLocation, "wine/fonts/tahoma.ttf");
    if (!path.isEmpty())
        QFontDatabase::addApplicationFont(path);
}

QStringList FamiliesFor(StringView name)
{
    [[maybe_unused]] static const bool registered = (RegisterTahoma(), true);
    QString wanted = ToQt(name).trimmed();
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
    const int strategy = QFont::PreferAntialias | QFont::NoSubpixelAntialias;
    font.setStyleStrategy(static_cast<QFont::StyleStrategy>(strategy));
    font.setKerning(false);
    return font;
}

struct LineMetrics {
    int ascent;
    int height;
};

unsigned BigEndian16(const QByteArray& table, qsizetype at)
{
    return static_cast<unsigned char>(table[at]) * 256u + static_cast<unsigned char>(table[at + 1]);
}

/// The line as the font's OS/2 table has it, since other tables of the same font make it lower; without one, as
/// the font engine has it.
LineMetrics MeasureLine(const QFont& font)
{
    constexpr qsizetype unitsPerEm = 18; // in "head"
    constexpr qsizetype winAscent = 74;  // in "OS/2"
    constexpr qsizetype winDescent = 76;
    const QRawFont raw = QRawFont::fromFont(font);
    const QByteArray head = raw.fontTable("head");
    const QByteArray os2 = raw.fontTable("OS/2");
    if (head.size() >= unitsPerEm + 2 && os2.size() >= winDescent + 2 && BigEndian16(head, unitsPerEm) > 0) {
        const double scale = static_cast<double>(font.pixelSize()) / BigEndian16(head, unitsPerEm);
        const unsigned ascent = BigEndian16(os2, winAscent);
        const unsigned descent = BigEndian16(os2, winDescent);
        const int height = std::max(1, qRound((ascent + descent) * scale));
        return {height - qRound(descent * scale), height};
    }
    const QFontMetrics metrics(font);
    return {metrics.ascent(), std::max(1, metrics.ascent() + metrics.descent())};
}

/// The largest character height whose line is no higher than `lineHeight`.
int PixelsForLine(const QStringList& families, int lineHeight, TFontStyles style)
{
    int low = minPixels;
    int high = std::min(lineHeight, maxPixels);
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (MeasureLine(MakeFont(families, middle, style)).height <= lineHeight)
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
    const LineMetrics line = MeasureLine(face.shaping);
    face.ascent = line.ascent;
    face.lineHeight = line.height;
    face.tabWidth = std::max(1, 8 * metrics.averageCharWidth());
    face.ruleHeight = std::clamp(metrics.lineWidth(), 1, face.lineHeight);
    const int lowest = face.lineHeight - face.ruleHeight;
    face.underlineTop = std::clamp(line.ascent + metrics.underlinePos(), 0, lowest);
    face.strikeOutTop = std::clamp(line.ascent - metrics.strikeOutPos(), 0, lowest);
    return face;
}

} // namespace

const FontFace& ResolveFont(StringView name, int height, TFontStyles style)
{
    using Key = std::tuple<String, int, TFontStyles>;
    // Never freed: fonts point to their faces, and some live until the process ends.
    static auto& faces = *new std::map<Key, std::unique_ptr<FontFace>, std::less<>>;
    const int drawn = std::clamp(height, -maxPixels, 2 * maxPixels);
    if (const auto known = faces.find(std::tuple(name, drawn, style)); known != faces.end() && known->second)
        return *known->second;
    std::unique_ptr<FontFace>& face = faces[Key(name, drawn, style)];
    face = std::make_unique<FontFace>(MakeFace(name, drawn, style));
    return *face;
}

} // namespace vorn
