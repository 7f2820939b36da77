#include "platform/data/row_write.h"

#include "platform/data/memory_dataset.h"
#include "platform/data/rows_watch.h"
#include "tests/support/strings_print.h"

namespace vorn {
namespace {

/// Rows 1 "a" and 2 "b"; the writer sets T to "w".
class RowWriteTest : public testing::Test {
protected:
    void SetUp() override
    {
        ds->AddFieldDef(u"ID", TFieldType::ftInteger, true);
        ds->AddFieldDef(u"T", TFieldType::ftString);
        ds->AddFieldDef(u"N", TFieldType::ftString);
        ds->SetAutoIncField(u"ID");
        ds->AddRow({1, String(u"a")});
        ds->AddRow({2, String(u"b")});
        ds->Open();
    }
    static void Write(TDataSet& row) { row.FieldByName(u"T").SetAsString(u"w"); }
    static void Refuse(TDataSet*) { throw EDatabaseError(u"refused"); }
    String T() const { return ds->FieldByName(u"T").AsString(); }
    void Type(StringView text)
    {
        ds->Edit();
        ds->FieldByName(u"N").SetAsString(text);
    }

    std::unique_ptr<TMemoryDataSet> ds = std::make_unique<TMemoryDataSet>();
};

TEST_F(RowWriteTest, WritesTheCurrentRowOrANewOne)
{
    EXPECT_TRUE(WriteRow(*ds, Write));
    EXPECT_EQ(T(), u"w");
    EXPECT_EQ(ds->State(), TDataSetState::dsBrowse);
    EXPECT_TRUE(AppendRow(*ds, Write));
    EXPECT_EQ(ds->FieldByName(u"ID").AsInteger(), 3);
    EXPECT_EQ(ds->RecordCount(), 3);
}

TEST_F(RowWriteTest, GivesUpWhatItBegan)
{
    ds->BeforePost = Refuse;
    EXPECT_THROW(WriteRow(*ds, Write), EDatabaseError);
    EXPECT_EQ(ds->State(), TDataSetState::dsBrowse);
    EXPECT_EQ(T(), u"a");
    EXPECT_THROW(AppendRow(*ds, Write), EDatabaseError);
    EXPECT_EQ(ds->State(), TDataSetState::dsBrowse);
    EXPECT_EQ(ds->RecordCount(), 2);
    ds->BeforePost = nullptr;
    EXPECT_THROW(WriteRow(*ds, [](TDataSet& row) { row.FieldByName(u"none"); }), EDatabaseError);
    EXPECT_EQ(ds->State(), TDataSetState::dsBrowse);
}

TEST_F(RowWriteTest, JoinsAnEditAndLeavesItWhenRefused)
{
    Type(u"typed");
    ds->BeforePost = Refuse;
    EXPECT_THROW(WriteRow(*ds, Write), EDatabaseError);
    EXPECT_EQ(ds->State(), TDataSetState::dsEdit);
    EXPECT_EQ(T(), u"a");
    EXPECT_EQ(ds->FieldByName(u"N").AsString(), u"typed");
    EXPECT_THROW(AppendRow(*ds, Write), EDatabaseError); // the edit can't be posted, and isn't ours
    EXPECT_EQ(ds->State(), TDataSetState::dsEdit);
    EXPECT_EQ(ds->FieldByName(u"N").AsString(), u"typed");
    ds->BeforePost = nullptr;
    EXPECT_TRUE(WriteRow(*ds, Write));
    EXPECT_EQ(T(), u"w");
    EXPECT_EQ(ds->FieldByName(u"N").AsString(), u"typed");
}

TEST_F(RowWriteTest, WritesNoOtherRowThanTheOneMeant)
{
    ds->BeforeEdit = [](TDataSet* d) { d->Next(); };
    EXPECT_FALSE(WriteRow(*ds, Write));
    EXPECT_EQ(ds->State(), TDataSetState::dsBrowse);
    EXPECT_EQ(T(), u"b");
}

TEST_F(RowWriteTest, HandlersMayCancelReopenCloseOrFree)
{
    ds->BeforePost = [](TDataSet* d) { d->Cancel(); };
    EXPECT_FALSE(AppendRow(*ds, Write));
    EXPECT_EQ(ds->RecordCount(), 2);
    ds->BeforePost = nullptr;
    ds->AfterEdit = [](TDataSet* d) {
        d->Close();
        d->Open();
    };
    EXPECT_FALSE(WriteRow(*ds, Write));
    EXPECT_EQ(T(), u"a");
    ds->AfterEdit = [](TDataSet* d) { d->Close(); };
    EXPECT_FALSE(WriteRow(*ds, Write));
    ds->Open();
    ds->AfterEdit = nullptr;
    // Read anew behind the post, with another row gone: the row is there all the same.
    ds->AfterPost = [](TDataSet* d) {
        d->First();
        d->Delete();
        d->Last();
    };
    EXPECT_TRUE(AppendRow(*ds, Write));
    EXPECT_EQ(ds->RecordCount(), 2);
    ds->AfterPost = nullptr;
    ds->AfterPost = [this](TDataSet*) { ds.reset(); };
    EXPECT_TRUE(WriteRow(*ds, Write));
    EXPECT_EQ(ds, nullptr);
}

TEST_F(RowWriteTest, AWatchTellsAnotherOpening)
{
    const TRowsWatch watch(ds.get());
    EXPECT_TRUE(watch.Open());
    ds->Close();
    EXPECT_FALSE(watch.Open());
    ds->Open();
    EXPECT_FALSE(watch.Open());
    const TRowsWatch again(ds.get());
    EXPECT_TRUE(again.Open());
    ds.reset();
    EXPECT_FALSE(again.Open());
    EXPECT_FALSE(TRowsWatch(nullptr).Open());
}

} // namespace
} // namespace vorn
