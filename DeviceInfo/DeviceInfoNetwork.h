#pragma once

#include "ValueTypes.h"

#include <string>

/// The network's properties, as text. Each query opens and closes a connection of its own. Failures
/// are logged and answered with "" unless an operation says otherwise; only exceptions other than
/// `KLX::Exception` pass through, after the connection was closed. The class keeps no state, so
/// queries on several threads are independent.
///
/// Text arguments of getters are ignored.
class DeviceInfoNetwork {
public:
    /// Whose MAC address is asked for. Values outside the named ones are refused.
    enum connectionProfileType : unsigned int {
        wiredProfile = 0,
        wifiProfile = 1,
        cellularProfile = 2,
        currentProfile = 3,
    };

    /// @return the connection's type in decimal, "0" when there is none
    std::string getNetworkType(const std::string&);
    std::string getNetworkIP(const std::string&);
    std::string getNetworkSubnetMask(const std::string&);
    std::string getNetworkGateway(const std::string&);
    /// @return the first DNS server
    std::string getNetworkDNS(const std::string&);
    /// @return "None", "Manual", "DHCP", "Auto" or "Fixed"; "None" also on failure
    std::string getNetworkIPMode(const std::string&);
    std::string getNetworkMAC(connectionProfileType type);
    /// @return the interface's name
    std::string getNetworkDeviceName(const std::string&);

    /// Tells whether the current connection is up. Both arguments are ignored and nothing is sent;
    /// the name is historical.
    bool pingGateway(eMenuValueType, const std::string&);

    /// @return the flag in decimal, "0" on failure
    std::string getWiFiEnabled(const std::string&);
    void setWiFiEnabled(const std::string& value);

    /// @return "0" or "1", "0" on failure
    std::string getPowerOnMobileMode(const std::string&);
    void setPowerOnMobileMode(const std::string& value);
};
