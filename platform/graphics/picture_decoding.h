#pragma once

// For the platform's own files: the one way to decode a picture. Formats are named as the toolkit names them; none is
// told from the content.

#include "platform/system/types.h"

class QByteArray;
class QImage;
class QIODevice;

namespace vorn {

/// A gigabyte at 32 bits each.
constexpr std::int64_t MostPicturePixels = std::int64_t{1} << 28;

/// By the header alone: a picture of no more than MostPicturePixels.
bool LooksDecodable(QIODevice& device, const QByteArray& format);
/// Upright, the first frame of an animation. A null image, and the reason in `why`, for what is empty, cut short, no
/// picture or too large. What the application allows the toolkit's own readers doesn't count here and stays.
QImage DecodePicture(const QByteArray& encoded, const QByteArray& format, String& why);

} // namespace vorn
