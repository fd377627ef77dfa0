#include "MemberBinding.h"
#include "PropertyCatalogue.h"

std::vector<PropertyRow> networkRows() {
    return {
        {"/Network/DeviceName", readOnly(&DeviceInfoNetwork::getNetworkDeviceName).withDefault("")},
        {"/Network/MAC", macAddress(DeviceInfoNetwork::currentProfile).withDefault("")},
        {"/Network/IPMode", readOnly(&DeviceInfoNetwork::getNetworkIPMode).withDefault("DHCP")},
        {"/Network/IP", readOnly(&DeviceInfoNetwork::getNetworkIP).withDefault("")},
        {"/Network/SubnetMask", readOnly(&DeviceInfoNetwork::getNetworkSubnetMask).withDefault("")},
        {"/Network/Gateway", readOnly(&DeviceInfoNetwork::getNetworkGateway).withDefault("")},
        {"/Network/DNS", readOnly(&DeviceInfoNetwork::getNetworkDNS).withDefault("")},
        {"/Network/Type", readOnly(&DeviceInfoNetwork::getNetworkType).withDefault("0")},
        // The doubled blank is part of the name.
        {"/Connection/Network/Expert Settings/Power On with  Mobile",
         readWrite(&DeviceInfoNetwork::getPowerOnMobileMode,
                   &DeviceInfoNetwork::setPowerOnMobileMode)},
        {"/Connection/Network/Expert Settings/IP Remote",
         setting("db/menu/network/ip_remote_support", integerValue).withDefault("0")},
        {"/Connection/Network/Expert Settings/Wi-Fi",
         readWrite(&DeviceInfoNetwork::getWiFiEnabled, &DeviceInfoNetwork::setWiFiEnabled)
             .withDefault("1")},
        {"/Connection/Network/Expert Settings/WiFi Direct Standby",
         setting("db/menu/network/wifidirect", booleanValue).withDefault("1")},
    };
}
