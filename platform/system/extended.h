#pragma once

namespace vorn {

/// `value` times `tenths` tenths, as 80-bit extended floats compute it: the factor and the product are each
/// rounded to 64 significant bits, the result to the nearest integer, ties to the even one. The same on every
/// processor. Stops at the ends of the 32-bit range. `tenths` is above 0.
int TimesTenths(int value, int tenths);

/// The nearest integer, ties to the even one, whatever rounding mode is set. Stops at the ends of the 32-bit
/// range; no number at all gives 0.
int RoundHalfEven(double value);

} // namespace vorn
