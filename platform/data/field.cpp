#include "platform/data/field.h"

#include "platform/data/dataset.h"
#include "platform/system/strings.h"

#include <cmath>
#include <limits>

namespace vorn {

namespace {

String TextOfBytes(const BlobValue& blob)
{
    if (!blob)
        return {};
    return FromUtf8({reinterpret_cast<const char*>(blob->data()), blob->size()});
}

BlobValue BytesOfText(StringView text)
{
    const std::string utf8 = ToUtf8(text);
    const auto bytes = std::as_bytes(std::span(utf8));
    return std::make_shared<const Bytes>(bytes.begin(), bytes.end());
}

String TextOf(const TValue& value)
{
    struct Visitor {
        String operator()(std::monostate) const { return {}; }
        String operator()(std::int64_t v) const { return IntToStr(v); }
        String operator()(double v) const { return FloatToStr(v); }
        String operator()(const TDateValue& v) const { return DateToStr(v.Value); }
        String operator()(const String& v) const { return v; }
        String operator()(const BlobValue& v) const { return TextOfBytes(v); }
    };
    return std::visit(Visitor(), value);
}

std::optional<std::int64_t> IntegerOf(const TValue& value)
{
    if (const auto* number = std::get_if<std::int64_t>(&value))
        return *number;
    if (const auto* number = std::get_if<double>(&value)) {
        const double rounded = std::nearbyint(*number);
        constexpr double limit = 9223372036854775808.0; // 2^63
        if (rounded >= -limit && rounded < limit)
            return static_cast<std::int64_t>(rounded);
        return std::nullopt;
    }
    if (IsNull(value))
        return 0;
    if (std::holds_alternative<TDateValue>(value))
        return std::nullopt;
    return TryStrToInt64(TextOf(value));
}

std::optional<double> FloatOf(const TValue& value)
{
    if (const auto* number = std::get_if<double>(&value))
        return *number;
    if (const auto* number = std::get_if<std::int64_t>(&value))
        return static_cast<double>(*number);
    if (const auto* date = std::get_if<TDateValue>(&value))
        return date->Value;
    if (IsNull(value))
        return 0;
    return TryStrToFloat(TextOf(value));
}

std::optional<TDateTime> DateOf(const TValue& value)
{
    if (!std::holds_alternative<String>(value))
        return std::holds_alternative<BlobValue>(value) ? std::nullopt : FloatOf(value);
    const String& text = std::get<String>(value);
    if (text.empty())
        return 0;
    if (text.size() >= 10 && text[2] == u'/' && text[5] == u'/') // dd/mm/yyyy as DateToStr writes it
        return IsoToDate(text.substr(6, 4) + u"-" + text.substr(3, 2) + u"-" + text.substr(0, 2) + text.substr(10));
    return IsoToDate(text);
}

std::optional<bool> BooleanOf(const TValue& value)
{
    if (const auto* text = std::get_if<String>(&value)) {
        if (SameText(*text, u"true") || *text == u"1")
            return true;
        if (SameText(*text, u"false") || *text == u"0")
            return false;
        return std::nullopt;
    }
    const auto number = FloatOf(value);
    return number ? std::optional(*number != 0) : std::nullopt;
}

} // namespace

TField::TField(TDataSet& dataset, int index, String name, TFieldType type, bool required, int size)
    : dataset_(dataset), name_(std::move(name)), index_(index), type_(type), required_(required), size_(size)
{
}

const TValue& TField::Value() const
{
    return dataset_.CurrentValue(index_);
}

bool TField::IsNull() const
{
    return vorn::IsNull(Value());
}

int TField::AsInteger() const
{
    const auto number = IntegerOf(Value());
    if (!number || *number < std::numeric_limits<int>::min() || *number > std::numeric_limits<int>::max())
        RaiseConvert(Value(), u"an integer of 32 bits");
    return static_cast<int>(*number);
}

std::int64_t TField::AsLargeInt() const
{
    const auto number = IntegerOf(Value());
    if (!number)
        RaiseConvert(Value(), u"an integer");
    return *number;
}

double TField::AsFloat() const
{
    const auto number = FloatOf(Value());
    if (!number)
        RaiseConvert(Value(), u"a number");
    return *number;
}

String TField::AsString() const
{
    return TextOf(Value());
}

String TField::TextAt(int row) const
{
    return TextOf(dataset_.StoredValue(row, index_));
}

TDateTime TField::AsDateTime() const
{
    const auto date = DateOf(Value());
    if (!date)
        RaiseConvert(Value(), u"a date");
    return *date;
}

bool TField::AsBoolean() const
{
    const auto value = BooleanOf(Value());
    if (!value)
        RaiseConvert(Value(), u"true or false");
    return *value;
}

void TField::SetAsInteger(std::int64_t value)
{
    SetValue(value);
}

void TField::SetAsFloat(double value)
{
    SetValue(value);
}

void TField::SetAsString(StringView value)
{
    SetValue(String(value));
}

void TField::SetAsDateTime(TDateTime value)
{
    SetValue(value == 0 ? TValue() : TValue(TDateValue{value}));
}

void TField::SetValue(TValue value)
{
    dataset_.SetFieldValue(*this, Coerce(std::move(value)));
}

void TField::Clear()
{
    dataset_.SetFieldValue(*this, TValue());
}

void TField::SaveToStream(TStream& stream) const
{
    const TValue& value = Value();
    if (const auto* blob = std::get_if<BlobValue>(&value)) {
        if (*blob)
            stream.Write(**blob);
        return;
    }
    const std::string text = ToUtf8(TextOf(value));
    stream.Write(std::as_bytes(std::span(text)));
}

void TField::LoadFromStream(TStream& stream)
{
    SetValue(std::make_shared<const Bytes>(ReadRest(stream)));
}

void TField::RaiseConvert(const TValue& value, StringView wanted) const
{
    throw EConvertError(u"Column \"" + name_ + u"\" of " + dataset_.DisplayName() + u": '" + TextOf(value)
        + u"' is not " + String(wanted));
}

TValue TField::Coerce(TValue value) const
{
    if (vorn::IsNull(value))
        return value;
    if (type_ == TFieldType::ftBlob)
        return std::holds_alternative<BlobValue>(value) ? std::move(value) : BytesOfText(TextOf(value));
    if (std::holds_alternative<BlobValue>(value))
        value = TextOf(value);
    if (type_ == TFieldType::ftString) {
        String text = TextOf(value);
        if (size_ > 0 && text.size() > static_cast<std::size_t>(size_))
            RaiseConvert(value, u"a text of at most " + IntToStr(size_) + u" characters");
        return text;
    }
    if (const auto* text = std::get_if<String>(&value); text && text->empty())
        return TValue();
    switch (type_) {
    case TFieldType::ftInteger:
        if (const auto number = IntegerOf(value))
            return *number;
        RaiseConvert(value, u"an integer");
    case TFieldType::ftFloat:
        if (const auto number = FloatOf(value))
            return *number;
        RaiseConvert(value, u"a number");
    case TFieldType::ftBoolean:
        if (const auto truth = BooleanOf(value))
            return std::int64_t{*truth};
        RaiseConvert(value, u"true or false");
    default:
        break;
    }
    const auto date = DateOf(value);
    if (!date || DateToIso(*date).empty() != (*date == 0))
        RaiseConvert(value, u"a date");
    if (*date == 0)
        return TValue();
    return TDateValue{type_ == TFieldType::ftDate ? std::trunc(*date) : *date};
}

} // namespace vorn
