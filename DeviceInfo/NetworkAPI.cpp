#include "NetworkAPI.h"

#include "Exception.h"
#include "Log.h"

#include <map>
#include <stdexcept>

namespace {

constexpr auto registeredProfiles = static_cast<connection_iterator_type_e>(0);

constexpr unsigned int cellularProfile = 0;
constexpr unsigned int wifiProfile = 1;
constexpr unsigned int ethernetProfile = 2;

const std::map<unsigned int, unsigned int>& connectionTypes() {
    static const std::map<unsigned int, unsigned int> types{
        {cellularProfile, 2}, {wifiProfile, 1}, {ethernetProfile, 3}};
    return types;
}

} // namespace

NetworkApi::~NetworkApi() {
    deleteProfile();
}

void NetworkApi::init() {
    KLX_LOG(LogDebug, "Networking init");
    createProfile();
    KLX_LOG(LogDebug, "Network profile created, %p - %p", m_profile, m_connection);
    KLX_LOG(LogDebug, "Network connection type: %d",
            static_cast<int>(m_connection != nullptr ? getConnectionType() : 0));
    KLX_LOG(LogDebug, "Networking init finished");
}

int NetworkApi::createProfile() {
    deleteProfile();
    if (connection_create(&m_connection) != 0) {
        throw KLX::Exception("creating connection failed");
    }
    KLX_LOG(LogDebug, "Getting current profile");
    if (connection_get_current_profile(m_connection, &m_profile) == 0) {
        return 0;
    }
    KLX_LOG(LogWarning, "getting current profile failed");
    return findProfile();
}

int NetworkApi::findProfile() {
    KLX_LOG(LogDebug, "Connection profile iteration");
    if (connection_get_profile_iterator(m_connection, registeredProfiles, &m_iterator) != 0) {
        KLX_LOG(LogDebug, "getting profile iterator");
    }
    int found = 0;
    if (m_iterator != nullptr) {
        found = walkProfiles();
        connection_destroy_profile_iterator(m_iterator);
        m_iterator = nullptr;
    }
    KLX_LOG(LogDebug, "Connection profile found: %d", found);
    return found;
}

int NetworkApi::walkProfiles() {
    constexpr const char* operation = "findProfile";
    int found = 0;
    while (connection_profile_iterator_has_next(m_iterator) && found == 0) {
        if (connection_profile_iterator_next(m_iterator, &m_profile) != 0) {
            KLX_LOG_AS(operation, LogWarning, "getting next iterator");
            break;
        }
        connection_profile_type_e type{};
        if (connection_profile_get_type(m_profile, &type) != 0) {
            KLX_LOG_AS(operation, LogWarning, "getting profile type");
            break;
        }
        found = static_cast<unsigned int>(type) <= ethernetProfile ? 1 : 0;
    }
    return found;
}

void NetworkApi::deleteProfile() {
    if (m_iterator != nullptr) {
        if (connection_destroy_profile_iterator(m_iterator) != 0) {
            KLX_LOG(LogWarning, "destroy profile iterator failed");
        }
        m_iterator = nullptr;
    }
    if (m_connection != nullptr) {
        if (connection_destroy(m_connection) != 0) {
            KLX_LOG(LogWarning, "destroy connection failed");
        }
        m_connection = nullptr;
    }
}

unsigned int NetworkApi::getConnectionType() const {
    connection_type_e active{};
    if (connection_get_type(m_connection, &active) != 0) {
        // The words of the profile's failure; log analysis knows no others.
        throw KLX::Exception("getting profile type failed");
    }
    if (active != 0) {
        return static_cast<unsigned int>(active);
    }
    connection_profile_type_e held{};
    if (connection_profile_get_type(m_profile, &held) != 0) {
        KLX_LOG(LogWarning, "getting profile type");
        return 0;
    }
    try {
        return connectionTypes().at(static_cast<unsigned int>(held));
    } catch (const std::out_of_range& error) {
        KLX_LOG(LogWarning, "%s", error.what());
        return 0;
    }
}
