#include "utils/scan_internal.h"

#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

namespace vorn {

namespace {

/// The rest of a conversion, behind its "%". False when the format ends inside it.
bool PassConversion(StringView format, std::size_t& position)
{
    bool inSet = false;
    for (;;) {
        const auto c = ScanNextChar(format, position);
        if (!c)
            return false;
        if (c == u'[') {
            inSet = true;
        } else if (inSet && c == u'\\') {
            if (!ScanNextChar(format, position))
                return false;
        } else if (c == u']') {
            const char16_t next = ScanPeekChar(format, position);
            if (next == u'c' || next == u'C')
                ++position;
            return true;
        } else if (!inSet && !isdigit(*c) && c != u'*') {
            return true;
        }
    }
}

[[noreturn]] void RaiseBadFormat()
{
    throw Exception(u"Bad format string");
}

/// The kind by the conversion's letter. Letters regard case.
ScanKind KindOf(char16_t letter)
{
    switch (letter) {
    case u'c':
        return ScanKind::Char;
    case u'h':
        return ScanKind::Int16;
    case u'd':
        return ScanKind::Int32;
    case u'i':
        return ScanKind::Int64;
    case u'u':
        return ScanKind::UInt32;
    case u'e':
    case u'f':
    case u'g':
        return ScanKind::Float;
    case u'm':
        return ScanKind::Money;
    case u's':
        return ScanKind::Text;
    case u'x':
        return ScanKind::Hex;
    case u'p':
        return ScanKind::Pointer;
    case u'%':
        return ScanKind::Percent;
    default:
        RaiseBadFormat();
    }
}

/// The characters that a kind of conversion reads if its token has no set; empty where the kind itself
/// doesn't say.
TCharSet UsualSet(ScanKind kind)
{
    TCharSet set;
    switch (kind) {
    case ScanKind::Int16:
    case ScanKind::Int32:
    case ScanKind::Int64:
    case ScanKind::Money:
        CreateSet(u"0-9-", set);
        break;
    case ScanKind::UInt32:
        CreateSet(u"0-9", set);
        break;
    case ScanKind::Float:
        CreateSet(u"0-9+.Ee-", set);
        break;
    case ScanKind::Hex:
    case ScanKind::Pointer:
        CreateSet(u"0-9A-Fa-fXx$-", set);
        break;
    default:
        break;
    }
    return set;
}

/// Takes "[...]" out of a conversion's text and gives what stands between the brackets.
StringView CutSet(String& text, String& buffer)
{
    const auto open = text.find(u'[');
    if (open == String::npos)
        return {};
    auto close = open + 1;
    while (text.at(close) != u']')
        close += text[close] == u'\\' ? 2 : 1;
    buffer = text.substr(open + 1, close - open - 1);
    text.erase(open, close - open + 1);
    return buffer;
}

ScanToken ParseConversion(StringView token)
{
    String text(token.substr(1));
    char16_t letter = u's';
    if (text.back() != u']') {
        letter = text.back();
        text.pop_back();
    }
    ScanToken parsed;
    String setText;
    CreateSet(CutSet(text, setText), parsed.set);
    const auto star = text.find(u'*');
    parsed.store = star == String::npos;
    if (!parsed.store)
        text.erase(star, 1);
    if (!text.empty()) {
        parsed.width = TryStrToInt(text);
        if (!parsed.width)
            RaiseBadFormat();
    }
    parsed.kind = KindOf(letter);
    if (parsed.kind == ScanKind::Percent) {
        if (token != u"%%")
            RaiseBadFormat();
        parsed.store = false;
    } else if (parsed.kind == ScanKind::Char && !parsed.width) {
        parsed.width = 1;
    }
    if (parsed.kind != ScanKind::Char && parsed.kind != ScanKind::Text)
        parsed.set = UsualSet(parsed.kind);
    return parsed;
}

} // namespace

std::optional<char16_t> ScanNextChar(StringView text, std::size_t& position)
{
    if (position > text.size()) {
        position = text.size() + 1;
        return std::nullopt;
    }
    return text[position++ - 1];
}

char16_t ScanPeekChar(StringView text, std::size_t position)
{
    return position <= text.size() ? text[position - 1] : u'\0';
}

std::optional<StringView> ScanNextToken(StringView format, std::size_t& position)
{
    const std::size_t start = position;
    const auto first = ScanNextChar(format, position);
    if (!first || (first == u'%' && !PassConversion(format, position)))
        return std::nullopt;
    const StringView token = format.substr(start - 1, position - start);
    if (isspace(*first))
        while (isspace(ScanPeekChar(format, position)))
            ++position;
    return token;
}

ScanToken ScanParseToken(StringView token)
{
    if (token.front() == u'%')
        return ParseConversion(token);
    ScanToken parsed;
    if (isspace(token.front()))
        parsed.kind = ScanKind::WhiteSpace;
    else
        parsed.width = static_cast<int>(token.size());
    return parsed;
}

} // namespace vorn
