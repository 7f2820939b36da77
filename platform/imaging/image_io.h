#pragma once

#include "platform/imaging/bitmap.h"
#include "platform/system/stream.h"

namespace vorn {

/// Decodes the rest of the stream; the format is told from the content. False, and the bitmap as it was, for what
/// is empty, truncated, no picture, or larger than the allocation limit.
bool LoadBitmap(TStream& stream, TIEBitmap& bitmap);
/// The same from a file; without `fromContent` only the format that the name's ending says counts. Raises EStreamError
/// that names a file that isn't there, is a directory or can't be read.
bool LoadBitmapFromFile(StringView fileName, TIEBitmap& bitmap, bool fromContent);
/// Writes a PNG. Raises EStreamError that names the file.
void SaveBitmapAsPng(const TIEBitmap& bitmap, StringView fileName);

} // namespace vorn
