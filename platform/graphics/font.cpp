#include "platform/graphics/font.h"

#include "platform/graphics/font_resolution.h"

#include <algorithm>
#include <limits>

namespace vorn {

namespace {

/// value * numerator / denominator, rounded to nearest with halves away from zero, within the range of int.
int MulDiv(std::int64_t value, int numerator, int denominator)
{
    const std::int64_t product = value * numerator;
    const std::int64_t half = product < 0 ? -denominator / 2 : denominator / 2;
    constexpr std::int64_t lowest = std::numeric_limits<int>::min();
    constexpr std::int64_t highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp((product + half) / denominator, lowest, highest));
}

} // namespace

void TFont::SetName(StringView name)
{
    if (name_ == name)
        return;
    name_ = name;
    FaceChanged();
}

int TFont::Size() const
{
    return MulDiv(-static_cast<std::int64_t>(height_), 72, 96);
}

void TFont::SetSize(int points)
{
    SetHeight(MulDiv(-static_cast<std::int64_t>(points), 96, 72));
}

void TFont::SetHeight(int pixels)
{
    if (height_ == pixels)
        return;
    height_ = pixels;
    FaceChanged();
}

void TFont::SetStyle(TFontStyles style)
{
    if (style_ == style)
        return;
    style_ = style;
    FaceChanged();
}

void TFont::SetColor(TColor color)
{
    if (color_ == color)
        return;
    color_ = color;
    Changed();
}

void TFont::SetCharset(std::uint8_t charset)
{
    if (charset_ == charset)
        return;
    charset_ = charset;
    Changed();
}

void TFont::Assign(const TPersistent& source)
{
    const auto* other = dynamic_cast<const TFont*>(&source);
    if (!other) {
        TPersistent::Assign(source);
        return;
    }
    if (*this == *other)
        return;
    name_ = other->name_;
    height_ = other->height_;
    color_ = other->color_;
    style_ = other->style_;
    charset_ = other->charset_;
    face_ = other->face_;
    Changed();
}

bool TFont::operator==(const TFont& other) const
{
    return height_ == other.height_ && color_ == other.color_ && style_ == other.style_ && charset_ == other.charset_
        && name_ == other.name_;
}

const QFont& TFont::Resolved() const
{
    return Face().font;
}

const FontFace& TFont::Face() const
{
    if (!face_)
        face_ = &ResolveFont(name_, height_, style_);
    return *face_;
}

void TFont::Changed()
{
    Raise(OnChange, this);
}

void TFont::FaceChanged()
{
    face_ = nullptr;
    Changed();
}

} // namespace vorn
