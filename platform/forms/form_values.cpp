#include "platform/forms/form_values.h"

#include "platform/forms/form_file.h"
#include "platform/system/strings.h"

#include <cmath>
#include <limits>

namespace vorn::forms {

namespace {

constexpr StringView NotANumber = u"NAN";
constexpr StringView Infinity = u"INF";

StringView KindName(TPropertyKind kind)
{
    switch (kind) {
    case TPropertyKind::pkInteger:
        return u"a whole number";
    case TPropertyKind::pkEnumeration:
        return u"one of its names";
    case TPropertyKind::pkSet:
        return u"a set in brackets";
    case TPropertyKind::pkFloat:
        return u"a number";
    case TPropertyKind::pkString:
        return u"a text in quotes";
    case TPropertyKind::pkPoint:
        return u"a point as (x, y)";
    case TPropertyKind::pkObject:
        return u"no value: its own properties are set by name";
    case TPropertyKind::pkCollection:
        return u"items between '<' and '>'";
    case TPropertyKind::pkStrings:
        return u"lines of texts between '(' and ')'";
    case TPropertyKind::pkComponent:
        return u"the name of a component";
    case TPropertyKind::pkEvent:
        return u"the name of a handler";
    }
    return {};
}

/// Reads one value for one property.
class Conversion {
public:
    Conversion(int line, const String& path, const TPublishedProperty& property)
        : line_(line), path_(path), property_(property)
    {
    }

    [[noreturn]] void WrongType() const { Fail(u" takes " + String(KindName(property_.Kind))); }
    [[noreturn]] void Fail(StringView message) const { throw EFormError(line_, path_ + String(message)); }

    TPropertyValue Integer(const Value& value) const
    {
        const TOrdinalType& type = *property_.Ordinals;
        if (const auto* name = std::get_if<Name>(&value)) {
            const auto* named = type.Find(StringView(name->Text));
            if (!named)
                Fail(u" knows no value " + name->Text);
            return named->Value;
        }
        const auto* number = std::get_if<Number>(&value);
        if (!number)
            WrongType();
        return InRange(number->Text);
    }

    TPropertyValue Enumeration(const Value& value) const
    {
        const auto* name = std::get_if<Name>(&value);
        if (!name)
            WrongType();
        const auto* named = property_.Ordinals->Find(StringView(name->Text));
        if (!named)
            Fail(u" knows no value " + name->Text);
        return named->Value;
    }

    TPropertyValue SetOf(const Value& value) const
    {
        const auto* set = std::get_if<Set>(&value);
        if (!set)
            WrongType();
        std::int64_t bits = 0;
        for (const String& element : set->Elements) {
            if (const auto* named = property_.Ordinals->Find(StringView(element))) {
                bits |= named->Value;
                continue;
            }
            const auto bit = TryStrToInt(element); // one that has no name
            if (!bit || *bit < 0 || *bit >= property_.SetSize)
                Fail(u" knows no element " + element);
            bits |= std::int64_t{1} << *bit;
        }
        return bits;
    }

    TPropertyValue Float(const Value& value) const
    {
        if (const auto* name = std::get_if<Name>(&value)) {
            if (name->Text == NotANumber)
                return std::numeric_limits<double>::quiet_NaN();
            if (name->Text == Infinity)
                return std::numeric_limits<double>::infinity();
        }
        const auto* number = std::get_if<Number>(&value);
        if (!number)
            WrongType();
        if (number->Text == u"-" + String(Infinity))
            return -std::numeric_limits<double>::infinity();
        const auto converted = TryStrToFloat(number->Text);
        if (!converted)
            Fail(u": " + Quoted(number->Text) + u" is not a number");
        return *converted;
    }

private:
    std::int64_t InRange(const String& text) const
    {
        const TOrdinalType& type = *property_.Ordinals;
        const auto number = TryStrToInt64(text);
        if (!number)
            Fail(u": " + Quoted(text) + u" is not a whole number");
        if (*number < type.Min || *number > type.Max)
            Fail(u": " + text + u" is not from " + IntToStr(type.Min) + u" to " + IntToStr(type.Max));
        return *number;
    }

    int line_;
    const String& path_;
    const TPublishedProperty& property_;
};

String SetText(std::int64_t bits, const TOrdinalType& type, int size)
{
    String text;
    for (int bit = 0; bit < size; ++bit) {
        const std::int64_t mask = std::int64_t{1} << bit;
        if ((bits & mask) == 0)
            continue;
        const auto* named = type.Find(mask);
        text.append(text.empty() ? u"" : u", ").append(named ? String(named->Name) : IntToStr(bit));
    }
    return u"[" + text + u"]";
}

String HexText(std::int64_t value)
{
    String text = u"$00000000";
    auto bits = static_cast<std::uint32_t>(value);
    for (std::size_t place = text.size(); bits != 0; bits >>= 4)
        text[--place] = StringView(u"0123456789ABCDEF")[bits & 0xF];
    return text;
}

String IntegerText(std::int64_t value, const TOrdinalType& type)
{
    if (const auto* named = type.Find(value))
        return String(named->Name);
    return type.Hexadecimal ? HexText(value) : IntToStr(value);
}

String FloatText(double value)
{
    if (std::isnan(value))
        return String(NotANumber);
    if (std::isinf(value))
        return (value < 0 ? u"-" : u"") + String(Infinity);
    return FloatToStr(value);
}

} // namespace

TPropertyValue ToPropertyValue(const Value& value, int line, const String& path, const TPublishedProperty& property)
{
    const Conversion conversion(line, path, property);
    switch (property.Kind) {
    case TPropertyKind::pkInteger:
        return conversion.Integer(value);
    case TPropertyKind::pkEnumeration:
        return conversion.Enumeration(value);
    case TPropertyKind::pkSet:
        return conversion.SetOf(value);
    case TPropertyKind::pkFloat:
        return conversion.Float(value);
    case TPropertyKind::pkString:
        if (const auto* text = std::get_if<String>(&value))
            return *text;
        break;
    case TPropertyKind::pkPoint:
        if (const auto* point = std::get_if<TPoint>(&value))
            return *point;
        break;
    default:
        break;
    }
    conversion.WrongType();
}

String ToFormText(const TPropertyValue& value, const TPublishedProperty& property)
{
    switch (property.Kind) {
    case TPropertyKind::pkInteger:
    case TPropertyKind::pkEnumeration:
        return IntegerText(std::get<std::int64_t>(value), *property.Ordinals);
    case TPropertyKind::pkSet:
        return SetText(std::get<std::int64_t>(value), *property.Ordinals, property.SetSize);
    case TPropertyKind::pkFloat:
        return FloatText(std::get<double>(value));
    case TPropertyKind::pkString:
        return Quoted(std::get<String>(value));
    case TPropertyKind::pkPoint: {
        const TPoint point = std::get<TPoint>(value);
        return u"(" + IntToStr(point.X) + u", " + IntToStr(point.Y) + u")";
    }
    default:
        return {};
    }
}

} // namespace vorn::forms
