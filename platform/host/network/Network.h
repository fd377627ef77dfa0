#pragma once

#include "LinkType.h"
#include "Netlink.h"
#include "NetworkFacts.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace KLX::Host {

/** A connection of the machine as it was when somebody looked. */
struct Profile {
    int link = 0;
    LinkType type = LinkType::Ethernet;
    std::string name;
    std::string hardwareAddress;         ///< Its bytes; empty when it has none.
    std::optional<AddressFacts> address; ///< IPv4; the one that its default route sends from.
    std::string gateway;                 ///< IPv4; empty when there is none.
    bool hasIpv6 = false;                ///< It has an IPv6 address beyond the link.
    bool isDynamic = false;              ///< Somebody on the network gave the address out.
    bool isConnected = false;            ///< Operational, and with an address of either family.
};

/** The machine's connections as they were when somebody looked. */
struct Network {
    /** Every connection: those that are connected first, then in the kernel's order. */
    std::vector<Profile> profiles;

    /**
     * The position of the connection in use: the one under the default route with the lowest
     * metric. IPv6 routes count when no IPv4 one leads over a connection.
     */
    std::optional<std::size_t> current;

    const Profile* currentProfile() const;

    /** The connection in use when it is of the type, else the first of the type, else null. */
    const Profile* profileOf(LinkType type) const;
};

/**
 * Makes sense of the kernel's facts, with sysfs for the types of the links. Those that left or
 * were renamed before sysfs was asked are left out.
 *
 * @param netlink where the facts were read
 */
Network networkOf(const NetworkFacts& facts, const Netlink& netlink);

} // namespace KLX::Host
