#include "platform/data/memory_dataset.h"

#include "tests/support/strings_print.h"

namespace vorn {
namespace {

TEST(MemoryDataSet, NumbersAreNeverGivenTwice)
{
    TMemoryDataSet ds;
    ds.AddFieldDef(u"ID", TFieldType::ftInteger, true);
    ds.AddFieldDef(u"T", TFieldType::ftString);
    ds.SetAutoIncField(u"ID");
    ds.AddRow({41});
    ds.Open();
    const auto append = [&] {
        ds.Append();
        ds.FieldByName(u"T").SetAsString(u"x");
        ds.Post();
        return ds.FieldByName(u"ID").AsInteger();
    };
    ds.Edit(); // a change of a row has no say in it
    ds.FieldByName(u"T").SetAsString(u"y");
    ds.Post();
    EXPECT_EQ(append(), 42);
    ds.Delete();
    EXPECT_EQ(append(), 43);
    ds.Close();
    ds.Open();
    EXPECT_EQ(ds.RecordCount(), 2);
    EXPECT_EQ(append(), 44);
}

TEST(MemoryDataSet, RowsAlikeAreToldApart)
{
    TMemoryDataSet ds;
    ds.AddFieldDef(u"T", TFieldType::ftString);
    for (int i = 0; i < 3; ++i)
        ds.AddRow({String(u"same")});
    ds.Open();
    ds.Next();
    ds.Edit();
    ds.FieldByName(u"T").SetAsString(u"second");
    ds.Post();
    ds.Last();
    ds.Delete();
    ds.Close();
    ds.Open();
    EXPECT_EQ(ds.FieldByName(u"T").AsString(), u"same");
    ds.Next();
    EXPECT_EQ(ds.FieldByName(u"T").AsString(), u"second");
    EXPECT_EQ(ds.RecordCount(), 2);
}

} // namespace
} // namespace vorn
