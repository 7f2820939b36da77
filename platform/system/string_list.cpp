#include "platform/system/string_list.h"

#include "platform/system/lists.h"
#include "platform/system/strings.h"

#include <algorithm>
#include <array>

namespace vorn {

namespace {

/// 0x80 to 0x9F of Windows-1252; the five unassigned bytes keep their code.
constexpr std::array<char16_t, 32> windows1252 = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

String FromWindows1252(std::string_view text)
{
    String result;
    result.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        result.push_back(byte >= 0x80 && byte < 0xA0 ? windows1252[byte - 0x80u] : byte);
    }
    return result;
}

/// An odd byte at the end is dropped.
String FromUtf16(std::string_view text, bool bigEndian)
{
    String result;
    result.reserve(text.size() / 2);
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        const auto first = static_cast<unsigned char>(text[i]);
        const auto second = static_cast<unsigned char>(text[i + 1]);
        result.push_back(static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first));
    }
    return result;
}

String Decode(std::string_view text)
{
    if (text.starts_with("\xFF\xFE"))
        return FromUtf16(text.substr(2), false);
    if (text.starts_with("\xFE\xFF"))
        return FromUtf16(text.substr(2), true);
    if (text.starts_with("\xEF\xBB\xBF"))
        return FromUtf8(text.substr(3));
    // Well-formed text comes back unchanged; a replacement character that stood in it comes back as itself, too.
    String decoded = FromUtf8(text);
    return ToUtf8(decoded) == text ? decoded : FromWindows1252(text);
}

} // namespace

int TStrings::IndexOf(StringView text) const
{
    for (int i = 0; i < Count(); ++i)
        if (SameText(Strings(i), text))
            return i;
    return -1;
}

String TStrings::Text() const
{
    String text;
    for (int i = 0; i < Count(); ++i)
        text.append(Strings(i)).append(u"\r\n");
    return text;
}

void TStrings::SetText(StringView text)
{
    const String own(text); // `text` may be a view of one of our lines
    Clear();
    for (StringView rest = own; !rest.empty();) {
        const std::size_t end = rest.find_first_of(u"\r\n");
        Add(rest.substr(0, end));
        if (end == StringView::npos)
            break;
        rest.remove_prefix(end + (rest.substr(end).starts_with(u"\r\n") ? 2 : 1));
    }
}

void TStrings::LoadFromStream(TStream& stream)
{
    const Bytes bytes = ReadRest(stream);
    SetText(Decode({reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
}

const String& TStringList::Strings(int index) const
{
    if (index < 0 || index >= Count())
        RaiseListIndex(index, Count());
    return lines_[static_cast<std::size_t>(index)];
}

int TStringList::Add(StringView text)
{
    lines_.emplace_back(text);
    return Count() - 1;
}

void TStringList::Clear()
{
    lines_.clear();
}

void TStringList::Assign(const TPersistent& source)
{
    const auto* const other = dynamic_cast<const TStrings*>(&source);
    if (!other) {
        TStrings::Assign(source);
        return;
    }
    std::vector<String> lines;
    lines.reserve(static_cast<std::size_t>(other->Count()));
    for (int i = 0; i < other->Count(); ++i)
        lines.push_back(other->Strings(i));
    lines_ = std::move(lines);
}

} // namespace vorn
