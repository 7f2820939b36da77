#pragma once

#include "platform/system/types.h"

#include <memory>
#include <variant>
#include <vector>

namespace vorn::forms {

/// How deep objects and items may lie in each other.
inline constexpr int MaxDepth = 64;
inline constexpr StringView NoReference = u"nil";

/// Whether form files can spell the text as a name: ASCII letters, digits and "_", no digit first.
bool IsName(StringView text);
/// Without quotes for nothing but printable ASCII; the rest as "#" and the number of the UTF-16 unit.
String Quoted(StringView text);

struct Item;

/// A value as it stands in the file.
struct Number {
    String Text;
};
struct Name {
    String Text; ///< names with dots between them
};
struct Set {
    std::vector<String> Elements; ///< names or numbers
};
struct Lines {
    std::vector<String> Texts;
};
struct Items {
    std::vector<Item> List;
};
using Value = std::variant<Number, String, Name, Set, TPoint, Lines, Items>;

struct Property {
    int Line;
    String Path; ///< names with dots between them
    forms::Value Value;
};

struct Item {
    int Line;
    std::vector<Property> Properties;
};

struct Object {
    int Line = 0;
    String Name; ///< empty without one
    String Class;
    std::vector<Property> Properties;
    std::vector<Object> Children;
};

/// Reads a whole form file. Raises EFormError that names the line.
Object Parse(StringView text);

} // namespace vorn::forms
