#include "demo/qt_strings.h"

namespace vorn::demo {

QString ToQt(StringView text)
{
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

String FromQt(const QString& text)
{
    return text.toStdU16String();
}

} // namespace vorn::demo
