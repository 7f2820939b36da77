#include "platform/data/memory_dataset.h"
#include "tests/support/strings_print.h"

#include <limits>

namespace vorn {
namespace {

using test::MessageOf;

BlobValue Blob(std::string_view text)
{
    const auto bytes = std::as_bytes(std::span(text));
    return std::make_shared<const Bytes>(bytes.begin(), bytes.end());
}

class Field : public testing::Test {
protected:
    void SetUp() override
    {
        ds.SetName(u"Prove");
        ds.AddFieldDef(u"S", TFieldType::ftString);
        ds.AddFieldDef(u"I", TFieldType::ftInteger);
        ds.AddFieldDef(u"F", TFieldType::ftFloat);
        ds.AddFieldDef(u"B", TFieldType::ftBoolean);
        ds.AddFieldDef(u"D", TFieldType::ftDate);
        ds.AddFieldDef(u"T", TFieldType::ftDateTime);
        ds.AddFieldDef(u"X", TFieldType::ftBlob);
    }
    /// A row whose first column holds `value` whatever its type.
    TField& With(TValue value)
    {
        ds.Close();
        ds.AddRow({std::move(value)});
        ds.Open();
        ds.Last();
        return ds.Fields(0);
    }
    TField& Editing(StringView name)
    {
        if (!ds.Active()) {
            ds.Open();
            ds.Append();
        }
        return ds.FieldByName(name);
    }

    TMemoryDataSet ds;
};

TEST_F(Field, ReadsIntegersOrRaises)
{
    const std::pair<TValue, int> good[]
        = {{5, 5}, {2.5, 2}, {3.5, 4}, {-2.5, -2}, {String(u" 42"), 42}, {String(u"$10"), 16}, {Blob("7"), 7}};
    for (const auto& [value, expected] : good)
        EXPECT_EQ(With(value).AsInteger(), expected);
    const TValue bad[] = {String(u""), String(u"abc"), String(u"1.5"), std::int64_t{1} << 31, 1e10, 1e30,
        std::numeric_limits<double>::quiet_NaN(), TDateValue{45000}};
    for (const TValue& value : bad)
        EXPECT_THROW(With(value).AsInteger(), EConvertError);
    EXPECT_EQ(With(std::int64_t{1} << 40).AsLargeInt(), std::int64_t{1} << 40);
    EXPECT_THROW(With(1e30).AsLargeInt(), EConvertError);
    const std::string message = MessageOf<EConvertError>([&] { With(String(u"abc")).AsInteger(); });
    for (const char* part : {"\"S\"", "Prove", "'abc'"})
        EXPECT_NE(message.find(part), std::string::npos) << message;
}

TEST_F(Field, ReadsTextsDatesAndTruth)
{
    EXPECT_EQ(With(TDateValue{45351.5}).AsString(), u"29/02/2024 12:00:00");
    EXPECT_EQ(With(0.1).AsString(), u"0.1");
    EXPECT_EQ(With(Blob("perch\xC3\xA9")).AsString(), u"perché");
    EXPECT_EQ(With(String(u"29/02/2024")).AsDateTime(), 45351);
    EXPECT_EQ(With(String(u"2024-02-29 06:00:00")).AsDateTime(), 45351.25);
    EXPECT_EQ(With(String()).AsDateTime(), 0);
    EXPECT_THROW(With(String(u"domani")).AsDateTime(), EConvertError);
    EXPECT_TRUE(With(String(u"TRUE")).AsBoolean());
    EXPECT_FALSE(With(0).AsBoolean());
    EXPECT_THROW(With(String(u"forse")).AsBoolean(), EConvertError);
    EXPECT_THROW(With(String(u"1,5")).AsFloat(), EConvertError);
}

TEST_F(Field, SettersConvertToTheColumn)
{
    Editing(u"S").SetAsInteger(12);
    EXPECT_EQ(Editing(u"S").Value(), TValue(String(u"12")));
    Editing(u"S").SetAsString(u"");
    EXPECT_FALSE(Editing(u"S").IsNull()); // an empty text is a text
    Editing(u"I").SetAsFloat(2.5);
    EXPECT_EQ(Editing(u"I").Value(), TValue(std::int64_t{2}));
    Editing(u"I").SetAsString(u"");
    EXPECT_TRUE(Editing(u"I").IsNull());
    Editing(u"F").SetAsString(u"1.5");
    EXPECT_EQ(Editing(u"F").Value(), TValue(1.5));
    Editing(u"B").SetAsInteger(7);
    EXPECT_EQ(Editing(u"B").Value(), TValue(std::int64_t{1}));
    Editing(u"D").SetAsDateTime(45351.5);
    EXPECT_EQ(Editing(u"D").Value(), TValue(TDateValue{45351}));
    Editing(u"T").SetAsString(u"29/02/2024 12:00");
    EXPECT_EQ(Editing(u"T").Value(), TValue(TDateValue{45351.5}));
    Editing(u"T").SetAsDateTime(0);
    EXPECT_TRUE(Editing(u"T").IsNull());
    Editing(u"X").SetAsString(u"è");
    EXPECT_TRUE(SameValue(Editing(u"X").Value(), Blob("\xC3\xA8")));
    EXPECT_THROW(Editing(u"I").SetAsString(u"x"), EConvertError);
    EXPECT_THROW(Editing(u"D").SetAsFloat(1e300), EConvertError);
    EXPECT_THROW(Editing(u"F").SetAsString(u"x"), EConvertError);
}

TEST(Value, EqualityByContent)
{
    const struct {
        TValue a, b;
        bool same;
    } cases[] = {{{}, {}, true}, {{}, 0, false}, {{}, String(), false}, {5, 5.0, true}, {5, String(u"5"), true},
        {5, String(u"05"), false}, {5.5, String(u"5.5"), true}, {String(u"a"), String(u"A"), false},
        {Blob("x"), Blob("x"), true}, {Blob("x"), Blob("y"), false}, {BlobValue(), Blob("y"), false},
        {std::int64_t{9007199254740993}, 9007199254740992.0, false},
        {std::numeric_limits<std::int64_t>::max(), 9223372036854775808.0, false},
        {TDateValue{45351}, String(u"2024-02-29"), true}};
    for (const auto& c : cases) {
        EXPECT_EQ(SameValue(c.a, c.b), c.same) << c.a.index() << " " << c.b.index();
        EXPECT_EQ(SameValue(c.b, c.a), c.same);
    }
}

} // namespace
} // namespace vorn
