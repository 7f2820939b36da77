#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

namespace vorn {

namespace {

String FormatOne(char16_t kind, const FormatArg& arg, StringView format)
{
    if (kind == u'd') {
        if (const auto* number = std::get_if<int>(&arg))
            return IntToStr(*number);
        if (const auto* number = std::get_if<std::int64_t>(&arg))
            return IntToStr(*number);
    } else if (kind == u's') {
        if (const auto* text = std::get_if<StringView>(&arg))
            return String(*text);
        if (const auto* number = std::get_if<double>(&arg))
            return FloatToStr(*number);
    }
    throw EConvertError(u"Format '" + String(format) + u"' doesn't fit its arguments");
}

} // namespace

String Format(StringView format, std::initializer_list<FormatArg> args)
{
    String result;
    auto arg = args.begin();
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != u'%') {
            result.push_back(format[i]);
            continue;
        }
        const char16_t kind = ++i < format.size() ? format[i] : u'\0';
        if (kind == u'%')
            result.push_back(u'%');
        else if (arg != args.end())
            result += FormatOne(kind, *arg++, format);
        else
            throw EConvertError(u"Format '" + String(format) + u"' needs more arguments");
    }
    return result;
}

} // namespace vorn
