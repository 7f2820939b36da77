#pragma once

#include "platform/forms/form_file.h"
#include "platform/forms/form_syntax.h"
#include "platform/system/published.h"

namespace vorn::forms {

struct PlannedItem;

/// One property to be set, checked against its table.
struct PlannedProperty {
    int Line = 0;
    String Path;
    std::vector<const TPublishedProperty*> Parts; ///< from the object down to the part that has the property
    const TPublishedProperty* Property = nullptr;
    TPropertyValue Value; ///< of whatever is no reference, list or collection
    String Reference;     ///< of a component; empty for none
    std::vector<String> Lines;
    std::vector<PlannedItem> Items;
};

struct PlannedItem {
    int Line = 0;
    std::vector<PlannedProperty> Properties;
};

struct PlannedObject {
    int Line = 0;
    String Name;
    const TPublishedClass* Class = nullptr;
    int Parent = 0; ///< place of the object that it stands in
    std::vector<PlannedProperty> Properties;
};

/// Everything that a form file asks for; the root is the first.
using Plan = std::vector<PlannedObject>;

/// Checks a parsed form against the tables. Raises EFormError. `rootClass` is the class of a root that exists already,
/// or none.
Plan MakePlan(Object form, const TPublishedClass* rootClass, const TFormOffers& offers);

} // namespace vorn::forms
