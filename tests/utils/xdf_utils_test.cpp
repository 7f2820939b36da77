#include "utils/xdfUtils.h"

#include "platform/system/exceptions.h"
#include "platform/system/object.h"
#include "tests/support/strings_print.h"

#include <type_traits>
#include <vector>

namespace vorn {
namespace {

using test::MessageOf;
using test::Utf8;

TCharSet SetOf(StringView members)
{
    TCharSet set;
    for (char16_t c : members)
        set.Put(static_cast<std::uint8_t>(c));
    return set;
}

TCharSet Complement(TCharSet set)
{
    for (unsigned c = 0; c < 256; ++c)
        set.Put(static_cast<std::uint8_t>(c), !set.Contains(static_cast<char16_t>(c)));
    return set;
}

TEST(CreateSet, ReadsExpressions)
{
    const struct {
        StringView text, members;
    } cases[] = {
        {u"", u""},
        {u"a-c", u"abc"},
        {u"a-", u"a-"},
        {u"-a", u"-a"},
        {u"-", u"-"},
        {u"--/", u"-./"},
        {u"\\-", u"-"},
        {u"a\\-c", u"a-c"},
        {u"\\a-c", u"abc"},
        {u"a-\\c", u"abc"},
        {u"a-cx-z", u"abcxyz"},
        {u"a-c-e", u"abc-e"},
        {u"a-a", u"a"},
        {u"a^", u"a^"},
        {u"\\^a", u"^a"},
        {u"\\\\", u"\\"},
        {u"\u0141", u"A"}, // low 8 bits
        {u"\u0161-c", u"abc"},
    };
    for (const auto& c : cases) {
        TCharSet set = SetOf(u"left over");
        CreateSet(c.text, set);
        EXPECT_EQ(set, SetOf(c.members)) << Utf8(c.text);
        CreateSet(u"^" + String(c.text), set);
        EXPECT_EQ(set, Complement(SetOf(c.members))) << "^" << Utf8(c.text);
    }
    TCharSet all;
    CreateSet(u"^^", all);
    EXPECT_EQ(all, Complement(SetOf(u"^")));
    CreateSet(u"^", all);
    EXPECT_TRUE(all.Contains(0) && all.Contains(255));
    EXPECT_FALSE(all.Contains(256));
    static_assert(sizeof(TCharSet) == 32);
}

TEST(CreateSet, RefusesAndKeepsWhatCameBefore)
{
    const struct {
        StringView text;
        const char* shown;
        TCharSet left;
    } cases[] = {
        {u"z-a", "z-a", {}},
        {u"^z-a", "z-a", Complement({})},
        {u"ab\\", "ab\\", SetOf(u"ab")},
        {u"a-cx-\\", "a-cx-\\", SetOf(u"abc")},
        {u"\\", "\\", {}},
    };
    for (const auto& c : cases) {
        TCharSet set = SetOf(u"left over");
        EXPECT_EQ(MessageOf<Exception>([&] { CreateSet(c.text, set); }), std::string("BAD SET : ") + c.shown);
        EXPECT_EQ(set, c.left) << Utf8(c.text);
    }
}

TEST(Booleans, WordsInAnyCase)
{
    for (StringView word : {u"1", u"True", u"t", u"Y", u"YES", u"yes", u"tRUE"})
        EXPECT_TRUE(StrToBool(word) && StrToBoolDef(word, false)) << Utf8(word);
    for (StringView word : {u"0", u"False", u"f", u"N", u"no", u"NO"})
        EXPECT_FALSE(StrToBool(word) || StrToBoolDef(word, true)) << Utf8(word);
    for (StringView word : {u"2", u"", u" T", u"T ", u"Yes!"}) {
        EXPECT_EQ(
            MessageOf<EConvertError>([&] { StrToBool(word); }), "'" + Utf8(word) + "' is not a valid boolean value.");
        EXPECT_TRUE(StrToBoolDef(word, true));
        EXPECT_FALSE(StrToBoolDef(word, false));
    }
    EXPECT_EQ(BoolToStr(true), u"T");
    EXPECT_EQ(BoolToStr(false), u"F");
}

TEST(InStringList, WithAndWithoutCase)
{
    EXPECT_TRUE(InStringList(u"b", {u"a", u"b"}, false));
    EXPECT_FALSE(InStringList(u"B", {u"a", u"b"}, false));
    EXPECT_TRUE(InStringList(u"È", {u"a", u"è"}, true));
    EXPECT_FALSE(InStringList(u"", {}, true));
    const std::vector<String> names = {u"GL", u"AS"};
    EXPECT_TRUE(InStringList(u"as", names, true));
    EXPECT_FALSE(InStringList(u"as", names, false));
}

TEST(IfOp, EachKindOfValueReachesItsOverload)
{
    // A literal text must not become a bool, nor a large number lose bits.
    static_assert(std::is_same_v<decltype(ifOp(true, u"a", u"b")), String>);
    static_assert(std::is_same_v<decltype(ifOp(true, false, true)), bool>);
    static_assert(std::is_same_v<decltype(ifOp(true, 1, 2)), std::int32_t>);
    static_assert(std::is_same_v<decltype(ifOp(true, 1.5, 2.5)), Extended>);
    EXPECT_EQ(ifOp(true, 1, 2), 1);
    EXPECT_EQ(ifOp(false, INT64_C(1), INT64_C(1) << 40), INT64_C(1) << 40);
    EXPECT_EQ(ifOp(false, u"a", u"b"), u"b");
    EXPECT_FALSE(ifOp(true, false, true));
    EXPECT_EQ(ifOp(true, 1.0L / 3, 0.0L), 1.0L / 3);
    EXPECT_EQ(ifOp(true, 1.5, 2), 1.5L) << "an integer beside a float is one";
    TObject one, two;
    EXPECT_EQ(ifOp(false, &one, &two), &two);
    EXPECT_EQ(ifOp(true, nullptr, &two), nullptr);
}

} // namespace
} // namespace vorn
