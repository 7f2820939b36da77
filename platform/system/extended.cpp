#include "platform/system/extended.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace vorn {

namespace {

constexpr int Precision = 64; // significant bits of an extended float

/// mantissa * 2^-scale, the mantissa's top bit set.
struct Extended {
    std::uint64_t mantissa = 0;
    int scale = 0;
};

/// `quotient` with a remainder that `twice` is the double of: to nearest, ties to even. May carry out to 0.
std::uint64_t Rounded(std::uint64_t quotient, std::uint64_t twice, std::uint64_t divisor)
{
    return quotient + (twice > divisor || (twice == divisor && quotient % 2 == 1) ? 1 : 0);
}

/// value / 2^shift, to nearest, ties to even. `shift` is from 1 to 64.
std::uint64_t ShiftedRight(std::uint64_t value, int shift)
{
    const std::uint64_t quotient = shift == 64 ? 0 : value >> shift;
    const std::uint64_t half = std::uint64_t{1} << (shift - 1);
    const std::uint64_t rest = value & (half - 1 + half);
    return quotient + (rest > half || (rest == half && quotient % 2 == 1) ? 1 : 0);
}

/// tenths / 10 by long division.
Extended FactorOf(int tenths)
{
    auto rest = static_cast<std::uint64_t>(tenths);
    std::uint64_t divisor = 10;
    int scale = Precision - 1;
    for (; rest < divisor; ++scale)
        rest *= 2;
    for (; rest >= 2 * divisor; --scale)
        divisor *= 2;
    std::uint64_t mantissa = 0;
    for (int bit = 0; bit < Precision; ++bit) {
        const bool one = rest >= divisor;
        mantissa = mantissa * 2 + (one ? 1 : 0);
        rest = (rest - (one ? divisor : 0)) * 2;
    }
    // No fraction of tenths lies so near to a power of two that this carries.
    return {Rounded(mantissa, rest, divisor), scale};
}

/// `value` times `factor`, rounded to 64 bits.
Extended Product(std::uint32_t value, const Extended& factor)
{
    const std::uint64_t low = (factor.mantissa & 0xFFFFFFFF) * value;
    const std::uint64_t high = (factor.mantissa >> 32) * value + (low >> 32);
    // The product is `high` and, below it, 32 bits of `low`.
    const int extra = Precision / 2 - std::countl_zero(high);
    if (extra <= 0)
        return {high << 32 | (low & 0xFFFFFFFF), factor.scale};
    const std::uint64_t dropped = low & ((std::uint64_t{1} << extra) - 1);
    const std::uint64_t kept = high << (32 - extra) | (low & 0xFFFFFFFF) >> extra;
    const std::uint64_t rounded = Rounded(kept, 2 * dropped, std::uint64_t{1} << extra);
    if (rounded == 0)
        return {std::uint64_t{1} << (Precision - 1), factor.scale - extra - 1};
    return {rounded, factor.scale - extra};
}

int Limited(bool negative, std::uint64_t magnitude)
{
    constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<int>::max());
    if (magnitude > most)
        return negative ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    const int value = static_cast<int>(magnitude);
    return negative ? -value : value;
}

} // namespace

int TimesTenths(int value, int tenths)
{
    if (value == 0 || tenths <= 0)
        return 0;
    const bool negative = value < 0;
    const auto magnitude = static_cast<std::uint32_t>(negative ? -static_cast<std::int64_t>(value) : value);
    const Extended product = Product(magnitude, FactorOf(tenths));
    if (product.scale <= 0)
        return Limited(negative, std::numeric_limits<std::uint64_t>::max());
    return Limited(negative, product.scale > Precision ? 0 : ShiftedRight(product.mantissa, product.scale));
}

int RoundHalfEven(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    const double below = std::floor(value);
    const double fraction = value - below; // exact: both are near each other
    const int integer = static_cast<int>(below);
    return fraction > 0.5 || (fraction == 0.5 && integer % 2 != 0) ? integer + 1 : integer;
}

} // namespace vorn
