#pragma once

#include "../Value.h"
#include "ProfileDocument.h"

#include <json/value.h>

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>

namespace KLX::Host {

/**
 * A place in a profile. Each accessor either answers or throws HostFailure (ProfileInvalid) with
 * the file, the path of the place and what was expected there.
 */
class ProfileNode {
public:
    explicit ProfileNode(const ProfileDocument& document);

    /** Reports a mistake at this place. */
    [[noreturn]] void fail(const std::string& expected) const;

    /** Requires an object that has no other members than these. */
    void allowOnly(std::initializer_list<const char*> names) const;

    /** A member, where the object has it. */
    std::optional<ProfileNode> find(const std::string& name) const;

    /** A member that must be there. */
    ProfileNode get(const std::string& name) const;

    /** Calls for each member of an object, with its name. */
    void forEach(const std::function<void(const std::string&, const ProfileNode&)>& visit) const;

    bool isObject() const { return m_value->isObject(); }
    int asInteger() const;
    bool asBoolean() const;
    std::string asText() const;

    /** A number, a boolean or a text, whichever is there. */
    Value asValue() const;

    /** A value of one type. */
    Value asValueOf(ValueType type) const;

    /** The member's name as a number, for objects whose members are numbered. */
    int nameAsNumber(const std::string& name) const;

private:
    ProfileNode(const ProfileDocument& document, const Json::Value& value, std::string path);

    const ProfileDocument* m_document;
    const Json::Value* m_value;
    std::string m_path;
};

} // namespace KLX::Host
