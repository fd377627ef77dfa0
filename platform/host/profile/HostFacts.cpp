#include "HostFacts.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <utility>

namespace KLX::Host {
namespace {

constexpr int firmwareVersionNumber = 128;
constexpr int serialNumberNumber = 187;

std::string trimmed(std::string text) {
    const auto isBlank = [](unsigned char c) {
        return std::isspace(c) != 0;
    };
    text.erase(std::find_if_not(text.rbegin(), text.rend(), isBlank).base(), text.end());
    text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), isBlank));
    return text;
}

std::string unquoted(std::string text) {
    const bool isQuoted = text.size() >= 2 && (text.front() == '"' || text.front() == '\'') &&
                          text.front() == text.back();
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

std::optional<std::string> assignmentIn(const std::string& file, const std::string& name) {
    std::ifstream stream(file);
    std::string line;
    while (std::getline(stream, line)) {
        if (line.rfind(name + '=', 0) == 0) {
            return unquoted(trimmed(line.substr(name.size() + 1)));
        }
    }
    return std::nullopt;
}

// Board makers leave these where a serial number should be.
bool isPlaceholder(const std::string& text) {
    constexpr std::array<const char*, 6> placeholders{
        "", "0", "None", "Not Specified", "System Serial Number", "Default string"};
    return text.find("O.E.M.") != std::string::npos ||
           std::find(placeholders.begin(), placeholders.end(), text) != placeholders.end();
}

} // namespace

HostFacts::HostFacts(std::string root) : m_root(std::move(root)) {}

bool HostFacts::covers(int systemInformation) {
    return systemInformation == firmwareVersionNumber || systemInformation == serialNumberNumber;
}

std::optional<std::string> HostFacts::find(int systemInformation) const {
    switch (systemInformation) {
    case firmwareVersionNumber:
        return firmwareVersion();
    case serialNumberNumber:
        return serialNumber();
    default:
        return std::nullopt;
    }
}

std::optional<std::string> HostFacts::firmwareVersion() const {
    for (const char* file : {"/etc/os-release", "/usr/lib/os-release"}) {
        if (auto name = assignmentIn(m_root + file, "PRETTY_NAME")) {
            return name;
        }
    }
    return std::nullopt;
}

std::optional<std::string> HostFacts::serialNumber() const {
    std::ifstream stream(m_root + "/sys/class/dmi/id/product_serial");
    std::string line;
    std::getline(stream, line);
    const std::string text = trimmed(line);
    return isPlaceholder(text) ? std::nullopt : std::optional(text);
}

} // namespace KLX::Host
