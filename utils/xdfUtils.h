#pragma once

#include "platform/system/types.h"

#include <bitset>
#include <concepts>
#include <initializer_list>
#include <span>
#include <type_traits>

namespace vorn {

class TObject;

/// The widest float: 80 bits where the processor has them.
using Extended = long double;

/// A set of 8-bit characters.
class TCharSet {
public:
    /// False for every character above 255.
    bool Contains(char16_t c) const { return c < 256 && bits_[c]; }
    bool IsEmpty() const { return bits_.none(); }

    void Put(std::uint8_t c, bool in = true) { bits_[c] = in; }
    void Clear() { bits_.reset(); }
    void Fill() { bits_.set(); }

    friend bool operator==(const TCharSet&, const TCharSet&) = default;

private:
    std::bitset<256> bits_;
};

/// Fills `set` from a set expression: characters and ranges such as "a-z". "^" in front takes them out of the
/// full set instead; "\" makes the next character plain; "-" is plain at either end. A character above 255
/// stands for the one with its low 8 bits. Raises Exception ("BAD SET : " and the text, less the leading "^")
/// for a reversed range and for a "\" at the end; the set then holds what stood in front of the error.
void CreateSet(StringView text, TCharSet& set);

/// "T" or "F".
String BoolToStr(bool value);
/// Reads "1", "True", "T", "Y", "Yes" and "0", "False", "F", "N", "No" in any case, with no blanks around
/// them. Raises EConvertError for all other text.
bool StrToBool(StringView text);
/// The same, with `byDefault` in place of the error.
bool StrToBoolDef(StringView text, bool byDefault);

/// Whether an element equals `text`, with or without regard to case.
bool InStringList(StringView text, std::initializer_list<StringView> list, bool ignoreCase);
bool InStringList(StringView text, std::span<const String> list, bool ignoreCase);

/// `yes` if the condition holds, else `no`; both have been worked out before the call.
std::int32_t ifOp(bool condition, std::int32_t yes, std::int32_t no);
std::int64_t ifOp(bool condition, std::int64_t yes, std::int64_t no);
String ifOp(bool condition, String yes, String no);
TObject* ifOp(bool condition, TObject* yes, TObject* no);
// Templates, so that only values of these kinds get here: a literal text would convert to bool sooner than to
// String, and a double as well to an integer as to Extended.
template <std::same_as<bool> Bool>
bool ifOp(bool condition, Bool yes, Bool no)
{
    return condition ? yes : no;
}
template <typename Yes, typename No>
requires(std::is_arithmetic_v<Yes>&& std::is_arithmetic_v<No> && (std::floating_point<Yes> || std::floating_point<No>))
    Extended ifOp(bool condition, Yes yes, No no)
{
    return condition ? static_cast<Extended>(yes) : static_cast<Extended>(no);
}

} // namespace vorn
