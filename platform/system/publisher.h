#pragma once

#include "platform/system/collection.h"
#include "platform/system/named_handler.h"
#include "platform/system/published.h"
#include "platform/system/string_list.h"

#include <functional>
#include <limits>
#include <type_traits>

namespace vorn {

namespace published {

const TOrdinalType& Booleans();

/// The whole range of an integer type.
template <typename V>
const TOrdinalType& Range()
{
    static const TOrdinalType range{static_cast<std::int64_t>(std::numeric_limits<V>::min()),
        static_cast<std::int64_t>(std::numeric_limits<V>::max()), {}};
    return range;
}

template <typename T, auto Get>
using ValueOf = std::remove_cvref_t<std::invoke_result_t<decltype(Get), const T&>>;

template <typename V>
TPropertyValue ToValue(const V& value)
{
    if constexpr (std::is_enum_v<V> || std::is_integral_v<V>)
        return static_cast<std::int64_t>(value);
    else if constexpr (std::is_floating_point_v<V>)
        return static_cast<double>(value);
    else if constexpr (std::is_pointer_v<V>)
        return value ? TPropertyValue(static_cast<TPersistent*>(value)) : TPropertyValue();
    else if constexpr (std::is_convertible_v<V, StringView>)
        return String(StringView(value));
    else
        return TPoint(value);
}

template <typename V>
V FromValue(const TPropertyValue& value)
{
    if constexpr (std::is_enum_v<V> || std::is_integral_v<V>)
        return static_cast<V>(std::get<std::int64_t>(value));
    else if constexpr (std::is_floating_point_v<V>)
        return static_cast<V>(std::get<double>(value));
    else if constexpr (std::is_pointer_v<V>) {
        TPersistent* const* object = std::get_if<TPersistent*>(&value);
        return object ? dynamic_cast<V>(*object) : nullptr;
    } else
        return std::get<V>(value);
}

template <typename T, auto Get>
TPropertyValue Read(const TPersistent& object)
{
    return ToValue(std::invoke(Get, static_cast<const T&>(object)));
}

template <typename T, auto Get, auto Set>
void Write(TPersistent& object, const TPropertyValue& value)
{
    std::invoke(Set, static_cast<T&>(object), FromValue<ValueOf<T, Get>>(value));
}

template <typename T, auto Field>
void Store(TPersistent& object, const TPropertyValue& value)
{
    static_cast<T&>(object).*Field = FromValue<ValueOf<T, Field>>(value);
}

template <typename T, auto Get>
TPropertyValue Part(const TPersistent& object)
{
    T& whole = const_cast<T&>(static_cast<const T&>(object));
    return static_cast<TPersistent*>(&std::invoke(Get, whole));
}

/// `Access` gives the place of an event, or none if it has no place yet and isn't to get one.
template <typename T, auto Access>
TPropertyValue ReadEvent(const TPersistent& object)
{
    const auto* event = Access(const_cast<T&>(static_cast<const T&>(object)), false);
    const String* name = event ? TNamedHandler::NameIn(*event) : nullptr;
    return name ? TPropertyValue(*name) : TPropertyValue();
}

template <typename T, auto Access>
void WriteEvent(TPersistent& object, const TPropertyValue& value)
{
    using Event = std::remove_reference_t<decltype(*Access(std::declval<T&>(), true))>;
    const TNamedHandler* const* handler = std::get_if<const TNamedHandler*>(&value);
    if (auto* event = Access(static_cast<T&>(object), handler != nullptr))
        *event = handler ? *(*handler)->template As<Event>() : Event();
}

template <typename T, auto Member>
auto* EventField(T& object, bool)
{
    return &(object.*Member);
}

template <typename Event>
bool AcceptsHandler(const TPropertyValue& value)
{
    const TNamedHandler* const* handler = std::get_if<const TNamedHandler*>(&value);
    return handler && (*handler)->template As<Event>();
}

template <typename C>
bool AcceptsComponent(const TPropertyValue& value)
{
    TPersistent* const* object = std::get_if<TPersistent*>(&value);
    return object && dynamic_cast<C*>(*object);
}

} // namespace published

/// Builds the table of a class, one property behind the other in declared order. A property that the base has as well
/// is declared anew and stands where it is declared last.
///
/// The template arguments are pointers to members, or functions of the object: `Get(const T&)`, `Set(T&, value)`. What
/// the getter gives decides what a form file may say: a Byte from 0 to 255, and so on.
template <typename T>
class TPublisher {
public:
    TPublisher(StringView name, const TPublishedClass* base) : table_(name, base, typeid(T))
    {
        table_.fits_ = [](const TObject& object) { return dynamic_cast<const T*>(&object) != nullptr; };
        if constexpr (std::is_base_of_v<TComponent, T> && std::is_constructible_v<T, TComponent*>)
            table_.create_ = [](TComponent* owner) -> TComponent* { return new T(owner); };
    }

