#include "DeviceInfoNetwork.h"

#include "Exception.h"
#include "Handles.h"
#include "Log.h"
#include "NetworkAPI.h"
#include "commonUtil.h"

#include <connection.h>
#include <network_control.h>
#include <vconf.h>

namespace {

constexpr auto ipv4 = static_cast<connection_address_family_e>(0);

constexpr unsigned int wifiConnection = 1;
constexpr unsigned int cellularConnection = 2;
constexpr unsigned int ethernetConnection = 3;

bool opened(const char* operation, NetworkApi& network) {
    try {
        network.init();
        return true;
    } catch (const KLX::Exception& error) {
        KLX_LOG_AS(operation, LogWarning, "Unable to init network api. %s", error.what());
        return false;
    }
}

/// The common shape of the queries that read one text of the held profile.
template <class Read>
std::string profileText(const char* operation, const char* failure, Read read) {
    NetworkApi network;
    if (!opened(operation, network)) {
        return "";
    }
    char* answer = nullptr;
    const int status = read(network.profile(), &answer);
    const KLX::PlatformText text(answer);
    if (status != 0) {
        KLX_LOG_AS(operation, LogWarning, "%s", failure);
        return "";
    }
    return KLX::copyOf(text);
}

const char* modeName(connection_ip_config_type_e type) {
    switch (static_cast<int>(type)) {
    case 1:
        return "Manual";
    case 2:
        return "DHCP";
    case 3:
        return "Auto";
    case 4:
        return "Fixed";
    default:
        return "None";
    }
}

/// What is asked of one kind of connection and how that is told.
template <class State>
struct StateQuery {
    int (*read)(connection_h, State*);
    int connected;
    const char* failure;
    const char* success;
};

template <class State>
bool isUp(const NetworkApi& network, const StateQuery<State>& query) {
    constexpr const char* operation = "pingGateway";
    State state{};
    if (query.read(network.connection(), &state) != 0) {
        KLX_LOG_AS(operation, LogWarning, "%s", query.failure);
        return false;
    }
    KLX_LOG_AS(operation, LogDebug, "%s: %d", query.success, static_cast<int>(state));
    return static_cast<int>(state) == query.connected;
}

bool isUp(const NetworkApi& network, unsigned int connectionType) {
    switch (connectionType) {
    case wifiConnection:
        return isUp<connection_wifi_state_e>(network, {connection_get_wifi_state, 2,
                                                       "Failed getting wifi connection state.",
                                                       "Wifi connection state"});
    case cellularConnection:
        return isUp<connection_cellular_state_e>(
            network, {connection_get_cellular_state, 5, "Failed getting cellular connection state.",
                      "Cellular connection state"});
    case ethernetConnection:
        return isUp<connection_ethernet_state_e>(
            network, {connection_get_ethernet_state, 2, "Failed getting ethernet connection state.",
                      "Ethernet connection state"});
    default:
        return false;
    }
}

} // namespace

std::string DeviceInfoNetwork::getNetworkType(const std::string&) {
    NetworkApi network;
    try {
        network.init();
        return commonUtil::intToStr(static_cast<int>(network.getConnectionType()));
    } catch (const KLX::Exception& error) {
        KLX_LOG(LogWarning, "%s", error.what());
        return "";
    }
}

std::string DeviceInfoNetwork::getNetworkIP(const std::string&) {
    return profileText(__func__, "Failure while getting network IP",
                       [](connection_profile_h profile, char** text) {
                           return connection_profile_get_ip_address(profile, ipv4, text);
                       });
}

std::string DeviceInfoNetwork::getNetworkSubnetMask(const std::string&) {
    return profileText(__func__, "Failure while getting network subnet mask",
                       [](connection_profile_h profile, char** text) {
                           return connection_profile_get_subnet_mask(profile, ipv4, text);
                       });
}

std::string DeviceInfoNetwork::getNetworkGateway(const std::string&) {
    NetworkApi network;
    if (!opened(__func__, network)) {
        return "";
    }
    char* answer = nullptr;
    const int status = connection_profile_get_gateway_address(network.profile(), ipv4, &answer);
    const KLX::PlatformText text(answer);
    if (status != 0) {
        KLX_LOG(LogWarning, "Failure while getting gateway address");
        return "";
    }
    std::string gateway = KLX::copyOf(text);
    KLX_LOG(LogInfo, "%s", gateway.c_str());
    return gateway;
}

