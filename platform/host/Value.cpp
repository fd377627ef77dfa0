#include "Value.h"

namespace KLX::Host {

const char* typeName(ValueType type) {
    switch (type) {
    case ValueType::Integer:
        return "int";
    case ValueType::Boolean:
        return "bool";
    case ValueType::Text:
        return "string";
    case ValueType::Fraction:
        break;
    }
    return "double";
}

std::string toText(const Value& value) {
    if (const auto* number = std::get_if<int>(&value)) {
        return std::to_string(*number);
    }
    if (const auto* flag = std::get_if<bool>(&value)) {
        return *flag ? "1" : "0";
    }
    if (const auto* fraction = std::get_if<double>(&value)) {
        return std::to_string(*fraction);
    }
    return std::get<std::string>(value);
}

} // namespace KLX::Host
