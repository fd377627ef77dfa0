#include "connection.h"

#include "Guard.h"
#include "LiveHandles.h"
#include "NameServers.h"

#include <arpa/inet.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

using KLX::Host::Client;
using KLX::Host::guarded;
using KLX::Host::LinkType;
using KLX::Host::LiveHandles;
using KLX::Host::Network;
using KLX::Host::NetworkError;
using KLX::Host::Profile;

/** The first number above those that the interface names. */
constexpr auto bluetoothConnection = static_cast<connection_type_e>(4);

/** States below "connected": there is no such link, or there is one without a connection. */
enum : int { stateAbsent = 0, stateDisconnected = 1 };

struct Numbers {
    LinkType type;
    connection_type_e connection;
    connection_profile_type_e profile;
};

constexpr std::array<Numbers, 4> numbers{{
    {LinkType::Ethernet, CONNECTION_TYPE_ETHERNET, CONNECTION_PROFILE_TYPE_ETHERNET},
    {LinkType::Wifi, CONNECTION_TYPE_WIFI, CONNECTION_PROFILE_TYPE_WIFI},
    {LinkType::Cellular, CONNECTION_TYPE_CELLULAR, CONNECTION_PROFILE_TYPE_CELLULAR},
    {LinkType::Bluetooth, bluetoothConnection, CONNECTION_PROFILE_TYPE_BLUETOOTH},
}};

const Numbers& numbersOf(LinkType type) {
    return numbers[static_cast<std::size_t>(type)];
}

const Numbers* numbersOf(connection_type_e type) {
    for (const Numbers& entry : numbers) {
        if (entry.connection == type) {
            return &entry;
        }
    }
    return nullptr;
}

NetworkError giveText(const std::string& value, char** text) {
    char* const copy = ::strdup(value.c_str());
    if (copy == nullptr) {
        return NetworkError::OutOfMemory;
    }
    *text = copy;
    return NetworkError::None;
}

template <class Value>
NetworkError give(Value value, Value* output) {
    *output = value;
    return NetworkError::None;
}

/** Answers out of the network as it is now. */
template <class Answer>
int askNetwork(connection_h connection, const void* output, Answer answer) {
    return guarded([&] {
        if (connection == nullptr || output == nullptr) {
            return NetworkError::NullPointer;
        }
        const std::shared_ptr<Client> client = LiveHandles::instance().client(connection);
        return client ? answer(client->look()) : NetworkError::UnknownHandle;
    });
}

/** Answers out of what a profile said when it was handed out. */
template <class Answer>
int askProfile(connection_profile_h profile, const void* output, Answer answer) {
    return guarded([&] {
        if (profile == nullptr || output == nullptr) {
            return NetworkError::NullPointer;
        }
        const std::shared_ptr<const Profile> found = LiveHandles::instance().profile(profile);
        return found ? answer(*found) : NetworkError::UnknownHandle;
    });
}

/** The same for what an IPv4 profile has. */
template <class Answer>
int askIpv4(connection_profile_h profile, connection_address_family_e family, const void* output,
            Answer answer) {
    return askProfile(profile, output, [&](const Profile& found) {
        return family == CONNECTION_ADDRESS_FAMILY_IPV4 ? answer(found)
                                                        : NetworkError::UnsupportedFamily;
    });
}

NetworkError errorWithoutAddress(const Profile& profile) {
    return profile.hasIpv6 ? NetworkError::Ipv6Only : NetworkError::NoAddress;
}

std::string dottedMask(unsigned prefixLength) {
    constexpr unsigned bits = 32;
    const in_addr mask{htonl(prefixLength == 0 ? 0 : ~in_addr_t{0} << (bits - prefixLength))};
    std::array<char, INET_ADDRSTRLEN> text{};
    ::inet_ntop(AF_INET, &mask, text.data(), text.size());
    return text.data();
}

std::string hexPairs(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes) {
        std::array<char, 4> pair{};
        std::snprintf(pair.data(), pair.size(), ":%02X", static_cast<unsigned char>(byte));
        text += pair.data();
    }
    return text.substr(1);
}

/** The state of a type's connection: absent, disconnected or the type's number for connected. */
template <class State>
int askState(connection_h connection, LinkType type, State connected, State* state) {
    return askNetwork(connection, state, [&](const Network& network) {
        const Profile* const profile = network.profileOf(type);
        if (profile == nullptr) {
            return give(static_cast<State>(stateAbsent), state);
        }
        return give(profile->isConnected ? connected : static_cast<State>(stateDisconnected),
                    state);
    });
}

} // namespace

int connection_create(connection_h* connection) {
    return guarded([&] {
        if (connection == nullptr) {
            return NetworkError::NullPointer;
        }
        return give(LiveHandles::instance().add(std::make_shared<Client>()), connection);
    });
}

int connection_destroy(connection_h connection) {
    return guarded([&] {
        return connection != nullptr ? LiveHandles::instance().remove(connection)
                                     : NetworkError::NullPointer;
    });
}

