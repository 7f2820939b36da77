#include "tests/data/dataset_fixture.h"

#include "platform/data/rows_watch.h"

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

void TellingLink::DataEvent(TDataEvent event, std::intptr_t info)
{
    tell_((ConcernsRows(event) ? "event " : "state ") + std::to_string(static_cast<int>(event)));
    TDataLink::DataEvent(event, info);
}

void TellingLink::RecordChanged(TField* field)
{
    tell_(field ? "[field " + Utf8(field->FieldName()) + "]" : "[record]");
}

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
    for (const auto& [name, event] : Events(*ds))
        *event = [this, name = name](TDataSet*) { log += std::string(name) + " "; };
}

std::vector<std::pair<const char*, TDataSetNotifyEvent*>> Events(TDataSet& ds)
{
    return {{"BeforeOpen", &ds.BeforeOpen}, {"AfterOpen", &ds.AfterOpen}, {"BeforeClose", &ds.BeforeClose},
        {"AfterClose", &ds.AfterClose}, {"BeforeInsert", &ds.BeforeInsert}, {"AfterInsert", &ds.AfterInsert},
        {"BeforeEdit", &ds.BeforeEdit}, {"AfterEdit", &ds.AfterEdit}, {"BeforePost", &ds.BeforePost},
        {"AfterPost", &ds.AfterPost}, {"BeforeCancel", &ds.BeforeCancel}, {"AfterCancel", &ds.AfterCancel},
        {"BeforeDelete", &ds.BeforeDelete}, {"AfterDelete", &ds.AfterDelete}, {"BeforeScroll", &ds.BeforeScroll},
        {"AfterScroll", &ds.AfterScroll}, {"OnNewRecord", &ds.OnNewRecord}};
}

} // namespace vorn::test
