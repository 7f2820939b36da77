#include "platform/system/strings.h"

#include "platform/system/exceptions.h"
#include "tests/support/strings_print.h"

#include <limits>

namespace vorn {
namespace {

using test::MessageOf;
using test::Utf8;

TEST(Strings, Utf8BothWays)
{
    EXPECT_EQ(FromUtf8("a\xC3\xA8\xE2\x82\xAC\xF0\x9F\xA6\xB7"), u"aè€🦷");
    EXPECT_EQ(ToUtf8(u"aè€🦷"), "a\xC3\xA8\xE2\x82\xAC\xF0\x9F\xA6\xB7");
    const char16_t lone[] = {u'a', 0xD83E, u'b', 0xDDB7, 0};
    EXPECT_EQ(ToUtf8(lone),
        "a\xEF\xBF\xBD"
        "b\xEF\xBF\xBD");
    // Too long, a surrogate, beyond Unicode, cut off.
    for (const char* bad : {"\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82"}) {
        const String read = FromUtf8(bad);
        EXPECT_NE(read.find(0xFFFD), String::npos);
    }
}

TEST(Strings, CaseIsFoldedForAllOfUnicode)
{
    const struct {
        StringView a, b;
        bool same;
    } cases[] = {{u"", u"", true}, {u"Dente", u"dENTE", true}, {u"perché", u"PERCHÉ", true}, {u"σς", u"ΣΣ", true},
        {u"𐐀", u"𐐨", true}, {u"e", u"é", false}, {u"dente", u"dent", false}, {u"I", u"ı", false}};
    for (const auto& c : cases) {
        EXPECT_EQ(SameText(c.a, c.b), c.same) << Utf8(c.a) << " " << Utf8(c.b);
        EXPECT_EQ(CompareText(c.a, c.b) == 0, c.same);
        EXPECT_EQ(FoldCase(c.a) == FoldCase(c.b), c.same);
    }
    EXPECT_LT(CompareText(u"abc", u"ABD"), 0);
    EXPECT_GT(CompareText(u"abc", u"AB"), 0);
    EXPECT_EQ(AnsiUpperCase(u"è già ß"), u"È GIÀ ß");
}

TEST(Strings, ReadsIntegers)
{
    const std::pair<StringView, std::optional<int>> cases[]
        = {{u"0", 0}, {u" -12", -12}, {u"+7", 7}, {u"2147483647", std::numeric_limits<int>::max()},
            {u"-2147483648", std::numeric_limits<int>::min()}, {u"2147483648", {}}, {u"$1F", 31}, {u"0x1f", 31},
            {u"$FFFFFFFF", -1}, {u"$100000000", {}}, {u"-$10", -16}, {u"", {}}, {u"12 ", {}}, {u"1.0", {}}, {u"$", {}},
            {u"--1", {}}, {u"1_0", {}}, {u"٣", {}}, {u"- 1", {}}, {u"99999999999999999999", {}}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(TryStrToInt(text), value) << Utf8(text);
    EXPECT_EQ(TryStrToInt64(u"-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(TryStrToInt64(u"9223372036854775808"), std::nullopt);
    EXPECT_EQ(IntToStr(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
    EXPECT_NE(MessageOf<EConvertError>([] { StrToInt(u"1x"); }).find("'1x'"), std::string::npos);
}

TEST(Strings, ReadsAndWritesFloats)
{
    const std::pair<StringView, std::optional<double>> cases[] = {{u"1.5", 1.5}, {u" -2e3 ", -2000}, {u"+.5", 0.5},
        {u"1,5", {}}, {u"", {}}, {u"inf", {}}, {u"0x10", {}}, {u"1e999", {}}, {u"1 2", {}}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(TryStrToFloat(text), value) << Utf8(text);
    EXPECT_EQ(FloatToStr(100000), u"100000");
    EXPECT_EQ(FloatToStr(-0.1), u"-0.1");
    for (double v : {1e300, 1.0 / 3, 2.5e-308})
        EXPECT_EQ(TryStrToFloat(FloatToStr(v)), v);
}

TEST(Strings, Dates)
{
    EXPECT_EQ(EncodeDate(1899, 12, 30), 0);
    EXPECT_EQ(EncodeDate(1900, 1, 1), 2);
    EXPECT_EQ(EncodeDate(2024, 2, 29), 45351);
    EXPECT_EQ(EncodeDate(2023, 2, 29), std::nullopt);
    EXPECT_EQ(EncodeDate(0, 1, 1), std::nullopt);
    EXPECT_EQ(DateToIso(45351.75), u"2024-02-29 18:00:00");
    EXPECT_EQ(DateToStr(45351), u"29/02/2024");
    EXPECT_EQ(DateToStr(0), u"");
    EXPECT_EQ(DateToIso(45351.9999999), u"2024-03-01");
    EXPECT_EQ(DateToIso(-1.25), u"1899-12-29 06:00:00");
    EXPECT_EQ(DateToIso(1e300), u"");
    EXPECT_EQ(DateToIso(std::numeric_limits<double>::quiet_NaN()), u"");
    const std::pair<StringView, std::optional<double>> cases[] = {{u"2024-02-29", 45351},
        {u"2024-02-29T06:00", 45351.25}, {u"2024-02-29 12:00:00.000", 45351.5}, {u"1899-12-29 06:00:00", -1.25},
        {u"2024-02-30", {}}, {u"2024-02-29 24:00:00", {}}, {u"29/02/2024", {}}, {u"2024-02-29x", {}}, {u"", {}}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(IsoToDate(text), value) << Utf8(text);
    EXPECT_EQ(Date(), static_cast<int>(Date()));
}

TEST(Strings, Formats)
{
    EXPECT_EQ(Format(u"%s: %d%% (%d)", {StringView(u"a"), 5, std::int64_t{-1}}), u"a: 5% (-1)");
    EXPECT_EQ(Format(u"plain", {1}), u"plain");
    EXPECT_EQ(Format(u"%s", {1.5}), u"1.5");
    for (StringView bad : {u"%d", u"%s %s", u"%x", u"%"})
        EXPECT_THROW(Format(bad, {StringView(u"a")}), EConvertError) << Utf8(bad);
}

} // namespace
} // namespace vorn
