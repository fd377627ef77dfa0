#include "ProfileNode.h"

#include "../HostErrors.h"

#include <json/writer.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <utility>

namespace KLX::Host {
namespace {

std::string shown(const Json::Value& value) {
    if (value.isObject()) {
        return "an object";
    }
    if (value.isArray()) {
        return "an array";
    }
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "";
    return Json::writeString(builder, value);
}

std::string listed(std::initializer_list<const char*> names) {
    std::string text;
    for (const char* name : names) {
        text += text.empty() ? name : std::string(", ") + name;
    }
    return text;
}

} // namespace

ProfileNode::ProfileNode(const ProfileDocument& document)
    : ProfileNode(document, document.root, "") {}

ProfileNode::ProfileNode(const ProfileDocument& document, const Json::Value& value,
                         std::string path)
    : m_document(&document), m_value(&value), m_path(std::move(path)) {}

void ProfileNode::fail(const std::string& expected) const {
    throw HostFailure(HostError::ProfileInvalid,
                      m_document->fileOf(m_path) + ": " + (m_path.empty() ? "$" : m_path) +
                          ": expected " + expected + ", found " + shown(*m_value));
}

void ProfileNode::allowOnly(std::initializer_list<const char*> names) const {
    forEach([&](const std::string& name, const ProfileNode& member) {
        const bool isKnown = std::any_of(names.begin(), names.end(),
                                         [&](const char* known) { return name == known; });
        if (!isKnown) {
            member.fail("no such member, only " + listed(names));
        }
    });
}

std::optional<ProfileNode> ProfileNode::find(const std::string& name) const {
    if (!m_value->isObject()) {
        fail("an object");
    }
    const Json::Value* const member = m_value->find(name.data(), name.data() + name.size());
    if (member == nullptr) {
        return std::nullopt;
    }
    return ProfileNode(*m_document, *member, memberPath(m_path, name));
}

ProfileNode ProfileNode::get(const std::string& name) const {
    auto member = find(name);
    if (!member) {
        fail("a member \"" + name + '"');
    }
    return *std::move(member);
}

void ProfileNode::forEach(
    const std::function<void(const std::string&, const ProfileNode&)>& visit) const {
    if (!m_value->isObject()) {
        fail("an object");
    }
    for (const std::string& name : m_value->getMemberNames()) {
        visit(name, get(name));
    }
}

int ProfileNode::asInteger() const {
    // jsoncpp takes 1.0 for an integer, too; a profile means what it says.
    if (m_value->type() == Json::realValue || !m_value->isInt()) {
        fail("an integer of 32 bits");
    }
    return m_value->asInt();
}

bool ProfileNode::asBoolean() const {
    if (!m_value->isBool()) {
        fail("true or false");
    }
    return m_value->asBool();
}

std::string ProfileNode::asText() const {
    if (!m_value->isString()) {
        fail("a text");
    }
    std::string text = m_value->asString();
    if (text.find('\0') != std::string::npos) {
        fail("a text without a zero character");
    }
    return text;
}

Value ProfileNode::asValue() const {
    switch (m_value->type()) {
    case Json::booleanValue:
        return asBoolean();
    case Json::stringValue:
        return asText();
    case Json::realValue:
        return m_value->asDouble();
    case Json::intValue:
    case Json::uintValue:
        return asInteger();
    default:
        fail("a number, true, false or a text");
    }
}

Value ProfileNode::asValueOf(ValueType type) const {
    switch (type) {
    case ValueType::Boolean:
        return asBoolean();
    case ValueType::Text:
        return asText();
    case ValueType::Integer:
        return asInteger();
    case ValueType::Fraction:
        break;
    }
    fail("a value of a setting's type");
}

int ProfileNode::nameAsNumber(const std::string& name) const {
    int number = 0;
    const char* const end = name.data() + name.size();
    const auto result = std::from_chars(name.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || std::to_string(number) != name) {
        fail("a number as the member's name");
    }
    return number;
}

} // namespace KLX::Host
