#include "FakeTest.h"
#include "runtime_info.h"
#include "system_info.h"
#include "system_settings.h"

namespace klx {
namespace {

using ::testing::ElementsAre;

class SystemTest : public FakeTest {
protected:
    static constexpr auto kFact = static_cast<system_info_key_e>(126);
    static constexpr auto kSetting = static_cast<system_settings_key_e>(10008);
    static constexpr auto kState = static_cast<runtime_info_key_e>(10010);
};

TEST_F(SystemTest, UnprogrammedReadsFailAndLeaveTheOutputAlone) {
    int number = 7;
    bool flag = true;
    double fraction = 0.5;
    EXPECT_EQ(system_info_get_value_int(kFact, &number), fake::kNotProgrammed);
    EXPECT_EQ(system_info_get_custom_int("f", &number), fake::kNotProgrammed);
    EXPECT_EQ(system_info_get_custom_bool("f", &flag), fake::kNotProgrammed);
    EXPECT_EQ(system_settings_get_value_int(kSetting, &number), fake::kNotProgrammed);
    EXPECT_EQ(runtime_info_get_value_int(kState, &number), fake::kNotProgrammed);
    EXPECT_EQ(runtime_info_get_value_bool(kState, &flag), fake::kNotProgrammed);
    EXPECT_EQ(runtime_info_get_value_double(kState, &fraction), fake::kNotProgrammed);
    EXPECT_EQ(number, 7);
    EXPECT_TRUE(flag);
    EXPECT_EQ(fraction, 0.5);
}

TEST_F(SystemTest, UnprogrammedTextsFailWithoutText) {
    char* text = nullptr;
    EXPECT_EQ(system_info_get_value_string(kFact, &text), fake::kNotProgrammed);
    EXPECT_EQ(system_info_get_custom_string("f", &text), fake::kNotProgrammed);
    EXPECT_EQ(system_settings_get_value_string(kSetting, &text), fake::kNotProgrammed);
    EXPECT_EQ(runtime_info_get_value_string(kState, &text), fake::kNotProgrammed);
    EXPECT_EQ(text, nullptr);
}

TEST_F(SystemTest, AFactIsReadByNumber) {
    scene.systemInfo(126, 3);
    int number = 0;
    char* text = nullptr;
    EXPECT_EQ(system_info_get_value_int(kFact, &number), 0);
    EXPECT_EQ(number, 3);
    EXPECT_EQ(system_info_get_value_string(kFact, &text), fake::kWrongType);
    EXPECT_EQ(text, nullptr);
    EXPECT_THAT(fake::calls(),
                ElementsAre("system_info_get_value_int(126)", "system_info_get_value_string(126)"));
}

TEST_F(SystemTest, ASuccessMayComeWithANullText) {
    scene.systemInfo(126, nullptr);
    char leftOver = 'x';
    char* text = &leftOver;
    EXPECT_EQ(system_info_get_value_string(kFact, &text), 0);
    EXPECT_EQ(text, nullptr);
}

TEST_F(SystemTest, AFeatureIsReadByName) {
    scene.feature("a", 2021).feature("b", true).feature("c", "text");
    int number = 0;
    bool flag = false;
    int status = -1;
    EXPECT_EQ(system_info_get_custom_int("a", &number), 0);
    EXPECT_EQ(number, 2021);
    EXPECT_EQ(system_info_get_custom_bool("b", &flag), 0);
    EXPECT_TRUE(flag);
    const Text text =
        take(&status, [](char** out) { return system_info_get_custom_string("c", out); });
    EXPECT_EQ(status, 0);
    EXPECT_STREQ(text.get(), "text");
}

TEST_F(SystemTest, ASettingThatWasWrittenIsReadBack) {
    EXPECT_EQ(system_settings_set_value_int(kSetting, 1), 0);
    int number = 0;
    EXPECT_EQ(system_settings_get_value_int(kSetting, &number), 0);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(system_settings_set_value_string(kSetting, "de"), 0);
    int status = -1;
    const Text text =
        take(&status, [](char** out) { return system_settings_get_value_string(kSetting, out); });
    EXPECT_STREQ(text.get(), "de");
    EXPECT_EQ(system_settings_set_value_bool(kSetting, true), 0);
    EXPECT_THAT(fake::callsTo("system_settings_set_value_bool"),
                ElementsAre("system_settings_set_value_bool(10008, true)"));
    EXPECT_THAT(fake::callsTo("system_settings_set_value_string"),
                ElementsAre(R"(system_settings_set_value_string(10008, "de"))"));
}

TEST_F(SystemTest, ARuntimeStateIsReadAsTheTypeItHas) {
    double fraction = 0;
    bool flag = false;
    int status = -1;
    scene.runtimeInfo(10010, 59.94);
    EXPECT_EQ(runtime_info_get_value_double(kState, &fraction), 0);
    EXPECT_EQ(fraction, 59.94);
    EXPECT_EQ(runtime_info_get_value_bool(kState, &flag), fake::kWrongType);
    scene.runtimeInfo(10010, true);
    EXPECT_EQ(runtime_info_get_value_bool(kState, &flag), 0);
    EXPECT_TRUE(flag);
    scene.runtimeInfo(10010, "text");
    const Text text =
        take(&status, [](char** out) { return runtime_info_get_value_string(kState, out); });
    EXPECT_STREQ(text.get(), "text");
}

} // namespace
} // namespace klx
