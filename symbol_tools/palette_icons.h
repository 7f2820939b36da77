#pragma once

#include "platform/system/types.h"

#include <span>

namespace vorn {

/// A PNG of 16 by 16 pixels with alpha.
struct PaletteIcon {
    StringView Name;
    std::span<const unsigned char> Png;
};

/// The icons of the palette in the order of their image indexes.
std::span<const PaletteIcon> PaletteIcons();

} // namespace vorn
