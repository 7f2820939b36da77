#pragma once

#include "platform/system/types.h"

namespace vorn {

/// Whether there is a file of this name; links are followed, a folder isn't a file.
bool FileExists(StringView fileName);

} // namespace vorn
