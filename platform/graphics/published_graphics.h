#pragma once

#include "platform/graphics/font.h"
#include "platform/graphics/png_image_list.h"
#include "platform/system/published.h"

namespace vorn {

/// How form files call colours; others are written as "$BBGGRR" with eight digits.
const TOrdinalType& ColorNames();

template <>
const TPublishedClass& Published<TFont>();
/// Called "TImageList". Its size only: an application adds the images.
template <>
const TPublishedClass& Published<TCustomImageList>();
template <>
const TPublishedClass& Published<TPngImageList>();

/// Makes the image lists known to form files.
void RegisterGraphicsClasses();

} // namespace vorn
