#pragma once

#include "labels/DrLabel.h"
#include "platform/controls/published_controls.h"

namespace vorn {

template <>
const TPublishedClass& Published<TDRLabel>();
template <>
const TPublishedClass& Published<TDRLabelTimer>();
template <>
const TPublishedClass& Published<TClickShape>();

/// Makes the marker label, its timer and the click shape known to form files, and what RegisterControlClasses does.
void RegisterLabelClasses();

} // namespace vorn
