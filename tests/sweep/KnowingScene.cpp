#include "KnowingScene.h"

#include "DeviceProperty.h"

#include <boost/optional.hpp>

#include <cstdio>

namespace klx::test {
namespace {

fake::Profile home() {
    return fake::Profile("home")
        .type(2)
        .ip("192.0.2.7")
        .subnetMask("255.255.255.0")
        .gateway("192.0.2.1")
        .dns("192.0.2.53")
        .ipConfig(2)
        .interfaceName("eth7");
}

PropertyAccessorMap catalogue() {
    PropertyAccessorMap records;
    CDeviceProperty::GetInstance()->createPropertyAccessor(records);
    return records;
}

bool startsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

/** The text between the first pair of quotes of a call. */
std::string quotedIn(const std::string& call) {
    const std::size_t begin = call.find('"') + 1;
    return call.substr(begin, call.find('"', begin) - begin);
}

int firstNumberIn(const std::string& call) {
    return std::atoi(call.c_str() + call.find('(') + 1);
}

void programPicture(fake::Scene& scene) {
    const std::string read = "pelm_get_";
    for (const std::string& function : fake::functions()) {
        if (startsWith(function, read)) {
            scene.pelm(function.substr(read.size()), 1)
                .pelmDefault(function.substr(read.size()), 1);
        }
    }
    scene.muted(true).speaker(1).settingsItem("autorun-multiview-rotating", 1);
    scene.source(13).hdmi("vendor", "product").pictureSize(1).snr(2534);
}

void programNetwork(fake::Scene& scene) {
    scene.connectionType(3).currentProfile(home()).registeredProfile(home());
    scene.mac(1, "02:00:00:00:00:01").mac(2, "02:00:00:00:00:02").mac(3, "02:00:00:00:00:03");
    scene.wifiState(2).cellularState(5).ethernetState(2).wifi(1).wakeOnMobile(true);
}

void programOthers(fake::Scene& scene) {
    scene.cec(1).powerFailCount(1).watchdogCount(1).usedMemory("123456 kB");
    scene.usbDevices({{"stick", "maker"}, {"disk", "builder"}});
    scene.appVersion("10140000000", "5.0.1").hubSite("prd-eu").esn("an ESN");
    scene.systemSetting(10008, 1);
    scene.feature(textFeature, "a text of more than a few letters").feature(numberFeature, 1);
}

} // namespace

void programServices(fake::Scene& scene) {
    programPicture(scene);
    programNetwork(scene);
    programOthers(scene);
}

std::vector<std::string> allPaths() {
    std::vector<std::string> paths;
    for (const auto& [path, record] : catalogue()) {
        paths.push_back(path);
    }
    return paths;
}

// The properties themselves tell what they ask for.
KnowingScene::KnowingScene() {
    programServices(m_scene);
    fake::clearHistory();
    for (const auto& [path, record] : catalogue()) {
        std::get<valueGetterElement>(record)("");
        if (const auto& defaultGetter = std::get<defaultGetterElement>(record)) {
            defaultGetter("");
        }
    }
    for (const std::string& call : fake::calls()) {
        knowWhatIsAskedBy(call);
    }
    joinWhatIsWrittenToWhatIsRead();
    fake::clearHistory();
}

void KnowingScene::withoutCurrentProfile() {
    m_scene.fail("connection_get_current_profile", -1);
}

void KnowingScene::knowWhatIsAskedBy(const std::string& call) {
    const std::string key = quotedIn(call);
    const int number = firstNumberIn(call);
    const std::string text = "text of " + std::to_string(number);
    if (startsWith(call, "vconf_get_int")) {
        m_scene.store(key, 1);
    } else if (startsWith(call, "vconf_get_bool")) {
        m_scene.store(key, true);
    } else if (startsWith(call, "vconf_get_str")) {
        m_scene.store(key, "text of " + key);
    } else if (startsWith(call, "get_vconf_key_default_value")) {
        m_scene.storeDefault(key, "1");
    } else if (startsWith(call, "system_info_get_value_int")) {
        m_scene.systemInfo(number, 1);
    } else if (startsWith(call, "system_info_get_value_string")) {
        m_scene.systemInfo(number, text);
    } else if (startsWith(call, "system_info_get_custom_int")) {
        m_scene.feature(key, 1);
    } else if (startsWith(call, "system_info_get_custom_string")) {
        m_scene.feature(key, "text of " + key);
    } else if (startsWith(call, "runtime_info_get_value_int")) {
        m_scene.runtimeInfo(number, 1);
    } else if (startsWith(call, "system_settings_get_value_string")) {
        m_scene.systemSetting(number, text);
    }
}

// What a set keeps in one place and lets be read from another.
void KnowingScene::joinWhatIsWrittenToWhatIsRead() {
    m_scene.onCall("system_settings_set_value_int", [this] {
        const std::string call = fake::callsTo("system_settings_set_value_int").back();
        int key = 0;
        int value = 0;
        std::sscanf(call.c_str(), "system_settings_set_value_int(%d, %d)", &key, &value);
        m_scene.runtimeInfo(key == 10008 ? 10010 : key, value);
    });
    m_scene.onCall("SettingsService.SetItemValue", [this] {
        const std::string call = fake::callsTo("SettingsService.SetItemValue").back();
        const bool enable = call.find(", true)") != std::string::npos;
        m_scene.settingsItem("autorun-multiview-rotating", enable ? 1 : 0);
    });
}

std::string anotherValue(const std::string& path) {
    return path == "/Picture/Tint" ? "70/30" : "0";
}

} // namespace klx::test