int connection_get_type(connection_h connection, connection_type_e* type) {
    return askNetwork(connection, type, [&](const Network& network) {
        const Profile* const profile = network.currentProfile();
        return give(profile != nullptr ? numbersOf(profile->type).connection
                                       : CONNECTION_TYPE_DISCONNECTED,
                    type);
    });
}

int connection_get_current_profile(connection_h connection, connection_profile_h* profile) {
    return askNetwork(connection, profile, [&](const Network& network) {
        const Profile* const found = network.currentProfile();
        return found != nullptr ? LiveHandles::instance().addProfile(connection, *found, *profile)
                                : NetworkError::NoConnection;
    });
}

int connection_get_profile_iterator(connection_h connection, connection_iterator_type_e kind,
                                    connection_profile_iterator_h* iterator) {
    return askNetwork(connection, iterator, [&](Network network) {
        return kind == CONNECTION_ITERATOR_TYPE_REGISTERED
                   ? LiveHandles::instance().addWalk(connection, std::move(network.profiles),
                                                     *iterator)
                   : NetworkError::InvalidNumber;
    });
}

bool connection_profile_iterator_has_next(connection_profile_iterator_h iterator) {
    return LiveHandles::instance().hasNext(iterator);
}

int connection_profile_iterator_next(connection_profile_iterator_h iterator,
                                     connection_profile_h* profile) {
    return guarded([&] {
        return iterator != nullptr && profile != nullptr
                   ? LiveHandles::instance().next(iterator, *profile)
                   : NetworkError::NullPointer;
    });
}

int connection_destroy_profile_iterator(connection_profile_iterator_h iterator) {
    return guarded([&] {
        return iterator != nullptr ? LiveHandles::instance().removeWalk(iterator)
                                   : NetworkError::NullPointer;
    });
}

int connection_profile_get_type(connection_profile_h profile, connection_profile_type_e* type) {
    return askProfile(profile, type, [&](const Profile& found) {
        return give(numbersOf(found.type).profile, type);
    });
}

int connection_profile_get_ip_address(connection_profile_h profile,
                                      connection_address_family_e family, char** text) {
    return askIpv4(profile, family, text, [&](const Profile& found) {
        return found.address ? giveText(found.address->text, text) : errorWithoutAddress(found);
    });
}

int connection_profile_get_subnet_mask(connection_profile_h profile,
                                       connection_address_family_e family, char** text) {
    return askIpv4(profile, family, text, [&](const Profile& found) {
        return found.address ? giveText(dottedMask(found.address->prefixLength), text)
                             : errorWithoutAddress(found);
    });
}

int connection_profile_get_gateway_address(connection_profile_h profile,
                                           connection_address_family_e family, char** text) {
    return askIpv4(profile, family, text, [&](const Profile& found) {
        return !found.gateway.empty() ? giveText(found.gateway, text) : NetworkError::NoGateway;
    });
}

int connection_profile_get_dns_address(connection_profile_h profile, int order,
                                       connection_address_family_e family, char** text) {
    return askIpv4(profile, family, text, [&](const Profile&) {
        std::string server;
        const NetworkError error = KLX::Host::nameServer(order, server);
        return error == NetworkError::None ? giveText(server, text) : error;
    });
}

int connection_profile_get_ip_config_type(connection_profile_h profile,
                                          connection_address_family_e family,
                                          connection_ip_config_type_e* type) {
    return askIpv4(profile, family, type, [&](const Profile& found) {
        if (!found.address) {
            return give(CONNECTION_IP_CONFIG_TYPE_NONE, type);
        }
        return give(found.isDynamic ? CONNECTION_IP_CONFIG_TYPE_DYNAMIC
                                    : CONNECTION_IP_CONFIG_TYPE_STATIC,
                    type);
    });
}

int connection_profile_get_network_interface_name(connection_profile_h profile, char** text) {
    return askProfile(profile, text,
                      [&](const Profile& found) { return giveText(found.name, text); });
}

int connection_get_mac_address(connection_h connection, connection_type_e type, char** text) {
    return askNetwork(connection, text, [&](const Network& network) {
        const Numbers* const entry = numbersOf(type);
        if (entry == nullptr) {
            return NetworkError::InvalidNumber;
        }
        const Profile* const profile = network.profileOf(entry->type);
        if (profile == nullptr) {
            return NetworkError::NoSuchLink;
        }
        return !profile->hardwareAddress.empty()
                   ? giveText(hexPairs(profile->hardwareAddress), text)
                   : NetworkError::NoHardwareAddress;
    });
}

int connection_get_wifi_state(connection_h connection, connection_wifi_state_e* state) {
    return askState(connection, LinkType::Wifi, CONNECTION_WIFI_STATE_CONNECTED, state);
}

int connection_get_cellular_state(connection_h connection, connection_cellular_state_e* state) {
    return askState(connection, LinkType::Cellular, CONNECTION_CELLULAR_STATE_CONNECTED, state);
}

int connection_get_ethernet_state(connection_h connection, connection_ethernet_state_e* state) {
    return askState(connection, LinkType::Ethernet, CONNECTION_ETHERNET_STATE_CONNECTED, state);
}
