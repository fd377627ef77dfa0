#include "NetworkAPI.h"

#include "Exception.h"
#include "NetworkTest.h"

using fake::Line;
using fake::LineIn;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

class NetworkApiTest : public NetworkTest {
protected:
    unsigned int typeAfterInit() {
        NetworkApi api;
        api.init();
        return api.getConnectionType();
    }
};

TEST_F(NetworkApiTest, HoldsNothingAtFirst) {
    {
        const NetworkApi api;
        EXPECT_EQ(api.connection(), nullptr);
        EXPECT_EQ(api.profile(), nullptr);
    }
    EXPECT_THAT(fake::calls(), IsEmpty());
}

TEST_F(NetworkApiTest, ReadsTheCurrentProfile) {
    scene.connectionType(3).currentProfile(home());
    {
        NetworkApi api;
        api.init();
    }
    EXPECT_THAT(fake::calls(),
                ElementsAre("connection_create()", "connection_get_current_profile(connection)",
                            "connection_get_type(connection)", "connection_destroy(connection)"));
}

TEST_F(NetworkApiTest, TellsItsStepsInOrder) {
    scene.connectionType(3).currentProfile(home());
    NetworkApi api;
    api.init();
    EXPECT_THAT(
        fake::logs(),
        ElementsAre(LineIn("NetworkAPI.cpp", 3, "init", "Networking init"),
                    LineIn("NetworkAPI.cpp", 3, "createProfile", "Getting current profile"),
                    LineIn("NetworkAPI.cpp", 3, "init", StartsWith("Network profile created, 0x")),
                    LineIn("NetworkAPI.cpp", 3, "init", "Network connection type: 3"),
                    LineIn("NetworkAPI.cpp", 3, "init", "Networking init finished")));
}

TEST_F(NetworkApiTest, NamesTheProfileBeforeTheConnection) {
    scene.connectionType(3).currentProfile(home());
    NetworkApi api;
    api.init();
    char expected[80];
    std::snprintf(expected, sizeof expected, "Network profile created, %p - %p", api.profile(),
                  api.connection());
    EXPECT_THAT(fake::logs(), Contains(Line(3, "init", expected)));
}

TEST_F(NetworkApiTest, TakesARegisteredProfileWhenNoneIsCurrent) {
    scene.connectionType(0).registeredProfile(fake::Profile("wifi").type(1));
    EXPECT_EQ(typeAfterInit(), 1U);
    EXPECT_THAT(fake::logs(), Contains(Line(5, "createProfile", "getting current profile failed")));
    EXPECT_THAT(fake::logs(), Contains(Line(3, "findProfile", "Connection profile iteration")));
    EXPECT_THAT(fake::logs(), Contains(Line(3, "findProfile", "Connection profile found: 1")));
}

TEST_F(NetworkApiTest, EndsTheWalkAtTheFirstUsableProfile) {
    scene.connectionType(0)
        .registeredProfile(fake::Profile("headset").type(3))
        .registeredProfile(fake::Profile("mobile").type(0))
        .registeredProfile(fake::Profile("wifi").type(1));
    EXPECT_EQ(typeAfterInit(), 2U);
    EXPECT_THAT(fake::callsTo("connection_profile_iterator_next").size(), 2U);
    EXPECT_THAT(fake::callsTo("connection_profile_iterator_has_next").size(), 3U);
    EXPECT_THAT(fake::callsTo("connection_get_profile_iterator"),
                ElementsAre("connection_get_profile_iterator(connection, 0)"));
}

TEST_F(NetworkApiTest, KeepsTheLastProfileOfAWalkThatFoundNone) {
    scene.connectionType(0).registeredProfile(fake::Profile("headset").type(3));
    NetworkApi api;
    api.init();
    EXPECT_NE(api.profile(), nullptr);
    EXPECT_THAT(fake::logs(), Contains(Line(3, "findProfile", "Connection profile found: 0")));
}

TEST_F(NetworkApiTest, HasNoTypeForABluetoothProfile) {
    scene.connectionType(0).registeredProfile(fake::Profile("headset").type(3));
    NetworkApi api;
    api.init();
    fake::clearHistory();
    EXPECT_EQ(api.getConnectionType(), 0U);
    EXPECT_THAT(fake::logs(), ElementsAre(Line(5, "getConnectionType", "map::at")));
}

TEST_F(NetworkApiTest, HasNoTypeForAProfileTypeBeyondTheKnownOnes) {
    scene.connectionType(0).currentProfile(fake::Profile("odd").type(-1));
    EXPECT_EQ(typeAfterInit(), 0U);
    EXPECT_THAT(fake::messages(5), Contains("map::at"));
}

TEST_F(NetworkApiTest, HasNoTypeWithoutAnyProfile) {
    scene.connectionType(0);
    NetworkApi api;
    api.init();
    fake::clearHistory();
    EXPECT_EQ(api.getConnectionType(), 0U);
    EXPECT_THAT(fake::logs(), ElementsAre(Line(5, "getConnectionType", "getting profile type")));
}

TEST_F(NetworkApiTest, DoesNotLookAtTheProfileOfAnActiveConnection) {
    scene.connectionType(3).currentProfile(fake::Profile("wifi").type(1));
    EXPECT_EQ(typeAfterInit(), 3U);
    EXPECT_THAT(fake::callsTo("connection_profile_get_type"), IsEmpty());
}

TEST_F(NetworkApiTest, TakesTheTypeOfTheHeldProfile) {
    const std::pair<int, unsigned int> types[] = {{0, 2U}, {1, 1U}, {2, 3U}};
    for (const auto& [profile, connection] : types) {
        scene.connectionType(0).currentProfile(fake::Profile("held").type(profile));
        EXPECT_EQ(typeAfterInit(), connection) << "profile type " << profile;
    }
}

