#include "Network.h"

#include <algorithm>

namespace KLX::Host {
namespace {

/** The best default route over a link, or null; of one family, or of either. */
const DefaultRoute* bestRoute(const NetworkFacts& facts, int link, std::optional<Family> family) {
    const DefaultRoute* best = nullptr;
    for (const DefaultRoute& route : facts.routes) {
        const bool fits = route.link == link && (!family || route.family == *family);
        if (fits && (best == nullptr || route.metric < best->metric)) {
            best = &route;
        }
    }
    return best;
}

/**
 * The address that the kernel sends from: the one that the route names, else the first one that is
 * good beyond the link, else the first one.
 */
std::optional<AddressFacts> addressOf(const NetworkFacts& facts, int link,
                                      const DefaultRoute* route) {
    const auto rankOf = [&](const AddressFacts& address) {
        const bool isNamed = route != nullptr && address.text == route->source;
        return isNamed ? 2 : static_cast<int>(address.reachesFar);
    };
    const AddressFacts* best = nullptr;
    for (const AddressFacts& address : facts.addresses) {
        const bool fits = address.link == link && address.family == Family::Ipv4;
        if (fits && (best == nullptr || rankOf(address) > rankOf(*best))) {
            best = &address;
        }
    }
    return best != nullptr ? std::optional(*best) : std::nullopt;
}

bool hasIpv6(const NetworkFacts& facts, int link) {
    return std::any_of(facts.addresses.begin(), facts.addresses.end(),
                       [&](const AddressFacts& address) {
                           return address.link == link && address.family == Family::Ipv6;
                       });
}

Profile profileOf(const NetworkFacts& facts, const LinkFacts& link, LinkType type) {
    const DefaultRoute* const route = bestRoute(facts, link.index, Family::Ipv4);
    Profile profile;
    profile.link = link.index;
    profile.type = type;
    profile.name = link.name;
    profile.hardwareAddress = link.hardwareAddress;
    profile.address = addressOf(facts, link.index, route);
    profile.gateway = route != nullptr ? route->gateway : "";
    profile.hasIpv6 = hasIpv6(facts, link.index);
    profile.isDynamic =
        profile.address && (profile.address->expires || (route != nullptr && route->isFromDhcp));
    profile.isConnected = link.isOperational && (profile.address || profile.hasIpv6);
    return profile;
}

std::optional<std::size_t> positionOf(const std::vector<Profile>& profiles, int link) {
    const auto found = std::find_if(profiles.begin(), profiles.end(),
                                    [&](const Profile& profile) { return profile.link == link; });
    return found != profiles.end()
               ? std::optional(static_cast<std::size_t>(std::distance(profiles.begin(), found)))
               : std::nullopt;
}

std::optional<std::size_t> currentOf(const NetworkFacts& facts,
                                     const std::vector<Profile>& profiles, Family family) {
    const DefaultRoute* best = nullptr;
    for (const DefaultRoute& route : facts.routes) {
        if (route.family == family && (best == nullptr || route.metric < best->metric) &&
            positionOf(profiles, route.link)) {
            best = &route;
        }
    }
    return best != nullptr ? positionOf(profiles, best->link) : std::nullopt;
}

/** The type of a link, or nothing when it is no connection or is gone by now. */
std::optional<LinkType> presentTypeOf(const NetworkFacts& facts, const LinkFacts& link,
                                      const Netlink& netlink) {
    const bool leadsOut = bestRoute(facts, link.index, std::nullopt) != nullptr;
    const std::optional<LinkType> type = typeOf(link, leadsOut);
    // Of a link that left or was renamed since it was read, sysfs tells nothing by the old name,
    // which would make Ethernet of a Wi-Fi stick that was pulled out.
    return type != LinkType::Ethernet || netlink.has(link) ? type : std::nullopt;
}

} // namespace

const Profile* Network::currentProfile() const {
    return current ? &profiles[*current] : nullptr;
}

const Profile* Network::profileOf(LinkType type) const {
    const Profile* const used = currentProfile();
    if (used != nullptr && used->type == type) {
        return used;
    }
    const auto found = std::find_if(profiles.begin(), profiles.end(),
                                    [&](const Profile& profile) { return profile.type == type; });
    return found != profiles.end() ? &*found : nullptr;
}

Network networkOf(const NetworkFacts& facts, const Netlink& netlink) {
    Network network;
    for (const LinkFacts& link : facts.links) {
        if (const auto type = presentTypeOf(facts, link, netlink)) {
            network.profiles.push_back(profileOf(facts, link, *type));
        }
    }
    std::stable_partition(network.profiles.begin(), network.profiles.end(),
                          [](const Profile& profile) { return profile.isConnected; });
    network.current = currentOf(facts, network.profiles, Family::Ipv4);
    if (!network.current) {
        network.current = currentOf(facts, network.profiles, Family::Ipv6);
    }
    return network;
}

} // namespace KLX::Host
