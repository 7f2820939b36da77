#pragma once

#include "platform/system/types.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace vorn {

String FromUtf8(std::string_view text);
/// Unpaired surrogates come out as U+FFFD.
std::string ToUtf8(StringView text);

/// Unicode-aware comparison without regard to case, independent of the locale.
bool SameText(StringView a, StringView b);
/// Below 0, 0 or above 0, without regard to case.
int CompareText(StringView a, StringView b);
String AnsiUpperCase(StringView text);
/// The form under which texts that SameText calls equal are equal: a key for indexes.
String FoldCase(StringView text);

String IntToStr(std::int64_t value);
/// Decimal, or hexadecimal behind "$" or "0x"; blanks in front are allowed, nothing else.
/// A sign may stand in front. Values outside 32 bits are refused; "$FFFFFFFF" uses all 32 and is -1.
std::optional<int> TryStrToInt(StringView text);
std::optional<std::int64_t> TryStrToInt64(StringView text);
/// Raises EConvertError that quotes the text.
int StrToInt(StringView text);
/// "." is the decimal separator, whatever the locale: it reads stored text.
std::optional<double> TryStrToFloat(StringView text);
/// The shortest text that reads back as the same number; without an exponent where the number is of usual size.
String FloatToStr(double value);

/// Today, as whole days.
TDate Date();
/// Day 0 is 1899-12-30. Gives none for a date that doesn't exist.
std::optional<TDate> EncodeDate(int year, int month, int day);
/// ISO form "yyyy-mm-dd", with " hh:nn:ss" behind it when there is a time of day; empty for 0.
String DateToIso(TDateTime value);
std::optional<TDateTime> IsoToDate(StringView text);
/// "dd/mm/yyyy", as the data's language writes it; the time follows when there is one; empty for 0.
String DateToStr(TDateTime value);

using FormatArg = std::variant<std::int64_t, int, double, StringView>;
/// Fills "%s" (text or a float) and "%d" (an integer) in order; "%%" is a percent sign. Raises EConvertError when an
/// argument is missing or of the other kind; arguments left over are no error.
String Format(StringView format, std::initializer_list<FormatArg> args);

} // namespace vorn
