#include "utils/scan_internal.h"

#include "platform/system/exceptions.h"
#include "platform/system/strings.h"
#include "tests/support/strings_print.h"

#include <limits>

namespace vorn {
namespace {

using test::MessageOf;
using test::Utf8;

/// Scans into the targets that the format's own conversions ask for, and gives what was stored as text, one
/// value behind another with "|" between them, and the count in front.
std::string Scan(StringView source, StringView format)
{
    struct Slot {
        ScanKind kind;
        std::int64_t bits = 0;
        Extended number = -1;
        String text = u"untouched";
    };
    std::vector<Slot> slots;
    for (std::size_t position = 1;;) {
        const auto token = ScanNextToken(format, position);
        if (!token)
            break;
        try {
            const ScanToken parsed = ScanParseToken(*token);
            if (parsed.store)
                slots.push_back({.kind = parsed.kind});
        } catch (const Exception&) {
            break;
        }
    }
    std::vector<TVarRec> targets;
    for (Slot& slot : slots)
        targets.push_back({slot.kind == ScanKind::Text ? static_cast<void*>(&slot.text)
                : slot.kind == ScanKind::Float         ? static_cast<void*>(&slot.number)
                                                       : static_cast<void*>(&slot.bits)});
    const int count = sscanf(source, format, targets);
    std::string shown = std::to_string(count) + ":";
    for (int i = 0; i < count; ++i) {
        const Slot& slot = slots[static_cast<std::size_t>(i)];
        shown += i ? "|" : " ";
        shown += slot.kind == ScanKind::Text ? Utf8(slot.text)
            : slot.kind == ScanKind::Float   ? Utf8(FloatToStr(static_cast<double>(slot.number)))
            : slot.kind == ScanKind::Int16   ? std::to_string(static_cast<std::int16_t>(slot.bits))
            : slot.kind == ScanKind::Int32   ? std::to_string(static_cast<std::int32_t>(slot.bits))
                                             : std::to_string(slot.bits);
    }
    return shown;
}

struct ScanCase {
    StringView source, format;
    const char* result;
};

void Expect(std::initializer_list<ScanCase> cases)
{
    for (const ScanCase& c : cases)
        EXPECT_EQ(Scan(c.source, c.format), c.result) << "source: " << Utf8(c.source) << ", format: " << Utf8(c.format);
}

TEST(Scanf, ConversionsAndWhiteSpace)
{
    Expect({
        {u"12 34", u"%d %d", "2: 12|34"},
        {u"12 34", u"%d%d", "2: 12|34"},
        {u"12", u"%d %d", "1: 12"},
        {u"12", u"%d %s%c", "1: 12"}, // not even an empty text
        {u"  7", u"%d", "1: 7"},
        {u"\b\n\r 7", u"%d", "1: 7"},
        {u" a", u"%c", "1: 32"},
        {u"12abc", u"%d%s", "2: 12|abc"},
        {u"1\t2", u"%d %d", "1: 1"},
        {u"1 \b 2 x", u"%d \r\n %d", "2: 1|2"},
        {u"-5 40000 -3000000000 7", u"%d%h%i%u", "4: -5|-25536|-3000000000|7"},
        {u"4294967297", u"%u", "1: 1"},
        {u"+1.5 -.25e2 3E-1", u"%e%f%g", "3: 1.5|-25|0.3"},
        {u"12.5", u"%m", "1: 120000"},
        {u"12.5", u"%m.%d", "2: 120000|5"},
        {u"-922337203685477", u"%m", "1: -9223372036854770000"},
        {u"ff 0xFF $ff FFFFFFFF", u"%x%x%x%x", "4: 255|255|255|4294967295"},
        {u"10 0x10 $10 -1", u"%p%p%p%p", "4: 10|16|16|4294967295"},
        {u"", u"%d", "0:"},
        {u"x", u"", "0:"},
    });
}

TEST(Scanf, WidthsSetsLiteralsAndSkippedFields)
{
    Expect({
        {u"12,34", u"%d,%d", "2: 12|34"},
        {u"12;34", u"%d,%d", "1: 12"},
        {u"12 , 34", u"%d,%d", "2: 12|34"},
        {u"1 2", u"%*d %d", "1: 2"},
        {u"abcdefgh", u"%5s", "1: abcde"},
        {u"123456", u"%3d%d", "2: 123|456"},
        {u"123456", u"%*3d%d", "1: 456"},
        {u"123456", u"%0s%d", "2: |123456"},
        {u"123abc", u"%[0-9]", "1: 123"},
        {u"123abc", u"%2[0-9]%s", "2: 12|3abc"},
        {u"a b,c", u"%[^,]", "1: a b"},
        {u"  x", u"%[^,]", "1: x"},
        {u"a]b", u"%[\\]a]%c", "2: a]|98"},
        {u"zab", u"%[a-c]%s", "2: |zab"}, // an empty text is a text
        {u" ab", u"%[ ]c%s", "2: 32|ab"},
        {u"ab", u"%[]s", "1: ab"}, // an empty set is no set; "s" is a literal then
        {u"perch\u00e9\u20ac2", u"%s%d", "1: perch\u00e9"},
        {u"%% 5", u"%% %d", "1: 5"},
        {u"%%5", u"%%%d", "0:"}, // a whole word
        {u"% 5", u"%% %d", "0:"},
        {u"%3% 5", u"%3% %d", "0:"}, // no width with it
        {u"%*% 5", u"%*% %d", "0:"},
        {u"\u20ac5", u"\u20ac%d", "0:"},
    });
}

TEST(Scanf, EndsQuietlyAtWhatItCannotReadOrUnderstand)
{
    Expect({
        {u"abc", u"%d", "0:"},
        {u"-", u"%d", "0:"},
        {u"2147483648", u"%d", "0:"},
        {u"9223372036854775808", u"%i", "0:"},
        {u"922337203685478", u"%m", "0:"},
        {u"$100000000", u"%x", "0:"},
        {u"0x", u"%x", "0:"},
        {u"-5", u"%x", "0:"},
        {u"ff", u"%p", "0:"},
        {u"-5", u"%u", "0:"},
        {u"1e", u"%f", "0:"},
        {u"+-1", u"%f", "0:"},
        {u"1e9999", u"%f", "0:"},
        {u"x", u"%*d%s", "0:"},
    });
    for (StringView bad : {u"%y", u"%", u"%5", u"%*", u"%[a", u"%[a\\]", u"%[z-a]", u"%D", u"%[a]C", u"%**d", u"%-5d",
             u"%]", u"%5%", u"%*%", u"%99999999999d", u"% d"})
        EXPECT_EQ(Scan(u"5 6", u"%d" + String(bad)), "1: 5") << Utf8(bad);
}

TEST(Scanf, WritesNoMoreThanTheFieldHolds)
{
    std::int32_t number = 77;
    EXPECT_EQ(sscanf(u"x", u"%d", {{&number}}), 0);
    EXPECT_EQ(number, 77);

    char chars[] = "......";
    EXPECT_EQ(sscanf(u"ab", u"%5c", {{chars}}), 1);
    EXPECT_STREQ(chars, "ab....");
    EXPECT_EQ(sscanf(u"zb", u"%[a-y]c", {{chars}}), 1); // no character fits: counted, not written
    EXPECT_STREQ(chars, "ab....");

    ShortString brief;
    EXPECT_EQ(sscanf(String(300, u'\u00e8'), u"%s", {{&brief, vtString}}), 1);
    EXPECT_EQ(brief.Length, 255);
    EXPECT_EQ(brief.Chars.back(), '\xE8');

    Extended third = 0; // more digits than a double holds
    EXPECT_EQ(sscanf(u"0.333333333333333333", u"%g", {{&third}}), 1);
    EXPECT_EQ(third, 0.333333333333333333L);
}

TEST(Scanf, MissingTargetsRaise)
{
    const char* const message = "Insufficent pointers for format specifiers!";
    std::int32_t first = 0;
    EXPECT_EQ(MessageOf<Exception>([] { sscanf(u"5", u"%d", {}); }), message);
    EXPECT_EQ(MessageOf<Exception>([&] { sscanf(u"5 6", u"%d%d", {{&first}}); }), message);
    EXPECT_EQ(first, 5);
    EXPECT_EQ(MessageOf<Exception>([&] { sscanf(u"7 6", u"%d%d", first); }), message);
    EXPECT_EQ(first, 7);
    EXPECT_EQ(sscanf(u"5", u"%*d", {}), 0);
    EXPECT_EQ(sscanf(u"5", u"%d%d", {{&first}}), 1); // the source ends before the second
}

template <typename... T>
concept Scannable = requires(T&&... targets)
{
    vorn::sscanf(u"", u"", targets...);
};

TEST(Scanf, TypedTargetsAreChecked)
{
    static_assert(Scannable<int&, String&, Currency&>);
    static_assert(!Scannable<double&>);
    static_assert(!Scannable<const int&>);
    static_assert(!Scannable<bool&>);

    std::int32_t x = 0, y = 0;
    std::int16_t small = 0;
    std::uint32_t bits = 0;
    std::int64_t large = 0;
    Extended number = 0;
    Currency price;
    String name;
    ShortString brief;
    char letter = 0;
    char pair[2] = {};
    EXPECT_EQ(sscanf(u"1 -2 3 FFFFFFFF 5 6.5 7 ab cd efg", u"%d%d%h%x%i%f%m%s%s %c%2c", x, y, small, bits, large,
                  number, price, name, brief, letter, pair),
        11);
    EXPECT_TRUE(x == 1 && y == -2 && small == 3 && bits == 0xFFFFFFFF && large == 5 && number == 6.5L);
    EXPECT_TRUE(price == Currency{70'000} && name == u"ab" && brief.Length == 2 && letter == 'e');
    EXPECT_EQ(std::string(pair, 2), "fg");

    // Told before anything is written, whatever the source holds.
    EXPECT_EQ(MessageOf<EConvertError>([&] { sscanf(u"", u"%d %*i %5i", x, y); }),
        "'%5i' can't be stored in target 2, of type int32_t");
    EXPECT_EQ(x, 1);
    EXPECT_EQ(MessageOf<EConvertError>([&] { sscanf(u"abc", u"%3c", pair); }),
        "'%3c' can't be stored in target 1, of type char");
    EXPECT_EQ(sscanf(u"9", u"%d%y%s", x, y), 1); // what follows a bad token isn't looked at
}

TEST(CharClasses, HoldExactlyTheirCharacters)
{
    const struct {
        bool (*function)(char16_t);
        StringView members; // as a set expression
    } classes[] = {
        {isdigit, u"0-9"},
        {isupper, u"A-Z"},
        {islower, u"a-z"},
        {isalpha, u"A-Za-z"},
        {isalnum, u"0-9A-Za-z"},
        {isxdigit, u"0-9A-Fa-f"},
        {iscntrl, u"\u0001-\u001f\u007f"},
        {isgraph, u"!-~"},
        {isprint, u" -~"},
        {isspace, u"\b\n\r "},
        {ispunct, u"!-/:-@[-`{-~"},
    };
    for (const auto& c : classes) {
        TCharSet set;
        CreateSet(c.members, set);
        set.Put(0, c.function == iscntrl); // which a literal can't hold
        for (unsigned code = 0; code < 0x10000; ++code)
            EXPECT_EQ(c.function(static_cast<char16_t>(code)), set.Contains(static_cast<char16_t>(code)))
                << Utf8(c.members) << " " << code;
    }
    for (unsigned code = 0; code < 0x10000; ++code) {
        const auto c = static_cast<char16_t>(code);
        EXPECT_EQ(toupper(c), islower(c) ? c - 32 : c);
        EXPECT_EQ(tolower(c), isupper(c) ? c + 32 : c);
    }
}

TEST(Sscanf, ATargetMayBeTheTextThatIsRead)
{
    String text = u"ab 12";
    std::int32_t number = 0;
    EXPECT_EQ(sscanf(text, u"%s %d", text, number), 2);
    EXPECT_EQ(text, u"ab");
    EXPECT_EQ(number, 12);
}

} // namespace
} // namespace vorn
