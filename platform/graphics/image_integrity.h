#pragma once

#include <cstddef>
#include <span>

namespace vorn {

/// Whether an encoded picture goes on to its own end. Decoders give half a picture for some formats when the
/// content stops early; for formats that this doesn't know, and for those whose decoders tell, it says yes.
bool IsComplete(std::span<const std::byte> encoded);

} // namespace vorn
