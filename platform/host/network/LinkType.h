#pragma once

#include "NetworkFacts.h"

#include <optional>

namespace KLX::Host {

enum class LinkType { Ethernet, Wifi, Cellular, Bluetooth };

/**
 * Tells which type of connection a link is, or nothing when it is none.
 *
 * - Wi-Fi, cellular and Bluetooth links are what sysfs calls them, whatever their driver.
 * - Ethernet is a link of Ethernet hardware.
 * - A link that stands in for Ethernet (veth, netkit, macvlan, ipvlan, VLAN, bond, team) is
 *   Ethernet while a default route leads over it: inside a container or a virtual machine such a
 *   link is the way out, while on a machine that runs containers their near ends carry no default
 *   route and are not connections.
 * - Loopback, bridges and their virtual ports, tunnels (tun and tap among them), PPP, dummy and
 *   every other virtual link are not connections.
 *
 * sysfs is believed only where it describes this very link: a process that changed its network
 * namespace may still see the links of the old one there.
 */
std::optional<LinkType> typeOf(const LinkFacts& link, bool carriesDefaultRoute);

} // namespace KLX::Host
