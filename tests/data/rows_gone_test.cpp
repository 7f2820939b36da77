// A dataset that a handler or a link closes, reopens or frees in the middle of whatever is being done.

#include "platform/data/row_write.h"
#include "platform/data/rows_watch.h"
#include "tests/data/dataset_fixture.h"

#include <algorithm>

namespace vorn::test {
namespace {

/// Keeps its rows where a test can change them behind its back. The columns are ID and T.
class Rows : public TDataSet {
public:
    ~Rows() override { Destroying(); }
    std::vector<Row> stored = {{1, String(u"a")}, {2, String(u"b")}, {3, String(u"c")}};
    bool keyed = true;
    bool widened = false;

protected:
    std::vector<TFieldDef> InternalOpen() override
    {
        for (const Row& row : stored)
            AddLoadedRow(row);
        std::vector<TFieldDef> defs = {{u"ID", TFieldType::ftInteger}, {u"T", TFieldType::ftString}};
        if (widened)
            defs.push_back({u"N", TFieldType::ftString});
        return defs;
    }
    void InternalInsert(Row& row) override { stored.push_back(row); }
    void InternalUpdate(const Row&, Row& row) override { stored[static_cast<std::size_t>(RowIndex())] = row; }
    void InternalDelete(const Row&) override { stored.erase(stored.begin() + RowIndex()); }
    int KeyColumn() const override { return keyed ? 0 : -1; }
};

/// A dataset with three links at two sources. Whatever is told, by events, links or sources, goes through `tell`.
struct Scene {
    std::unique_ptr<Rows> ds = std::make_unique<Rows>();
    Teller tell = [](const std::string&) {};
    TDataSource sources[2];
    const Teller forward = [this](const std::string& what) { tell(what); };
    TellingLink links[3] = {TellingLink(forward), TellingLink(forward), TellingLink(forward)};