TEST_F(NetworkApiTest, ThrowsWhenNoConnectionCanBeMade) {
    scene.fail("connection_create", 7);
    {
        NetworkApi api;
        try {
            api.init();
            ADD_FAILURE() << "nothing was thrown";
        } catch (const KLX::Exception& error) {
            EXPECT_STREQ(error.what(), "creating connection failed");
        }
    }
    EXPECT_THAT(fake::callsTo("connection_destroy"), IsEmpty());
}

TEST_F(NetworkApiTest, ThrowsWhenTheConnectionTypeCannotBeRead) {
    scene.currentProfile(home()).fail("connection_get_type", 7);
    NetworkApi api;
    try {
        api.init();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const KLX::Exception& error) {
        EXPECT_STREQ(error.what(), "getting profile type failed");
    }
}

TEST_F(NetworkApiTest, GoesOnWithoutAnIterator) {
    scene.connectionType(0).fail("connection_get_profile_iterator", 7);
    EXPECT_EQ(typeAfterInit(), 0U);
    EXPECT_THAT(fake::logs(), Contains(Line(3, "findProfile", "getting profile iterator")));
    EXPECT_THAT(fake::logs(), Contains(Line(3, "findProfile", "Connection profile found: 0")));
    EXPECT_THAT(fake::callsTo("connection_profile_iterator_has_next"), IsEmpty());
}

TEST_F(NetworkApiTest, UsesAnIteratorThatCameWithAFailure) {
    scene.connectionType(0)
        .registeredProfile(fake::Profile("wifi").type(1))
        .answer("connection_get_profile_iterator", 7);
    EXPECT_EQ(typeAfterInit(), 1U);
    EXPECT_THAT(fake::logs(), Contains(Line(3, "findProfile", "getting profile iterator")));
}

TEST_F(NetworkApiTest, StopsTheWalkWhenTheNextProfileFails) {
    scene.connectionType(0)
        .registeredProfile(fake::Profile("wifi").type(1))
        .fail("connection_profile_iterator_next", 7);
    EXPECT_EQ(typeAfterInit(), 0U);
    EXPECT_THAT(fake::logs(), Contains(Line(5, "findProfile", "getting next iterator")));
    EXPECT_EQ(fake::callsTo("connection_profile_iterator_next").size(), 1U);
}

TEST_F(NetworkApiTest, StopsTheWalkWhenAProfilesTypeFails) {
    scene.connectionType(0)
        .registeredProfile(fake::Profile("untyped"))
        .registeredProfile(fake::Profile("wifi").type(1));
    EXPECT_EQ(typeAfterInit(), 0U);
    EXPECT_THAT(fake::logs(), Contains(Line(5, "findProfile", "getting profile type")));
    EXPECT_EQ(fake::callsTo("connection_profile_iterator_next").size(), 1U);
}

TEST_F(NetworkApiTest, EndsTheIteratorWithTheWalk) {
    scene.connectionType(0).registeredProfile(fake::Profile("wifi").type(1));
    NetworkApi api;
    api.init();
    EXPECT_THAT(fake::openHandles(), ElementsAre("connection"));
}

TEST_F(NetworkApiTest, DoesNotLookAtTheEndOfTheIterator) {
    scene.connectionType(0)
        .registeredProfile(fake::Profile("wifi").type(1))
        .fail("connection_destroy_profile_iterator", 7);
    EXPECT_EQ(typeAfterInit(), 1U);
    EXPECT_THAT(fake::messages(5), Not(Contains("destroy profile iterator failed")));
    EXPECT_EQ(fake::callsTo("connection_destroy_profile_iterator").size(), 1U);
}

TEST_F(NetworkApiTest, LeavesNoIteratorWhenTheWalkThrows) {
    scene.connectionType(0)
        .registeredProfile(fake::Profile("wifi").type(1))
        .throwFrom("connection_profile_get_type", std::runtime_error("gone"));
    {
        NetworkApi api;
        EXPECT_THROW(api.init(), std::runtime_error);
    }
    EXPECT_THAT(fake::calls().back(), "connection_destroy(connection)");
    EXPECT_EQ(fake::callsTo("connection_destroy_profile_iterator").size(), 1U);
}

TEST_F(NetworkApiTest, ReportsAnIteratorThatCannotBeReleased) {
    scene.connectionType(0)
        .registeredProfile(fake::Profile("wifi").type(1))
        .throwFrom("connection_profile_get_type", std::runtime_error("gone"))
        .fail("connection_destroy_profile_iterator", 7);
    {
        NetworkApi api;
        EXPECT_THROW(api.init(), std::runtime_error);
    }
    EXPECT_THAT(fake::logs(),
                Contains(Line(5, "deleteProfile", "destroy profile iterator failed")));
}

TEST_F(NetworkApiTest, ReportsAConnectionThatCannotBeReleased) {
    scene.connectionType(3).currentProfile(home()).fail("connection_destroy", 7);
    EXPECT_EQ(typeAfterInit(), 3U);
    EXPECT_THAT(fake::logs(), Contains(Line(5, "deleteProfile", "destroy connection failed")));
    EXPECT_EQ(fake::callsTo("connection_destroy").size(), 1U);
}

TEST_F(NetworkApiTest, ReleasesTheFirstConnectionBeforeASecondInit) {
    scene.connectionType(3).currentProfile(home());
    NetworkApi api;
    api.init();
    fake::clearHistory();
    api.init();
    EXPECT_THAT(fake::calls(), ElementsAre("connection_destroy(connection)", "connection_create()",
                                           "connection_get_current_profile(connection)",
                                           "connection_get_type(connection)"));
}

} // namespace
