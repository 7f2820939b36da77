#include "platform/forms/form_plan.h"

#include "platform/forms/form_values.h"
#include "platform/system/strings.h"

#include <unordered_set>

namespace vorn::forms {

namespace {

class Planner {
public:
    explicit Planner(const TFormOffers& offers) : offers_(offers) {}

    Plan Make(Object form, const TPublishedClass* rootClass)
    {
        AddObject(std::move(form), 0, rootClass);
        return std::move(plan_);
    }

private:
    void AddObject(Object object, int parent, const TPublishedClass* known)
    {
        const TPublishedClass* type = FindClass(object.Class);
        for (const TPublishedClass* above = known; above && !type; above = above->Base())
            if (SameText(object.Class, above->Name()))
                type = above; // a root exists already, so its class and those above needn't be registered
        if (!type)
            throw EFormError(object.Line, u"the class " + object.Class + u" is not registered");
        if (known && !known->Is(*type))
            throw EFormError(object.Line, u"the form is a " + object.Class + u", not a " + known->Name());
        if (!known && !type->CanCreate())
            throw EFormError(object.Line, u"no " + object.Class + u" can be made");
        if (!object.Name.empty() && !names_.insert(FoldCase(object.Name)).second)
            throw EFormError(object.Line, u"another object is named " + object.Name);
        const int place = static_cast<int>(plan_.size());
        CheckPlacing(object, *type, parent);
        plan_.push_back({object.Line, std::move(object.Name), type, parent, {}});
        // A root of a derived class has more properties than the class that the file calls it by.
        std::vector<PlannedProperty> properties = PlanProperties(std::move(object.Properties), known ? *known : *type);
        plan_.back().Properties = std::move(properties);
        for (Object& child : object.Children)
            AddObject(std::move(child), place, nullptr);
    }

    void CheckPlacing(const Object& object, const TPublishedClass& type, int parent) const
    {
        if (parent == 0)
            return; // what stands at the root may lie on it or on nothing
        const PlannedObject& below = plan_[static_cast<std::size_t>(parent)];
        if (!type.Placing().SetParent || !below.Class->Placing().Children)
            throw EFormError(object.Line,
                u"a " + object.Class + u" can't lie on " + (below.Name.empty() ? u"a " : below.Name + u", a ")
                    + below.Class->Name());
    }

    std::vector<PlannedProperty> PlanProperties(std::vector<Property> properties, const TPublishedClass& type)
    {
        std::vector<PlannedProperty> planned;
        planned.reserve(properties.size());
        std::unordered_set<String> seen;
        for (Property& property : properties) {
            if (!seen.insert(FoldCase(property.Path)).second)
                throw EFormError(property.Line, property.Path + u" is set twice");
            planned.push_back(PlanProperty(std::move(property), type));
        }
        return planned;
    }

    PlannedProperty PlanProperty(Property property, const TPublishedClass& type)
    {
        PlannedProperty planned;
        planned.Line = property.Line;
        const TPublishedClass* whole = &type;
        for (StringView path = property.Path;;) {
            const std::size_t dot = path.find(u'.');
            const TPublishedProperty* found = whole->Find(path.substr(0, dot));
            if (!found)
                throw EFormError(property.Line, whole->Name() + u" has no property " + String(path.substr(0, dot)));
            if (dot == StringView::npos) {
                planned.Property = found;
                break;
            }
            if (found->Kind != TPropertyKind::pkObject)
                throw EFormError(property.Line, found->Name + u" has no properties of its own");
            planned.Parts.push_back(found);
            whole = &found->Class();
            path.remove_prefix(dot + 1);
        }
        planned.Path = std::move(property.Path);
        PlanValue(planned, std::move(property.Value));
        return planned;
    }

    void PlanValue(PlannedProperty& planned, Value value)
    {
        const TPropertyKind kind = planned.Property->Kind;
        const auto* name = std::get_if<Name>(&value);
        if (auto* lines = std::get_if<Lines>(&value); lines && kind == TPropertyKind::pkStrings) {
            planned.Lines = std::move(lines->Texts);
        } else if (auto* items = std::get_if<Items>(&value); items && kind == TPropertyKind::pkCollection) {
            for (Item& item : items->List)
                planned.Items.push_back(
                    {item.Line, PlanProperties(std::move(item.Properties), planned.Property->Class())});
        } else if (name && kind == TPropertyKind::pkComponent) {
            if (!SameText(name->Text, NoReference))
                planned.Reference = name->Text;
        } else if (name && kind == TPropertyKind::pkEvent) {
            planned.Value = FindHandler(planned, name->Text);
        } else {
            planned.Value = ToPropertyValue(value, planned.Line, planned.Path, *planned.Property);
        }
    }

    TPropertyValue FindHandler(const PlannedProperty& planned, const String& name) const
    {
        if (SameText(name, NoReference))
            return {};
        const TPropertyValue handler = offers_.Handler(name);
        if (!*std::get_if<const TNamedHandler*>(&handler))
            throw EFormError(planned.Line, planned.Path + u": the application offers no handler " + name);
        if (!planned.Property->Accepts(handler))
            throw EFormError(planned.Line, planned.Path + u": the handler " + name + u" is for events of another type");
        return handler;
    }

    const TFormOffers& offers_;
    Plan plan_;
    std::unordered_set<String> names_; // folded
};

} // namespace

Plan MakePlan(Object form, const TPublishedClass* rootClass, const TFormOffers& offers)
{
    return Planner(offers).Make(std::move(form), rootClass);
}

} // namespace vorn::forms
