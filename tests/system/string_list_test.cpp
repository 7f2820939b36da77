#include "platform/system/string_list.h"

#include "platform/system/exceptions.h"
#include "tests/support/strings_print.h"

#include <memory>

namespace vorn {
namespace {

using test::Utf8;

std::unique_ptr<TStringList> Loaded(std::string_view bytes, std::size_t from = 0)
{
    TMemoryStream stream;
    stream.Write(std::as_bytes(std::span(bytes)));
    stream.SetPosition(from);
    auto list = std::make_unique<TStringList>();
    list->Add(u"old");
    list->LoadFromStream(stream);
    return list;
}

std::string Joined(const TStringList& list)
{
    std::string all;
    for (int i = 0; i < list.Count(); ++i)
        all += Utf8(list[i]) + "|";
    return all;
}

TEST(StringList, SplitsAtAnyLineEnd)
{
    const std::pair<StringView, const char*> cases[] = {{u"", ""}, {u"a", "a|"}, {u"a\r\n", "a|"},
        {u"a\rb\nc\r\nd", "a|b|c|d|"}, {u"\r\n\r\n", "||"}, {u"a\n\rb", "a||b|"}, {u"a\n\n", "a||"}};
    for (const auto& [text, lines] : cases) {
        TStringList list;
        list.SetText(text);
        EXPECT_EQ(Joined(list), lines) << Utf8(text);
    }
}

TEST(StringList, TextRoundTrips)
{
    TStringList list;
    list.Add(u"uno");
    list.Add(u"");
    list.Add(u"tre");
    EXPECT_EQ(list.Text(), u"uno\r\n\r\ntre\r\n");
    TStringList copy;
    copy.SetText(list.Text());
    EXPECT_EQ(Joined(copy), Joined(list));
    copy.SetText(copy[0]);
    EXPECT_EQ(Joined(copy), "uno|");
    copy.Assign(list);
    EXPECT_EQ(copy.Count(), 3);
    EXPECT_EQ(copy.IndexOf(u"TRE"), 2);
    EXPECT_EQ(copy.IndexOf(u"quattro"), -1);
    EXPECT_THROW(copy.Strings(3), EListError);
}

TEST(StringList, TellsTheEncoding)
{
    using namespace std::string_view_literals;
    const std::pair<std::string_view, const char*> cases[] = {{"\xEF\xBB\xBF\xC3\xA0\n", "à|"}, {"\xC3\xA0", "à|"},
        {"\xE0 e \x80", "à e €|"}, {"\xFF\xFE\xE0\x00\x0A\x00\x62\x00"sv, "à|b|"},
        {"\xFE\xFF\x00\xE0\x00\x0D\x00\x62"sv, "à|b|"}, {"\xEF\xBF\xBD", "\xEF\xBF\xBD|"}, {"\xC3", "Ã|"}};
    for (const auto& [bytes, lines] : cases)
        EXPECT_EQ(Joined(*Loaded(bytes)), lines);
    EXPECT_EQ(Loaded("a\0b"sv)->Strings(0), String(u"a\0b", 3));
    EXPECT_EQ(Joined(*Loaded("skip\nrest", 5)), "rest|");
    EXPECT_EQ(Loaded("x", 9)->Count(), 0);
}

} // namespace
} // namespace vorn
