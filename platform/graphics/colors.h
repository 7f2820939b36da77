#pragma once

#include "platform/system/types.h"

namespace vorn {

/// A colour as 0x00BBGGRR, red in the low byte, or one of the system colours below.
using TColor = std::uint32_t;

inline constexpr TColor clBlack = 0x000000;
inline constexpr TColor clRed = 0x0000FF;
inline constexpr TColor clBlue = 0xFF0000;
inline constexpr TColor clWhite = 0xFFFFFF;
inline constexpr TColor clWindow = 0x80000005;
inline constexpr TColor clWindowFrame = 0x80000006;
inline constexpr TColor clWindowText = 0x80000008;
inline constexpr TColor clBtnFace = 0x8000000F;
inline constexpr TColor clBtnShadow = 0x80000010;
inline constexpr TColor clGrayText = 0x80000011;
inline constexpr TColor clBtnHighlight = 0x80000014;
/// No colour: what is drawn with it can't be seen.
inline constexpr TColor clNone = 0x1FFFFFFF;

/// The plain 0x00BBGGRR of any colour. System colours are the same on every machine, so that a chart looks the same.
TColor ColorToRGB(TColor color);

} // namespace vorn
