#pragma once

#include <functional>
#include <map>
#include <string>
#include <tuple>

namespace boost {
template <class T>
class optional;
}

using PropertyGetter = std::function<std::string(const std::string&)>;
using PropertySetter = std::function<void(const std::string&)>;

/// What the library knows about one property, in this order: value getter, default getter (may be
/// empty beside a fixed default), fixed default ("" is one, too), setter, flag. The flag is set for
/// writable menu settings; nothing in the library decides anything on it.
using PropertyAccessor =
    std::tuple<PropertyGetter, PropertyGetter, boost::optional<std::string>, PropertySetter, bool>;

/// Full property paths, such as "/Picture/Backlight", and their records, in byte order.
using PropertyAccessorMap = std::map<std::string, PropertyAccessor>;

/// Positions in a record.
enum PropertyAccessorElement : std::size_t {
    valueGetterElement,
    defaultGetterElement,
    fixedDefaultElement,
    setterElement,
    flagElement
};
