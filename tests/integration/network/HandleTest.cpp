#include "NetworkTest.h"

#include <sys/mman.h>

#include <array>

namespace klx::network {
namespace {

constexpr int unknownHandle = static_cast<int>(NetworkError::UnknownHandle);
constexpr int nullPointer = static_cast<int>(NetworkError::NullPointer);

/** Every answer of a profile handle. */
std::array<Answer, 7> answersOf(connection_profile_h profile) {
    return {type(profile),    name(profile),       address(profile),      mask(profile),
            gateway(profile), nameServer(profile), configuration(profile)};
}

class Handles : public NetworkTest {
protected:
    void SetUp() override {
        NetworkTest::SetUp();
        if (!IsSkipped() && !HasFatalFailure()) {
            addWayOut("eth0");
        }
    }

    static connection_h open() {
        connection_h connection = nullptr;
        EXPECT_EQ(connection_create(&connection), 0);
        return connection;
    }

    static connection_profile_h current(connection_h connection) {
        connection_profile_h profile = nullptr;
        EXPECT_EQ(connection_get_current_profile(connection, &profile), 0);
        return profile;
    }

    static connection_profile_iterator_h walk(connection_h connection) {
        connection_profile_iterator_h iterator = nullptr;
        EXPECT_EQ(connection_get_profile_iterator(connection, CONNECTION_ITERATOR_TYPE_REGISTERED,
                                                  &iterator),
                  0);
        return iterator;
    }

    static void expectQuestionsRefused(connection_h connection, int error) {
        connection_type_e type{};
        connection_wifi_state_e wifiState{};
        connection_cellular_state_e cellularState{};
        connection_ethernet_state_e ethernetState{};
        EXPECT_EQ(connection_get_type(connection, &type), error);
        EXPECT_EQ(connection_get_wifi_state(connection, &wifiState), error);
        EXPECT_EQ(connection_get_cellular_state(connection, &cellularState), error);
        EXPECT_EQ(connection_get_ethernet_state(connection, &ethernetState), error);
    }

    /** Every call that takes a connection answers so. */
    static void expectConnectionRefused(connection_h connection, int error) {
        char* text = nullptr;
        void* handle = nullptr;
        expectQuestionsRefused(connection, error);
        EXPECT_EQ(connection_get_mac_address(connection, CONNECTION_TYPE_ETHERNET, &text), error);
        EXPECT_EQ(connection_get_current_profile(connection, &handle), error);
        EXPECT_EQ(connection_get_profile_iterator(connection, CONNECTION_ITERATOR_TYPE_REGISTERED,
                                                  &handle),
                  error);
        EXPECT_EQ(connection_destroy(connection), error);
        EXPECT_EQ(text, nullptr);
        EXPECT_EQ(handle, nullptr);
    }

    static void expectProfileRefused(connection_profile_h profile, int error) {
        EXPECT_THAT(answersOf(profile), testing::Each(Answer{error, ""}));
    }

