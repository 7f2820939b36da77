#pragma once

#include "platform/forms/form_syntax.h"
#include "platform/system/published.h"

namespace vorn::forms {

/// The value of a property that is no part, reference or event. Raises EFormError, which names the property, for one of
/// another type or beyond the property's range.
TPropertyValue ToPropertyValue(const Value& value, int line, const String& path, const TPublishedProperty& property);
/// The same value as it stands in a file.
String ToFormText(const TPropertyValue& value, const TPublishedProperty& property);

} // namespace vorn::forms
