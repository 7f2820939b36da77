#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vorn {

/// Text is UTF-16; one character is one 16-bit unit wherever the system counts characters.
using String = std::u16string;
using StringView = std::u16string_view;

/// Days since 1899-12-30; the fraction is the time of day. 0 stands for "no date".
using TDateTime = double;
using TDate = double;

/// A point in whichever space its holder names; pixels.
struct TPoint {
    int X = 0;
    int Y = 0;
    friend bool operator==(const TPoint&, const TPoint&) = default;
};

/// A rectangle; Right and Bottom lie outside it.
struct TRect {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    int Width() const { return Right - Left; }
    int Height() const { return Bottom - Top; }
    bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
    friend bool operator==(const TRect&, const TRect&) = default;
};

/// True for a point on the left or top edge, false for one on the right or bottom edge.
inline bool PtInRect(const TRect& r, const TPoint& p)
{
    return r.Left <= p.X && p.X < r.Right && r.Top <= p.Y && p.Y < r.Bottom;
}

/// Moves `r`; wraps around at the ends of the 32-bit range instead of overflowing.
void OffsetRect(TRect& r, int dx, int dy);
/// The smallest rectangle that holds both; an empty one adds nothing.
TRect UnionRect(const TRect& a, const TRect& b);
/// The common part, or the zero rectangle.
TRect IntersectRect(const TRect& a, const TRect& b);

/// 32-bit arithmetic that wraps around: stored coordinates are unchecked input.
inline int WrapAdd(int a, int b)
{
    return static_cast<int>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
inline int WrapSub(int a, int b)
{
    return static_cast<int>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}
inline int WrapMul(int a, int b)
{
    return static_cast<int>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

inline TRect Bounds(int left, int top, int width, int height)
{
    return {left, top, WrapAdd(left, width), WrapAdd(top, height)};
}

} // namespace vorn
