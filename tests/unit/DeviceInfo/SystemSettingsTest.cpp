#include "DeviceInfoGeneral.h"
#include "LogMatchers.h"

#include <gmock/gmock.h>

namespace fake = klx::fake;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr auto someSetting = static_cast<system_settings_key_e>(10007);
constexpr int useMode = 10008;

class SystemSettingsTest : public ::testing::Test {
protected:
    static auto line(int priority, const std::string& function, const std::string& message) {
        return ElementsAre(fake::LineIn("DeviceInfoGeneral.cpp", priority, function, message));
    }

    /** Writes a value for which the platform is not asked. */
    void expectNothingWritten(int type, const std::string& value, const std::string& message) {
        fake::clearHistory();
        general.setSystemSettingsValue(static_cast<valueType>(type), value, someSetting);
        EXPECT_THAT(fake::calls(), IsEmpty());
        EXPECT_THAT(fake::logs(), line(6, "setSystemSettingsValue", message));
    }

    fake::Scene scene;
    DeviceInfoGeneral general;
};

TEST_F(SystemSettingsTest, IntegerIsParsedAndWritten) {
    general.setSystemSettingsValue(integerValue, " -12abc", someSetting);
    EXPECT_THAT(fake::history(), ElementsAre("system_settings_set_value_int(10007, -12)"));
}

TEST_F(SystemSettingsTest, BooleanIsWhetherTheNumberIsNotZero) {
    for (const char* text : {"0", "1", "-5", "2x"}) {
        general.setSystemSettingsValue(booleanValue, text, someSetting);
    }
    EXPECT_THAT(fake::history(), ElementsAre("system_settings_set_value_bool(10007, false)",
                                             "system_settings_set_value_bool(10007, true)",
                                             "system_settings_set_value_bool(10007, true)",
                                             "system_settings_set_value_bool(10007, true)"));
}

TEST_F(SystemSettingsTest, TextThatIsNoIntegerIsRefused) {
    expectNothingWritten(0, "abc", "failed convert string: \"abc\" to int");
    expectNothingWritten(0, "", "failed convert string: \"\" to int");
    expectNothingWritten(0, "2147483648", "failed convert string: \"2147483648\" to int");
}

TEST_F(SystemSettingsTest, TextThatIsNoBooleanIsRefused) {
    expectNothingWritten(1, "true", "failed convert string: \"true\" to bool");
    expectNothingWritten(1, "", "failed convert string: \"\" to bool");
}

TEST_F(SystemSettingsTest, AnyOtherTypeIsRefused) {
    expectNothingWritten(2, "5", "Failed. type 2, status: 0");
    expectNothingWritten(2, "text", "Failed. type 2, status: 0");
    expectNothingWritten(-1, "5", "Failed. type -1, status: 0");
    expectNothingWritten(7, "5", "Failed. type 7, status: 0");
}

TEST_F(SystemSettingsTest, RefusedIntegerIsLoggedWithItsText) {
    scene.fail("system_settings_set_value_int", -3);
    general.setSystemSettingsValue(integerValue, "5x", someSetting);
    EXPECT_THAT(fake::logs(),
                line(6, "setSystemSettingsValue", "Failed. type 0, val: 5x, status: -3"));
}

TEST_F(SystemSettingsTest, RefusedBooleanIsLoggedWithItsText) {
    scene.fail("system_settings_set_value_bool", 4);
    general.setSystemSettingsValue(booleanValue, "1", someSetting);
    EXPECT_THAT(fake::logs(),
                line(6, "setSystemSettingsValue", "Failed. type 1, val: 1, status: 4"));
}

class SystemUseModeTest : public SystemSettingsTest {
protected:
    /** Sets the mode. @return what was written, if anything */
    std::vector<std::string> written(const std::string& value) {
        fake::clearHistory();
        general.setSystemUseMode(value);
        EXPECT_THAT(fake::callsTo("system_settings_get_value_int"),
                    ElementsAre("system_settings_get_value_int(10008)"));
        return fake::callsTo("system_settings_set_value_int");
    }
};

TEST_F(SystemUseModeTest, AnotherModeIsWritten) {
    scene.systemSetting(useMode, 0);
    general.setSystemUseMode("1");
    EXPECT_THAT(fake::history(), ElementsAre("system_settings_get_value_int(10008)",
                                             "system_settings_set_value_int(10008, 1)"));
}

TEST_F(SystemUseModeTest, PresentRetailModeIsOnlyReported) {
    scene.systemSetting(useMode, 0);
    EXPECT_THAT(written("0"), IsEmpty());
    EXPECT_THAT(fake::logs(), line(4, "setSystemUseMode", "Already set value Retail Mode"));
}

TEST_F(SystemUseModeTest, PresentUsageModeIsOnlyReported) {
    scene.systemSetting(useMode, 1);
    EXPECT_THAT(written("1"), IsEmpty());
    EXPECT_THAT(fake::logs(), line(4, "setSystemUseMode", "Already set value Usage Mode"));
    scene.systemSetting(useMode, -7);
    EXPECT_THAT(written("-7"), IsEmpty());
    EXPECT_THAT(fake::logs(), line(4, "setSystemUseMode", "Already set value Usage Mode"));
}

TEST_F(SystemUseModeTest, ModesAreComparedAsNumbers) {
    scene.systemSetting(useMode, 1);
    EXPECT_THAT(written("2"), ElementsAre("system_settings_set_value_int(10008, 2)"));
}

TEST_F(SystemUseModeTest, TextIsParsedAsFarAsItIsANumber) {
    scene.systemSetting(useMode, 1);
    EXPECT_THAT(written(" 5x"), ElementsAre("system_settings_set_value_int(10008, 5)"));
}

TEST_F(SystemUseModeTest, TextWithoutANumberIsZero) {
    for (const char* text : {"abc", "", "0x1"}) {
        scene.systemSetting(useMode, 1);
        EXPECT_THAT(written(text), ElementsAre("system_settings_set_value_int(10008, 0)"));
        EXPECT_THAT(fake::logs(), IsEmpty());
    }
}

TEST_F(SystemUseModeTest, NumberBeyondAnIntegerIsTheNearestOne) {
    scene.systemSetting(useMode, 1);
    EXPECT_THAT(written("99999999999"),
                ElementsAre("system_settings_set_value_int(10008, 2147483647)"));
    EXPECT_THAT(written("-99999999999999999999"),
                ElementsAre("system_settings_set_value_int(10008, -2147483648)"));
}

TEST_F(SystemUseModeTest, PresentModeThatCannotBeReadIsRetailMode) {
    EXPECT_THAT(written("0"), IsEmpty());
    EXPECT_THAT(fake::logs(), line(4, "setSystemUseMode", "Already set value Retail Mode"));
    EXPECT_THAT(written("1"), ElementsAre("system_settings_set_value_int(10008, 1)"));
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(SystemUseModeTest, RefusedModeIsLogged) {
    scene.systemSetting(useMode, 0).fail("system_settings_set_value_int", -1);
    general.setSystemUseMode("1");
    EXPECT_THAT(fake::logs(),
                line(6, "setSystemUseMode", "Failed to set the value of SystemUseMode"));
}

} // namespace
