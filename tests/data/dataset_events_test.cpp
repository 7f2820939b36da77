// The order in which a dataset tells its events and its links, whatever keeps the rows.

#include "tests/data/dataset_fixture.h"

namespace vorn::test {
namespace {

class DataSetEvents : public DataSetTest {
protected:
    void SetUp() override
    {
        DataSetTest::SetUp();
        source.SetDataSet(ds.get());
        link.SetDataSource(&source);
        link.SetBufferCount(10);
        LogEvents();
    }
    void TearDown() override
    {
        link.SetDataSource(nullptr);
        log.clear();
    }

    TDataSource source;
    TellingLink link{[this](const std::string& what) {
        if (!what.starts_with("event") && what != "state 6")
            log += what + " ";
    }};
};
INSTANTIATE_TEST_SUITE_P(Kinds, DataSetEvents, testing::Values(Kind::Memory, Kind::Sqlite),
    [](const auto& kind) { return kind.param == Kind::Memory ? "Memory" : "Sqlite"; });

TEST_P(DataSetEvents, OpenAndClose)
{
    ds->Open();
    EXPECT_EQ(TakeLog(), "BeforeOpen [active] AfterOpen AfterScroll ");
    ds->Open();
    EXPECT_EQ(TakeLog(), "");
    ds->Close();
    EXPECT_EQ(TakeLog(), "BeforeClose [inactive] AfterClose ");
    ds->Open();
    ds->Edit();
    TakeLog();
    ds->Close();
    EXPECT_EQ(TakeLog(), "BeforeClose [inactive] [editing] AfterClose ");
}

TEST_P(DataSetEvents, Scrolling)
{
    ds->Open();
    TakeLog();
    const std::string scroll = "BeforeScroll [scrolled 0] AfterScroll ";
    ds->Next();
    EXPECT_EQ(TakeLog(), scroll);
    EXPECT_EQ(ds->MoveBy(0), 0);
    EXPECT_EQ(TakeLog(), "");
    ds->Last();
    EXPECT_EQ(TakeLog(), scroll);
    ds->First();
    ds->MoveBy(3);
    TakeLog();
    ds->Next(); // no row there: the end is told of
    EXPECT_EQ(TakeLog(), scroll);
    EXPECT_TRUE(ds->Eof());
    ds->Next();
    EXPECT_EQ(TakeLog(), "");
    EXPECT_TRUE(ds->Locate(u"ID", 2));
    EXPECT_EQ(TakeLog(), scroll);
    EXPECT_FALSE(ds->Locate(u"ID", 77));
    EXPECT_EQ(TakeLog(), "");
}

TEST_P(DataSetEvents, EditPostCancel)
{
    ds->Open();
    TakeLog();
    ds->Edit();
    EXPECT_EQ(TakeLog(), "BeforeEdit [editing] [record] AfterEdit ");
    ds->Edit();
    EXPECT_EQ(TakeLog(), "");
    ds->FieldByName(u"Fatto").SetAsInteger(3);
    EXPECT_EQ(TakeLog(), "[field Fatto] ");
    ds->Post();
    EXPECT_EQ(TakeLog(), "[update] BeforePost [editing] [changed] AfterPost ");
    ds->Edit();
    TakeLog();
    ds->Cancel();
    EXPECT_EQ(TakeLog(), "BeforeCancel [editing] [changed] AfterCancel ");
    ds->Edit();
    ds->FieldByName(u"Fatto").SetAsInteger(4);
    TakeLog();
    ds->Next();
    EXPECT_EQ(TakeLog(),
        "[update] [update] BeforePost [editing] [changed] AfterPost "
        "BeforeScroll [scrolled 0] AfterScroll ");
}

TEST_P(DataSetEvents, InsertDeleteRefresh)
{
    ds->Open();
    TakeLog();
    ds->Append();
    EXPECT_EQ(TakeLog(), "BeforeInsert BeforeScroll [editing] OnNewRecord [changed] AfterInsert AfterScroll ");
    ds->Cancel();
    TakeLog();
    ds->Delete();
    EXPECT_EQ(TakeLog(), "BeforeDelete [changed] AfterDelete AfterScroll ");
    ds->Refresh();
    EXPECT_EQ(TakeLog(), "[changed] ");
}

TEST_P(DataSetEvents, DisabledControlsAreSilentAndEndWithOneChange)
{
    ds->Open();
    TakeLog();
    ds->BeforeScroll = ds->AfterScroll = nullptr;
    ds->DisableControls();
    EXPECT_EQ(TakeLog(), "state 14 ");
    ds->DisableControls();
    ds->Last();
    ds->EnableControls();
    EXPECT_TRUE(ds->ControlsDisabled());
    EXPECT_EQ(TakeLog(), "");
    ds->EnableControls();
    EXPECT_EQ(TakeLog(), "state 14 [changed] ");
    ds->EnableControls(); // one too many
    EXPECT_EQ(TakeLog(), "");

    ds->DisableControls();
    ds->Close();
    TakeLog();
    ds->EnableControls();
    EXPECT_EQ(TakeLog(), "state 14 [inactive] ");
}

} // namespace
} // namespace vorn::test
