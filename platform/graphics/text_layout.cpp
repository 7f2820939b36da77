#include "platform/graphics/text_layout.h"

#include <QHash>
#include <QRawFont>
#include <QTextBoundaryFinder>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <set>

namespace vorn {

namespace {

constexpr qsizetype maxPieceLength = 1024; // the text engine's lengths are 26.6 fixed point
constexpr int maxExtent = 1 << 28;

/// A stretch of text up to a line end, ready for shaping.
struct Paragraph {
    QString text;
    std::vector<qsizetype> underlined; // indices of marked characters, ascending
};

bool IsBlank(QChar c)
{
    return c == u' ' || c == u'\t';
}

/// What is shaped for a unit: nothing that would break a line or stand for something else gets through.
char16_t Printable(char16_t c, bool tabs)
{
    if (c == u'\t')
        return tabs ? u'\t' : u' ';
    if (c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029)
        return u' ';
    return c == 0xFFFC ? char16_t(0xFFFD) : c;
}

class ParagraphReader {
public:
    ParagraphReader(StringView text, unsigned flags)
        : text_(text), tabs_((flags & DT_EXPANDTABS) != 0), prefixes_((flags & DT_NOPREFIX) == 0)
    {
    }

    bool AtEnd() const { return at_ >= text_.size(); }

    Paragraph Next()
    {
        Paragraph paragraph;
        while (!AtEnd()) {
            const char16_t c = text_[at_++];
            if (c == u'\n')
                break;
            if (c == u'\r') {
                at_ += !AtEnd() && text_[at_] == u'\n';
                break;
            }
            if (c == u'&' && prefixes_)
                TakePrefixed(paragraph);
            else
                Take(paragraph, c);
        }
        return paragraph;
    }

private:
    void TakePrefixed(Paragraph& paragraph)
    {
        if (AtEnd() || text_[at_] == u'\r' || text_[at_] == u'\n')
            return;
        if (text_[at_] != u'&')
            paragraph.underlined.push_back(paragraph.text.size());
        Take(paragraph, text_[at_++]);
    }

    void Take(Paragraph& paragraph, char16_t c)
    {
        if (QChar::isHighSurrogate(c) && !AtEnd() && QChar::isLowSurrogate(text_[at_])) {
            paragraph.text.append(QChar(c));
            paragraph.text.append(QChar(text_[at_++]));
        } else {
            paragraph.text.append(QChar::isSurrogate(c) ? QChar(0xFFFD) : QChar(Printable(c, tabs_)));
        }
    }

    StringView text_;
    std::size_t at_ = 0;
    bool tabs_;
    bool prefixes_;
};

/// Shapes single lines of one font.
class LineShaper {
public:
    explicit LineShaper(const FontFace& face) : face_(face) {}

    TextLine Shape(const Paragraph& paragraph, qsizetype from, qsizetype to) const
    {
        TextLine line;
        Pen pen;
        for (qsizetype at = from; at < to;) {
            if (paragraph.text[at] == u'\t') {
                pen.x = std::min<std::int64_t>(maxExtent, (pen.x / face_.tabWidth + 1) * face_.tabWidth);
                ++at;
                continue;
            }
            const qsizetype end = PieceEnd(paragraph.text, at, to);
            ShapePiece(paragraph, at, end, pen, line);
            at = end;
        }
        line.width = static_cast<int>(std::min<std::int64_t>(maxExtent, std::max(pen.x, pen.inkRight)));
        if (pen.inkLeft < 0)
            MoveRight(line, static_cast<int>(-pen.inkLeft));
        return line;
    }

    /// How far the units before each index advance together, tabs aside. The difference of two is about the width
    /// of what lies between.
    std::vector<double> Advances(const Paragraph& paragraph) const
    {
        const qsizetype size = paragraph.text.size();
        std::vector<double> sums{0};
        sums.reserve(static_cast<std::size_t>(size) + 1);
        while (std::ssize(sums) <= size) {
            const qsizetype from = std::ssize(sums) - 1;
            if (paragraph.text[from] == u'\t') {
                sums.push_back(sums.back());
                continue;
            }
            const qsizetype end = PieceEnd(paragraph.text, from, size);
            QTextLayout layout(paragraph.text.mid(from, end - from), face_.shaping);
            const QTextLine shaped = LayOut(layout);
            for (int i = 0; i < end - from; ++i)
                sums.push_back(sums.back() + std::abs(shaped.cursorToX(i + 1) - shaped.cursorToX(i)));
        }
        return sums;
    }

