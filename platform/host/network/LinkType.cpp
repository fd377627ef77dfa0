#include "LinkType.h"

#include <net/if_arp.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>

namespace KLX::Host {
namespace {

constexpr std::string_view linkFolder = "/sys/class/net/";

/** Virtual links by which a machine or container may reach the network instead of hardware. */
constexpr std::array<std::string_view, 7> standInKinds{"veth", "netkit", "macvlan", "ipvlan",
                                                       "vlan", "bond",   "team"};
/** Kinds that the kernel gives to hardware: the ports of a switch chip, a modem's channels. */
constexpr std::string_view switchPortKind = "dsa";
constexpr std::array<std::string_view, 2> modemKinds{"wwan", "rmnet"};

template <std::size_t size>
bool contains(const std::array<std::string_view, size>& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

bool startsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

/** What sysfs calls the link: "wlan", "wwan", "bluetooth", another word, or "". */
std::string deviceType(const std::string& folder, int index) {
    constexpr std::string_view typeField = "DEVTYPE=";
    constexpr std::string_view indexField = "IFINDEX=";
    std::string type;
    std::ifstream file(folder + "/uevent");
    for (std::string line; std::getline(file, line);) {
        if (startsWith(line, typeField)) {
            type = line.substr(typeField.size());
        } else if (startsWith(line, indexField) &&
                   line.substr(indexField.size()) != std::to_string(index)) {
            return {};
        }
    }
    // Drivers older than the word for it show Wi-Fi by these entries.
    if (type.empty() && (::access((folder + "/wireless").c_str(), F_OK) == 0 ||
                         ::access((folder + "/phy80211").c_str(), F_OK) == 0)) {
        return "wlan";
    }
    return type;
}

} // namespace

std::optional<LinkType> typeOf(const LinkFacts& link, bool carriesDefaultRoute) {
    const bool isStandIn = contains(standInKinds, link.kind);
    const bool isEthernet = link.hardwareType == ARPHRD_ETHER;
    if (link.hardwareType == ARPHRD_LOOPBACK || (isStandIn && link.isPort)) {
        return std::nullopt;
    }
    const std::string type = deviceType(std::string(linkFolder) + link.name, link.index);
    if (type == "wwan" || contains(modemKinds, link.kind)) {
        return LinkType::Cellular;
    }
    if (isEthernet && type == "wlan") {
        return LinkType::Wifi;
    }
    if (isEthernet && type == "bluetooth") {
        return LinkType::Bluetooth;
    }
    const bool isHardware = link.kind.empty() || link.kind == switchPortKind;
    if (isEthernet && (isHardware || (isStandIn && carriesDefaultRoute))) {
        return LinkType::Ethernet;
    }
    return std::nullopt;
}

} // namespace KLX::Host
