#pragma once

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
inline QString ToQString(StringView text)
{
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace vorn
