#pragma once

#include "chart/control_collection.h"
#include "chart/vorndblabelIE.h"
#include "labels/label_published.h"
#include "platform/data/published_data.h"

namespace vorn {

template <>
const TPublishedClass& Published<TVornIEDBTerList>();
template <>
const TPublishedClass& Published<TDRLabelProperties>();
template <>
const TPublishedClass& Published<TControlItem>();

/// Makes the chart and all classes of the libraries below known to form files.
void RegisterChartClasses();

} // namespace vorn
