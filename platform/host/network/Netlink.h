#pragma once

#include "NetworkFacts.h"

#include <memory>

struct nl_sock;

namespace KLX::Host {

struct CloseNetlink {
    void operator()(nl_sock* socket) const noexcept;
};

using NetlinkSocket = std::unique_ptr<nl_sock, CloseNetlink>;

/**
 * Notices when links, addresses or routes change while it lives. Where the kernel does not grant
 * the socket for it, nothing is noticed: a look at the network is good without, too.
 */
class NetlinkWatch {
public:
    NetlinkWatch();

    bool hasSeenChange() const;

private:
    NetlinkSocket m_socket;
};

/**
 * A line to the kernel (rtnetlink). Opening one takes a socket and nothing else. It is used from
 * one thread at a time; other objects may be used meanwhile.
 */
class Netlink {
public:
    /** Throws NetworkFault when the kernel does not grant the socket. */
    Netlink();

    /**
     * Asks afresh, for one table after the other; a NetlinkWatch tells whether they fit together.
     * Throws NetworkFault when the kernel does not answer.
     */
    NetworkFacts read();

    /**
     * Whether a link that was read is still there under its name. Where the kernel refuses the
     * question, it is taken to be.
     */
    bool has(const LinkFacts& link) const;

private:
    NetlinkSocket m_socket;
};

} // namespace KLX::Host
