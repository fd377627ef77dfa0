#include "FakeCore.h"
#include "connection.h"

namespace klx::fake {
namespace {

/** A client's connection has no state of its own. */
struct Connection {};

struct ProfileWalk {
    std::size_t next = 0;
};

/** Asks the service through a connection handle, which has to be open. */
template <typename Body>
int ask(const char* function, const std::string& arguments, connection_h connection, Body body) {
    return call(function, arguments, [&](State& state) {
        return state.handles.find<Connection>(connection, "connection", function) == nullptr
                   ? kBadHandle
                   : body(state);
    });
}

/** Asks a profile for what it was programmed with under a name; `body` hands it out. */
template <typename Body>
int askProfile(const char* function, const std::string& arguments, connection_profile_h profile,
               const std::string& name, Body body) {
    return call(function, arguments, [&](State& state) {
        const auto* const record = state.handles.find<ProfileRecord>(profile, "profile", function);
        return record == nullptr ? kBadHandle : body(lookUp(record->values, name));
    });
}

/** Asks a profile for an address. Only IPv4 ones are known. */
int address(const char* function, const std::string& arguments, connection_profile_h profile,
            connection_address_family_e family, const std::string& name, char** text) {
    return askProfile(function, arguments, profile, name, [&](const Value* value) {
        return giveText(family == CONNECTION_ADDRESS_FAMILY_IPV4 ? value : nullptr, text);
    });
}

std::shared_ptr<ProfileRecord> handOver(State& state, const Profile& profile) {
    auto record = std::make_shared<ProfileRecord>(profile);
    state.handles.add(record, "profile", record->name, HandleTable::Kept::byService);
    return record;
}

} // namespace

ProfileRecord::ProfileRecord(const Profile& profile)
    : name(profile.m_name), values(profile.m_values) {}

Profile::Profile(std::string name) : m_name(std::move(name)) {}

Profile& Profile::with(const std::string& name, Value value) {
    m_values.insert_or_assign(name, std::move(value));
    return *this;
}

Profile& Profile::type(int number) {
    return with("type", number);
}

Profile& Profile::ip(Value text) {
    return with("ip", std::move(text));
}

Profile& Profile::subnetMask(Value text) {
    return with("mask", std::move(text));
}

Profile& Profile::gateway(Value text) {
    return with("gateway", std::move(text));
}

Profile& Profile::dns(Value text, int order) {
    return with("dns" + std::to_string(order), std::move(text));
}

Profile& Profile::ipConfig(int number) {
    return with("ip config", number);
}

Profile& Profile::interfaceName(Value text) {
    return with("interface", std::move(text));
}

Scene& Scene::connectionType(int type) {
    Access()->network.connectionType = type;
    return *this;
}

Scene& Scene::currentProfile(const Profile& profile) {
    const Access state;
    state->network.current = handOver(*state, profile);
    return *this;
}

Scene& Scene::registeredProfile(const Profile& profile) {
    const Access state;
    state->network.registered.push_back(handOver(*state, profile));
    return *this;
}

Scene& Scene::mac(int connectionType, Value text) {
    Access()->network.macs.insert_or_assign(connectionType, std::move(text));
    return *this;
}

Scene& Scene::wifiState(int state) {
    Access()->network.wifiState = state;
    return *this;
}

Scene& Scene::cellularState(int state) {
    Access()->network.cellularState = state;
    return *this;
}

Scene& Scene::ethernetState(int state) {
    Access()->network.ethernetState = state;
    return *this;
}

} // namespace klx::fake

using namespace klx::fake;

int connection_create(connection_h* connection) {
    return call(__func__, "", [&](State& state) {
        *connection = state.handles.add(std::make_shared<Connection>(), "connection", "connection",
                                        HandleTable::Kept::byClient);
        return 0;
    });
}

int connection_destroy(connection_h connection) {
    const char* const function = __func__;
    return callReleasing(function, args(connection), [&](State& state) {
        return state.handles.close(connection, "connection", function) ? 0 : kBadHandle;
    });
}

int connection_get_type(connection_h connection, connection_type_e* type) {
    return ask(__func__, args(connection), connection,
               [&](State& state) { return give(state.network.connectionType, type); });
}

