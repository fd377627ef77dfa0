#pragma once

#include "FakeHandles.h"
#include "FakePlatform.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace klx::fake {

/** How the calls to one function depart from the usual. */
struct Plan {
    int calls = 0;
    std::optional<int> failure;
    std::map<int, int> failures; ///< Ordinal of a call to its status.
    std::optional<int> answer;
    std::function<void()> thrower;
    std::function<void()> action;
    std::shared_ptr<Gate::State> gate;
};

/** One entry of the history: a call or a log line. */
struct Event {
    std::string function;
    std::string call;
    std::optional<LogLine> line;
};

struct DefaultRecord {
    std::optional<std::string> text;
    int status;
    std::optional<int> type;
};

struct SettingsItem {
    int result;
    std::string text;
};

/** A profile as handed out; its address is its handle. */
struct ProfileRecord {
    explicit ProfileRecord(const Profile& profile);
    std::string name;
    std::map<std::string, Value> values;
};

struct NetworkState {
    std::optional<int> connectionType;
    std::shared_ptr<ProfileRecord> current;
    std::vector<std::shared_ptr<ProfileRecord>> registered;
    std::map<int, Value> macs;
    std::optional<int> wifiState;
    std::optional<int> cellularState;
    std::optional<int> ethernetState;
    std::optional<int> wifi;
    std::optional<int> wakeOnMobile;
};

struct EsnRecord {
    std::string bytes;
    std::optional<int> claimed;
};

/** All that the platform knows and remembers. */
struct State {
    std::map<std::string, Plan> plans;
    std::vector<Event> events;
    HandleTable handles;

    std::map<std::string, Value> store;
    std::map<std::string, DefaultRecord> storeDefaults;
    std::map<int, Value> systemInfo;
    std::map<std::string, Value> features;
    std::map<int, Value> systemSettings;
    std::map<int, Value> runtimeInfo;

    std::map<std::pair<std::string, int>, long long> pelm; ///< Adjustment and save type.
    std::optional<int> muted;
    std::optional<int> speaker;
    std::map<std::string, SettingsItem> settingsItems;

    std::optional<int> source;
    std::optional<int> snr;
    std::optional<int> pictureSize;
    std::optional<std::string> hdmi;
    std::vector<const void*> videoDevices; ///< By descriptor, open and closed ones.

    NetworkState network;

    std::optional<std::vector<UsbDevice>> usbDevices;
    int usbSessions = 0;
    std::optional<int> cec;
    int cecSessions = 0;
    std::optional<int> powerFailCount;
    std::optional<int> watchdogCount;
    std::map<std::string, std::string> appVersions;
    std::optional<std::string> hubSite;
    std::optional<Value> usedMemory;
    std::optional<EsnRecord> esn;
};

} // namespace klx::fake
