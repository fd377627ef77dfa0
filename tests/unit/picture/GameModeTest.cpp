#include "DeviceProperty.h"
#include "FakePlatform.h"

#include <boost/optional.hpp>
#include <gmock/gmock.h>

namespace fake = klx::fake;

namespace {

/** The two paths of the game mode. */
class GameModeTest : public ::testing::Test {
protected:
    GameModeTest() { CDeviceProperty::GetInstance()->createPropertyAccessor(records); }

    std::string get(const std::string& path) {
        return std::get<valueGetterElement>(records.at(path))("");
    }

    void set(const std::string& path, const std::string& value) {
        std::get<setterElement>(records.at(path))(value);
    }

    const std::string one = "/Connection/Game Mode";
    const std::string other = "/Connection/Game Mode Setting/Game Mode";
    fake::Scene scene;
    PropertyAccessorMap records;
};

TEST_F(GameModeTest, WhatOnePathWritesTheOtherReads) {
    set(one, "2");
    EXPECT_EQ(get(other), "2");
    set(other, "3");
    EXPECT_EQ(get(one), "3");
}

TEST_F(GameModeTest, BothPathsFailAlike) {
    scene.pelm("game_mode", 1).fail("pelm_get_game_mode", 17);
    EXPECT_EQ(get(one), "");
    EXPECT_EQ(get(other), "");
    EXPECT_THAT(fake::messages(6), ::testing::ElementsAre("Operation failed, error: 17",
                                                          "Operation failed, error: 17"));
}

} // namespace
