#include "platform/system/types.h"

#include <algorithm>

namespace vorn {

void OffsetRect(TRect& r, int dx, int dy)
{
    r = {WrapAdd(r.Left, dx), WrapAdd(r.Top, dy), WrapAdd(r.Right, dx), WrapAdd(r.Bottom, dy)};
}

TRect UnionRect(const TRect& a, const TRect& b)
{
    if (a.IsEmpty())
        return b.IsEmpty() ? TRect{} : b;
    if (b.IsEmpty())
        return a;
    return {std::min(a.Left, b.Left), std::min(a.Top, b.Top), std::max(a.Right, b.Right), std::max(a.Bottom, b.Bottom)};
}

TRect IntersectRect(const TRect& a, const TRect& b)
{
    const TRect common{
        std::max(a.Left, b.Left), std::max(a.Top, b.Top), std::min(a.Right, b.Right), std::min(a.Bottom, b.Bottom)};
    return common.IsEmpty() ? TRect{} : common;
}

} // namespace vorn
