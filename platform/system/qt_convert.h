#pragma once

// For the platform's own files: its values as the toolkit knows them. The one for colours is in graphics/painting.h.

#include "platform/system/types.h"

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QString>

namespace vorn {

inline QRect ToQRect(const TRect& r)
{
    return {r.Left, r.Top, r.Width(), r.Height()};
}
inline TRect FromQRect(const QRect& r)
{
    return Bounds(r.x(), r.y(), r.width(), r.height());
}
inline TPoint FromQPoint(const QPoint& p)
{
    return {p.x(), p.y()};
}
inline QPoint ToQPoint(const TPoint& p)
{
    return {p.X, p.Y};
}
inline QString ToQt(StringView text)
{
    // As it is: the toolkit takes a leading byte-order mark off UTF-16 that it converts.
    return QStringView(text.data(), static_cast<qsizetype>(text.size())).toString();
}
inline String FromQt(const QString& text)
{
    return String(reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size()));
}

} // namespace vorn