int connection_get_current_profile(connection_h connection, connection_profile_h* profile) {
    return ask(__func__, args(connection), connection, [&](State& state) {
        if (!state.network.current) {
            return kNotProgrammed;
        }
        *profile = state.network.current.get();
        return 0;
    });
}

int connection_get_profile_iterator(connection_h connection, connection_iterator_type_e kind,
                                    connection_profile_iterator_h* iterator) {
    return ask(__func__, args(connection, kind), connection, [&](State& state) {
        if (kind != CONNECTION_ITERATOR_TYPE_REGISTERED) {
            return kNotProgrammed;
        }
        *iterator = state.handles.add(std::make_shared<ProfileWalk>(), "iterator", "iterator",
                                      HandleTable::Kept::byClient);
        return 0;
    });
}

bool connection_profile_iterator_has_next(connection_profile_iterator_h iterator) {
    const char* const function = __func__;
    return call(function, args(iterator), [&](State& state) {
               const auto* const walk =
                   state.handles.find<ProfileWalk>(iterator, "iterator", function);
               return walk != nullptr && walk->next < state.network.registered.size() ? 1 : 0;
           }) != 0;
}

int connection_profile_iterator_next(connection_profile_iterator_h iterator,
                                     connection_profile_h* profile) {
    const char* const function = __func__;
    return call(function, args(iterator), [&](State& state) {
        auto* const walk = state.handles.find<ProfileWalk>(iterator, "iterator", function);
        if (walk == nullptr) {
            return kBadHandle;
        }
        if (walk->next >= state.network.registered.size()) {
            return kNotProgrammed;
        }
        *profile = state.network.registered[walk->next++].get();
        return 0;
    });
}

int connection_destroy_profile_iterator(connection_profile_iterator_h iterator) {
    const char* const function = __func__;
    return callReleasing(function, args(iterator), [&](State& state) {
        return state.handles.close(iterator, "iterator", function) ? 0 : kBadHandle;
    });
}

int connection_profile_get_type(connection_profile_h profile, connection_profile_type_e* type) {
    return askProfile(__func__, args(profile), profile, "type",
                      [&](const Value* value) { return give<int>(value, type); });
}

int connection_profile_get_ip_address(connection_profile_h profile,
                                      connection_address_family_e family, char** text) {
    return address(__func__, args(profile, family), profile, family, "ip", text);
}

int connection_profile_get_subnet_mask(connection_profile_h profile,
                                       connection_address_family_e family, char** text) {
    return address(__func__, args(profile, family), profile, family, "mask", text);
}

int connection_profile_get_gateway_address(connection_profile_h profile,
                                           connection_address_family_e family, char** text) {
    return address(__func__, args(profile, family), profile, family, "gateway", text);
}

int connection_profile_get_dns_address(connection_profile_h profile, int order,
                                       connection_address_family_e family, char** text) {
    return address(__func__, args(profile, order, family), profile, family,
                   "dns" + std::to_string(order), text);
}

int connection_profile_get_ip_config_type(connection_profile_h profile,
                                          connection_address_family_e family,
                                          connection_ip_config_type_e* type) {
    return askProfile(
        __func__, args(profile, family), profile, "ip config", [&](const Value* value) {
            return give<int>(family == CONNECTION_ADDRESS_FAMILY_IPV4 ? value : nullptr, type);
        });
}

int connection_profile_get_network_interface_name(connection_profile_h profile, char** text) {
    return askProfile(__func__, args(profile), profile, "interface",
                      [&](const Value* value) { return giveText(value, text); });
}

int connection_get_mac_address(connection_h connection, connection_type_e type, char** text) {
    return ask(__func__, args(connection, type), connection,
               [&](State& state) { return giveText(lookUp(state.network.macs, type), text); });
}

int connection_get_wifi_state(connection_h connection, connection_wifi_state_e* state) {
    return ask(__func__, args(connection), connection,
               [&](State& known) { return give(known.network.wifiState, state); });
}

int connection_get_cellular_state(connection_h connection, connection_cellular_state_e* state) {
    return ask(__func__, args(connection), connection,
               [&](State& known) { return give(known.network.cellularState, state); });
}

int connection_get_ethernet_state(connection_h connection, connection_ethernet_state_e* state) {
    return ask(__func__, args(connection), connection,
               [&](State& known) { return give(known.network.ethernetState, state); });
}