    int LineHeight() const { return face_.lineHeight; }

    int Width(const Paragraph& paragraph, qsizetype from, qsizetype to) const
    {
        return Shape(paragraph, from, to).width;
    }

private:
    struct Pen {
        std::int64_t x = 0;
        std::int64_t inkLeft = 0;
        std::int64_t inkRight = 0;
    };

    static qsizetype PieceEnd(const QString& text, qsizetype from, qsizetype to)
    {
        const qsizetype limit = std::min(to, from + maxPieceLength);
        qsizetype end = from;
        while (end < limit && text[end] != u'\t')
            ++end;
        if (end < to && end - from > 1 && text[end].isLowSurrogate())
            --end;
        return end;
    }

    static QTextLine LayOut(QTextLayout& layout)
    {
        QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
        option.setWrapMode(QTextOption::NoWrap);
        option.setTextDirection(Qt::LeftToRight);
        option.setFlags(QTextOption::IncludeTrailingSpaces);
        layout.setTextOption(option);
        layout.beginLayout();
        QTextLine line = layout.createLine();
        line.setLineWidth(maxExtent / 64);
        layout.endLayout();
        return line;
    }

    void ShapePiece(const Paragraph& paragraph, qsizetype from, qsizetype to, Pen& pen, TextLine& line) const
    {
        QTextLayout layout(paragraph.text.mid(from, to - from), face_.shaping);
        const QTextLine shaped = LayOut(layout);
        TextPiece piece;
        piece.runs = layout.glyphRuns();
        piece.x = static_cast<int>(std::min<std::int64_t>(pen.x, maxExtent));
        piece.y = face_.ascent - shaped.ascent();
        for (const qsizetype index : paragraph.underlined)
            if (index >= from && index < to)
                line.marks.push_back(Mark(shaped, static_cast<int>(index - from), piece.x));
        AddInk(piece, pen);
        pen.x += static_cast<std::int64_t>(std::ceil(shaped.naturalTextWidth()));
        line.pieces.push_back(std::move(piece));
    }

    static TextRule Mark(const QTextLine& shaped, int index, int x)
    {
        const auto [from, to] = std::minmax({shaped.cursorToX(index), shaped.cursorToX(index + 1)});
        const int left = static_cast<int>(std::floor(from));
        return {x + left, static_cast<int>(std::ceil(to)) - left};
    }

    void AddInk(const TextPiece& piece, Pen& pen) const
    {
        for (const QGlyphRun& run : piece.runs) {
            const QRawFont font = run.rawFont();
            QHash<quint32, QRectF>& boxes = inkBoxes_[font];
            const QList<quint32> glyphs = run.glyphIndexes();
            const QList<QPointF> positions = run.positions();
            for (qsizetype i = 0; i < glyphs.size(); ++i) {
                auto box = boxes.find(glyphs[i]);
                if (box == boxes.end())
                    box = boxes.insert(glyphs[i], font.boundingRect(glyphs[i]));
                const QRectF& ink = *box;
                if (ink.isEmpty())
                    continue;
                const double left = piece.x + positions[i].x() + ink.left();
                pen.inkLeft = std::min(pen.inkLeft, static_cast<std::int64_t>(std::floor(left)));
                const double right = left + ink.width();
                pen.inkRight = std::max(pen.inkRight, static_cast<std::int64_t>(std::ceil(right)));
            }
        }
    }

    static void MoveRight(TextLine& line, int distance)
    {
        for (TextPiece& piece : line.pieces)
            piece.x += distance;
        for (TextRule& mark : line.marks)
            mark.x += distance;
        line.width += distance;
    }

