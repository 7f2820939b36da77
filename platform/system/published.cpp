#include "platform/system/publisher.h"

#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <algorithm>

namespace vorn {

TOrdinalType TOrdinalType::Enumeration(std::initializer_list<StringView> names)
{
    TOrdinalType type;
    for (StringView name : names)
        type.Names.push_back({static_cast<std::int64_t>(type.Names.size()), name});
    type.Max = static_cast<std::int64_t>(names.size()) - 1;
    return type;
}

TOrdinalType TOrdinalType::Set(std::initializer_list<StringView> names)
{
    TOrdinalType type;
    for (StringView name : names)
        type.Names.push_back({std::int64_t{1} << type.Names.size(), name});
    type.Max = (std::int64_t{1} << names.size()) - 1;
    return type;
}

const TOrdinalType::Named* TOrdinalType::Find(std::int64_t value) const
{
    const auto place = std::find_if(Names.begin(), Names.end(), [&](const Named& n) { return n.Value == value; });
    return place == Names.end() ? nullptr : &*place;
}

const TOrdinalType::Named* TOrdinalType::Find(StringView name) const
{
    const auto place = std::find_if(Names.begin(), Names.end(), [&](const Named& n) { return SameText(n.Name, name); });
    return place == Names.end() ? nullptr : &*place;
}

namespace published {

const TOrdinalType& Booleans()
{
    static const TOrdinalType names = TOrdinalType::Enumeration({u"False", u"True"});
    return names;
}

} // namespace published

TPublishedClass::TPublishedClass(StringView name, const TPublishedClass* base, std::type_index type)
    : name_(name), base_(base), type_(type)
{
    if (!base_)
        return;
    properties_ = base_->properties_;
    places_ = base_->places_;
    placing_ = base_->placing_;
}

/// One that is there already is declared anew: it stands at the end then.
void TPublishedClass::Add(TPublishedProperty property)
{
    if (Find(property.Name)) {
        std::erase_if(properties_, [&](const auto& old) { return SameText(old.Name, property.Name); });
        for (std::size_t i = 0; i < properties_.size(); ++i)
            places_[FoldCase(properties_[i].Name)] = i;
    }
    places_[FoldCase(property.Name)] = properties_.size();
    properties_.push_back(std::move(property));
}

TPublishedProperty& TPublishedClass::Inherited(StringView name)
{
    const auto place = places_.find(FoldCase(name));
    if (place == places_.end())
        throw EInvalidOperation(name_ + u" inherits no property " + String(name));
    return properties_[place->second];
}

const TPublishedProperty* TPublishedClass::Find(StringView name) const
{
    const auto place = places_.find(FoldCase(name));
    return place == places_.end() ? nullptr : &properties_[place->second];
}

bool TPublishedClass::Is(const TPublishedClass& other) const
{
    for (const TPublishedClass* type = this; type; type = type->base_)
        if (type == &other)
            return true;
    return false;
}

template <>
const TPublishedClass& Published<TPersistent>()
{
    static const TPublishedClass table = TPublisher<TPersistent>(u"TPersistent", nullptr).Table();
    return table;
}

template <>
const TPublishedClass& Published<TComponent>()
{
    static const TPublishedClass table = TPublisher<TComponent>(u"TComponent", &Published<TPersistent>())
                                             .Property<&TComponent::Tag, &TComponent::SetTag>(u"Tag")
                                             .Default(0)
                                             .Table();
    return table;
}

namespace {

struct Registry {
    std::unordered_map<String, const TPublishedClass*> ByName; // folded
    std::unordered_map<std::type_index, const TPublishedClass*> ByType;
};

Registry& Registered()
{
    static Registry registry;
    return registry;
}

int Depth(const TPublishedClass* type)
{
    int depth = 0;
    for (; type; type = type->Base())
        ++depth;
    return depth;
}

} // namespace

void RegisterClass(const TPublishedClass& type)
{
    const auto [place, isNew] = Registered().ByName.try_emplace(FoldCase(type.Name()), &type);
    if (!isNew && place->second != &type)
        throw EInvalidOperation(u"A class named " + type.Name() + u" is registered already");
    Registered().ByType[type.Type()] = &type;
}

const TPublishedClass* FindClass(StringView name)
{
    const auto place = Registered().ByName.find(FoldCase(name));
    return place == Registered().ByName.end() ? nullptr : place->second;
}

const TPublishedClass* ExactClass(const TPersistent& object)
{
    const auto place = Registered().ByType.find(typeid(object));
    return place == Registered().ByType.end() ? nullptr : place->second;
}

const TPublishedClass& NearestClass(const TPersistent& object)
{
    if (const TPublishedClass* exact = ExactClass(object))
        return *exact;
    const TPublishedClass* nearest = &Published<TPersistent>();
    if (Published<TComponent>().Fits(object))
        nearest = &Published<TComponent>();
    for (const auto& [name, type] : Registered().ByName)
        for (const TPublishedClass* above = type; above; above = above->Base())
            if (above->Fits(object)) {
                if (Depth(above) > Depth(nearest))
                    nearest = above;
                break;
            }
    return *nearest;
}

} // namespace vorn
