#pragma once

#include "platform/data/data_source.h"
#include "platform/data/memory_dataset.h"
#include "platform/data/sql_dataset.h"
#include "platform/system/published.h"

namespace vorn {

template <>
const TPublishedClass& Published<TDataSource>();
template <>
const TPublishedClass& Published<TDataSet>();
template <>
const TPublishedClass& Published<TMemoryDataSet>();
/// What it takes to open the database stays with the application.
template <>
const TPublishedClass& Published<TSqlConnection>();
template <>
const TPublishedClass& Published<TSqlDataSet>();

/// Makes data sources, datasets and connections known to form files.
void RegisterDataClasses();

} // namespace vorn
