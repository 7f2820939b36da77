#include "platform/data/data_link.h"

#include "platform/data/memory_dataset.h"
#include "tests/support/strings_print.h"

#include <memory>

namespace vorn {
namespace {

class Link : public TDataLink {
public:
    int changes = 0;
    int activeChanges = 0;
    std::vector<int> distances;
    std::function<void()> onActive;
    std::function<void()> onChange;

protected:
    void ActiveChanged() override
    {
        ++activeChanges;
        if (onActive)
            onActive();
    }
    void DataSetChanged() override
    {
        ++changes;
        if (onChange) {
            const auto handler = onChange; // it may free this link
            handler();
        }
    }
    void DataSetScrolled(int distance) override { distances.push_back(distance); }
};

class DataLink : public testing::Test {
protected:
    void SetUp() override
    {
        Fill(*ds, 10);
        source.SetDataSet(ds.get());
        link.SetDataSource(&source);
    }
    static void Fill(TMemoryDataSet& dataset, int rows)
    {
        dataset.AddFieldDef(u"ID", TFieldType::ftInteger);
        for (int i = 0; i < rows; ++i)
            dataset.AddRow({i});
    }

    std::unique_ptr<TMemoryDataSet> ds = std::make_unique<TMemoryDataSet>();
    TDataSource source;
    Link link;
};

TEST_F(DataLink, WindowFollowsTheCurrentRow)
{
    ds->Open();
    link.SetBufferCount(3);
    EXPECT_EQ(link.ActiveRecord(), 0);
    ds->MoveBy(2);
    EXPECT_EQ(link.ActiveRecord(), 2);
    ds->MoveBy(4);
    EXPECT_EQ(link.ActiveRecord(), 2);
    ds->Prior();
    EXPECT_EQ(link.ActiveRecord(), 1);
    ds->First();
    EXPECT_EQ(link.ActiveRecord(), 0);
    EXPECT_EQ(link.distances, (std::vector<int>{0, 4, 0, -4}));
}

TEST_F(DataLink, WindowResizedOnDisabledStateIsRightForTheChangeThatFollows)
{
    ds->Open();
    link.SetBufferCount(10);
    int seen = -1;
    link.onChange = [&] {
        link.SetBufferCount(ds->RecordCount());
        seen = link.ActiveRecord();
    };
    {
        const TControlsDisabled silent(*ds);
        link.SetBufferCount(0);
        ds->Append();
        ds->FieldByName(u"ID").SetAsInteger(50);
        ds->Post();
    }
    EXPECT_EQ(seen, 10);
    EXPECT_EQ(link.changes, 1);
}

TEST_F(DataLink, SeesDataSetsComeAndGo)
{
    ds->Open();
    EXPECT_EQ(link.activeChanges, 1);
    TMemoryDataSet other;
    Fill(other, 1);
    other.Open();
    source.SetDataSet(&other); // the one closes, the other opens
    EXPECT_EQ(link.activeChanges, 3);
    EXPECT_TRUE(link.Active());
    source.SetDataSet(ds.get());
    link.activeChanges = 0;
    bool hadDataSet = true;
    link.onActive = [&] { hadDataSet = link.DataSet() != nullptr; };
    ds.reset();
    EXPECT_EQ(link.activeChanges, 1);
    EXPECT_FALSE(hadDataSet);
    EXPECT_EQ(source.DataSet(), nullptr);
}

TEST_F(DataLink, OutlivesItsSource)
{
    ds->Open();
    auto second = std::make_unique<TDataSource>();
    second->SetDataSet(ds.get());
    link.SetDataSource(second.get());
    EXPECT_TRUE(link.Active());
    second.reset();
    EXPECT_EQ(link.DataSource(), nullptr);
    EXPECT_FALSE(link.Active());
    ds->Next();
    EXPECT_TRUE(link.distances.empty());
    link.SetDataSourceFixed(true);
    EXPECT_THROW(link.SetDataSource(&source), EInvalidOperation);
}

TEST_F(DataLink, LinksMayComeAndGoDuringAnEvent)
{
    ds->Open();
    auto doomed = std::make_unique<Link>();
    auto self = std::make_unique<Link>();
    Link late;
    Link last;
    self->SetDataSource(&source);
    doomed->SetDataSource(&source);
    last.SetDataSource(&source);
    self->onChange = [&] {
        doomed.reset();
        self.reset();
        late.SetDataSource(&source);
    };
    ds->Refresh();
    EXPECT_EQ(last.changes, 1);
    ds->Refresh();
    EXPECT_EQ(late.changes, 1);
    EXPECT_EQ(link.changes, 2);
}

TEST_F(DataLink, SourceMayGoDuringAnEvent)
{
    ds->Open();
    auto doomed = std::make_unique<TDataSource>();
    doomed->SetDataSet(ds.get());
    Link first;
    Link second;
    first.SetDataSource(doomed.get());
    second.SetDataSource(doomed.get());
    first.onChange = [&] { doomed.reset(); };
    ds->Refresh();
    EXPECT_EQ(first.changes, 1);
    EXPECT_EQ(second.changes, 0);
    EXPECT_FALSE(second.Active());
}

} // namespace
} // namespace vorn
