#pragma once

#include "NetworkErrors.h"

#include "connection.h"

#include <ostream>
#include <string>
#include <vector>

namespace klx::network {

using KLX::Host::NetworkError;

/** What a call of the service answered: its error number and, on success, the value as text. */
struct Answer {
    int error = 0;
    std::string value;

    bool operator==(const Answer& other) const {
        return error == other.error && value == other.value;
    }
};

std::ostream& operator<<(std::ostream& stream, const Answer& answer);

Answer said(const std::string& value);
Answer said(int value);
Answer failed(NetworkError error);

/**
 * An open connection handle. Every question also checks that a call that failed left its output
 * alone.
 */
class Connection {
public:
    Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    connection_h handle() const { return m_handle; }

    Answer type() const;
    Answer mac(int type) const;
    Answer wifiState() const;
    Answer cellularState() const;
    Answer ethernetState() const;

    /** The profile in use; null, and a test failure, when there is none. */
    connection_profile_h current() const;

    /** The error of asking for the profile in use; 0 when there is one. */
    int currentError() const;

    /** Walks through the registered profiles. */
    std::vector<connection_profile_h> registered() const;

    /** The profile of a link among the registered ones; null when it is not there. */
    connection_profile_h profileOf(const std::string& link) const;

    /** The names of the registered profiles, in order. */
    std::vector<std::string> names() const;

private:
    connection_h m_handle = nullptr;
};

Answer type(connection_profile_h profile);
Answer name(connection_profile_h profile);
Answer address(connection_profile_h profile, int family = 0);
Answer mask(connection_profile_h profile, int family = 0);
Answer gateway(connection_profile_h profile, int family = 0);
Answer nameServer(connection_profile_h profile, int order = 1, int family = 0);
Answer configuration(connection_profile_h profile, int family = 0);

constexpr int noAddress = 0;
constexpr int staticAddress = 1;
constexpr int dynamicAddress = 2;

constexpr int wifi = 1;
constexpr int cellular = 2;
constexpr int ethernet = 3;
constexpr int bluetooth = 4;

} // namespace klx::network
