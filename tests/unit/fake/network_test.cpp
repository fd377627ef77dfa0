#include "FakeTest.h"
#include "connection.h"
#include "network_control.h"

namespace klx {
namespace {

using fake::Profile;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class NetworkTest : public FakeTest {
protected:
    NetworkTest() { connection_create(&connection); }

    connection_profile_h current() const {
        connection_profile_h profile = nullptr;
        connection_get_current_profile(connection, &profile);
        return profile;
    }

    connection_h connection = nullptr;
};

TEST_F(NetworkTest, AnUnprogrammedNetworkTellsNothing) {
    auto type = connection_type_e{};
    auto wifi = connection_wifi_state_e{};
    connection_profile_h profile = nullptr;
    char* text = nullptr;
    int flag = 7;
    bool wake = true;
    EXPECT_EQ(connection_get_type(connection, &type), fake::kNotProgrammed);
    EXPECT_EQ(connection_get_current_profile(connection, &profile), fake::kNotProgrammed);
    EXPECT_EQ(connection_get_mac_address(connection, type, &text), fake::kNotProgrammed);
    EXPECT_EQ(connection_get_wifi_state(connection, &wifi), fake::kNotProgrammed);
    EXPECT_EQ(wifi_get_enable_kq(&flag), fake::kNotProgrammed);
    EXPECT_EQ(util_get_wakeOnMobile_mode(&wake), fake::kNotProgrammed);
    EXPECT_EQ(profile, nullptr);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(flag, 7);
    EXPECT_TRUE(wake);
}

TEST_F(NetworkTest, TheConnectionTellsTypeStatesAndAddress) {
    scene.connectionType(3).wifiState(1).cellularState(5).ethernetState(2).mac(3, "AA:BB");
    auto type = connection_type_e{};
    auto wifi = connection_wifi_state_e{};
    auto cellular = connection_cellular_state_e{};
    auto ethernet = connection_ethernet_state_e{};
    int status = -1;
    EXPECT_EQ(connection_get_type(connection, &type), 0);
    EXPECT_EQ(connection_get_wifi_state(connection, &wifi), 0);
    EXPECT_EQ(connection_get_cellular_state(connection, &cellular), 0);
    EXPECT_EQ(connection_get_ethernet_state(connection, &ethernet), 0);
    EXPECT_EQ(type, CONNECTION_TYPE_ETHERNET);
    EXPECT_EQ(wifi, 1);
    EXPECT_EQ(cellular, CONNECTION_CELLULAR_STATE_CONNECTED);
    EXPECT_EQ(ethernet, CONNECTION_ETHERNET_STATE_CONNECTED);
    const Text mac = take(&status, [&](char** out) {
        return connection_get_mac_address(connection, CONNECTION_TYPE_ETHERNET, out);
    });
    EXPECT_STREQ(mac.get(), "AA:BB");
    EXPECT_EQ(fake::calls().back(), "connection_get_mac_address(connection, 3)");
}

TEST_F(NetworkTest, AProfileTellsWhatItWasGiven) {
    scene.currentProfile(
        Profile("home").type(1).ip("10.0.0.2").ipConfig(2).dns("10.0.0.53").dns("second", 2));
    auto type = connection_profile_type_e{};
    auto config = connection_ip_config_type_e{};
    int status = -1;
    EXPECT_EQ(connection_profile_get_type(current(), &type), 0);
    EXPECT_EQ(type, CONNECTION_PROFILE_TYPE_WIFI);
    EXPECT_EQ(
        connection_profile_get_ip_config_type(current(), CONNECTION_ADDRESS_FAMILY_IPV4, &config),
        0);
    EXPECT_EQ(config, CONNECTION_IP_CONFIG_TYPE_DYNAMIC);
    const Text ip = take(&status, [&](char** out) {
        return connection_profile_get_ip_address(current(), CONNECTION_ADDRESS_FAMILY_IPV4, out);
    });
    EXPECT_STREQ(ip.get(), "10.0.0.2");
    EXPECT_EQ(fake::calls().back(), "connection_profile_get_ip_address(home, 0)");
    const Text dns = take(&status, [&](char** out) {
        return connection_profile_get_dns_address(current(), 1, CONNECTION_ADDRESS_FAMILY_IPV4,
                                                  out);
    });
    EXPECT_STREQ(dns.get(), "10.0.0.53");
}

TEST_F(NetworkTest, EachAddressHasItsOwnText) {
    scene.currentProfile(Profile("p").subnetMask("m").gateway("g").interfaceName("i"));
    const connection_profile_h profile = current();
    const auto family = CONNECTION_ADDRESS_FAMILY_IPV4;
    int status = -1;
    EXPECT_STREQ(
        take(&status,
             [&](char** out) { return connection_profile_get_subnet_mask(profile, family, out); })
            .get(),
        "m");
    EXPECT_STREQ(take(&status,
                      [&](char** out) {
                          return connection_profile_get_gateway_address(profile, family, out);
                      })
                     .get(),
                 "g");
    EXPECT_STREQ(take(&status,
                      [&](char** out) {
                          return connection_profile_get_network_interface_name(profile, out);
                      })
                     .get(),
                 "i");
}

TEST_F(NetworkTest, WhatAProfileLacksCannotBeRead) {
    scene.currentProfile(Profile("bare").gateway(nullptr).dns("d"));
    auto type = connection_profile_type_e{};
    const auto ipv4 = CONNECTION_ADDRESS_FAMILY_IPV4;
    char leftOver = 'x';
    char* text = &leftOver;
    EXPECT_EQ(connection_profile_get_type(current(), &type), fake::kNotProgrammed);
    EXPECT_EQ(connection_profile_get_dns_address(current(), 2, ipv4, &text), fake::kNotProgrammed);
    EXPECT_EQ(connection_profile_get_dns_address(
                  current(), 1, static_cast<connection_address_family_e>(1), &text),
              fake::kNotProgrammed);
    EXPECT_EQ(text, &leftOver);
    EXPECT_EQ(connection_profile_get_gateway_address(current(), ipv4, &text), 0);
    EXPECT_EQ(text, nullptr);
}

TEST_F(NetworkTest, AWalkVisitsTheRegisteredProfilesInOrder) {
    scene.registeredProfile(Profile("first")).registeredProfile(Profile("second"));
    connection_profile_iterator_h walk = nullptr;
    ASSERT_EQ(
        connection_get_profile_iterator(connection, CONNECTION_ITERATOR_TYPE_REGISTERED, &walk), 0);
    auto type = connection_profile_type_e{};
    connection_profile_h profile = nullptr;
    while (connection_profile_iterator_has_next(walk)) {
        ASSERT_EQ(connection_profile_iterator_next(walk, &profile), 0);
        connection_profile_get_type(profile, &type);
    }
    EXPECT_EQ(connection_profile_iterator_next(walk, &profile), fake::kNotProgrammed);
    EXPECT_EQ(connection_destroy_profile_iterator(walk), 0);
    EXPECT_THAT(
        fake::callsTo("connection_profile_get_type"),
        ElementsAre("connection_profile_get_type(first)", "connection_profile_get_type(second)"));
    EXPECT_THAT(fake::openHandles(), ElementsAre("connection"));
}

TEST_F(NetworkTest, AWalkOverOtherKindsFails) {
    connection_profile_iterator_h walk = nullptr;
    const auto other = static_cast<connection_iterator_type_e>(1);
    EXPECT_EQ(connection_get_profile_iterator(connection, other, &walk), fake::kNotProgrammed);
    EXPECT_EQ(walk, nullptr);
}

TEST_F(NetworkTest, HasNextCanBeMadeToLie) {
    connection_profile_iterator_h walk = nullptr;
    connection_get_profile_iterator(connection, CONNECTION_ITERATOR_TYPE_REGISTERED, &walk);
    EXPECT_FALSE(connection_profile_iterator_has_next(walk));
    scene.answer("connection_profile_iterator_has_next", 1);
    EXPECT_TRUE(connection_profile_iterator_has_next(walk));
}

TEST_F(NetworkTest, ANullProfileFailsWithoutMisuse) {
    auto type = connection_profile_type_e{};
    EXPECT_EQ(connection_profile_get_type(nullptr, &type), fake::kBadHandle);
    EXPECT_EQ(fake::calls().back(), "connection_profile_get_type(null)");
    EXPECT_THAT(fake::misuses(), IsEmpty());
}

TEST_F(NetworkTest, AHandleOfAnotherKindIsAMisuse) {
    auto type = connection_profile_type_e{};
    EXPECT_EQ(connection_profile_get_type(connection, &type), fake::kBadHandle);
    EXPECT_THAT(fake::misuses(), ElementsAre("connection_profile_get_type(connection)"));
}

TEST_F(NetworkTest, SwitchesKeepWhatIsWritten) {
    EXPECT_EQ(wifi_set_enable_kq(true), 0);
    EXPECT_EQ(util_set_wakeOnMobile_mode(true), 0);
    int wifi = 0;
    bool wake = false;
    EXPECT_EQ(wifi_get_enable_kq(&wifi), 0);
    EXPECT_EQ(util_get_wakeOnMobile_mode(&wake), 0);
    EXPECT_EQ(wifi, 1);
    EXPECT_TRUE(wake);
    EXPECT_THAT(fake::callsTo("wifi_set_enable_kq"), ElementsAre("wifi_set_enable_kq(true)"));
}

} // namespace
} // namespace klx
