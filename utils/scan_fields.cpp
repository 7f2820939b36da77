#include "utils/scan_internal.h"

#include "platform/system/strings.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>
#include <variant>

namespace vorn {

namespace {

using ScanValue =
    std::variant<std::monostate, std::int16_t, std::int32_t, std::int64_t, std::uint32_t, Extended, Currency>;

/// The end of the white space at `position`. False when the text ends there.
bool SkipWhiteSpace(StringView text, std::size_t& position)
{
    while (isspace(ScanPeekChar(text, position)))
        ++position;
    return position <= text.size();
}

TCharSet AllBut(bool whiteSpace)
{
    TCharSet set;
    CreateSet(whiteSpace ? u"^\b\n\r " : u"^", set);
    return set;
}

template <typename To, typename From>
std::optional<ScanValue> Cut(const std::optional<From>& value)
{
    if (!value)
        return std::nullopt;
    return static_cast<To>(*value);
}

/// In full width, which reading through double would lose. Numbers too large or too small for it don't convert.
std::optional<ScanValue> ToExtended(StringView text)
{
    if (text.starts_with(u'+') && !text.starts_with(u"+-"))
        text.remove_prefix(1);
    const std::string ascii(text.begin(), text.end()); // the field's set lets nothing else through
    Extended value = 0;
    const char* const end = ascii.data() + ascii.size();
    const auto [stop, error] = std::from_chars(ascii.data(), end, value);
    if (ascii.empty() || error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

/// The field holds no ".", so this is exact.
std::optional<ScanValue> ToCurrency(StringView text)
{
    const auto units = TryStrToInt64(text);
    constexpr auto limit = std::numeric_limits<std::int64_t>::max() / 10'000;
    if (!units || *units > limit || *units < -limit)
        return std::nullopt;
    return Currency {*units * 10'000};
}

std::optional<ScanValue> FromHex(StringView text)
{
    if (text.starts_with(u"0x") || text.starts_with(u"0X"))
        text.remove_prefix(2);
    if (text.starts_with(u'$'))
        text.remove_prefix(1);
    return TryStrToInt(u"$" + String(text));
}

std::optional<ScanValue> Convert(ScanKind kind, StringView text)
{
    switch (kind) {
    case ScanKind::Int16: return Cut<std::int16_t>(TryStrToInt(text));
    case ScanKind::Int32:
    case ScanKind::Pointer: return Cut<std::int32_t>(TryStrToInt(text));
    case ScanKind::Int64: return Cut<std::int64_t>(TryStrToInt64(text));
    case ScanKind::UInt32: return Cut<std::uint32_t>(TryStrToInt64(text));
    case ScanKind::Float: return ToExtended(text);
    case ScanKind::Money: return ToCurrency(text);
    case ScanKind::Hex: return FromHex(text);
    default: return std::monostate();
    }
}

char LowByte(char16_t c)
{
    return static_cast<char>(c & 0xFF);
}

void StoreText(StringView text, const TVarRec& target)
{
    if (target.VType != vtString) {
        *static_cast<String*>(target.VPointer) = text;
        return;
    }
    auto& to = *static_cast<ShortString*>(target.VPointer);
    text = text.substr(0, to.Chars.size());
    std::transform(text.begin(), text.end(), to.Chars.begin(), LowByte);
    to.Length = static_cast<std::uint8_t>(text.size());
}

} // namespace

ScanField ScanReadField(StringView source, std::size_t& position, const ScanToken& token)
{
    const bool isChar = token.kind == ScanKind::Char;
    if (isChar ? position > source.size() : !SkipWhiteSpace(source, position))
        return {.text = {}, .endOfInput = true};
    if (token.kind == ScanKind::WhiteSpace)
        return {};
    const TCharSet set = token.set.IsEmpty() ? AllBut(!isChar) : token.set;
    const std::size_t start = position;
    const auto full = [&] { return token.width && position - start >= static_cast<std::size_t>(*token.width); };
    while (!full() && position <= source.size() && set.Contains(ScanPeekChar(source, position)))
        ++position;
    return {.text = source.substr(start - 1, position - start)};
}

bool ScanCheckField(ScanKind kind, StringView text)
{
    return Convert(kind, text).has_value();
}

void ScanStoreField(ScanKind kind, StringView text, const TVarRec& target)
{
    if (kind == ScanKind::Text) {
        StoreText(text, target);
    } else if (kind == ScanKind::Char) {
        std::transform(text.begin(), text.end(), static_cast<char*>(target.VPointer), LowByte);
    } else if (const auto value = Convert(kind, text)) {
        std::visit([&](auto number) { *static_cast<decltype(number)*>(target.VPointer) = number; }, *value);
    }
}

} // namespace vorn
