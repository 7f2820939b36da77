#include "platform/graphics/colors.h"

#include <array>

namespace vorn {

namespace {

constexpr TColor systemMark = 0x80000000;

constexpr TColor Rgb(unsigned red, unsigned green, unsigned blue)
{
    return red | green << 8 | blue << 16;
}

// In the order of the system colours' numbers.
constexpr std::array<TColor, 25> systemColors = {
    Rgb(200, 200, 200), // scroll bar
    Rgb(0, 0, 0),       // desktop
    Rgb(153, 180, 209), // active caption
    Rgb(191, 205, 219), // inactive caption
    Rgb(240, 240, 240), // menu
    Rgb(255, 255, 255), // window
    Rgb(100, 100, 100), // window frame
    Rgb(0, 0, 0),       // menu text
    Rgb(0, 0, 0),       // window text
    Rgb(0, 0, 0),       // caption text
    Rgb(180, 180, 180), // active border
    Rgb(244, 247, 252), // inactive border
    Rgb(171, 171, 171), // workspace
    Rgb(0, 120, 215),   // highlight
    Rgb(255, 255, 255), // highlighted text
    Rgb(240, 240, 240), // button face
    Rgb(160, 160, 160), // button shadow
    Rgb(109, 109, 109), // grey text
    Rgb(0, 0, 0),       // button text
    Rgb(0, 0, 0),       // inactive caption text
    Rgb(255, 255, 255), // button highlight
    Rgb(105, 105, 105), // dark shadow
    Rgb(227, 227, 227), // light edge
    Rgb(0, 0, 0),       // hint text
    Rgb(255, 255, 225), // hint
};

} // namespace

TColor ColorToRGB(TColor color)
{
    if ((color & systemMark) != 0) {
        const TColor number = color & 0xFF;
        return number < systemColors.size() ? systemColors[number] : clBlack;
    }
    return color & 0xFFFFFF;
}

} // namespace vorn
