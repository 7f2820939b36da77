#include "platform/system/object.h"

#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <typeinfo>

namespace vorn {

namespace {

String ClassName(const TPersistent& object)
{
    const char* mangled = typeid(object).name();
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> name(abi::__cxa_demangle(mangled, nullptr, nullptr, &status),
                                                      std::free);
    std::string text = status == 0 ? name.get() : mangled;
    if (text.starts_with("vorn::"))
        text.erase(0, 6);
    return FromUtf8(text);
}

} // namespace

void TPersistent::Assign(const TPersistent& source)
{
    if (&source != this)
        source.AssignTo(*this);
}

void TPersistent::AssignTo(TPersistent& dest) const
{
    throw EConvertError(u"Cannot assign a " + ClassName(*this) + u" to a " + ClassName(dest));
}

} // namespace vorn
