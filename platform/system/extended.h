#pragma once

namespace vorn {

/// `value` times 0.9 or 1.1, for 9 or 11 `tenths`: what 80-bit extended floats give, ties going to the even integer.
/// Stops at the ends of the 32-bit range.
int TimesTenths(int value, int tenths);

/// The nearest integer, ties to the even one, whatever rounding mode is set. Stops at the ends of the 32-bit
/// range; no number at all gives 0.
int RoundHalfEven(double value);

} // namespace vorn
