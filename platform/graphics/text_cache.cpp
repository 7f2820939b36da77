#include "platform/graphics/text_cache.h"

#include <QCache>
#include <QColor>
#include <QPainter>

#include <memory>

namespace vorn {

namespace {

constexpr std::size_t maxCachedLength = 1024;
constexpr std::int64_t maxImagePixels = 256 * 1024;
constexpr qsizetype maxLayoutBytes = 16 * 1024 * 1024;
constexpr qsizetype maxPictureBytes = 32 * 1024 * 1024;

// What the containers take around their contents, in bytes, as measured.
constexpr std::size_t entryOverhead = 160;
constexpr std::size_t runOverhead = 288;
constexpr std::size_t pictureOverhead = 320;

constexpr unsigned layoutFlags = DT_CENTER | DT_RIGHT | DT_EXPANDTABS | DT_NOPREFIX;

/// The text is that of the entry, or of whoever asks for one.
struct LayoutKey {
    const FontFace* face;
    unsigned flags;
    int width;
    StringView text;

    friend bool operator==(const LayoutKey&, const LayoutKey&) = default;
    friend std::size_t qHash(const LayoutKey& key, std::size_t seed)
    {
        const std::size_t shape = static_cast<std::size_t>(key.flags) << 32 | static_cast<unsigned>(key.width);
        return qHashMulti(seed, std::hash<StringView>()(key.text), key.face, shape);
    }
};

struct PictureKey {
    std::uint64_t text;
    QRgb color;

    friend bool operator==(const PictureKey&, const PictureKey&) = default;
    friend std::size_t qHash(const PictureKey& key, std::size_t seed) { return qHashMulti(seed, key.text, key.color); }
};

// Never freed: at the end of the process the font system may be gone before them.
QCache<LayoutKey, CachedText>& Layouts()
{
    static auto& cache = *new QCache<LayoutKey, CachedText>(maxLayoutBytes);
    return cache;
}

QCache<PictureKey, QImage>& Pictures()
{
    static auto& cache = *new QCache<PictureKey, QImage>(maxPictureBytes);
    return cache;
}

const CachedText& Make(const LayoutKey& key)
{
    static std::unique_ptr<CachedText>& last = *new std::unique_ptr<CachedText>;
    last = std::make_unique<CachedText>(*key.face, key.flags, key.width, key.text);
    return *last;
}

const CachedText& Find(const LayoutKey& key)
{
    static std::uint64_t entries = 0;
    if (const CachedText* known = Layouts().object(key))
        return *known;
    auto entry = std::make_unique<CachedText>(*key.face, key.flags, key.width, key.text);
    entry->SetPictures(++entries);
    const CachedText& made = *entry;
    const LayoutKey own{key.face, key.flags, key.width, made.Text()};
    const auto held = static_cast<qsizetype>(made.Held());
    return Layouts().insert(own, entry.release(), held) ? made : Make(key);
}

void DrawLine(QPainter& painter, const FontFace& face, const TextLine& line, int left, int top, const QColor& color)
{
    for (const TextPiece& piece : line.pieces)
        for (const QGlyphRun& run : piece.runs)
            painter.drawGlyphRun(QPointF(left + piece.x, top + piece.y), run);
    for (const TextRule& mark : line.marks)
        painter.fillRect(left + mark.x, top + face.underlineTop, mark.width, face.ruleHeight, color);
    if (face.underlined)
        painter.fillRect(left, top + face.underlineTop, line.width, face.ruleHeight, color);
    if (face.struckOut)
        painter.fillRect(left, top + face.strikeOutTop, line.width, face.ruleHeight, color);
}

} // namespace

CachedText::CachedText(const FontFace& face, unsigned flags, int width, StringView text)
    : text_(text), layout_(face, text, flags, width)
{
}

bool CachedText::HasImages() const
{
    return static_cast<std::int64_t>(layout_.Width()) * layout_.Height() <= maxImagePixels;
}

QImage CachedText::Image(QRgb color) const
{
    const PictureKey key{pictures_, color};
    if (const QImage* known = pictures_ != 0 ? Pictures().object(key) : nullptr)
        return *known;
    QImage image(layout_.Width(), layout_.Height(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (!image.isNull()) {
        QPainter painter(&image);
        DrawGlyphs(painter, layout_, 0, 0, color);
    }
    if (pictures_ != 0) // a copy: an image that was painted on keeps its painter's engine
        Pictures().insert(key, new QImage(image.copy()), image.sizeInBytes() + static_cast<qsizetype>(pictureOverhead));
    return image;
}

std::size_t CachedText::Held() const
{
    const auto bytes = [](const auto& list) { return static_cast<std::size_t>(list.capacity()) * sizeof(list[0]); };
    std::size_t held = entryOverhead + sizeof(CachedText) + bytes(text_) + bytes(layout_.Lines());
    for (const TextLine& line : layout_.Lines()) {
        held += bytes(line.pieces) + bytes(line.marks);
        for (const TextPiece& piece : line.pieces) {
            held += bytes(piece.runs);
            for (const QGlyphRun& run : piece.runs)
                held += runOverhead + bytes(run.glyphIndexes()) + bytes(run.positions());
        }
    }
    return held;
}

const CachedText& LaidOut(const FontFace& face, StringView text, unsigned flags, int width)
{
    const auto find = text.size() <= maxCachedLength ? Find : Make;
    // A text that fits unbroken is one entry whatever the width.
    const CachedText& unbroken = find({&face, flags & layoutFlags, 0, text});
    if ((flags & DT_WORDBREAK) == 0 || unbroken.Layout().Width() <= width)
        return unbroken;
    return find({&face, (flags & layoutFlags) | DT_WORDBREAK, width, text});
}

void DrawGlyphs(QPainter& painter, const TextLayout& layout, int x, int y, QRgb color)
{
    const QColor pen(color);
    painter.setPen(pen);
    int top = y;
    for (const TextLine& line : layout.Lines()) {
        DrawLine(painter, layout.Face(), line, x + line.x, top, pen);
        top += layout.Face().lineHeight;
    }
}

} // namespace vorn
