#include "demo/qt_strings.h"

namespace vorn::demo {

QString ToQt(StringView text)
{
    // As it is: the toolkit takes a leading byte-order mark off UTF-16 that it converts.
    return QStringView(text.data(), static_cast<qsizetype>(text.size())).toString();
}

String FromQt(const QString& text)
{
    return text.toStdU16String();
}

} // namespace vorn::demo
