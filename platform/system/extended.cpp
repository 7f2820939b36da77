#include "platform/system/extended.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace vorn {

int TimesTenths(int value, int tenths)
{
    // Rounding 0.9 and 1.1 to 64 bits takes no product off a tie; other factors may.
    constexpr int base = 10;
    const std::int64_t product = std::int64_t{value} * tenths;
    const std::int64_t whole = product / base;
    const std::int64_t twice = 2 * std::llabs(product % base);
    const bool away = twice > base || (twice == base && whole % 2 != 0);
    const std::int64_t rounded = away ? whole + (product < 0 ? -1 : 1) : whole;
    return static_cast<int>(
        std::clamp<std::int64_t>(rounded, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
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