    static void expectWalkRefused(connection_profile_iterator_h iterator, int error) {
        connection_profile_h profile = nullptr;
        EXPECT_FALSE(connection_profile_iterator_has_next(iterator));
        EXPECT_EQ(connection_profile_iterator_next(iterator, &profile), error);
        EXPECT_EQ(connection_destroy_profile_iterator(iterator), error);
        EXPECT_EQ(profile, nullptr);
    }
};

TEST_F(Handles, ThatAreNullAreRefused) {
    expectConnectionRefused(nullptr, nullPointer);
    expectProfileRefused(nullptr, nullPointer);
    expectWalkRefused(nullptr, nullPointer);
    EXPECT_EQ(connection_create(nullptr), nullPointer);
}

TEST_F(Handles, OfStrangersAreRefusedWithoutALookAtThem) {
    constexpr std::size_t page = 4096;
    int stranger = 0;
    void* const nowhere = ::mmap(nullptr, page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(nowhere, MAP_FAILED);
    for (void* const handle : {static_cast<void*>(&stranger), nowhere}) {
        expectConnectionRefused(handle, unknownHandle);
        expectProfileRefused(handle, unknownHandle);
        expectWalkRefused(handle, unknownHandle);
    }
    ::munmap(nowhere, page);
}

TEST_F(Handles, OfOneSortAreNotTakenForAnother) {
    connection_h const connection = open();
    connection_profile_h const profile = current(connection);
    connection_profile_iterator_h const iterator = walk(connection);
    expectProfileRefused(connection, unknownHandle);
    expectWalkRefused(connection, unknownHandle);
    expectConnectionRefused(profile, unknownHandle);
    expectWalkRefused(profile, unknownHandle);
    expectConnectionRefused(iterator, unknownHandle);
    expectProfileRefused(iterator, unknownHandle);
    EXPECT_EQ(connection_destroy(connection), 0);
}

TEST_F(Handles, AreNotUsableAfterTheyWereGivenBack) {
    connection_h const connection = open();
    connection_profile_iterator_h const iterator = walk(connection);
    EXPECT_EQ(connection_destroy_profile_iterator(iterator), 0);
    expectWalkRefused(iterator, unknownHandle);
    EXPECT_EQ(connection_destroy(connection), 0);
    expectConnectionRefused(connection, unknownHandle);
}

TEST_F(Handles, OfProfilesEndWithTheirConnection) {
    connection_h const connection = open();
    connection_profile_h const profile = current(connection);
    EXPECT_EQ(name(profile), said("eth0"));
    EXPECT_EQ(connection_destroy(connection), 0);
    expectProfileRefused(profile, unknownHandle);
}

TEST_F(Handles, OfWalksEndWithTheirConnection) {
    connection_h const connection = open();
    connection_profile_iterator_h const iterator = walk(connection);
    EXPECT_TRUE(connection_profile_iterator_has_next(iterator));
    EXPECT_EQ(connection_destroy(connection), 0);
    expectWalkRefused(iterator, unknownHandle);
}

TEST_F(Handles, OfProfilesOutliveTheWalk) {
    const Connection connection;
    connection_profile_iterator_h const iterator = walk(connection.handle());
    connection_profile_h profile = nullptr;
    EXPECT_EQ(connection_profile_iterator_next(iterator, &profile), 0);
    EXPECT_EQ(connection_destroy_profile_iterator(iterator), 0);
    EXPECT_EQ(name(profile), said("eth0"));
}

TEST_F(Handles, OfAnEndedConnectionLeaveTheOthersAlone) {
    const Connection other;
    connection_profile_h const profile = other.current();
    connection_profile_iterator_h const iterator = walk(other.handle());
    EXPECT_EQ(connection_destroy(open()), 0);
    EXPECT_EQ(name(profile), said("eth0"));
    EXPECT_TRUE(connection_profile_iterator_has_next(iterator));
    EXPECT_EQ(other.type(), said(ethernet));
}

TEST_F(Handles, AreNotGivenOutAgain) {
    connection_h const first = open();
    EXPECT_EQ(connection_destroy(first), 0);
    const Connection second;
    EXPECT_NE(first, second.handle());
    expectConnectionRefused(first, unknownHandle);
}

TEST_F(Handles, OfTheSameLinkAreTheSameOnOneConnection) {
    const Connection connection;
    connection_profile_h const profile = connection.current();
    EXPECT_EQ(connection.current(), profile);
    EXPECT_EQ(connection.profileOf("eth0"), profile);
    EXPECT_NE(Connection().current(), profile);
}

TEST_F(Handles, OfWalksEndBehindTheLastProfile) {
    const Connection connection;
    connection_profile_iterator_h const iterator = walk(connection.handle());
    connection_profile_h profile = nullptr;
    EXPECT_EQ(connection_profile_iterator_next(iterator, &profile), 0);
    EXPECT_FALSE(connection_profile_iterator_has_next(iterator));
    connection_profile_h const last = profile;
    EXPECT_EQ(connection_profile_iterator_next(iterator, &profile),
              static_cast<int>(NetworkError::EndOfWalk));
    EXPECT_EQ(profile, last);
    EXPECT_EQ(connection_destroy_profile_iterator(iterator), 0);
}

TEST_F(Handles, OfWalksComeInOneKindOnly) {
    const Connection connection;
    connection_profile_iterator_h iterator = nullptr;
    EXPECT_EQ(connection_get_profile_iterator(
                  connection.handle(), static_cast<connection_iterator_type_e>(1), &iterator),
              static_cast<int>(NetworkError::InvalidNumber));
    EXPECT_EQ(iterator, nullptr);
}

TEST_F(Handles, NeedSomewhereToPutTheAnswer) {
    const Connection connection;
    connection_h const handle = connection.handle();
    connection_profile_h const profile = connection.current();
    constexpr auto ipv4 = CONNECTION_ADDRESS_FAMILY_IPV4;
    EXPECT_EQ(connection_get_type(handle, nullptr), nullPointer);
    EXPECT_EQ(connection_get_current_profile(handle, nullptr), nullPointer);
    EXPECT_EQ(connection_get_profile_iterator(handle, CONNECTION_ITERATOR_TYPE_REGISTERED, nullptr),
              nullPointer);
    EXPECT_EQ(connection_get_mac_address(handle, CONNECTION_TYPE_ETHERNET, nullptr), nullPointer);
    EXPECT_EQ(connection_get_wifi_state(handle, nullptr), nullPointer);
    EXPECT_EQ(connection_get_cellular_state(handle, nullptr), nullPointer);
    EXPECT_EQ(connection_get_ethernet_state(handle, nullptr), nullPointer);
    EXPECT_EQ(connection_profile_get_type(profile, nullptr), nullPointer);
    EXPECT_EQ(connection_profile_get_ip_address(profile, ipv4, nullptr), nullPointer);
    EXPECT_EQ(connection_profile_get_subnet_mask(profile, ipv4, nullptr), nullPointer);
    EXPECT_EQ(connection_profile_get_gateway_address(profile, ipv4, nullptr), nullPointer);
    EXPECT_EQ(connection_profile_get_dns_address(profile, 1, ipv4, nullptr), nullPointer);
    EXPECT_EQ(connection_profile_get_ip_config_type(profile, ipv4, nullptr), nullPointer);
    EXPECT_EQ(connection_profile_get_network_interface_name(profile, nullptr), nullPointer);
    connection_profile_iterator_h const iterator = walk(handle);
    EXPECT_EQ(connection_profile_iterator_next(iterator, nullptr), nullPointer);
    EXPECT_TRUE(connection_profile_iterator_has_next(iterator)) << "nothing was passed over";
}

} // namespace
} // namespace klx::network