    const FontFace& face_;
    mutable QHash<QRawFont, QHash<quint32, QRectF>> inkBoxes_; // large glyphs are slow to ask
};

/// Breaks a paragraph into lines, each as long as fits.
///
/// Taking the longest fit makes the breaks stable: in the width of its widest line, the text breaks alike.
class LineBreaker {
public:
    LineBreaker(const LineShaper& shaper, const Paragraph& paragraph, int width)
        : shaper_(shaper), paragraph_(paragraph), width_(width), advances_(shaper.Advances(paragraph))
    {
        const QString& text = paragraph.text;
        for (qsizetype at = 1; at < text.size(); ++at)
            if (IsBlank(text[at]) && !IsBlank(text[at - 1]))
                wordEnds_.push_back(at);
        wordEnds_.push_back(text.size());
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
        while (finder.toNextBoundary() >= 0)
            characterEnds_.push_back(finder.position());
    }

    void AppendTo(std::vector<TextLine>& lines) const
    {
        const qsizetype size = paragraph_.text.size();
        qsizetype from = 0;
        do {
            qsizetype to = LastFit(from, wordEnds_);
            if (to == from)
                to = LastFit(from, characterEnds_);
            if (to == from)
                to = *std::upper_bound(characterEnds_.begin(), characterEnds_.end(), from);
            lines.push_back(shaper_.Shape(paragraph_, from, to));
            from = to;
            while (from < size && IsBlank(paragraph_.text[from]))
                ++from;
        } while (from < size);
    }

private:
    /// The last of the ends that fits; `from` if none does. Ends too far away by their advance aren't tried.
    qsizetype LastFit(qsizetype from, const std::vector<qsizetype>& ends) const
    {
        const double reach = advances_[static_cast<std::size_t>(from)] + width_ + 2.0 * shaper_.LineHeight();
        const auto first = std::upper_bound(ends.begin(), ends.end(), from);
        auto end = std::partition_point(
            first, ends.end(), [&](qsizetype at) { return advances_[static_cast<std::size_t>(at)] <= reach; });
        while (end != first)
            if (--end; shaper_.Width(paragraph_, from, *end) <= width_)
                return *end;
        return from;
    }

    const LineShaper& shaper_;
    const Paragraph& paragraph_;
    int width_;
    std::vector<double> advances_;
    std::vector<qsizetype> wordEnds_;      // ascending, the last is the paragraph's
    std::vector<qsizetype> characterEnds_; // likewise
};

/// The width of the widest character: no line can be narrower, so none is asked to be.
int WidestCharacter(const LineShaper& shaper, const std::vector<Paragraph>& paragraphs)
{
    int widest = 0;
    std::set<QString> seen;
    for (const Paragraph& paragraph : paragraphs) {
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, paragraph.text);
        for (qsizetype from = 0, to = 0; (to = finder.toNextBoundary()) >= 0; from = to) {
            Paragraph character{paragraph.text.mid(from, to - from), {}};
            if (seen.insert(character.text).second)
                widest = std::max(widest, shaper.Width(character, 0, character.text.size()));
        }
    }
    return widest;
}

} // namespace

TextLayout::TextLayout(const FontFace& face, StringView text, unsigned flags, int wrapWidth) : face_(&face)
{
    std::vector<Paragraph> paragraphs;
    for (ParagraphReader reader(text, flags); !reader.AtEnd();)
        paragraphs.push_back(reader.Next());

    const LineShaper shaper(face);
    const bool wraps = (flags & DT_WORDBREAK) != 0;
    if (wraps)
        wrapWidth = std::max(wrapWidth, WidestCharacter(shaper, paragraphs));
    for (const Paragraph& paragraph : paragraphs) {
        TextLine whole = shaper.Shape(paragraph, 0, paragraph.text.size());
        if (wraps && whole.width > wrapWidth)
            LineBreaker(shaper, paragraph, wrapWidth).AppendTo(lines_);
        else
            lines_.push_back(std::move(whole));
    }
    AlignLines(flags);
}

void TextLayout::AlignLines(unsigned flags)
{
    for (const TextLine& line : lines_)
        width_ = std::max(width_, line.width);
    for (TextLine& line : lines_) {
        if ((flags & DT_CENTER) != 0)
            line.x = (width_ - line.width) / 2;
        else if ((flags & DT_RIGHT) != 0)
            line.x = width_ - line.width;
    }
    const auto height = static_cast<std::int64_t>(lines_.size()) * face_->lineHeight;
    height_ = static_cast<int>(std::min<std::int64_t>(height, maxExtent));
}

} // namespace vorn
