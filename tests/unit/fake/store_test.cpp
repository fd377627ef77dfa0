#include "FakeTest.h"
#include "vconf.h"

namespace klx {
namespace {

using ::testing::ElementsAre;

class StoreTest : public FakeTest {};

TEST_F(StoreTest, AnUnprogrammedReadFailsAndLeavesTheOutputAlone) {
    int value = 7;
    EXPECT_EQ(vconf_get_int("db/a", &value), fake::kNotProgrammed);
    EXPECT_EQ(vconf_get_bool("db/a", &value), fake::kNotProgrammed);
    EXPECT_EQ(vconf_get_str("db/a"), nullptr);
    EXPECT_EQ(value, 7);
}

TEST_F(StoreTest, AValueIsReadAsTheTypeItHas) {
    scene.store("db/int", 5).store("db/bool", true).store("db/text", "abc");
    int number = 0;
    int flag = 0;
    EXPECT_EQ(vconf_get_int("db/int", &number), 0);
    EXPECT_EQ(number, 5);
    EXPECT_EQ(vconf_get_bool("db/bool", &flag), 0);
    EXPECT_EQ(flag, 1);
    EXPECT_STREQ(Text(vconf_get_str("db/text")).get(), "abc");
}

TEST_F(StoreTest, AReadOfAnotherTypeFails) {
    scene.store("db/bool", true).store("db/int", 1);
    int value = 7;
    EXPECT_EQ(vconf_get_int("db/bool", &value), fake::kWrongType);
    EXPECT_EQ(vconf_get_bool("db/int", &value), fake::kWrongType);
    EXPECT_EQ(vconf_get_str("db/int"), nullptr);
    EXPECT_EQ(value, 7);
}

TEST_F(StoreTest, AnUnsetKeyIsGone) {
    scene.store("db/a", 5).unset("db/a");
    int value = 0;
    EXPECT_EQ(vconf_get_int("db/a", &value), fake::kNotProgrammed);
}

TEST_F(StoreTest, AWriteIsRecordedAndReadBack) {
    EXPECT_EQ(vconf_set_int("db/i", -5), 0);
    EXPECT_EQ(vconf_set_bool("db/b", 2), 0);
    EXPECT_EQ(vconf_set_str("db/s", "x y"), 0);
    EXPECT_THAT(fake::calls(),
                ElementsAre(R"(vconf_set_int("db/i", -5))", R"(vconf_set_bool("db/b", 2))",
                            R"(vconf_set_str("db/s", "x y"))"));
    int number = 0;
    int flag = 0;
    EXPECT_EQ(vconf_get_int("db/i", &number), 0);
    EXPECT_EQ(number, -5);
    EXPECT_EQ(vconf_get_bool("db/b", &flag), 0);
    EXPECT_EQ(flag, 1);
    EXPECT_STREQ(Text(vconf_get_str("db/s")).get(), "x y");
}

TEST_F(StoreTest, AFailedWriteStoresNothing) {
    scene.store("db/i", 1).fail("vconf_set_int", -3);
    EXPECT_EQ(vconf_set_int("db/i", 2), -3);
    int number = 0;
    EXPECT_EQ(vconf_get_int("db/i", &number), 0);
    EXPECT_EQ(number, 1);
}

TEST_F(StoreTest, NullTextsFailInsteadOfCrashing) {
    int value = 0;
    EXPECT_EQ(vconf_get_int(nullptr, &value), fake::kNotProgrammed);
    EXPECT_EQ(vconf_set_int(nullptr, 1), fake::kBadHandle);
    EXPECT_EQ(vconf_set_str("db/s", nullptr), fake::kBadHandle);
    EXPECT_THAT(fake::callsTo("vconf_set_str"), ElementsAre(R"(vconf_set_str("db/s", null))"));
}

TEST_F(StoreTest, ADefaultComesWithItsTypeAndTheStatusOne) {
    scene.storeDefault("db/a", "12", 1, 2);
    int type = 0;
    int status = 0;
    const Text text =
        take(&status, [&](char** out) { return get_vconf_key_default_value("db/a", &type, out); });
    EXPECT_EQ(status, 1);
    EXPECT_EQ(type, 2);
    EXPECT_STREQ(text.get(), "12");
    EXPECT_THAT(fake::calls(), ElementsAre(R"(get_vconf_key_default_value("db/a", 0))"));
}

TEST_F(StoreTest, AFailedDefaultStillHandsItsTextOut) {
    scene.storeDefault("db/a", "12", 0);
    int type = 1;
    int status = 0;
    const Text text =
        take(&status, [&](char** out) { return get_vconf_key_default_value("db/a", &type, out); });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(type, 1);
    EXPECT_STREQ(text.get(), "12");
}

TEST_F(StoreTest, ADefaultMaySucceedWithoutText) {
    scene.storeDefault("db/a", std::nullopt);
    int type = 1;
    char* text = nullptr;
    EXPECT_EQ(get_vconf_key_default_value("db/a", &type, &text), 1);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(get_vconf_key_default_value("db/b", &type, &text), fake::kNotProgrammed);
}

} // namespace
} // namespace klx
