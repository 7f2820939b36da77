#pragma once

#include "platform/graphics/font.h"
#include "platform/system/stream.h"

#include <memory>

namespace vorn {

/// Sets a font from its text form "name,size,styles," where styles are four characters for bold, italic, underline and
/// strikeout, "1" for on. What is missing at the end stays as it was. Raises EConvertError for a size that is no
/// number; the name is set by then.
void LoadFontFromString(StringView text, TFont& Font);

/// Writes charset, colour, height, size and name, 32-bit little-endian numbers and UTF-16; the style isn't kept.
void SaveFontToStream(TStream& Stream, const TFont& Font);
/// Reads what SaveFontToStream wrote. The caller owns the font.
std::unique_ptr<TFont> LoadFontFromStream(TStream& Stream);

} // namespace vorn
