#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace KLX::Host {

/** A link as the kernel tells it. */
struct LinkFacts {
    int index = 0;
    std::string name;
    std::string kind;            ///< The kernel's word for a virtual link, "" for hardware.
    std::string hardwareAddress; ///< Its bytes; empty when it has none.
    unsigned hardwareType = 0;   ///< ARPHRD_…
    bool isOperational = false;  ///< Switched on, plugged in and admitted: traffic can pass.
    bool isPort = false;         ///< It works for a bridge, a bond or the like.
};

enum class Family { Ipv4, Ipv6 };

/** An address that other machines can reach. */
struct AddressFacts {
    int link = 0;
    Family family = Family::Ipv4;
    std::string text;
    unsigned prefixLength = 0;
    bool reachesFar = false; ///< It is good beyond the link.
    bool expires = false;    ///< Whoever gave it out has to renew it.
};

/** One way out of the machine, from the main routing table. */
struct DefaultRoute {
    int link = 0;
    Family family = Family::Ipv4;
    std::string gateway; ///< Of the same family; empty when it has none.
    std::string source;  ///< The address to send from; empty when the route leaves it open.
    std::uint32_t metric = 0;
    bool isFromDhcp = false;
};

/** What the kernel knows about the network of this process at one moment. */
struct NetworkFacts {
    std::vector<LinkFacts> links;
    std::vector<AddressFacts> addresses; ///< In the kernel's order for each link.
    std::vector<DefaultRoute> routes;
};

} // namespace KLX::Host
