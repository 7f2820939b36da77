#include "tests/data/dataset_fixture.h"

namespace vorn::test {

namespace {

std::unique_ptr<TDataSet> MakeMemory()
{
    auto memory = std::make_unique<TMemoryDataSet>();
    memory->AddFieldDef(u"ID", TFieldType::ftInteger);
    memory->AddFieldDef(u"Dente", TFieldType::ftString, true);
    memory->AddFieldDef(u"Fatto", TFieldType::ftInteger);
    memory->SetAutoIncField(u"id");
    memory->AddRow({1, String(u"11"), 0});
    memory->AddRow({2, String(u"12"), 1});
    memory->AddRow({3, String(u"13")});
    memory->AddRow({4, String(u"11"), 1});
    return memory;
}

} // namespace

void DataSetTest::SetUp()
{
    if (GetParam() == Kind::Memory) {
        ds = MakeMemory();
    } else {
        const String file = dir.File("cure.db");
        ExecuteOnFile(file,
            {u"CREATE TABLE cure (ID INTEGER PRIMARY KEY, Dente TEXT NOT NULL, Fatto INTEGER)",
                u"INSERT INTO cure VALUES (1,'11',0), (2,'12',1), (3,'13',NULL), (4,'11',1)"});
        connection.OpenFile(file);
        auto table = std::make_unique<TSqlDataSet>();
        table->SetConnection(&connection);
        table->SetCommandText(u"SELECT ID, Dente, Fatto FROM cure ORDER BY ID");
        table->SetUpdateTable(u"cure", u"ID");
        ds = std::move(table);
    }
    ds->SetName(u"Cure");
}

std::vector<std::string> DataSetTest::Column(StringView name)
{
    std::vector<std::string> texts;
    const TControlsDisabled silent(*ds);
    const TBookmarkGuard back(*ds);
    for (ds->First(); !ds->Eof(); ds->Next())
        texts.push_back(Utf8(ds->FieldByName(name).AsString()));
    return texts;
}

std::string DataSetTest::TakeLog()
{
    return std::exchange(log, {});
}

void DataSetTest::LogEvents()
{
    const auto note
        = [this](const char* name) { return [this, name](TDataSet*) { log += std::string(name) + " "; }; };
    ds->BeforeOpen = note("BeforeOpen");
    ds->AfterOpen = note("AfterOpen");
    ds->BeforeClose = note("BeforeClose");
    ds->AfterClose = note("AfterClose");
    ds->BeforeInsert = note("BeforeInsert");
    ds->AfterInsert = note("AfterInsert");
    ds->BeforeEdit = note("BeforeEdit");
    ds->AfterEdit = note("AfterEdit");
    ds->BeforePost = note("BeforePost");
    ds->AfterPost = note("AfterPost");
    ds->BeforeCancel = note("BeforeCancel");
    ds->AfterCancel = note("AfterCancel");
    ds->BeforeDelete = note("BeforeDelete");
    ds->AfterDelete = note("AfterDelete");
    ds->BeforeScroll = note("BeforeScroll");
    ds->AfterScroll = note("AfterScroll");
    ds->OnNewRecord = note("OnNewRecord");
}

} // namespace vorn::test