    Scene()
    {
        ds->SetName(u"Cure");
        for (const auto& [name, event] : Events(*ds))
            *event = [this, name = name](TDataSet*) { tell(name); };
        for (TDataSource& source : sources) {
            source.OnStateChange = [this](TObject*) { tell("state of the source"); };
            source.SetDataSet(ds.get());
        }
        for (int i = 0; i < 3; ++i) {
            links[i].SetDataSource(&sources[i / 2]);
            links[i].SetBufferCount(10);
        }
    }
    ~Scene()
    {
        tell = [](const std::string&) {};
    }
};

struct Step {
    const char* Name;
    std::function<void(Rows&)> Do;
};

void Type(Rows& ds)
{
    ds.Edit();
    ds.FieldByName(u"T").SetAsString(u"typed");
}

const Step Starts[] = {
    {"closed", [](Rows&) {}},
    {"open", [](Rows& ds) { ds.Open(); }},
    {"in an edit", [](Rows& ds) { ds.Open(), Type(ds); }},
    {"in an insert", [](Rows& ds) { ds.Open(), ds.Append(), Type(ds); }},
};

const Step Operations[] = {
    {"Open", [](Rows& ds) { ds.Open(); }},
    {"Close", [](Rows& ds) { ds.Close(); }},
    {"First", [](Rows& ds) { ds.First(); }},
    {"Last", [](Rows& ds) { ds.Last(); }},
    {"MoveBy", [](Rows& ds) { ds.MoveBy(2); }},
    {"Locate", [](Rows& ds) { ds.Locate(u"ID", 3); }},
    {"GotoBookmark", [](Rows& ds) { ds.GotoBookmark(ds.GetBookmark()); }},
    {"Edit", [](Rows& ds) { ds.Edit(); }},
    {"Append", [](Rows& ds) { ds.Append(); }},
    {"Post", [](Rows& ds) { ds.Post(); }},
    {"Cancel", [](Rows& ds) { ds.Cancel(); }},
    {"Delete", [](Rows& ds) { ds.Delete(); }},
    {"SetValue", [](Rows& ds) { ds.FieldByName(u"T").SetAsString(u"x"); }},
    {"Refresh", [](Rows& ds) { ds.Refresh(); }},
    {"Refresh with other rows", [](Rows& ds) { std::ranges::reverse(ds.stored), ds.Refresh(); }},
    {"Refresh with other columns", [](Rows& ds) { ds.widened = true, ds.Refresh(); }},
    {"disabled controls", [](Rows& ds) { const TControlsDisabled silent(ds); }},
    {"bookmark guard",
        [](Rows& ds) {
            const TBookmarkGuard back(ds);
            ds.Last();
        }},
    {"WriteRow", [](Rows& ds) { WriteRow(ds, [](TDataSet& row) { row.Fields(1).SetAsString(u"w"); }); }},
    {"AppendRow", [](Rows& ds) { AppendRow(ds, [](TDataSet& row) { row.Fields(1).SetAsString(u"w"); }); }},
};

enum class Way { Free, Close, Reopen, ReopenAndType };

/// Interrupts the operation at the nth thing that it tells. Says whether it told as many.
bool Interrupt(const Step& start, const Step& operation, Way way, int nth)
{
    Scene scene;
    Rows& ds = *scene.ds;
    start.Do(ds);
    std::string at;
    std::string behind;
    bool acting = false;
    bool idle = false; // closing what is closed interrupts nothing
    scene.tell = [&](const std::string& what) {
        if (acting || --nth > 0)
            return;
        if (nth < 0) {
            if (!what.starts_with("state"))
                behind += what + " ";
            return;
        }
        at = what;
        idle = way == Way::Close && !ds.Active();
        acting = true;
        if (way == Way::Free)
            scene.ds.reset();
        else
            ds.Close();
        if (way >= Way::Reopen)
            ds.Open();
        if (way == Way::ReopenAndType)
            ds.Next(), Type(ds);
        acting = false;
    };
    bool raised = false;
    try {
        operation.Do(ds);
    } catch (const ERowsGone&) {
        raised = true;
    } catch (const EDatabaseError& e) {
        EXPECT_EQ(at, "") << e.what();
    }
    if (nth > 0 || idle)
        return nth <= 0;
    SCOPED_TRACE(std::string(start.Name) + ", " + operation.Name + ", way " + std::to_string(static_cast<int>(way))
        + " at " + at + " (" + std::to_string(nth) + ")");
    const std::string name = operation.Name;
    // Controls that are enabled again tell of one change in any case.
    EXPECT_TRUE(behind.empty() || name == "disabled controls" || name.starts_with("Refresh with")) << behind;
    const bool stillToBeDone = at.starts_with("Before") && at != "BeforeOpen" && at != "BeforeCancel"
        && !(at == "BeforeClose" && way == Way::Close) && name != "bookmark guard";
    EXPECT_TRUE(way == Way::Free ? !raised : raised || !stillToBeDone);
    for (const TellingLink& link : scene.links) {
        EXPECT_EQ(link.Active(), way >= Way::Reopen);
        EXPECT_EQ(link.DataSet(), scene.ds.get());
        EXPECT_EQ(link.ActiveRecord(), way == Way::ReopenAndType ? 1 : 0);
    }
    if (way == Way::Free)
        return true;
    EXPECT_FALSE(ds.ControlsDisabled());
    EXPECT_EQ(ds.RecordCount(), way == Way::Close ? 0 : static_cast<int>(ds.stored.size()));
    const auto [state, row] = way == Way::Close ? std::pair(TDataSetState::dsInactive, -1)
        : way == Way::Reopen                    ? std::pair(TDataSetState::dsBrowse, 0)
                                                : std::pair(TDataSetState::dsEdit, 1);
    EXPECT_TRUE(ds.State() == state && ds.RowIndex() == row && ds.Modified() == (way == Way::ReopenAndType));
    return true;
}

TEST(RowsGone, AnyOperationMayBeInterruptedAnywhere)
{
    for (const Step& start : Starts)
        for (const Step& operation : Operations)
            for (const Way way : {Way::Free, Way::Close, Way::Reopen, Way::ReopenAndType})
                for (int nth = 1; !HasFailure() && Interrupt(start, operation, way, nth); ++nth) {}
}

TEST(RowsGone, SourcesAndLinksGoByTheLatestWord)
{
    Scene scene;
    Rows other;
    Rows third;
    bool done = false;
    scene.ds->Open();
    other.Open();
    scene.tell = [&](const std::string& what) {
        if (what == "[inactive]" && !std::exchange(done, true))
            scene.sources[0].SetDataSet(&other);
    };
    scene.sources[0].SetDataSet(&third);
    EXPECT_EQ(scene.sources[0].DataSet(), &other);
    EXPECT_TRUE(scene.links[0].Active() && scene.links[1].Active());
    third.Open();
    EXPECT_EQ(scene.links[0].DataSet(), &other);

    auto gone = std::make_unique<TDataSource>();
    scene.tell = [&](const std::string&) { gone.reset(); };
    scene.links[0].SetDataSource(gone.get());
    EXPECT_EQ(scene.links[0].DataSource(), nullptr);
    EXPECT_FALSE(scene.links[0].Active());
}

TEST(RowsGone, WhatASqlDatasetReadsChangesOnlyWhenItIsClosed)
{
    TempDir dir;
    ExecuteOnFile(dir.File("x.db"), {u"CREATE TABLE x (ID INTEGER)"});
    TSqlConnection connection;
    connection.OpenFile(dir.File("x.db"));
    const std::function<void(TSqlDataSet&)> changes[] = {[](TSqlDataSet& ds) { ds.SetConnection(nullptr); },
        [](TSqlDataSet& ds) { ds.SetCommandText(u"none"); }, [](TSqlDataSet& ds) { ds.SetUpdateTable(u"none", {}); }};
    for (const auto& change : changes) {
        auto ds = std::make_unique<TSqlDataSet>();
        ds->SetConnection(&connection);
        ds->SetCommandText(u"SELECT ID FROM x");
        ds->Open();
        ds->AfterClose = [](TDataSet* dataset) { dataset->Open(); };
        EXPECT_THROW(change(*ds), EDatabaseError);
        EXPECT_TRUE(ds->Connection() == &connection && ds->CommandText() != u"none" && ds->UpdateTable().empty());
        ds->AfterClose = [&](TDataSet*) { ds.reset(); };
        change(*ds);
        EXPECT_EQ(ds, nullptr);
    }
}

TEST(RowsGone, ARefreshSaysWhetherItFoundOtherRows)
{
    const std::string change = "[changed] ";
    const std::string others = "state 14 state 14 [changed] ";
    struct Case {
        const char* Name;
        std::function<void(Rows&)> Behind;
        std::string Keyed;
        std::string Plain; // without a key
    };
    const Case cases[] = {
        {"nothing", [](Rows&) {}, change, change},
        {"a value", [](Rows& ds) { ds.stored[1][1] = String(u"x"); }, change, others},
        {"a key", [](Rows& ds) { ds.stored[1][0] = 9; }, others, others},
        {"the order", [](Rows& ds) { std::swap(ds.stored[1], ds.stored[2]); }, others, others},
        {"the number", [](Rows& ds) { ds.stored.pop_back(); }, change, change},
        {"the columns", [](Rows& ds) { ds.widened = true; }, "[layout] ", others.substr(0, 18) + "[layout] "},
    };
    for (const Case& c : cases)
        for (const bool keyed : {true, false}) {
            SCOPED_TRACE(std::string(c.Name) + (keyed ? "" : " without a key"));
            Scene scene;
            scene.ds->keyed = keyed;
            scene.ds->Open();
            std::string told;
            scene.links[0].SetDataSource(nullptr);
            scene.links[1].SetDataSource(nullptr);
            c.Behind(*scene.ds);
            scene.tell = [&](const std::string& what) {
                if (!what.starts_with("event"))
                    told += what + " ";
            };
            scene.ds->Refresh();
            EXPECT_EQ(told, keyed ? c.Keyed : c.Plain);
        }
}

} // namespace
} // namespace vorn::test
