#include "platform/system/files.h"

#include "platform/system/strings.h"

#include <filesystem>

namespace vorn {

bool FileExists(StringView fileName)
{
    std::error_code unknown; // what can't be looked at isn't there for us
    return std::filesystem::is_regular_file(std::filesystem::path(ToUtf8(fileName)), unknown);
}

} // namespace vorn
