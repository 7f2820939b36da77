#include "utils/scan_internal.h"

#include "platform/system/strings.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

namespace vorn {

namespace {

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

/// In full width, which reading through double would lose. Numbers too large or too small for it don't
/// convert.
std::optional<Extended> ToExtended(StringView text)
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
std::optional<Currency> ToCurrency(StringView text)
{
    const auto units = TryStrToInt64(text);
    constexpr auto limit = std::numeric_limits<std::int64_t>::max() / 10'000;
    if (!units || *units > limit || *units < -limit)
        return std::nullopt;
    return Currency{*units * 10'000};
}

std::optional<int> FromHex(StringView text)
{
    if (text.starts_with(u"0x") || text.starts_with(u"0X"))
        text.remove_prefix(2);
    if (text.starts_with(u'$'))
        text.remove_prefix(1);
    return TryStrToInt(u"$" + String(text));
}

/// Hands the value on in the type of the target. False if there is none.
template <typename To, typename From, typename Use>
bool Give(const std::optional<From>& value, Use use)
{
    if (value)
        use(static_cast<To>(*value));
    return value.has_value();
}

/// Converts a field of a kind that has a value. False if it doesn't convert.
template <typename Use>
bool Convert(ScanKind kind, StringView text, Use use)
{
    switch (kind) {
    case ScanKind::Int16:
        return Give<std::int16_t>(TryStrToInt(text), use);
    case ScanKind::Int32:
    case ScanKind::Pointer:
        return Give<std::int32_t>(TryStrToInt(text), use);
    case ScanKind::Int64:
        return Give<std::int64_t>(TryStrToInt64(text), use);
    case ScanKind::UInt32:
        return Give<std::uint32_t>(TryStrToInt64(text), use);
    case ScanKind::Float:
        return Give<Extended>(ToExtended(text), use);
    case ScanKind::Money:
        return Give<Currency>(ToCurrency(text), use);
    case ScanKind::Hex:
        return Give<std::int32_t>(FromHex(text), use);
    default:
        return true;
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
    return Convert(kind, text, [](auto) {});
}

void ScanStoreField(ScanKind kind, StringView text, const TVarRec& target)
{
    if (kind == ScanKind::Text) {
        StoreText(text, target);
    } else if (kind == ScanKind::Char) {
        std::transform(text.begin(), text.end(), static_cast<char*>(target.VPointer), LowByte);
    } else {
        Convert(kind, text, [&](auto value) { *static_cast<decltype(value)*>(target.VPointer) = value; });
    }
}

} // namespace vorn
