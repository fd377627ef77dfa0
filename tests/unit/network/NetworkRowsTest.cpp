#include "NetworkTest.h"

#include <boost/optional.hpp>

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

constexpr auto noFixedDefault = "(none)";

/// A row as the menu has it: what its getter and its setter call in the end.
struct Row {
    const char* path;
    const char* fixedDefault;
    const char* readCall;
    const char* writeCall; ///< "" for read-only rows
    bool flag;
};

constexpr Row rows[] = {
    {"/Network/DeviceName", "", "connection_profile_get_network_interface_name(home)", "", false},
    {"/Network/MAC", "", "connection_get_mac_address(connection, 3)", "", false},
    {"/Network/IPMode", "DHCP", "connection_profile_get_ip_config_type(home, 0)", "", false},
    {"/Network/IP", "", "connection_profile_get_ip_address(home, 0)", "", false},
    {"/Network/SubnetMask", "", "connection_profile_get_subnet_mask(home, 0)", "", false},
    {"/Network/Gateway", "", "connection_profile_get_gateway_address(home, 0)", "", false},
    {"/Network/DNS", "", "connection_profile_get_dns_address(home, 1, 0)", "", false},
    {"/Network/Type", "0", "connection_get_type(connection)", "", false},
    {"/Connection/Network/Expert Settings/Power On with  Mobile", noFixedDefault,
     "util_get_wakeOnMobile_mode()", "util_set_wakeOnMobile_mode(true)", true},
    {"/Connection/Network/Expert Settings/IP Remote", "0",
     "vconf_get_int(\"db/menu/network/ip_remote_support\")",
     "vconf_set_int(\"db/menu/network/ip_remote_support\", 1)", true},
    {"/Connection/Network/Expert Settings/Wi-Fi", "1", "wifi_get_enable_kq()",
     "wifi_set_enable_kq(true)", true},
    {"/Connection/Network/Expert Settings/WiFi Direct Standby", "1",
     "vconf_get_bool(\"db/menu/network/wifidirect\")",
     "vconf_set_bool(\"db/menu/network/wifidirect\", 1)", true},
};

class NetworkRowsTest : public NetworkTest, public ::testing::WithParamInterface<Row> {
protected:
    NetworkRowsTest() {
        CDeviceProperty::GetInstance()->createPropertyAccessor(m_records);
        scene.connectionType(3).currentProfile(home());
        fake::clearHistory();
    }

    const PropertyAccessor& record() const { return m_records.at(GetParam().path); }

private:
    PropertyAccessorMap m_records;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.path;
}

TEST_P(NetworkRowsTest, ReadsThroughItsAccessor) {
    std::get<valueGetterElement>(record())("");
    EXPECT_THAT(fake::calls(), Contains(GetParam().readCall));
}

TEST_P(NetworkRowsTest, CarriesItsDefault) {
    const auto& fixedDefault = std::get<fixedDefaultElement>(record());
    EXPECT_EQ(fixedDefault.value_or(noFixedDefault), GetParam().fixedDefault);
    EXPECT_FALSE(std::get<defaultGetterElement>(record()));
}

TEST_P(NetworkRowsTest, CarriesItsFlag) {
    EXPECT_EQ(std::get<flagElement>(record()), GetParam().flag);
}

TEST_P(NetworkRowsTest, WritesThroughItsAccessorOrNotAtAll) {
    std::get<setterElement>(record())("1");
    if (std::string(GetParam().writeCall).empty()) {
        EXPECT_THAT(fake::calls(), IsEmpty());
    } else {
        EXPECT_THAT(fake::calls(), Contains(GetParam().writeCall));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, NetworkRowsTest, ::testing::ValuesIn(rows));

} // namespace
