#include "Netlink.h"

#include "NetworkErrors.h"

#include <arpa/inet.h>
#include <linux/if.h>
#include <netlink/route/addr.h>
#include <netlink/route/link.h>
#include <netlink/route/route.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <new>
#include <system_error>

namespace KLX::Host {
namespace {

template <auto release>
struct ReleasedBy {
    template <class Handle>
    void operator()(Handle* handle) const noexcept {
        release(handle);
    }
};

using Cache = std::unique_ptr<nl_cache, ReleasedBy<&nl_cache_free>>;

[[noreturn]] void giveUp(int code, int systemError, const std::string& what) {
    if (code == -NLE_NOMEM) {
        throw std::bad_alloc();
    }
    const bool isDenied = code == -NLE_PERM || code == -NLE_NOACCESS || code == -NLE_AF_NOSUPPORT;
    const std::string seen = systemError != 0
                                 ? std::error_code(systemError, std::generic_category()).message()
                                 : nl_geterror(code);
    if (isDenied) {
        throw NetworkFault(NetworkError::NetlinkDenied,
                           what + ": " + seen +
                               "; allow this process AF_NETLINK sockets (a service manager's "
                               "RestrictAddressFamilies or a system call filter forbids them)");
    }
    throw NetworkFault(NetworkError::NetlinkFailed, what + ": " + seen);
}

/** One of the kernel's tables: libnl's name for it, and the question that it answers. */
struct Table {
    const char* name;
    int request;
};

constexpr Table linkTable{"route/link", RTM_GETLINK};
constexpr Table addressTable{"route/addr", RTM_GETADDR};
constexpr Table routeTable{"route/route", RTM_GETROUTE};

/** Asks once. libnl's own way of filling a cache would wait for ever when it cannot send. */
int ask(nl_sock* socket, const Table& table, int family, Cache& cache) {
    nl_cache* fresh = nullptr;
    int code = nl_cache_alloc_name(table.name, &fresh);
    cache.reset(fresh);
    if (code >= 0) {
        code = nl_rtgen_request(socket, table.request, family, NLM_F_DUMP);
    }
    return code >= 0 ? nl_cache_pickup(socket, fresh) : code;
}

/** Asks until no change came in between, which would leave holes in the answer. */
Cache readTable(nl_sock* socket, const Table& table, int family) {
    constexpr int patience = 100;
    Cache cache;
    int code = -NLE_DUMP_INTR;
    for (int i = 0; i < patience && code == -NLE_DUMP_INTR; ++i) {
        code = ask(socket, table, family, cache);
    }
    if (code < 0) {
        giveUp(code, 0, std::string("cannot read the kernel's table ") + table.name);
    }
    return cache;
}

template <class Object, class Visit>
void forEach(const Cache& cache, Visit visit) {
    for (nl_object* object = nl_cache_get_first(cache.get()); object != nullptr;
         object = nl_cache_get_next(object)) {
        visit(reinterpret_cast<Object*>(object));
    }
}

std::string bytesOf(nl_addr* address) {
    if (address == nullptr) {
        return {};
    }
    return {static_cast<const char*>(nl_addr_get_binary_addr(address)), nl_addr_get_len(address)};
}

std::string textOf(nl_addr* address) {
    std::array<char, INET6_ADDRSTRLEN> text{};
    const int family = address != nullptr ? nl_addr_get_family(address) : AF_UNSPEC;
    if ((family != AF_INET && family != AF_INET6) || nl_addr_get_len(address) == 0 ||
        ::inet_ntop(family, nl_addr_get_binary_addr(address), text.data(), text.size()) ==
            nullptr) {
        return {};
    }
    return text.data();
}

std::string textOf(const char* text) {
    return text != nullptr ? text : "";
}

// Drivers that know no more than "running", modems among them, leave the state unknown.
bool isOperational(rtnl_link* link) {
    constexpr unsigned running = IFF_UP | IFF_RUNNING;
    const unsigned state = rtnl_link_get_operstate(link);
    return (rtnl_link_get_flags(link) & running) == running &&
           (state == IF_OPER_UP || state == IF_OPER_UNKNOWN);
}

LinkFacts factsOf(rtnl_link* link) {
    LinkFacts facts;
    facts.index = rtnl_link_get_ifindex(link);
    facts.name = textOf(rtnl_link_get_name(link));
    facts.kind = textOf(rtnl_link_get_type(link));
    facts.hardwareAddress = bytesOf(rtnl_link_get_addr(link));
    facts.hardwareType = rtnl_link_get_arptype(link);
    facts.isOperational = isOperational(link);
    facts.isPort = rtnl_link_get_master(link) != 0;
    return facts;
}

bool isIp(int family) {
    return family == AF_INET || family == AF_INET6;
}

Family familyOf(int family) {
    return family == AF_INET ? Family::Ipv4 : Family::Ipv6;
}

void addAddress(rtnl_addr* address, std::vector<AddressFacts>& addresses) {
    constexpr std::uint32_t forever = 0xFFFFFFFF;
    const int family = rtnl_addr_get_family(address);
    // Every IPv6 link has an address of its own making; only a wider one says that a network is
    // there. An IPv4 address that was chosen for want of a better one counts.
    const int widest = family == AF_INET ? RT_SCOPE_LINK : RT_SCOPE_UNIVERSE;
    if (!isIp(family) || rtnl_addr_get_scope(address) > widest) {
        return;
    }
    AddressFacts facts;
    facts.link = rtnl_addr_get_ifindex(address);
    facts.family = familyOf(family);
    facts.text = textOf(rtnl_addr_get_local(address));
    facts.prefixLength = static_cast<unsigned>(rtnl_addr_get_prefixlen(address));
    facts.reachesFar = rtnl_addr_get_scope(address) < RT_SCOPE_LINK;
    facts.expires = rtnl_addr_get_valid_lifetime(address) != forever;
    addresses.push_back(std::move(facts));
}

// Routes that only marked packets take, or that discard them, lead nowhere.
bool isDefault(rtnl_route* route) {
    nl_addr* const destination = rtnl_route_get_dst(route);
    return isIp(rtnl_route_get_family(route)) && rtnl_route_get_table(route) == RT_TABLE_MAIN &&
           rtnl_route_get_type(route) == RTN_UNICAST && rtnl_route_get_tos(route) == 0 &&
           (destination == nullptr || nl_addr_get_prefixlen(destination) == 0);
}

void addHop(rtnl_route* route, rtnl_nexthop* hop, std::vector<DefaultRoute>& routes) {
    if ((rtnl_route_nh_get_flags(hop) & RTNH_F_DEAD) != 0) {
        return;
    }
    DefaultRoute facts;
    facts.link = rtnl_route_nh_get_ifindex(hop);
    facts.family = familyOf(rtnl_route_get_family(route));
    facts.gateway = textOf(rtnl_route_nh_get_gateway(hop));
    facts.source = textOf(rtnl_route_get_pref_src(route));
    facts.metric = rtnl_route_get_priority(route);
    facts.isFromDhcp = rtnl_route_get_protocol(route) == RTPROT_DHCP;
    routes.push_back(std::move(facts));
}

void addRoutes(nl_sock* socket, int family, std::vector<DefaultRoute>& routes) {
    const Cache cache = readTable(socket, routeTable, family);
    forEach<rtnl_route>(cache, [&](rtnl_route* route) {
        const int hops = isDefault(route) ? rtnl_route_get_nnexthops(route) : 0;
        for (int i = 0; i < hops; ++i) {
            addHop(route, rtnl_route_nexthop_n(route, i), routes);
        }
    });
}

NetlinkSocket openSocket() {
    NetlinkSocket socket(nl_socket_alloc());
    if (!socket) {
        throw std::bad_alloc();
    }
    errno = 0;
    const int code = nl_connect(socket.get(), NETLINK_ROUTE);
    if (code < 0) {
        giveUp(code, errno, "cannot open a netlink socket");
    }
    return socket;
}

} // namespace

void CloseNetlink::operator()(nl_sock* socket) const noexcept {
    nl_socket_free(socket);
}

NetlinkWatch::NetlinkWatch() : m_socket(nl_socket_alloc()) {
    if (!m_socket || nl_connect(m_socket.get(), NETLINK_ROUTE) < 0 ||
        nl_socket_add_memberships(m_socket.get(), RTNLGRP_LINK, RTNLGRP_IPV4_IFADDR,
                                  RTNLGRP_IPV6_IFADDR, RTNLGRP_IPV4_ROUTE, RTNLGRP_IPV6_ROUTE,
                                  RTNLGRP_NONE) < 0) {
        m_socket.reset();
    }
}

// More news than the socket can hold is an error here, and news all the same.
bool NetlinkWatch::hasSeenChange() const {
    if (!m_socket) {
        return false;
    }
    char news = 0;
    return ::recv(nl_socket_get_fd(m_socket.get()), &news, sizeof news, MSG_DONTWAIT) >= 0 ||
           errno != EAGAIN;
}

Netlink::Netlink() : m_socket(openSocket()) {}

// What fails half-way leaves the rest of an answer in its socket; the next question takes another.
NetworkFacts Netlink::read() {
    NetlinkSocket socket = m_socket ? std::move(m_socket) : openSocket();
    NetworkFacts facts;
    const Cache links = readTable(socket.get(), linkTable, AF_UNSPEC);
    forEach<rtnl_link>(links, [&](rtnl_link* link) { facts.links.push_back(factsOf(link)); });
    const Cache addresses = readTable(socket.get(), addressTable, AF_UNSPEC);
    forEach<rtnl_addr>(addresses,
                       [&](rtnl_addr* address) { addAddress(address, facts.addresses); });
    addRoutes(socket.get(), AF_INET, facts.routes);
    addRoutes(socket.get(), AF_INET6, facts.routes);
    m_socket = std::move(socket);
    return facts;
}

// The socket knows the links of the namespace that they were read from, wherever this thread is.
bool Netlink::has(const LinkFacts& link) const {
    ifreq request{};
    request.ifr_ifindex = link.index;
    if (::ioctl(nl_socket_get_fd(m_socket.get()), SIOCGIFNAME, &request) != 0) {
        return errno != ENODEV;
    }
    return link.name == request.ifr_name;
}

} // namespace KLX::Host
