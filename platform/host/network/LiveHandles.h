#pragma once

#include "Netlink.h"
#include "Network.h"
#include "NetworkErrors.h"

#include "connection.h"

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>

namespace KLX::Host {

/** What stands behind an open connection handle. */
class Client {
public:
    /** Throws NetworkFault when the kernel cannot be asked. */
    Client() = default;

    /** Looks at the network as it is now. Throws as the constructor does. */
    Network look();

private:
    std::mutex m_mutex; ///< Two threads that share a handle wait for each other.
    Netlink m_netlink;
};

/**
 * The handles that are given out and not given back.
 *
 * A handle is a number that is not given out again, not an address: one that was given back, one
 * of another sort and a stranger's pointer are all recognised without looking where they point.
 *
 * Profiles and walks belong to the connection that they were had from and end with it. Nobody
 * gives a profile back; so that this costs no growing memory, a connection has one profile handle
 * for each link, and looking again renews what stands behind it. Safe from several threads.
 */
class LiveHandles {
public:
    /** The handles of this process. */
    static LiveHandles& instance();

    connection_h add(std::shared_ptr<Client> client);

    /** Ends a connection with its profiles and walks. */
    NetworkError remove(connection_h connection);

    /** @return null when the handle is not open; so, too, below */
    std::shared_ptr<Client> client(connection_h connection) const;

    /** On an error `handle` is left alone; so, too, below. */
    NetworkError addProfile(connection_h connection, const Profile& profile,
                            connection_profile_h& handle);
    std::shared_ptr<const Profile> profile(connection_profile_h profile) const;

    NetworkError addWalk(connection_h connection, std::vector<Profile> profiles,
                         connection_profile_iterator_h& handle);
    NetworkError removeWalk(connection_profile_iterator_h walk);
    bool hasNext(connection_profile_iterator_h walk) const;
    NetworkError next(connection_profile_iterator_h walk, connection_profile_h& handle);

private:
    using Number = std::uintptr_t;

    struct Connection {
        std::shared_ptr<Client> client;
        std::map<int, Number> profileOfLink;
    };
    struct Walk {
        Number connection = 0;
        std::vector<Profile> profiles;
        std::size_t walked = 0;
    };

    Number profileNumber(Connection& connection, const Profile& profile);

    mutable std::mutex m_mutex;
    std::map<Number, Connection> m_connections;
    std::map<Number, std::shared_ptr<const Profile>> m_profiles;
    std::map<Number, Walk> m_walks;
    Number m_lastNumber = 0;
};

} // namespace KLX::Host
