#include "MemberBinding.h"
#include "PropertyCatalogue.h"

std::vector<PropertyRow> networkRows() {
    return {
        {"/Network/DeviceName",
         readOnly({"network connection", "connection_profile_get_network_interface_name"},
                  &DeviceInfoNetwork::getNetworkDeviceName)
             .withDefault("")},
        {"/Network/MAC", macAddress(DeviceInfoNetwork::currentProfile).withDefault("")},
        {"/Network/IPMode",
         readOnly({"network connection", "connection_profile_get_ip_config_type"},
                  &DeviceInfoNetwork::getNetworkIPMode)
             .withDefault("DHCP")},
        {"/Network/IP", readOnly({"network connection", "connection_profile_get_ip_address"},
                                 &DeviceInfoNetwork::getNetworkIP)
                            .withDefault("")},
        {"/Network/SubnetMask",
         readOnly({"network connection", "connection_profile_get_subnet_mask"},
                  &DeviceInfoNetwork::getNetworkSubnetMask)
             .withDefault("")},
        {"/Network/Gateway",
         readOnly({"network connection", "connection_profile_get_gateway_address"},
                  &DeviceInfoNetwork::getNetworkGateway)
             .withDefault("")},
        {"/Network/DNS", readOnly({"network connection", "connection_profile_get_dns_address"},
                                  &DeviceInfoNetwork::getNetworkDNS)
                             .withDefault("")},
        {"/Network/Type",
         readOnly({"network connection", "connection_get_type"}, &DeviceInfoNetwork::getNetworkType)
             .withDefault("0")},
        // The doubled blank is part of the name.
        {"/Connection/Network/Expert Settings/Power On with  Mobile",
         readWrite({"network control", "util_get_wakeOnMobile_mode"},
                   &DeviceInfoNetwork::getPowerOnMobileMode,
                   &DeviceInfoNetwork::setPowerOnMobileMode)},
        {"/Connection/Network/Expert Settings/IP Remote",
         setting("db/menu/network/ip_remote_support", integerValue).withDefault("0")},
        {"/Connection/Network/Expert Settings/Wi-Fi",
         readWrite({"network control", "wifi_get_enable_kq"}, &DeviceInfoNetwork::getWiFiEnabled,
                   &DeviceInfoNetwork::setWiFiEnabled)
             .withDefault("1")},
        {"/Connection/Network/Expert Settings/WiFi Direct Standby",
         setting("db/menu/network/wifidirect", booleanValue).withDefault("1")},
    };
}
