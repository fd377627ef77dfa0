#include "LiveHandles.h"

#include <utility>

namespace KLX::Host {
namespace {

std::uintptr_t numberOf(const void* handle) {
    return reinterpret_cast<std::uintptr_t>(handle);
}

void* handleOf(std::uintptr_t number) {
    // Nobody looks behind a handle.
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    return reinterpret_cast<void*>(number);
}

template <class Map>
auto* find(Map& entries, const void* handle) {
    const auto entry = entries.find(numberOf(handle));
    return entry != entries.end() ? &entry->second : nullptr;
}

} // namespace

// Each table is read at a moment of its own. A change between two of them gives a network that
// never was, with a default route over a link that has no address, for example; then it is read
// again. Where it never comes to rest, the last look has to do.
Network Client::look() {
    constexpr int patience = 5;
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (int i = 1;; ++i) {
        const NetlinkWatch watch;
        Network network = networkOf(m_netlink.read(), m_netlink);
        if (i == patience || !watch.hasSeenChange()) {
            return network;
        }
    }
}

LiveHandles& LiveHandles::instance() {
    // Never destroyed, so that a client's own clean-up at exit still finds its handles.
    static LiveHandles& handles = *new LiveHandles;
    return handles;
}

connection_h LiveHandles::add(std::shared_ptr<Client> client) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_connections.emplace(++m_lastNumber, Connection{std::move(client), {}});
    return handleOf(m_lastNumber);
}

NetworkError LiveHandles::remove(connection_h connection) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto entry = m_connections.find(numberOf(connection));
    if (entry == m_connections.end()) {
        return NetworkError::UnknownHandle;
    }
    for (const auto& [link, profile] : entry->second.profileOfLink) {
        m_profiles.erase(profile);
    }
    for (auto walk = m_walks.begin(); walk != m_walks.end();) {
        walk = walk->second.connection == entry->first ? m_walks.erase(walk) : std::next(walk);
    }
    m_connections.erase(entry);
    return NetworkError::None;
}

std::shared_ptr<Client> LiveHandles::client(connection_h connection) const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const Connection* const found = find(m_connections, connection);
    return found != nullptr ? found->client : nullptr;
}

LiveHandles::Number LiveHandles::profileNumber(Connection& connection, const Profile& profile) {
    auto record = std::make_shared<const Profile>(profile);
    const auto [entry, isNew] =
        connection.profileOfLink.try_emplace(profile.link, m_lastNumber + 1);
    if (isNew) {
        ++m_lastNumber;
    }
    m_profiles[entry->second] = std::move(record);
    return entry->second;
}

NetworkError LiveHandles::addProfile(connection_h connection, const Profile& profile,
                                     connection_profile_h& handle) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    Connection* const found = find(m_connections, connection);
    if (found == nullptr) {
        return NetworkError::UnknownHandle;
    }
    handle = handleOf(profileNumber(*found, profile));
    return NetworkError::None;
}

std::shared_ptr<const Profile> LiveHandles::profile(connection_profile_h profile) const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto* const found = find(m_profiles, profile);
    return found != nullptr ? *found : nullptr;
}

NetworkError LiveHandles::addWalk(connection_h connection, std::vector<Profile> profiles,
                                  connection_profile_iterator_h& handle) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (find(m_connections, connection) == nullptr) {
        return NetworkError::UnknownHandle;
    }
    m_walks.emplace(++m_lastNumber, Walk{numberOf(connection), std::move(profiles), 0});
    handle = handleOf(m_lastNumber);
    return NetworkError::None;
}

NetworkError LiveHandles::removeWalk(connection_profile_iterator_h walk) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_walks.erase(numberOf(walk)) == 1 ? NetworkError::None : NetworkError::UnknownHandle;
}

bool LiveHandles::hasNext(connection_profile_iterator_h walk) const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const Walk* const found = find(m_walks, walk);
    return found != nullptr && found->walked < found->profiles.size();
}

NetworkError LiveHandles::next(connection_profile_iterator_h walk, connection_profile_h& handle) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    Walk* const found = find(m_walks, walk);
    if (found == nullptr) {
        return NetworkError::UnknownHandle;
    }
    if (found->walked == found->profiles.size()) {
        return NetworkError::EndOfWalk;
    }
    // A walk ends with its connection, so the connection is there.
    Connection& connection = m_connections.at(found->connection);
    handle = handleOf(profileNumber(connection, found->profiles[found->walked]));
    ++found->walked;
    return NetworkError::None;
}

} // namespace KLX::Host
