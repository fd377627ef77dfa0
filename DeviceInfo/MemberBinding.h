#pragma once

#include "PropertyBinding.h"

/// Rows whose getters and setters serve one property each: members of the accessor classes, bound
/// to the registry's instance, or static functions.

namespace memberbinding {

// One overload for each form that a getter has; what a form does not take is dropped.

template <class Owner>
std::string ask(CDeviceProperty& device, std::string (Owner::*get)(), eMenuValueType,
                const std::string&) {
    return (device.*get)();
}

template <class Owner>
std::string ask(CDeviceProperty& device, std::string (Owner::*get)(const std::string&),
                eMenuValueType, const std::string& argument) {
    return (device.*get)(argument);
}

template <class Owner>
std::string ask(CDeviceProperty& device, std::string (Owner::*get)(eMenuValueType),
                eMenuValueType kind, const std::string&) {
    return (device.*get)(kind);
}

template <class Owner>
std::string ask(CDeviceProperty& device,
                std::string (Owner::*get)(eMenuValueType, const std::string&), eMenuValueType kind,
                const std::string& argument) {
    return (device.*get)(kind, argument);
}

inline std::string ask(CDeviceProperty&, std::string (*get)(const std::string&), eMenuValueType,
                       const std::string& argument) {
    return get(argument);
}

inline std::string ask(CDeviceProperty&, std::string (*get)(eMenuValueType, const std::string&),
                       eMenuValueType kind, const std::string& argument) {
    return get(kind, argument);
}

template <class Get>
struct AnswersDefault : std::false_type {};
template <class Owner>
struct AnswersDefault<std::string (Owner::*)(eMenuValueType)> : std::true_type {};
template <class Owner>
struct AnswersDefault<std::string (Owner::*)(eMenuValueType, const std::string&)> : std::true_type {
};
template <>
struct AnswersDefault<std::string (*)(eMenuValueType, const std::string&)> : std::true_type {};

template <class Get>
PropertyGetter getter(CDeviceProperty& device, Get get, eMenuValueType kind) {
    return [&device, get, kind](const std::string& argument) {
        return ask(device, get, kind, argument);
    };
}

template <class Get>
PropertyGetter defaultGetter(CDeviceProperty& device, Get get) {
    if constexpr (AnswersDefault<Get>::value) {
        return getter(device, get, defaultValue);
    } else {
        return nullptr;
    }
}

inline PropertySetter setter(CDeviceProperty&, void (*set)(const std::string&)) {
    return set;
}

template <class Owner>
PropertySetter setter(CDeviceProperty& device, void (Owner::*set)(const std::string&)) {
    return [&device, set](const std::string& value) {
        (device.*set)(value);
    };
}

} // namespace memberbinding

/// A pair of accessors. A getter that takes an `eMenuValueType` answers the default, too.
template <class Get, class Set>
PropertyBinding readWrite(PropertySource source, Get get, Set set) {
    return PropertyBinding(source, [get, set](CDeviceProperty& device) {
        return PropertyAccessor(memberbinding::getter(device, get, currentValue),
                                memberbinding::defaultGetter(device, get), boost::none,
                                memberbinding::setter(device, set), true);
    });
}

/// A getter alone.
template <class Get>
PropertyBinding readOnly(PropertySource source, Get get) {
    return PropertyBinding(source, [get](CDeviceProperty& device) {
        return PropertyAccessor(memberbinding::getter(device, get, currentValue),
                                memberbinding::defaultGetter(device, get), boost::none, emptySetter,
                                false);
    });
}
