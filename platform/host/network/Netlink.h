#pragma once

#include "NetworkFacts.h"

#include <memory>

struct nl_sock;

namespace KLX::Host {

/**
 * A line to the kernel (rtnetlink). Opening one takes a socket and nothing else. It is used from
 * one thread at a time; other objects may be used meanwhile.
 */
class Netlink {
public:
    /** Throws NetworkFault when the kernel does not grant the socket. */
    Netlink();

    /** Asks afresh. Throws NetworkFault when the kernel does not answer. */
    NetworkFacts read();

    /**
     * Whether a link that was read is still there under its name. Where the kernel refuses the
     * question, it is taken to be.
     */
    bool has(const LinkFacts& link) const;

private:
    struct Close {
        void operator()(nl_sock* socket) const noexcept;
    };

    using Socket = std::unique_ptr<nl_sock, Close>;

    static Socket open();

    Socket m_socket;
};

} // namespace KLX::Host
