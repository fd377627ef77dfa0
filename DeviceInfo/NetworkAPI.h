#pragma once

#include <connection.h>

/// Owner of the platform's network-connection handles for the length of one query: made on the
/// stack, `init`, reads through the handles, out of scope. Used by one thread; neither copied nor
/// shared.
class NetworkApi {
public:
    NetworkApi() = default;
    ~NetworkApi();
    NetworkApi(const NetworkApi&) = delete;
    NetworkApi& operator=(const NetworkApi&) = delete;

    /// Opens a connection and picks the profile to read: the current one, or else the first
    /// registered cellular, Wi-Fi or ethernet one. A second call starts afresh.
    /// @throws KLX::Exception "creating connection failed", "getting profile type failed"
    void init();

    /// @return the type of the active connection, or else of the held profile; 0 when neither is
    ///         known
    /// @throws KLX::Exception "getting profile type failed"
    unsigned int getConnectionType() const;

    connection_h connection() const { return m_connection; }

    /// The current profile, or the last one that the search looked at, usable or not.
    connection_profile_h profile() const { return m_profile; }

private:
    int createProfile();
    int findProfile();
    int walkProfiles();
    void deleteProfile();

    connection_h m_connection = nullptr;
    // Never released: the platform has no call for it and keeps its profiles itself.
    connection_profile_h m_profile = nullptr;
    connection_profile_iterator_h m_iterator = nullptr;
};
