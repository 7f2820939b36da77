#pragma once

#include "platform/system/types.h"

#include <QString>

namespace vorn::demo {

QString ToQt(StringView text);
String FromQt(const QString& text);

} // namespace vorn::demo
