#pragma once

#include "DeviceInfoManager.h"

#include <boost/optional.hpp>

#include <map>
#include <string>
#include <vector>

/** The library's seam for tests: puts an instance with records of their own in place. */
struct DeviceInfoManagerSeam {
    static void install(PropertyAccessorMap records);
    static void uninstall();

    static PropertyAccessorMap& records();

    /** What walks a run of sibling elements. @return the leaves that it counted */
    static int restore(_xmlNode* first, const std::string& prefix, const std::string& only);
    static bool createJsonNode(std::string text, Json::Value& root);
};

/**
 * The records of one test, installed for as long as this lives, and what was done with them. A
 * property that stores keeps what is written; all setters note what they are called with.
 */
class Records {
public:
    Records();
    ~Records();
    Records(const Records&) = delete;
    Records& operator=(const Records&) = delete;

    /** Adds a property that stores. Without a fixed default its default getter answers "0". */
    Records& add(const std::string& path, const std::string& value = "",
                 boost::optional<std::string> fixedDefault = std::string());

    /** Adds a property with these getters and no fixed default. */
    Records& answering(const std::string& path, PropertyGetter value,
                       PropertyGetter defaultGetter = nullptr);

    /** Gives the property a setter that notes the call and then does `action`. */
    Records& onSet(const std::string& path, PropertySetter action);

    std::string valueOf(const std::string& path) const { return m_values.at(path); }
    void setValueOf(const std::string& path, const std::string& value) { m_values[path] = value; }

    /** The setters' calls as "/Picture/Backlight = 20", in the order in which they came. */
    const std::vector<std::string>& applied() const { return m_applied; }
    void forgetApplied() { m_applied.clear(); }

private:
    std::map<std::string, std::string> m_values;
    std::vector<std::string> m_applied;
};

/** A getter that answers with the argument that it was called with. */
std::string argumentInBrackets(const std::string& argument);

/** A getter that throws a copy of `exception`. */
template <class E>
PropertyGetter throwing(E exception) {
    return [exception](const std::string&) -> std::string {
        throw exception;
    };
}
