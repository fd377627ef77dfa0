#include "FakeTest.h"
#include "connection.h"
#include "dlog.h"
#include "vconf.h"

namespace klx {
namespace {

using ::testing::IsEmpty;

TEST(SceneTest, StartsAndEndsWithAPlatformThatKnowsNothing) {
    int value = 7;
    vconf_set_int("k", 1);
    {
        fake::Scene scene;
        EXPECT_THAT(fake::calls(), IsEmpty());
        EXPECT_EQ(vconf_get_int("k", &value), fake::kNotProgrammed);
        scene.store("k", 2).fail("vconf_get_bool", -1);
    }
    EXPECT_THAT(fake::calls(), IsEmpty());
    EXPECT_EQ(vconf_get_int("k", &value), fake::kNotProgrammed);
    EXPECT_EQ(vconf_get_bool("k", &value), fake::kNotProgrammed);
    fake::reset();
}

TEST(SceneTest, ForgetsHandlesMisusesAndLines) {
    connection_h connection = nullptr;
    connection_create(&connection);
    connection_destroy(&connection);
    __dlog_print(0, 3, "KLX", "%s: %s(%d) > x", "a", "b", 1);
    const fake::Scene scene;
    EXPECT_THAT(fake::openHandles(), IsEmpty());
    EXPECT_THAT(fake::misuses(), IsEmpty());
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST(SceneTest, ClearingTheHistoryKeepsTheRest) {
    fake::Scene scene;
    scene.store("k", 2);
    connection_h connection = nullptr;
    connection_create(&connection);
    connection_destroy(&connection);
    __dlog_print(0, 3, "KLX", "%s: %s(%d) > x", "a", "b", 1);
    fake::clearHistory();
    EXPECT_THAT(fake::history(), IsEmpty());
    EXPECT_THAT(fake::misuses(), IsEmpty());
    EXPECT_THAT(fake::openHandles(), ::testing::ElementsAre("connection"));
    int value = 0;
    EXPECT_EQ(vconf_get_int("k", &value), 0);
    EXPECT_EQ(value, 2);
}

} // namespace
} // namespace klx
