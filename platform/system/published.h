#pragma once

#include "platform/system/component.h"

#include <memory>
#include <optional>
#include <typeindex>
#include <unordered_map>
#include <variant>
#include <vector>

namespace vorn {

class TNamedHandler;
class TPublishedClass;

enum class TPropertyKind {
    pkInteger,
    pkEnumeration, ///< Booleans too
    pkSet,
    pkFloat,
    pkString,
    pkPoint,
    pkObject,     ///< a part of the object, with properties of its own
    pkCollection, ///< a TCollection that is part of the object
    pkStrings,    ///< a TStrings that is part of the object
    pkComponent,  ///< a reference to a component, or none
    pkEvent,
};

/// When a form writer stores a property.
enum class TStored { stAlways, stUnlessDefault, stNever };

/// Names of an integer's values: of an enumeration's by ordinal, of a set's by bit mask.
struct TOrdinalType {
    struct Named {
        std::int64_t Value;
        StringView Name; ///< lives as long as the table
    };
    std::int64_t Min = 0;
    std::int64_t Max = 0;
    std::vector<Named> Names;
    bool Hexadecimal = false; ///< a value without a name is written as "$" and eight digits

    /// Ordinals from 0 in this order.
    static TOrdinalType Enumeration(std::initializer_list<StringView> names);
    /// Bits from 0 in this order.
    static TOrdinalType Set(std::initializer_list<StringView> names);

    /// None for a value without a name.
    const Named* Find(std::int64_t value) const;
    /// Case aside.
    const Named* Find(StringView name) const;
};

/// One property's value: integers, enumerations and sets as a number, the parts of an object and what it refers to as
/// a pointer. An event takes a handler and gives the name of the one that it holds. No value is an empty reference or
/// event.
using TPropertyValue
    = std::variant<std::monostate, std::int64_t, double, String, TPoint, TPersistent*, const TNamedHandler*>;

/// One row of a table: how a form file calls a property, and how it is read and set.
struct TPublishedProperty {
    String Name = {};
    TPropertyKind Kind = TPropertyKind::pkInteger;
    TStored Stored = TStored::stAlways;
    TPropertyValue Default = {};
    const TOrdinalType* Ordinals = nullptr; ///< of an integer, enumeration or set
    int SetSize = 0;                        ///< how many elements a set can hold, named or not
    /// The class of the part, of the items or of what a reference takes.
    const TPublishedClass& (*Class)() = nullptr;
    /// Whether a reference or event takes this value.
    bool (*Accepts)(const TPropertyValue& value) = nullptr;
    TPropertyValue (*Get)(const TPersistent& object) = nullptr;
    /// None for the parts of an object, which are changed and not replaced.
    void (*Set)(TPersistent& object, const TPropertyValue& value) = nullptr;
};

/// How the components of a class lie on each other, such as controls do.
struct TPlacing {
    /// What the component lies on, or none.
    TComponent* (*Parent)(const TComponent& component) = nullptr;
    void (*SetParent)(TComponent& component, TComponent& parent) = nullptr;
    /// What lies on the component, lowest first. None for a class that carries nothing.
    std::vector<TComponent*> (*Children)(const TComponent& component) = nullptr;
};

/// The published properties of one class, those of its base first. Made by TPublisher; lives as long as the process.
class TPublishedClass {
public:
    /// As form files call the class.
    const String& Name() const { return name_; }
    /// None for a class at the root.
    const TPublishedClass* Base() const { return base_; }
    /// Inherited ones first, then its own, both in declared order.
    const std::vector<TPublishedProperty>& Properties() const { return properties_; }
    /// Case aside; none if there is no such property.
    const TPublishedProperty* Find(StringView name) const;
    /// Whether this class is `other` or derived from it.
    bool Is(const TPublishedClass& other) const;
    /// Whether the object is of this class or of one derived from it.
    bool Fits(const TObject& object) const { return fits_(object); }
    std::type_index Type() const { return type_; }
    const TPlacing& Placing() const { return placing_; }

    /// False for abstract classes and for what is no component.
    bool CanCreate() const { return create_ != nullptr; }
    TComponent* Create(TComponent* owner) const { return create_(owner); }

private:
    template <typename T>
    friend class TPublisher;
    TPublishedClass(StringView name, const TPublishedClass* base, std::type_index type);
    void Add(TPublishedProperty property);
    TPublishedProperty& Inherited(StringView name);

    String name_;
    const TPublishedClass* base_;
    std::type_index type_;
    std::vector<TPublishedProperty> properties_;
    std::unordered_map<String, std::size_t> places_; // by folded name
    TPlacing placing_;
    bool (*fits_)(const TObject&) = nullptr;
    TComponent* (*create_)(TComponent* owner) = nullptr;
};

/// The table of a class. The header that says so declares a specialization for each of its classes; an application
/// writes one for each of its own.
template <typename T>
const TPublishedClass& Published() = delete;
template <>
const TPublishedClass& Published<TPersistent>();
template <>
const TPublishedClass& Published<TComponent>();

/// Makes a class known to form files. Doing so twice is doing it once; raises EInvalidOperation if another class has
/// the name (case aside).
void RegisterClass(const TPublishedClass& type);
/// By name, case aside; none if no such class is registered.
const TPublishedClass* FindClass(StringView name);
/// The registered class that the object is exactly of; none if that isn't registered.
const TPublishedClass* ExactClass(const TPersistent& object);
/// The table that fits the object best: its own, or that of the nearest class above that a registered class has among
/// its bases.
const TPublishedClass& NearestClass(const TPersistent& object);

} // namespace vorn
