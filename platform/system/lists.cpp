#include "platform/system/lists.h"

#include "platform/system/strings.h"

namespace vorn {

void RaiseListIndex(int index, int count)
{
    throw EListError(u"List index out of bounds: " + IntToStr(index) + u" with " + IntToStr(count) + u" items");
}

} // namespace vorn
