#include "utils/scan_internal.h"

#include "platform/system/exceptions.h"

namespace vorn {

namespace {

/// What the next token of the format asks for, and its text. None where the format is bad or ends inside it.
std::optional<ScanToken> TakeToken(StringView format, std::size_t& position, StringView& text)
{
    const auto token = ScanNextToken(format, position);
    if (!token)
        return std::nullopt;
    text = *token;
    try {
        return ScanParseToken(text);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

bool IsMatchedByText(const ScanToken& token)
{
    return token.kind == ScanKind::Literal || token.kind == ScanKind::Percent;
}

} // namespace

int sscanf(StringView sourceText, StringView formatText, std::span<const TVarRec> targets)
{
    if (sourceText.empty())
        return 0;
    // A target may be the very text that is read.
    const String source(sourceText);
    const String format(formatText);
    std::size_t count = 0;
    std::size_t inSource = 1;
    for (std::size_t inFormat = 1; inFormat <= format.size();) {
        StringView text;
        const auto token = TakeToken(format, inFormat, text);
        if (!token)
            break;
        const ScanField field = ScanReadField(source, inSource, *token);
        if (IsMatchedByText(*token) && field.text != text)
            break;
        if (field.endOfInput)
            continue;
        if (!ScanCheckField(token->kind, field.text))
            break;
        if (!token->store)
            continue;
        if (count == targets.size())
            throw Exception(u"Insufficent pointers for format specifiers!");
        ScanStoreField(token->kind, field.text, targets[count++]);
    }
    return static_cast<int>(count);
}

int sscanf(StringView source, StringView format, std::initializer_list<TVarRec> targets)
{
    return sscanf(source, format, std::span<const TVarRec>(targets.begin(), targets.size()));
}

} // namespace vorn
