#pragma once

/**
 * @file
 * The network connection service: which connection is in use, and what its profile says.
 *
 * The library opens a connection handle for every query and destroys it afterwards, so creating one
 * should be cheap. Queries on different threads each have a handle of their own; one handle is
 * never used from two threads at once.
 *
 * Unless noted, a call returns 0 on success and an error number otherwise, and leaves its output
 * alone on failure. Texts are allocated with `malloc` and released by the caller with `free`.
 */

#include "klx_enum.h"

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/** A client's connection to the service. */
typedef void* connection_h;

/**
 * A profile. The library never releases one, on purpose: the service owns its profiles, and hands
 * the same one out for the same network instead of allocating for each query.
 */
typedef void* connection_profile_h;

/** A walk over profiles. */
typedef void* connection_profile_iterator_h;

/** What carries the traffic. Further numbers are legal. */
typedef enum connection_type_e KLX_BASE_INT {
    CONNECTION_TYPE_DISCONNECTED = 0,
    CONNECTION_TYPE_WIFI = 1,
    CONNECTION_TYPE_CELLULAR = 2,
    CONNECTION_TYPE_ETHERNET = 3,
} connection_type_e;

/**
 * What a profile describes; not numbered as `connection_type_e` is. The library compares it as an
 * unsigned number: up to 2 it is a network that can be used.
 */
typedef enum connection_profile_type_e KLX_BASE_UNSIGNED {
    CONNECTION_PROFILE_TYPE_CELLULAR = 0,
    CONNECTION_PROFILE_TYPE_WIFI = 1,
    CONNECTION_PROFILE_TYPE_ETHERNET = 2,
    CONNECTION_PROFILE_TYPE_BLUETOOTH = 3,
} connection_profile_type_e;

/** Which profiles a walk visits. */
typedef enum connection_iterator_type_e KLX_BASE_INT {
    CONNECTION_ITERATOR_TYPE_REGISTERED = 0,
} connection_iterator_type_e;

/** Which addresses are asked for. */
typedef enum connection_address_family_e KLX_BASE_INT {
    CONNECTION_ADDRESS_FAMILY_IPV4 = 0,
} connection_address_family_e;

/** Where a profile's address comes from. */
typedef enum connection_ip_config_type_e KLX_BASE_INT {
    CONNECTION_IP_CONFIG_TYPE_NONE = 0,
    CONNECTION_IP_CONFIG_TYPE_STATIC = 1,
    CONNECTION_IP_CONFIG_TYPE_DYNAMIC = 2,
    CONNECTION_IP_CONFIG_TYPE_AUTO = 3,
    CONNECTION_IP_CONFIG_TYPE_FIXED = 4,
} connection_ip_config_type_e;

/** Wi-Fi state; every number but "connected" means that there is no connection. */
typedef enum connection_wifi_state_e KLX_BASE_INT {
    CONNECTION_WIFI_STATE_CONNECTED = 2,
} connection_wifi_state_e;

/** Cellular state; every number but "connected" means that there is no connection. */
typedef enum connection_cellular_state_e KLX_BASE_INT {
    CONNECTION_CELLULAR_STATE_CONNECTED = 5,
} connection_cellular_state_e;

/** Ethernet state; every number but "connected" means that there is no connection. */
typedef enum connection_ethernet_state_e KLX_BASE_INT {
    CONNECTION_ETHERNET_STATE_CONNECTED = 2,
} connection_ethernet_state_e;

/** Opens a handle; the caller gives it back with `connection_destroy`. */
int connection_create(connection_h* connection);

/** Closes a handle. It is gone afterwards, whatever the result. */
int connection_destroy(connection_h connection);

/** Tells the type of the connection in use; 0 when there is none. */
int connection_get_type(connection_h connection, connection_type_e* type);

/** Hands out the profile of the connection in use. It fails when there is none. */
int connection_get_current_profile(connection_h connection, connection_profile_h* profile);

/**
 * Starts a walk.
 *
 * @param connection  the caller's connection
 * @param kind        registered (0): every profile the set has been given
 * @param iterator    receives the walk, placed before the first profile; the caller gives it back
 *                    with `connection_destroy_profile_iterator`
 */
int connection_get_profile_iterator(connection_h connection, connection_iterator_type_e kind,
                                    connection_profile_iterator_h* iterator);

/** Tells whether `connection_profile_iterator_next` has another profile to give. */
bool connection_profile_iterator_has_next(connection_profile_iterator_h iterator);

/** Steps to the next profile and hands it out. It fails at the end of the walk. */
int connection_profile_iterator_next(connection_profile_iterator_h iterator,
                                     connection_profile_h* profile);

/** Ends a walk. It is gone afterwards, whatever the result; its profiles stay valid. */
int connection_destroy_profile_iterator(connection_profile_iterator_h iterator);

/** Tells a profile's type. A null profile is an error, not a crash. */
int connection_profile_get_type(connection_profile_h profile, connection_profile_type_e* type);

/** Tells the address, such as "192.168.1.20". A null profile is an error, not a crash. */
int connection_profile_get_ip_address(connection_profile_h profile,
                                      connection_address_family_e family, char** text);

/** Tells the subnet mask in dotted form, such as "255.255.255.0". */
int connection_profile_get_subnet_mask(connection_profile_h profile,
                                       connection_address_family_e family, char** text);

/** Tells the gateway's address. */
int connection_profile_get_gateway_address(connection_profile_h profile,
                                           connection_address_family_e family, char** text);

/** Tells the address of a name server; `order` counts from 1. */
int connection_profile_get_dns_address(connection_profile_h profile, int order,
                                       connection_address_family_e family, char** text);

/** Tells where the profile's address comes from. */
int connection_profile_get_ip_config_type(connection_profile_h profile,
                                          connection_address_family_e family,
                                          connection_ip_config_type_e* type);

/** Tells the interface, such as "eth0". */
int connection_profile_get_network_interface_name(connection_profile_h profile, char** text);

/** Tells the hardware address of the interface for a type of connection, as "AA:BB:CC:DD:EE:FF". */
int connection_get_mac_address(connection_h connection, connection_type_e type, char** text);

/** Tells the Wi-Fi state. */
int connection_get_wifi_state(connection_h connection, connection_wifi_state_e* state);

/** Tells the cellular state. */
int connection_get_cellular_state(connection_h connection, connection_cellular_state_e* state);

/** Tells the ethernet state. */
int connection_get_ethernet_state(connection_h connection, connection_ethernet_state_e* state);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
