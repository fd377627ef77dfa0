#include "ProfileReader.h"

#include "../HostErrors.h"
#include "../SharedValues.h"
#include "ControlLimits.h"
#include "ProfileNode.h"

#include <algorithm>
#include <array>

namespace KLX::Host {
namespace {

constexpr std::size_t longestKey = 511;
constexpr auto pictureSizeKey = "db/menu/picture/picturesize/mode";

ValueType readType(const ProfileNode& node) {
    const std::string name = node.asText();
    for (const ValueType type : {ValueType::Integer, ValueType::Boolean, ValueType::Text}) {
        if (name == typeName(type)) {
            return type;
        }
    }
    node.fail("int, bool or string");
}

SettingDeclaration readDeclaration(const ProfileNode& node) {
    node.allowOnly({"type", "default"});
    SettingDeclaration declaration{readType(node.get("type")), std::nullopt};
    if (const auto value = node.find("default")) {
        declaration.defaultValue = value->asValueOf(declaration.type);
    }
    return declaration;
}

bool isSettingsKey(const std::string& key) {
    const bool hasPrefix = key.rfind("db/", 0) == 0 || key.rfind("memory/", 0) == 0;
    return hasPrefix && key.size() <= longestKey;
}

void readSettings(const ProfileNode& node, SetProfile& profile) {
    node.forEach([&](const std::string& key, const ProfileNode& member) {
        if (!isSettingsKey(key)) {
            member.fail("a key that begins with db/ or memory/ and has at most 511 bytes");
        }
        profile.settings.emplace(key, readDeclaration(member));
    });
}

void readSystemSettings(const ProfileNode& node, SetProfile& profile) {
    node.forEach([&](const std::string& name, const ProfileNode& member) {
        const int number = member.nameAsNumber(name);
        if (const auto key = settingBehindSystemSetting(number)) {
            member.fail("no declaration here: this is the same value as settings[\"" + *key +
                        "\"]");
        }
        profile.systemSettings.emplace(number, readDeclaration(member));
    });
}

/** The text "host", by itself or in an object with a fallback, asks the machine. */
bool asksHost(const ProfileNode& node) {
    const Value value = node.asValue();
    const auto* const text = std::get_if<std::string>(&value);
    return text != nullptr && *text == "host";
}

std::optional<Value> readHostValue(const ProfileNode& node, int number, const HostFacts& facts) {
    const auto fallback = node.isObject() ? node.find("fallback") : std::nullopt;
    const std::string fallbackText = fallback ? fallback->asText() : "";
    if (!HostFacts::covers(number)) {
        node.fail("a value: the machine knows only 128 (firmware version) and 187 (serial number)");
    }
    if (const auto fact = facts.find(number)) {
        return Value(*fact);
    }
    return fallback ? std::optional<Value>(fallbackText) : std::nullopt;
}

std::optional<Value> readInformation(const ProfileNode& node, int number, const HostFacts& facts) {
    if (!node.isObject()) {
        return asksHost(node) ? readHostValue(node, number, facts) : node.asValue();
    }
    node.allowOnly({"value", "fallback"});
    if (!asksHost(node.get("value"))) {
        node.get("value").fail("\"host\"");
    }
    return readHostValue(node, number, facts);
}

void readSystemInformation(const ProfileNode& node, const HostFacts& facts, SetProfile& profile) {
    node.forEach([&](const std::string& name, const ProfileNode& member) {
        const int number = member.nameAsNumber(name);
        if (auto value = readInformation(member, number, facts)) {
            profile.systemInformation.emplace(number, *std::move(value));
        }
    });
}

void readRuntimeInformation(const ProfileNode& node, SetProfile& profile) {
    node.forEach([&](const std::string& name, const ProfileNode& member) {
        const int number = member.nameAsNumber(name);
        if (const auto setting = systemSettingBehindRuntime(number)) {
            member.fail("no value here: this mirrors system setting " + std::to_string(*setting));
        }
        profile.runtimeInformation.emplace(number, member.asValue());
    });
}

std::map<int, std::string> readNumberedNames(const ProfileNode& node) {
    std::map<int, std::string> names;
    node.forEach([&](const std::string& name, const ProfileNode& member) {
        names.emplace(member.nameAsNumber(name), member.asText());
    });
    return names;
}

void readPictureModes(const ProfileNode& node, SetProfile& profile) {
    profile.pictureModes = readNumberedNames(node);
}

void readPictureSizes(const ProfileNode& node, SetProfile& profile) {
    profile.pictureSizes = readNumberedNames(node);
}

int readWithin(const ProfileNode& node, int minimum, int maximum) {
    const int value = node.asInteger();
    if (value < minimum || value > maximum) {
        node.fail("an integer from " + std::to_string(minimum) + " to " + std::to_string(maximum));
    }
    return value;
}

ControlRange readRange(const ProfileNode& node, const SetProfile& profile,
                       const ControlLimits& limits) {
    node.allowOnly({"minimum", "maximum", "default", "defaultsByPictureMode"});
    ControlRange range;
    range.minimum = readWithin(node.get("minimum"), limits.minimum, limits.maximum);
    range.maximum = readWithin(node.get("maximum"), range.minimum, limits.maximum);
    range.defaultValue = readWithin(node.get("default"), range.minimum, range.maximum);
    if (const auto defaults = node.find("defaultsByPictureMode")) {
        defaults->forEach([&](const std::string& name, const ProfileNode& member) {
            const int mode = member.nameAsNumber(name);
            if (profile.pictureModes.count(mode) == 0) {
                member.fail("the number of one of pictureModes as the member's name");
            }
            range.defaultsByPictureMode[mode] = readWithin(member, range.minimum, range.maximum);
        });
    }
    return range;
}

void readControls(const ProfileNode& node, SetProfile& profile) {
    node.forEach([&](const std::string& name, const ProfileNode& member) {
        const ControlLimits* const limits = findControlLimits(name);
        if (limits == nullptr) {
            member.fail("one of the controls as the member's name: " + controlNames());
        }
        profile.controls.emplace(name, readRange(member, profile, *limits));
    });
}

Source readSource(const ProfileNode& node, const SetProfile& profile) {
    node.allowOnly({"id", "port"});
    Source source{node.get("id").asInteger(), ""};
    const auto isSame = [&](const auto& other) {
        return other.second.id == source.id;
    };
    if (std::any_of(profile.sources.begin(), profile.sources.end(), isSame)) {
        node.get("id").fail("a number that no other source has");
    }
    if (const auto port = node.find("port")) {
        source.portKey = port->asText();
        const auto setting = profile.settings.find(source.portKey);
        if (setting == profile.settings.end() || setting->second.type != ValueType::Integer) {
            port->fail("the key of an int in settings");
        }
    }
    return source;
}

void readSources(const ProfileNode& node, SetProfile& profile) {
    node.allowOnly({"initial", "inputs"});
    node.get("inputs").forEach([&](const std::string& name, const ProfileNode& member) {
        profile.sources.emplace(name, readSource(member, profile));
    });
    const ProfileNode initial = node.get("initial");
    profile.initialSource = initial.asText();
    if (profile.sources.count(*profile.initialSource) == 0) {
        initial.fail("the name of one of sources.inputs");
    }
}

int readSwitch(const ProfileNode& node) {
    return node.asBoolean() ? 1 : 0;
}

void readSwitches(const ProfileNode& node, SetProfile& profile) {
    node.allowOnly({"hdmiCec", "wifi", "wakeOnMobile"});
    profile.switches.hdmiCec = readSwitch(node.get("hdmiCec"));
    profile.switches.wifi = readSwitch(node.get("wifi"));
    profile.switches.wakeOnMobile = node.get("wakeOnMobile").asBoolean();
}

void readSound(const ProfileNode& node, SetProfile& profile) {
    node.allowOnly({"muted", "speaker"});
    profile.sound.isMuted = node.get("muted").asBoolean();
    profile.sound.speaker = readRange(node.get("speaker"), profile, anyInteger);
}

std::optional<std::string> readOptionalText(const ProfileNode& node, const char* name) {
    const auto member = node.find(name);
    return member ? std::optional(member->asText()) : std::nullopt;
}

std::optional<int> readOptionalInteger(const ProfileNode& node, const char* name) {
    const auto member = node.find(name);
    return member ? std::optional(member->asInteger()) : std::nullopt;
}

void readApplicationServer(const ProfileNode& node, SetProfile& profile) {
    node.allowOnly({"versions", "hubSite", "usedMemory"});
    if (const auto versions = node.find("versions")) {
        versions->forEach([&](const std::string& id, const ProfileNode& member) {
            profile.applicationServer.versions.emplace(id, member.asText());
        });
    }
    profile.applicationServer.hubSite = readOptionalText(node, "hubSite");
    profile.applicationServer.usedMemory = readOptionalText(node, "usedMemory");
}

void readPower(const ProfileNode& node, SetProfile& profile) {
    node.allowOnly({"powerFailCount", "watchdogCount"});
    profile.power.powerFail = readOptionalInteger(node, "powerFailCount");
    profile.power.watchdog = readOptionalInteger(node, "watchdogCount");
}

void readCustomFeatures(const ProfileNode& node, SetProfile& profile) {
    node.forEach([&](const std::string& name, const ProfileNode& member) {
        profile.customFeatures.emplace(name, member.asValue());
    });
}

void readSettingsItems(const ProfileNode& node, SetProfile& profile) {
    node.forEach([&](const std::string& name, const ProfileNode& member) {
        profile.settingsItems.emplace(name, member.asInteger());
    });
}

void checkPictureSizeDefault(const ProfileNode& root, const SetProfile& profile) {
    const auto found = profile.settings.find(pictureSizeKey);
    if (found == profile.settings.end() || !found->second.defaultValue) {
        return;
    }
    const auto* const size = std::get_if<int>(&*found->second.defaultValue);
    if (size == nullptr || profile.pictureSizes.count(*size) == 0) {
        root.get("settings").get(pictureSizeKey).get("default").fail("one of pictureSizes");
    }
}

void checkPictureModes(const ProfileNode& root, const SetProfile& profile) {
    const auto found = profile.controls.find("picture_mode");
    if (found == profile.controls.end()) {
        return;
    }
    for (int mode = found->second.minimum; mode <= found->second.maximum; ++mode) {
        if (profile.pictureModes.count(mode) == 0) {
            root.get("controls").get("picture_mode").fail("a range that pictureModes covers");
        }
    }
}

void readIdentity(const ProfileNode& node, SetProfile& profile) {
    node.allowOnly({"esn"});
    profile.esn = readOptionalText(node, "esn");
}

void readTuner(const ProfileNode& node, SetProfile& profile) {
    node.allowOnly({"snrHundredthsOfDecibel"});
    profile.snrHundredthsOfDecibel = readOptionalInteger(node, "snrHundredthsOfDecibel");
}

/** A section of the file and what reads it; sections that others refer to come first. */
struct Section {
    const char* name;
    void (*read)(const ProfileNode&, SetProfile&);
};

constexpr std::array<Section, 15> sections{{
    {"settings", readSettings},
    {"systemSettings", readSystemSettings},
    {"runtimeInformation", readRuntimeInformation},
    {"customFeatures", readCustomFeatures},
    {"pictureModes", readPictureModes},
    {"pictureSizes", readPictureSizes},
    {"controls", readControls},
    {"sources", readSources},
    {"sound", readSound},
    {"switches", readSwitches},
    {"settingsItems", readSettingsItems},
    {"identity", readIdentity},
    {"applicationServer", readApplicationServer},
    {"power", readPower},
    {"tuner", readTuner},
}};

} // namespace

SetProfile readProfile(const ProfileDocument& document, const HostFacts& facts) {
    const ProfileNode root(document);
    root.allowOnly({"model", "settings", "systemSettings", "systemInformation",
                    "runtimeInformation", "customFeatures", "pictureModes", "pictureSizes",
                    "controls", "sources", "sound", "switches", "settingsItems", "identity",
                    "applicationServer", "power", "tuner"});
    SetProfile profile;
    profile.model = root.get("model").asText();
    for (const Section& section : sections) {
        if (const auto node = root.find(section.name)) {
            section.read(*node, profile);
        }
    }
    if (const auto node = root.find("systemInformation")) {
        readSystemInformation(*node, facts, profile);
    }
    checkPictureSizeDefault(root, profile);
    checkPictureModes(root, profile);
    return profile;
}

} // namespace KLX::Host
