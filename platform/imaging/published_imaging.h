#pragma once

#include "platform/controls/published_controls.h"
#include "platform/imaging/image_control.h"
#include "platform/imaging/image_view.h"
#include "platform/imaging/thumbnail_view.h"

namespace vorn {

// Without pictures, which come from an application's data.
template <>
const TPublishedClass& Published<TImage>();
template <>
const TPublishedClass& Published<TImageEnView>();
template <>
const TPublishedClass& Published<TImageEnMView>();

/// Makes the picture controls known to form files, and what RegisterControlClasses does.
void RegisterImagingClasses();

} // namespace vorn
