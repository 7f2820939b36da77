#pragma once

#include "utils/xdfUtils.h"

#include <array>

namespace vorn {

/// A number with four decimals, in ten-thousandths.
struct Currency {
    std::int64_t TenThousandths = 0;
    friend bool operator==(const Currency&, const Currency&) = default;
};

/// A text of at most 255 characters of one byte each (Latin-1), its length in front.
struct ShortString {
    std::uint8_t Length = 0;
    std::array<char, 255> Chars{};
};

inline constexpr std::uint8_t vtString = 4;
inline constexpr std::uint8_t vtPointer = 5;

/// An untyped target of a scan.
struct TVarRec {
    void* VPointer = nullptr;
    /// Regarded by the conversion "s" alone: vtString for a ShortString, anything else for a String.
    std::uint8_t VType = vtPointer;
};

/// Reads `source` as `format` tells and stores what it reads; gives how many conversions were stored.
///
/// Wherever the format has white space (characters 8, 10, 13 and 32, so no tab), any amount of it may stand
/// in the source. A conversion is "%", an optional "*" (read, store nothing), an optional width in
/// characters, and a letter or a set in brackets as CreateSet reads it. A set ends the conversion: it reads as "s",
/// or as "c" when a "c" follows; any other letter behind it is a literal.
///
///     letter    reads                         target
///     c         one character, or `width`     char: the low byte of each character read, one after another
///     h, d, i   decimal integer               std::int16_t (the low 16 bits of 32), std::int32_t, std::int64_t
///     u         digits                        std::uint32_t (the low 32 bits of 64)
///     x         hexadecimal, "$" or "0x" too  std::int32_t or std::uint32_t
///     p         decimal, or "$"/"0x" and hex  std::int32_t or std::uint32_t
///     e, f, g   float with "."                Extended
///     m         decimal integer               Currency
///     s         a word, or what is in the set String or ShortString, which is cut at 255 characters
///
/// "%%" is matched by a word of two percent signs. Any other character is matched by itself, with white space
/// skipped in front. All conversions but "c" skip white space first. Characters above 255 end every field.
/// Numbers are stored text, so the locale plays no part.
///
/// The scan ends without an error at a bad format, at text that doesn't match or convert (its target keeps
/// its value), and at the end of the source. Raises Exception when a conversion has been read for which no
/// target is left; the targets before it are written. Each target must have the type of its conversion:
/// nothing checks it.
int sscanf(StringView source, StringView format, std::span<const TVarRec> targets);
int sscanf(StringView source, StringView format, std::initializer_list<TVarRec> targets);

struct ScanToken;

/// A typed target of a scan; refers to the variable. Types that no conversion writes don't compile.
class ScanTarget {
public:
    ScanTarget(char& target) : ScanTarget(&target, TypeChar) {}
    /// For "c" with a width of up to the span's size.
    ScanTarget(std::span<char> target) : ScanTarget(target.data(), TypeChar, target.size()) {}
    ScanTarget(std::int16_t& target) : ScanTarget(&target, TypeInt16) {}
    ScanTarget(std::int32_t& target) : ScanTarget(&target, TypeInt32) {}
    ScanTarget(std::uint32_t& target) : ScanTarget(&target, TypeUInt32) {}
    ScanTarget(std::int64_t& target) : ScanTarget(&target, TypeInt64) {}
    ScanTarget(Extended& target) : ScanTarget(&target, TypeExtended) {}
    ScanTarget(Currency& target) : ScanTarget(&target, TypeCurrency) {}
    ScanTarget(String& target) : ScanTarget(&target, TypeString) {}
    ScanTarget(ShortString& target) : ScanTarget(&target, TypeShortString) {}

    TVarRec VarRec() const { return {pointer_, type_ == TypeShortString ? vtString : vtPointer}; }
    /// Whether the conversion may write to it.
    bool Takes(const ScanToken& token) const;
    const char16_t* TypeName() const;

private:
    enum Type {
        TypeChar,
        TypeInt16,
        TypeInt32,
        TypeUInt32,
        TypeInt64,
        TypeExtended,
        TypeCurrency,
        TypeString,
        TypeShortString
    };
    ScanTarget(void* pointer, Type type, std::size_t size = 1) : pointer_(pointer), type_(type), size_(size) {}

    void* pointer_;
    Type type_;
    std::size_t size_;
};

/// The same with targets whose types are checked: raises EConvertError that names the conversion and the
/// target, before anything is read, when the two don't fit, whatever the source holds.
int ScanTyped(StringView source, StringView format, std::span<const ScanTarget> targets);

/// Sugar for it: `sscanf(text, u"%d %d %s", x, y, name)`.
template <typename... T>
requires(std::constructible_from<ScanTarget, T>&&...) int sscanf(StringView source, StringView format, T&&... targets)
{
    const std::array<ScanTarget, sizeof...(T)> list{ScanTarget(targets)...};
    return ScanTyped(source, format, list);
}

// Character classes. They look at ASCII only and regard no locale.

bool isdigit(char16_t c);
bool isupper(char16_t c);
bool islower(char16_t c);
bool isalpha(char16_t c);
bool isalnum(char16_t c);
bool isxdigit(char16_t c);
bool iscntrl(char16_t c);
bool isgraph(char16_t c);
bool isprint(char16_t c);
/// Characters 8, 10, 13 and 32: what a scan takes for white space.
bool isspace(char16_t c);
bool ispunct(char16_t c);
char16_t toupper(char16_t c);
char16_t tolower(char16_t c);

} // namespace vorn
