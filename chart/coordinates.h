#pragma once

#include "platform/system/types.h"

namespace vorn {

inline constexpr int NaturalZoom = 100;

/// A chart position as it is shown at a zoom: multiplied in 32 bits, then truncated towards 0.
inline int Percent(int zoom, int value)
{
    return static_cast<int>(WrapMul(zoom, value) / 100.0);
}

} // namespace vorn
