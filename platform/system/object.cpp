#include "platform/system/object.h"

#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <typeindex>
#include <typeinfo>
#include <unordered_map>

namespace vorn {

namespace {

String PlainName(const std::type_info& type)
{
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> name(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), std::free);
    std::string text = status == 0 ? name.get() : type.name();
    const std::size_t scope = text.rfind("::", text.find('<'));
    if (scope != std::string::npos)
        text.erase(0, scope + 2);
    return FromUtf8(text);
}

} // namespace

StringView TObject::ClassName() const
{
    static std::unordered_map<std::type_index, String> names;
    const auto [place, isNew] = names.try_emplace(typeid(*this));
    if (isNew)
        place->second = PlainName(typeid(*this));
    return place->second;
}

void TPersistent::Assign(const TPersistent& source)
{
    if (&source != this)
        source.AssignTo(*this);
}

void TPersistent::AssignTo(TPersistent& dest) const
{
    throw EConvertError(u"Cannot assign a " + String(ClassName()) + u" to a " + String(dest.ClassName()));
}

} // namespace vorn
