#include "platform/graphics/text_cache.h"

#include <QColor>
#include <QPainter>

#include <memory>

namespace vorn {

namespace {

constexpr std::size_t maxEntries = 4096;
constexpr std::size_t maxCachedLength = 1024;
constexpr std::size_t maxColors = 4;
constexpr std::int64_t maxImagePixels = 256 * 1024;
constexpr std::int64_t maxCachedPixels = 8 * 1024 * 1024;

constexpr unsigned layoutFlags = DT_CENTER | DT_RIGHT | DT_EXPANDTABS | DT_NOPREFIX;

std::int64_t cachedPixels = 0;

struct KeyView {
    const FontFace* face;
    unsigned flags;
    int width;
    StringView text;
};

struct Key {
    const FontFace* face;
    unsigned flags;
    int width;
    String text;

    operator KeyView() const { return {face, flags, width, text}; }
};

struct KeyHash {
    using is_transparent = void;
    std::size_t operator()(const KeyView& key) const
    {
        std::size_t hash = std::hash<StringView>()(key.text);
        hash ^= (reinterpret_cast<std::size_t>(key.face) >> 4) * 0x9E3779B97F4A7C15u;
        const auto flags = static_cast<std::size_t>(key.flags);
        const std::size_t shape = flags << 32 | static_cast<unsigned>(key.width);
        return hash ^ shape * 0xC2B2AE3D27D4EB4Fu;
    }
};

struct KeyEqual {
    using is_transparent = void;
    bool operator()(const KeyView& a, const KeyView& b) const
    {
        return a.face == b.face && a.flags == b.flags && a.width == b.width && a.text == b.text;
    }
};

using Cache = std::unordered_map<Key, CachedText, KeyHash, KeyEqual>;

CachedText& Find(const KeyView& key)
{
    // Never freed: at the end of the process the font system may be gone before it.
    static Cache& cache = *new Cache;
    const auto found = cache.find(key);
    if (found != cache.end())
        return found->second;
    if (cache.size() >= maxEntries || cachedPixels > maxCachedPixels) {
        cache.clear();
        cachedPixels = 0;
    }
    CachedText entry(TextLayout(*key.face, key.text, key.flags, key.width));
    Key stored{key.face, key.flags, key.width, String(key.text)};
    return cache.emplace(std::move(stored), std::move(entry)).first->second;
}

CachedText& Make(const KeyView& key)
{
    static std::unique_ptr<CachedText>& last = *new std::unique_ptr<CachedText>;
    last = std::make_unique<CachedText>(TextLayout(*key.face, key.text, key.flags, key.width));
    return *last;
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

bool CachedText::HasImages() const
{
    return static_cast<std::int64_t>(layout_.Width()) * layout_.Height() <= maxImagePixels;
}

const QImage& CachedText::Image(QRgb color)
{
    for (const Painted& painted : images_)
        if (painted.color == color)
            return painted.image;
    QImage image(layout_.Width(), layout_.Height(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (!image.isNull()) {
        QPainter painter(&image);
        DrawGlyphs(painter, layout_, 0, 0, color);
    }
    if (images_.size() < maxColors) {
        cachedPixels += static_cast<std::int64_t>(layout_.Width()) * layout_.Height();
        images_.push_back({color, std::move(image)});
        return images_.back().image;
    }
    Painted& replaced = images_[oldest_];
    oldest_ = (oldest_ + 1) % maxColors;
    replaced = {color, std::move(image)};
    return replaced.image;
}

CachedText& LaidOut(const FontFace& face, StringView text, unsigned flags, int width)
{
    const auto find = text.size() <= maxCachedLength ? Find : Make;
    // A text that fits unbroken is one entry whatever the width.
    CachedText& unbroken = find({&face, flags & layoutFlags, 0, text});
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
