#pragma once

#include <string>
#include <variant>

namespace KLX::Host {

/** A value that a service keeps or knows. The order of the alternatives is that of ValueType. */
using Value = std::variant<int, bool, std::string, double>;

/** The type of a value; the first three numbers are the ones the platform's callers use. */
enum class ValueType { Integer = 0, Boolean = 1, Text = 2, Fraction = 3 };

inline ValueType typeOf(const Value& value) {
    return static_cast<ValueType>(value.index());
}

/** The type as the set profile spells it: "int", "bool", "string" or "double". */
const char* typeName(ValueType type);

/** The value as services hand it out in text form: decimal, "1" or "0", or the text itself. */
std::string toText(const Value& value);

} // namespace KLX::Host
