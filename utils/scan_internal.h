#pragma once

#include "utils/Scanf.h"

#include <optional>

namespace vorn {

// The steps of a scan. Positions in a text count from 1; one past the last character is the end.

enum class ScanKind {
    Char,
    Int16,
    Int32,
    Int64,
    UInt32,
    Float,
    Money,
    Text,
    Hex,
    Pointer,
    WhiteSpace,
    Literal,
    Percent
};

/// What one token of a format asks for.
struct ScanToken {
    ScanKind kind = ScanKind::Literal;
    std::optional<int> width; ///< most characters of the field; none for no limit
    bool store = false;
    TCharSet set; ///< characters of the field; empty for the kind's usual ones
};

struct ScanField {
    StringView text;
    bool endOfInput = false; ///< the source had ended before the field began
};

/// The character at `position`, which moves on; none at the end.
std::optional<char16_t> ScanNextChar(StringView text, std::size_t& position);
/// The same without moving; 0 at the end.
char16_t ScanPeekChar(StringView text, std::size_t position);

/// Cuts the next token off the format: a conversion, one white-space character (all that follow it are passed
/// over) or one other character. None when the format ends inside it.
std::optional<StringView> ScanNextToken(StringView format, std::size_t& position);
/// Raises Exception ("Bad format string", or CreateSet's) for what is no conversion.
ScanToken ScanParseToken(StringView token);

/// Takes the token's field off the source. It is empty where no character fits.
ScanField ScanReadField(StringView source, std::size_t& position, const ScanToken& token);
/// Whether the field converts to the kind's value.
bool ScanCheckField(ScanKind kind, StringView text);
/// Writes the value; a field that doesn't convert leaves the target alone.
void ScanStoreField(ScanKind kind, StringView text, const TVarRec& target);

} // namespace vorn
