#include "utils/xdfUtils.h"

#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <algorithm>
#include <optional>

namespace vorn {

namespace {

template <typename List>
bool Holds(const List& list, StringView text, bool ignoreCase)
{
    return std::any_of(std::begin(list), std::end(list),
        [&](StringView element) { return element == text || (ignoreCase && CompareText(element, text) == 0); });
}

std::optional<bool> TryStrToBool(StringView text)
{
    if (InStringList(text, {u"1", u"True", u"T", u"Y", u"Yes"}, true))
        return true;
    if (InStringList(text, {u"0", u"False", u"F", u"N", u"No"}, true))
        return false;
    return std::nullopt;
}

} // namespace

String BoolToStr(bool value)
{
    return ifOp(value, u"T", u"F");
}

bool StrToBool(StringView text)
{
    const auto value = TryStrToBool(text);
    if (!value)
        throw EConvertError(u"'" + String(text) + u"' is not a valid boolean value.");
    return *value;
}

bool StrToBoolDef(StringView text, bool byDefault)
{
    return TryStrToBool(text).value_or(byDefault);
}

bool InStringList(StringView text, std::initializer_list<StringView> list, bool ignoreCase)
{
    return Holds(list, text, ignoreCase);
}

bool InStringList(StringView text, std::span<const String> list, bool ignoreCase)
{
    return Holds(list, text, ignoreCase);
}

std::int32_t ifOp(bool condition, std::int32_t yes, std::int32_t no)
{
    return condition ? yes : no;
}

std::int64_t ifOp(bool condition, std::int64_t yes, std::int64_t no)
{
    return condition ? yes : no;
}

String ifOp(bool condition, String yes, String no)
{
    return condition ? std::move(yes) : std::move(no);
}

TObject* ifOp(bool condition, TObject* yes, TObject* no)
{
    return condition ? yes : no;
}

} // namespace vorn
