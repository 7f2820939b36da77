// What any dataset promises about rows and places, whatever keeps the rows.

#include "tests/data/dataset_fixture.h"

#include <algorithm>
#include <limits>

namespace vorn::test {
namespace {

using Texts = std::vector<std::string>;
using enum TDataSetState;

class DataSet : public DataSetTest {};
INSTANTIATE_TEST_SUITE_P(Kinds, DataSet, testing::Values(Kind::Memory, Kind::Sqlite),
    [](const auto& kind) { return kind.param == Kind::Memory ? "Memory" : "Sqlite"; });

TEST_P(DataSet, WalksFromFirstToLastAndBack)
{
    ds->Open();
    EXPECT_TRUE(ds->Bof());
    EXPECT_FALSE(ds->Eof());
    EXPECT_EQ(Column(u"dente"), (Texts{"11", "12", "13", "11"}));
    EXPECT_EQ(ds->MoveBy(2), 2);
    EXPECT_EQ(ds->RowIndex(), 2);
    EXPECT_EQ(ds->MoveBy(std::numeric_limits<int>::max()), 1);
    EXPECT_TRUE(ds->Eof());
    EXPECT_EQ(ds->MoveBy(std::numeric_limits<int>::min()), -3);
    EXPECT_TRUE(ds->Bof());
    ds->Last();
    EXPECT_EQ(ds->FieldByName(u"ID").AsInteger(), 4);
    EXPECT_TRUE(ds->Eof());
    ds->Prior();
    EXPECT_FALSE(ds->Eof());
    EXPECT_EQ(ds->FieldByName(u"ID").AsInteger(), 3);
}

TEST_P(DataSet, LocateIsExactAndMovesOnlyIfItFinds)
{
    ds->Open();
    ds->Edit();
    ds->FieldByName(u"Dente").SetAsString(u"AbC");
    ds->Post();
    ds->Last();
    EXPECT_FALSE(ds->Locate(u"Dente", String(u"abc")));
    EXPECT_FALSE(ds->Locate(u"ID", 99));
    EXPECT_EQ(ds->RowIndex(), 3);
    EXPECT_TRUE(ds->Locate(u"Dente", String(u"AbC")));
    EXPECT_EQ(ds->RowIndex(), 0);
    EXPECT_TRUE(ds->Locate(u"Fatto", 1)); // the first of two
    EXPECT_EQ(ds->RowIndex(), 1);
    EXPECT_TRUE(ds->Locate(u"Fatto", TValue()));
    EXPECT_EQ(ds->RowIndex(), 2);
    EXPECT_TRUE(ds->Locate(u"ID", String(u"4")));
    EXPECT_FALSE(ds->Locate(u"ID", String(u"04")));
    EXPECT_TRUE(ds->Locate(u"ID", 2.0));
    EXPECT_THROW(ds->Locate(u"Manca", 1), EDatabaseError);
}

TEST_P(DataSet, LocateStaysRightAfterManySearchesAndChanges)
{
    ds->Open();
    const auto check = [&] {
        for (int round = 0; round < 6; ++round) // some searches make an index, the answers stay those of a walk
            for (int id = 0; id <= 6; ++id) {
                const Texts ids = Column(u"ID");
                const auto found = std::find(ids.begin(), ids.end(), std::to_string(id));
                ASSERT_EQ(ds->Locate(u"ID", id), found != ids.end()) << id;
                if (found != ids.end()) {
                    ASSERT_EQ(ds->RowIndex(), found - ids.begin());
                }
            }
    };
    check();
    ds->Append();
    ds->FieldByName(u"Dente").SetAsString(u"21");
    ds->Post();
    EXPECT_TRUE(ds->Locate(u"ID", 5));
    check();
    ds->Locate(u"ID", 2);
    ds->Delete();
    check();
    ds->Locate(u"ID", 3);
    ds->Edit();
    ds->FieldByName(u"ID").SetAsInteger(6);
    ds->Post();
    check();
}

TEST(MixedColumn, AnIndexAnswersAsAWalkDoes)
{
    const Bytes bytes(3, std::byte{7});
    const auto blob = [&] { return std::make_shared<const Bytes>(bytes); };
    const TDateValue date{45292.5};
    std::vector<TValue> values = {TValue(), std::int64_t{5}, 5.0, u"5", u"5.0", u"05", u" 5", std::int64_t{0}, -0.0,
        u"-0", std::int64_t{9007199254740993}, 9007199254740992.0, u"9007199254740993", date, DateToIso(date.Value),
        u"", u"Carie", u"carie", blob(), blob(), std::numeric_limits<double>::quiet_NaN(), u"nan", u"9", u"C1"};
    for (int turn = 0; turn < 2; ++turn) {
        TMemoryDataSet rows(nullptr);
        rows.AddFieldDef(u"V", TFieldType::ftString);
        std::vector<TValue> stored;
        for (std::size_t i = 0; i + 2 < values.size(); ++i) // the last two aren't there at first
            stored.push_back(values[i]);
        stored.insert(stored.end(), values.begin(), values.begin() + 5);
        for (const TValue& value : stored)
            rows.AddRow({value});
        rows.Open();
        for (int round = 0; round < 4; ++round) {
            if (round >= 2) {
                rows.Append();
                rows.Fields(0).SetValue(values[values.size() - static_cast<std::size_t>(round) + 1]);
                rows.Post();
                stored.push_back(rows.Fields(0).Value()); // as text
            }
            for (const TValue& value : values) {
                const auto first = std::find_if(
                    stored.begin(), stored.end(), [&](const TValue& other) { return SameValue(other, value); });
                ASSERT_EQ(rows.Locate(u"V", value), first != stored.end());
                if (first != stored.end()) {
                    ASSERT_EQ(rows.RowIndex(), first - stored.begin());
                }
            }
        }
        std::reverse(values.begin(), values.end());
    }
}

TEST_P(DataSet, BookmarksSurviveWhatHappensToOtherRows)
{
    ds->Open();
    ds->MoveBy(2);
    const TBookmark third = ds->GetBookmark();
    ds->First();
    const TBookmark first = ds->GetBookmark();
    ds->Edit();
    ds->FieldByName(u"Fatto").SetAsInteger(5);
    ds->Post();
    ds->Append();
    ds->FieldByName(u"Dente").SetAsString(u"48");
    const TBookmark added = ds->GetBookmark();
    ds->Post();
    ds->First();
    ds->Delete();
    EXPECT_FALSE(ds->BookmarkValid(first));
    EXPECT_THROW(ds->GotoBookmark(first), EDatabaseError);
    ds->GotoBookmark(third);
    EXPECT_EQ(ds->FieldByName(u"ID").AsInteger(), 3);
    ds->Refresh();
    ds->GotoBookmark(added);
    EXPECT_EQ(ds->FieldByName(u"Dente").AsString(), u"48");
    EXPECT_FALSE(ds->BookmarkValid(TBookmark()));
}

TEST_P(DataSet, EditIsKeptByPostAndDroppedByCancel)
{
    ds->Open();
    TField& tooth = ds->FieldByName(u"Dente");
    EXPECT_THROW(tooth.SetAsString(u"x"), EDatabaseError);
    ds->Edit();
    EXPECT_EQ(ds->State(), dsEdit);
    EXPECT_FALSE(ds->Modified());
    tooth.SetAsString(u"18");
    EXPECT_TRUE(ds->Modified());
    ds->Cancel();
    EXPECT_EQ(tooth.AsString(), u"11");
    ds->Edit();
    tooth.SetAsString(u"18");
    ds->Next(); // moving away posts
    EXPECT_EQ(ds->State(), dsBrowse);
    EXPECT_EQ(ds->RowIndex(), 1);
    ds->Close();
    ds->Open();
    EXPECT_EQ(ds->FieldByName(u"Dente").AsString(), u"18");
    EXPECT_THROW(ds->Post(), EDatabaseError);
}

TEST_P(DataSet, AppendedRowKnowsItsKeyWhenPostReturns)
{
    ds->Open();
    ds->OnNewRecord = [](TDataSet* d) { d->FieldByName(u"Fatto").SetAsInteger(7); };
    ds->Append();
    EXPECT_EQ(ds->State(), dsInsert);
    EXPECT_EQ(ds->RowIndex(), 4);
    EXPECT_EQ(ds->RecordCount(), 4);
    EXPECT_TRUE(ds->FieldByName(u"ID").IsNull());
    ds->First(); // defaults alone aren't kept
    EXPECT_EQ(ds->RecordCount(), 4);
    ds->Append();
    const std::string message = MessageOf<EDatabaseError>([&] { ds->Post(); });
    EXPECT_NE(message.find("Dente"), std::string::npos);
    EXPECT_EQ(ds->State(), dsInsert);
    ds->FieldByName(u"Dente").SetAsString(u"28");
    ds->Post();
    EXPECT_EQ(ds->FieldByName(u"ID").AsInteger(), 5);
    EXPECT_EQ(ds->FieldByName(u"Fatto").AsInteger(), 7);
    EXPECT_EQ(ds->RowIndex(), 4);
    ds->Refresh();
    EXPECT_EQ(Column(u"Dente"), (Texts{"11", "12", "13", "11", "28"}));
    EXPECT_EQ(ds->RowIndex(), 4);
}

TEST_P(DataSet, DeleteMakesTheNextRowCurrentOrTheLast)
{
    ds->Open();
    ds->Next();
    ds->Delete();
    EXPECT_EQ(ds->FieldByName(u"ID").AsInteger(), 3);
    ds->Last();
    ds->Delete();
    EXPECT_EQ(ds->FieldByName(u"ID").AsInteger(), 3);
    ds->Delete();
    ds->Delete();
    EXPECT_TRUE(ds->IsEmpty());
    EXPECT_TRUE(ds->Bof() && ds->Eof());
    EXPECT_EQ(ds->RowIndex(), -1);
    EXPECT_EQ(ds->FieldByName(u"ID").AsInteger(), 0);
    EXPECT_THROW(ds->Delete(), EDatabaseError);
    EXPECT_THROW(ds->Edit(), EDatabaseError);
    ds->Next();
    ds->First();
    ds->GotoBookmark(ds->GetBookmark());
    ds->Close();
    ds->Open();
    EXPECT_TRUE(ds->IsEmpty());
}

TEST_P(DataSet, ClosedOneRefusesToBeUsed)
{
    for (const auto& use : {&TDataSet::First, &TDataSet::Next, &TDataSet::Edit, &TDataSet::Append, &TDataSet::Post,
             &TDataSet::Delete, &TDataSet::Refresh})
        EXPECT_THROW(((*ds).*use)(), EDatabaseError);
    EXPECT_EQ(ds->RowIndex(), -1);
    EXPECT_EQ(ds->FindField(u"ID"), nullptr);
}

} // namespace
} // namespace vorn::test