    /// A Boolean, integer, float, text or point.
    template <auto Get, auto Set>
    TPublisher& Property(StringView name)
    {
        return Add(name, Plain<Get>(published::Write<T, Get, Set>));
    }
    /// The same without a setter: a public data member.
    template <auto Member>
    TPublisher& Field(StringView name)
    {
        return Add(name, Plain<Member>(published::Store<T, Member>));
    }
    template <auto Get, auto Set>
    TPublisher& Enumeration(StringView name, const TOrdinalType& names)
    {
        Property<Get, Set>(name);
        Last().Kind = TPropertyKind::pkEnumeration;
        Last().Ordinals = &names;
        return *this;
    }
    template <auto Get, auto Change>
    TPublisher& Set(StringView name, const TOrdinalType& names)
    {
        Property<Get, Change>(name);
        Last().Kind = TPropertyKind::pkSet;
        Last().Ordinals = &names;
        Last().SetSize = std::numeric_limits<published::ValueOf<T, Get>>::digits;
        return *this;
    }
    /// The last property's values may also be called by these names, and must lie in their range.
    TPublisher& Names(const TOrdinalType& names)
    {
        Last().Ordinals = &names;
        return *this;
    }

    /// A reference to a component, which the getter gives as a pointer.
    template <auto Get, auto Set>
    TPublisher& Reference(StringView name)
    {
        using C = std::remove_pointer_t<published::ValueOf<T, Get>>;
        return Add(name,
            {.Kind = TPropertyKind::pkComponent,
                .Class = Published<C>,
                .Accepts = published::AcceptsComponent<C>,
                .Get = published::Read<T, Get>,
                .Set = published::Write<T, Get, Set>});
    }
    /// A part with properties of its own, which the getter gives as a reference.
    template <auto Get>
    TPublisher& Object(StringView name)
    {
        using P = std::remove_cvref_t<std::invoke_result_t<decltype(Get), T&>>;
        return Add(name, {.Kind = TPropertyKind::pkObject, .Class = Published<P>, .Get = published::Part<T, Get>});
    }
    template <auto Get, typename Item>
    TPublisher& Collection(StringView name)
    {
        return Add(
            name, {.Kind = TPropertyKind::pkCollection, .Class = Published<Item>, .Get = published::Part<T, Get>});
    }
    template <auto Get>
    TPublisher& Strings(StringView name)
    {
        return Add(name, {.Kind = TPropertyKind::pkStrings, .Get = published::Part<T, Get>});
    }

    /// A public data member that is an event.
    template <auto Member>
    TPublisher& Event(StringView name)
    {
        return EventAt<published::EventField<T, Member>>(name);
    }
    /// An event at the place that `Access(T&, bool make)` gives; it may give none unless `make`.
    template <auto Access>
    TPublisher& EventAt(StringView name)
    {
        using E = std::remove_cvref_t<decltype(*Access(std::declval<T&>(), true))>;
        return Add(name,
            {.Kind = TPropertyKind::pkEvent,
                .Accepts = published::AcceptsHandler<E>,
                .Get = published::ReadEvent<T, Access>,
                .Set = published::WriteEvent<T, Access>});
    }

    /// The value of the last property that isn't stored.
    template <typename V>
    TPublisher& Default(const V& value)
    {
        return SetDefault(Last(), value);
    }
    /// The same for an inherited property, which stays where it is.
    template <typename V>
    TPublisher& Redefault(StringView name, const V& value)
    {
        return SetDefault(table_.Inherited(name), value);
    }
    /// The last property can be read from a form file but isn't written.
    TPublisher& NeverStored()
    {
        Last().Stored = TStored::stNever;
        return *this;
    }
    TPublisher& Places(const TPlacing& placing)
    {
        table_.placing_ = placing;
        return *this;
    }

    TPublishedClass Table() { return std::move(table_); }

private:
    template <auto Get>
    static TPublishedProperty Plain(void (*set)(TPersistent&, const TPropertyValue&))
    {
        using V = published::ValueOf<T, Get>;
        TPublishedProperty property{.Kind = TPropertyKind::pkPoint, .Get = published::Read<T, Get>, .Set = set};
        if constexpr (std::is_same_v<V, bool>) {
            property.Kind = TPropertyKind::pkEnumeration;
            property.Ordinals = &published::Booleans();
        } else if constexpr (std::is_integral_v<V>) {
            property.Kind = TPropertyKind::pkInteger;
            property.Ordinals = &published::Range<V>();
        } else if constexpr (std::is_floating_point_v<V>) {
            property.Kind = TPropertyKind::pkFloat;
        } else if constexpr (std::is_convertible_v<V, StringView>) {
            property.Kind = TPropertyKind::pkString;
        }
        return property;
    }

    TPublisher& SetDefault(TPublishedProperty& property, const auto& value)
    {
        property.Stored = TStored::stUnlessDefault;
        property.Default = published::ToValue(value);
        return *this;
    }
    TPublisher& Add(StringView name, TPublishedProperty property)
    {
        property.Name = name;
        table_.Add(std::move(property));
        return *this;
    }
    TPublishedProperty& Last() { return table_.properties_.back(); }

    TPublishedClass table_;
};

} // namespace vorn
