#pragma once

#include "PropertyAccessor.h"

#include <boost/optional.hpp>

#include <string>
#include <utility>
#include <vector>

namespace klx::test {

/** A getter that answers the same text whatever it is called with. */
inline PropertyGetter answering(std::string text) {
    return [text = std::move(text)](const std::string&) {
        return text;
    };
}

/** A getter that answers the same text and keeps what it was called with. */
inline PropertyGetter answeringAndKeeping(std::string text, std::vector<std::string>& arguments) {
    return [text = std::move(text), &arguments](const std::string& argument) {
        arguments.push_back(argument);
        return text;
    };
}

template <class E>
PropertyGetter throwing(E exception) {
    return [exception](const std::string&) -> std::string {
        throw exception;
    };
}

/** A setter that keeps what it was called with. */
inline PropertySetter keeping(std::vector<std::string>& values) {
    return [&values](const std::string& value) {
        values.push_back(value);
    };
}

/** A record without a fixed default. */
inline PropertyAccessor record(PropertyGetter value, PropertyGetter defaultGetter = answering("")) {
    return {std::move(value), std::move(defaultGetter), boost::none, nullptr, false};
}

inline PropertyAccessor recordWithDefault(std::string fixedDefault, PropertyGetter value,
                                          PropertyGetter defaultGetter = nullptr) {
    return {std::move(value), std::move(defaultGetter), std::move(fixedDefault), nullptr, false};
}

/** A record that can only be written. */
inline PropertyAccessor recordSetBy(PropertySetter setter) {
    return {nullptr, nullptr, boost::none, std::move(setter), true};
}

} // namespace klx::test
