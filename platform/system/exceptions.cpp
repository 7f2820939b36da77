#include "platform/system/exceptions.h"

#include "platform/system/strings.h"

namespace vorn {

Exception::Exception(StringView message) : std::runtime_error(ToUtf8(message)), message_(message) {}

} // namespace vorn
