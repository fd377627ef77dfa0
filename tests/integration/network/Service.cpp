#include "Service.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace klx::network {
namespace {

/** Asks for a text by `call(char**)`. */
template <class Call>
Answer askText(const Call& call) {
    char untouched = 0;
    char* text = &untouched;
    const int error = call(&text);
    if (error != 0) {
        EXPECT_EQ(text, &untouched) << "a failed call changed its output";
        return {error, ""};
    }
    const std::string value = text;
    std::free(text);
    return {0, value};
}

/** Asks for a number by `call(Number*)`. */
template <class Number, class Call>
Answer askNumber(const Call& call) {
    constexpr auto untouched = static_cast<Number>(77);
    auto number = untouched;
    const int error = call(&number);
    if (error != 0) {
        EXPECT_EQ(number, untouched) << "a failed call changed its output";
        return {error, ""};
    }
    return {0, std::to_string(static_cast<int>(number))};
}

connection_address_family_e familyOf(int number) {
    return static_cast<connection_address_family_e>(number);
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const Answer& answer) {
    return answer.error != 0 ? stream << "error " << answer.error
                             : stream << '"' << answer.value << '"';
}

Answer said(const std::string& value) {
    return {0, value};
}

Answer said(int value) {
    return said(std::to_string(value));
}

Answer failed(NetworkError error) {
    return {static_cast<int>(error), ""};
}

Connection::Connection() {
    EXPECT_EQ(connection_create(&m_handle), 0);
}

Connection::~Connection() {
    EXPECT_EQ(connection_destroy(m_handle), 0);
}

Answer Connection::type() const {
    return askNumber<connection_type_e>(
        [&](auto* type) { return connection_get_type(m_handle, type); });
}

Answer Connection::mac(int type) const {
    return askText([&](char** text) {
        return connection_get_mac_address(m_handle, static_cast<connection_type_e>(type), text);
    });
}

Answer Connection::wifiState() const {
    return askNumber<connection_wifi_state_e>(
        [&](auto* state) { return connection_get_wifi_state(m_handle, state); });
}

Answer Connection::cellularState() const {
    return askNumber<connection_cellular_state_e>(
        [&](auto* state) { return connection_get_cellular_state(m_handle, state); });
}

Answer Connection::ethernetState() const {
    return askNumber<connection_ethernet_state_e>(
        [&](auto* state) { return connection_get_ethernet_state(m_handle, state); });
}

connection_profile_h Connection::current() const {
    connection_profile_h profile = nullptr;
    EXPECT_EQ(connection_get_current_profile(m_handle, &profile), 0);
    return profile;
}

int Connection::currentError() const {
    connection_profile_h profile = nullptr;
    return connection_get_current_profile(m_handle, &profile);
}

std::vector<connection_profile_h> Connection::registered() const {
    std::vector<connection_profile_h> profiles;
    connection_profile_iterator_h walk = nullptr;
    EXPECT_EQ(connection_get_profile_iterator(m_handle, CONNECTION_ITERATOR_TYPE_REGISTERED, &walk),
              0);
    while (connection_profile_iterator_has_next(walk)) {
        connection_profile_h profile = nullptr;
        EXPECT_EQ(connection_profile_iterator_next(walk, &profile), 0);
        profiles.push_back(profile);
    }
    EXPECT_EQ(connection_destroy_profile_iterator(walk), 0);
    return profiles;
}

connection_profile_h Connection::profileOf(const std::string& link) const {
    for (connection_profile_h const profile : registered()) {
        if (name(profile) == said(link)) {
            return profile;
        }
    }
    return nullptr;
}

std::vector<std::string> Connection::names() const {
    std::vector<std::string> names;
    for (connection_profile_h const profile : registered()) {
        names.push_back(name(profile).value);
    }
    return names;
}

Answer type(connection_profile_h profile) {
    return askNumber<connection_profile_type_e>(
        [&](auto* type) { return connection_profile_get_type(profile, type); });
}

Answer name(connection_profile_h profile) {
    return askText(
        [&](char** text) { return connection_profile_get_network_interface_name(profile, text); });
}

Answer address(connection_profile_h profile, int family) {
    return askText([&](char** text) {
        return connection_profile_get_ip_address(profile, familyOf(family), text);
    });
}

Answer mask(connection_profile_h profile, int family) {
    return askText([&](char** text) {
        return connection_profile_get_subnet_mask(profile, familyOf(family), text);
    });
}

Answer gateway(connection_profile_h profile, int family) {
    return askText([&](char** text) {
        return connection_profile_get_gateway_address(profile, familyOf(family), text);
    });
}

Answer nameServer(connection_profile_h profile, int order, int family) {
    return askText([&](char** text) {
        return connection_profile_get_dns_address(profile, order, familyOf(family), text);
    });
}

Answer configuration(connection_profile_h profile, int family) {
    return askNumber<connection_ip_config_type_e>([&](auto* type) {
        return connection_profile_get_ip_config_type(profile, familyOf(family), type);
    });
}

} // namespace klx::network
