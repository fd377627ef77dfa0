#pragma once

#include <stdexcept>
#include <string>

namespace KLX::Host {

/**
 * The error numbers by which the network services answer, next to 0 for success. They are part of
 * the interface and are not renumbered. The switches that are kept in the settings store also
 * answer by the store's own numbers (HostErrors.h).
 */
enum class NetworkError : int {
    None = 0,
    NullPointer = -7201,           ///< A handle is null, or there is nowhere to put a result.
    UnknownHandle = -7202,         ///< No such handle is open: never given out, or given back.
    UnsupportedFamily = -7203,     ///< Another address family than IPv4.
    InvalidNumber = -7204,         ///< An order, a kind of walk or a type that does not exist.
    NoConnection = -7205,          ///< No default route leads over a connection.
    NoSuchLink = -7206,            ///< The machine has no connection of the type.
    NoAddress = -7207,             ///< The connection has no address at all.
    Ipv6Only = -7208,              ///< There is one, or a name server, but none of IPv4.
    NoGateway = -7209,             ///< No default route with an IPv4 gateway leads over the link.
    NoNameServer = -7210,          ///< `resolv.conf` names fewer servers than the order asks for.
    NameServersUnreadable = -7211, ///< `resolv.conf` is missing or cannot be read.
    NoHardwareAddress = -7212,     ///< The link has no MAC, as modems that carry bare IP.
    EndOfWalk = -7213,             ///< The walk has passed its last profile.
    NetlinkDenied = -7214,         ///< This process may not ask the kernel about its network.
    NetlinkFailed = -7215,         ///< The kernel did not answer for another reason.
    RadioDenied = -7216,           ///< This user may not read or switch the radios.
    RadioBlocked = -7217,          ///< A switch on the machine itself keeps the radios off.
    RadioFailed = -7218,           ///< The kernel did not read or switch the radios.
    OutOfMemory = -7219,           ///< No memory is left for the answer.
};

/** A failure of the system underneath: its number, and a text that says what to do about it. */
class NetworkFault : public std::runtime_error {
public:
    NetworkFault(NetworkError error, const std::string& text)
        : std::runtime_error(text), m_error(error) {}

    NetworkError error() const noexcept { return m_error; }

private:
    NetworkError m_error;
};

} // namespace KLX::Host
