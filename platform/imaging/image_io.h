#pragma once

#include "platform/imaging/bitmap.h"
#include "platform/system/stream.h"

namespace vorn {

/// Decodes the rest of the stream; the format is told from the content. False, and the bitmap as it was, for what
/// is empty, truncated, no picture, or larger than the allocation limit.
bool LoadBitmap(TStream& stream, TIEBitmap& bitmap);
/// Writes a PNG. Raises EStreamError that names the file.
void SaveBitmapAsPng(const TIEBitmap& bitmap, StringView fileName);

} // namespace vorn
