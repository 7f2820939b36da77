#include "platform/system/strings.h"

#include "platform/system/exceptions.h"
#include "platform/system/qt_convert.h"

#include <QChar>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace vorn {

namespace {

constexpr char32_t replacement = 0xFFFD;

/// Takes one code point off the text at `at`; an unpaired surrogate comes as it is.
char32_t NextCodePoint(StringView text, std::size_t& at)
{
    const char16_t unit = text[at++];
    if (QChar::isHighSurrogate(unit) && at < text.size() && QChar::isLowSurrogate(text[at]))
        return QChar::surrogateToUcs4(unit, text[at++]);
    return unit;
}

void AppendCodePoint(String& text, char32_t code)
{
    if (code < 0x10000) {
        text.push_back(static_cast<char16_t>(code));
    } else {
        text.push_back(QChar::highSurrogate(code));
        text.push_back(QChar::lowSurrogate(code));
    }
}

char32_t Fold(char32_t code)
{
    if (code < 0x80)
        return code >= U'A' && code <= U'Z' ? code + 32 : code;
    return QChar::toCaseFolded(code);
}

std::string ToAscii(StringView text)
{
    std::string ascii;
    ascii.reserve(text.size());
    for (char16_t c : text)
        ascii.push_back(c < 0x80 ? static_cast<char>(c) : '?'); // '?' fits in no number
    return ascii;
}

/// The magnitude of an integer text without its sign; none if there is anything but digits.
std::optional<std::uint64_t> ParseDigits(std::string_view digits, int base)
{
    std::uint64_t value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, base);
    if (digits.empty() || error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

/// `Int` is what the value must fit in. A hexadecimal text may use all its bits: "$FFFFFFFF" is -1 in 32.
template <typename Int>
std::optional<Int> ParseInteger(StringView text)
{
    using Unsigned = std::make_unsigned_t<Int>;
    while (!text.empty() && (text.front() == u' ' || text.front() == u'\t'))
        text.remove_prefix(1);
    const std::string ascii = ToAscii(text);
    std::string_view rest = ascii;
    const bool negative = rest.starts_with('-');
    if (negative || rest.starts_with('+'))
        rest.remove_prefix(1);
    int base = 10;
    if (rest.starts_with('$') || rest.starts_with("0x") || rest.starts_with("0X")) {
        rest.remove_prefix(rest.front() == '$' ? 1 : 2);
        base = 16;
    }
    const auto magnitude = ParseDigits(rest, base);
    std::uint64_t limit = static_cast<std::uint64_t>(std::numeric_limits<Int>::max()) + (negative ? 1 : 0);
    if (base == 16)
        limit = std::numeric_limits<Unsigned>::max();
    if (!magnitude || *magnitude > limit)
        return std::nullopt;
    const auto bits = static_cast<Unsigned>(*magnitude);
    return static_cast<Int>(negative ? static_cast<Unsigned>(0 - bits) : bits);
}

} // namespace

String FromUtf8(std::string_view text)
{
    if (std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; })) // most texts
        return String(text.begin(), text.end());
    constexpr std::string_view mark = "\xEF\xBB\xBF"; // the toolkit drops it in front
    if (text.starts_with(mark))
        return u'\uFEFF' + FromUtf8(text.substr(mark.size()));
    return FromQt(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

std::string ToUtf8(StringView text)
{
    std::string result;
    result.reserve(text.size());
    const auto put = [&](char32_t bits) { result.push_back(static_cast<char>(static_cast<unsigned char>(bits))); };
    for (std::size_t at = 0; at < text.size();) {
        char32_t code = NextCodePoint(text, at);
        if (code >= 0xD800 && code < 0xE000)
            code = replacement;
        if (code < 0x80) {
            put(code);
        } else if (code < 0x800) {
            put(0xC0 | code >> 6);
            put(0x80 | (code & 0x3F));
        } else {
            if (code < 0x10000) {
                put(0xE0 | code >> 12);
            } else {
                put(0xF0 | code >> 18);
                put(0x80 | (code >> 12 & 0x3F));
            }
            put(0x80 | (code >> 6 & 0x3F));
            put(0x80 | (code & 0x3F));
        }
    }
    return result;
}

bool SameText(StringView a, StringView b)
{
    return a == b || CompareText(a, b) == 0;
}

int CompareText(StringView a, StringView b)
{
    std::size_t atA = 0;
    std::size_t atB = 0;
    while (atA < a.size() && atB < b.size()) {
        const char32_t x = Fold(NextCodePoint(a, atA));
        const char32_t y = Fold(NextCodePoint(b, atB));
        if (x != y)
            return x < y ? -1 : 1;
    }
    return (atA < a.size() ? 1 : 0) - (atB < b.size() ? 1 : 0);
}

String AnsiUpperCase(StringView text)
{
    String result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();)
        AppendCodePoint(result, QChar::toUpper(NextCodePoint(text, at)));
    return result;
}

String FoldCase(StringView text)
{
    String result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        if (const char16_t c = text[at]; c < 0x80) { // most names
            result += c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
            ++at;
        } else {
            AppendCodePoint(result, Fold(NextCodePoint(text, at)));
        }
    }
    return result;
}

String IntToStr(std::int64_t value)
{
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return String(digits, end);
}

std::optional<int> TryStrToInt(StringView text)
{
    return ParseInteger<std::int32_t>(text);
}

std::optional<std::int64_t> TryStrToInt64(StringView text)
{
    return ParseInteger<std::int64_t>(text);
}

int StrToInt(StringView text)
{
    const auto value = TryStrToInt(text);
    if (!value)
        throw EConvertError(u"'" + String(text) + u"' is not a valid integer value");
    return *value;
}

std::optional<double> TryStrToFloat(StringView text)
{
    const auto blank = [](char16_t c) { return c == u' ' || c == u'\t'; };
    while (!text.empty() && blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && blank(text.back()))
        text.remove_suffix(1);
    if (text.size() > 1 && text.front() == u'+' && text[1] != u'-')
        text.remove_prefix(1);
    const std::string ascii = ToAscii(text);
    if (ascii.find_first_not_of("0123456789.+-eE") != std::string::npos) // no "inf", no "nan"
        return std::nullopt;
    double value = 0;
    const char* const end = ascii.data() + ascii.size();
    const auto [stop, error] = std::from_chars(ascii.data(), end, value);
    if (ascii.empty() || error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

String FloatToStr(double value)
{
    char digits[64];
    char* const last = digits + sizeof digits;
    const double size = std::fabs(value);
    const bool usual = value == 0 || (size >= 1e-5 && size < 1e15);
    const auto end = usual ? std::to_chars(digits, last, value, std::chars_format::fixed).ptr
                           : std::to_chars(digits, last, value).ptr;
    return String(digits, end);
}

} // namespace vorn