std::string DeviceInfoNetwork::getNetworkDNS(const std::string&) {
    return profileText(__func__, "Failure while getting network DNS",
                       [](connection_profile_h profile, char** text) {
                           constexpr int first = 1;
                           return connection_profile_get_dns_address(profile, first, ipv4, text);
                       });
}

std::string DeviceInfoNetwork::getNetworkIPMode(const std::string&) {
    NetworkApi network;
    if (!opened(__func__, network)) {
        return "";
    }
    connection_ip_config_type_e type{};
    const int status = connection_profile_get_ip_config_type(network.profile(), ipv4, &type);
    return status == 0 ? modeName(type) : "None";
}

std::string DeviceInfoNetwork::getNetworkMAC(connectionProfileType type) {
    NetworkApi network;
    if (!opened(__func__, network)) {
        return "";
    }
    if (type > currentProfile) {
        KLX_LOG(LogWarning, "Unexpected param: %d", static_cast<int>(type));
        return "";
    }
    constexpr unsigned int fixedTypes[] = {ethernetConnection, wifiConnection, cellularConnection};
    unsigned int connectionType = 0;
    try {
        connectionType = type == currentProfile ? network.getConnectionType() : fixedTypes[type];
    } catch (const KLX::Exception& error) {
        KLX_LOG(LogWarning, "getting connection type failed. %s", error.what());
        return "";
    }
    char* answer = nullptr;
    const int status = connection_get_mac_address(
        network.connection(), static_cast<connection_type_e>(connectionType), &answer);
    const KLX::PlatformText text(answer);
    if (status != 0) {
        KLX_LOG(LogWarning, "Failure while getting network MAC");
        return "";
    }
    std::string mac = KLX::copyOf(text);
    KLX_LOG(LogDebug, "Success. MAC: %s", mac.c_str());
    return mac;
}

std::string DeviceInfoNetwork::getNetworkDeviceName(const std::string&) {
    return profileText(__func__, "Failure while getting device name",
                       [](connection_profile_h profile, char** text) {
                           return connection_profile_get_network_interface_name(profile, text);
                       });
}

bool DeviceInfoNetwork::pingGateway(eMenuValueType, const std::string&) {
    NetworkApi network;
    unsigned int type = 0;
    try {
        network.init();
        type = network.getConnectionType();
    } catch (const KLX::Exception& error) {
        KLX_LOG(LogWarning, "Unable to init network api. %s", error.what());
        return false;
    }
    KLX_LOG(LogDebug, "Connection type: %d", static_cast<int>(type));
    const bool connected = isUp(network, type);
    KLX_LOG(LogDebug, "Network connection state: %d", connected ? 1 : 0);
    return connected;
}

std::string DeviceInfoNetwork::getWiFiEnabled(const std::string&) {
    int enabled = 0;
    if (wifi_get_enable_kq(&enabled) != 0) {
        KLX_LOG(LogDebug, "Wifi get Enabled KQ Error");
    }
    KLX_LOG(LogDebug, "wifi_get_enable_kq==%d", enabled);
    return commonUtil::intToStr(enabled);
}

void DeviceInfoNetwork::setWiFiEnabled(const std::string& value) {
    const int enable = commonUtil::strToInt(value);
    if (wifi_set_enable_kq(enable != 0) != 0) {
        KLX_LOG(LogDebug, "Wifi set Enabled KQ Error");
    }
    if (vconf_set_int("memory/menu/network/wifionui_enabled", enable) != 0) {
        KLX_LOG(LogWarning, "Operation failed. value : %d", enable);
    }
}

std::string DeviceInfoNetwork::getPowerOnMobileMode(const std::string&) {
    bool enabled = false;
    if (util_get_wakeOnMobile_mode(&enabled) != 0) {
        KLX_LOG(LogDebug, "failed to get util_get_wakeOnMobile_mode value");
    } else {
        KLX_LOG(LogDebug, "util_get_wakeOnMobile_mode is [%d]", enabled ? 1 : 0);
    }
    return commonUtil::intToStr(enabled ? 1 : 0);
}

void DeviceInfoNetwork::setPowerOnMobileMode(const std::string& value) {
    const int enable = commonUtil::strToInt(value);
    if (util_set_wakeOnMobile_mode(enable != 0) != 0) {
        KLX_LOG(LogDebug, "failed to set util_set_wakeOnMobile_mode");
    } else {
        KLX_LOG(LogDebug, "util_set_wakeOnMobile_mode is set to [%d]", enable);
    }
}
