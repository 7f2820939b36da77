#include "platform/data/published_data.h"

#include "platform/system/publisher.h"

namespace vorn {

namespace {

void SetUpdateTable(TSqlDataSet& dataset, StringView table)
{
    dataset.SetUpdateTable(table, dataset.UpdateKey());
}

void SetUpdateKey(TSqlDataSet& dataset, StringView key)
{
    dataset.SetUpdateTable(dataset.UpdateTable(), key);
}

} // namespace

template <>
const TPublishedClass& Published<TDataSource>()
{
    static const TPublishedClass table = TPublisher<TDataSource>(u"TDataSource", &Published<TComponent>())
                                             .Reference<&TDataSource::DataSet, &TDataSource::SetDataSet>(u"DataSet")
                                             .Event<&TDataSource::OnStateChange>(u"OnStateChange")
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TDataSet>()
{
    static const TPublishedClass table = TPublisher<TDataSet>(u"TDataSet", &Published<TComponent>())
                                             .Property<&TDataSet::ReadOnly, &TDataSet::SetReadOnly>(u"ReadOnly")
                                             .Default(false)
                                             .Event<&TDataSet::BeforeOpen>(u"BeforeOpen")
                                             .Event<&TDataSet::AfterOpen>(u"AfterOpen")
                                             .Event<&TDataSet::BeforeClose>(u"BeforeClose")
                                             .Event<&TDataSet::AfterClose>(u"AfterClose")
                                             .Event<&TDataSet::BeforeInsert>(u"BeforeInsert")
                                             .Event<&TDataSet::AfterInsert>(u"AfterInsert")
                                             .Event<&TDataSet::BeforeEdit>(u"BeforeEdit")
                                             .Event<&TDataSet::AfterEdit>(u"AfterEdit")
                                             .Event<&TDataSet::BeforePost>(u"BeforePost")
                                             .Event<&TDataSet::AfterPost>(u"AfterPost")
                                             .Event<&TDataSet::BeforeCancel>(u"BeforeCancel")
                                             .Event<&TDataSet::AfterCancel>(u"AfterCancel")
                                             .Event<&TDataSet::BeforeDelete>(u"BeforeDelete")
                                             .Event<&TDataSet::AfterDelete>(u"AfterDelete")
                                             .Event<&TDataSet::BeforeScroll>(u"BeforeScroll")
                                             .Event<&TDataSet::AfterScroll>(u"AfterScroll")
                                             .Event<&TDataSet::OnNewRecord>(u"OnNewRecord")
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TMemoryDataSet>()
{
    static const TPublishedClass table = TPublisher<TMemoryDataSet>(u"TMemoryDataSet", &Published<TDataSet>()).Table();
    return table;
}

template <>
const TPublishedClass& Published<TSqlConnection>()
{
    static const TPublishedClass table
        = TPublisher<TSqlConnection>(u"TSqlConnection", &Published<TComponent>()).Table();
    return table;
}

template <>
const TPublishedClass& Published<TSqlDataSet>()
{
    static const TPublishedClass table
        = TPublisher<TSqlDataSet>(u"TSqlDataSet", &Published<TDataSet>())
              .Reference<&TSqlDataSet::Connection, &TSqlDataSet::SetConnection>(u"Connection")
              .Property<&TSqlDataSet::CommandText, &TSqlDataSet::SetCommandText>(u"CommandText")
              .Default(u"")
              .Property<&TSqlDataSet::UpdateTable, SetUpdateTable>(u"UpdateTable")
              .Default(u"")
              .Property<&TSqlDataSet::UpdateKey, SetUpdateKey>(u"UpdateKey")
              .Default(u"")
              .Table();
    return table;
}

void RegisterDataClasses()
{
    RegisterClass(Published<TDataSource>());
    RegisterClass(Published<TMemoryDataSet>());
    RegisterClass(Published<TSqlConnection>());
    RegisterClass(Published<TSqlDataSet>());
}

} // namespace vorn
