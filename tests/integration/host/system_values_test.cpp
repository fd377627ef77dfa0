#include "HostTest.h"

#include "runtime_info.h"
#include "system_info.h"
#include "system_settings.h"

#include <cstdlib>
#include <string>

namespace KLX::Host {
namespace {

constexpr auto productType = "com.velmora/featureconf/product.product_type";

system_info_key_e fact(int number) {
    return static_cast<system_info_key_e>(number);
}
system_settings_key_e setting(int number) {
    return static_cast<system_settings_key_e>(number);
}
runtime_info_key_e state(int number) {
    return static_cast<runtime_info_key_e>(number);
}

std::string taken(char* text) {
    const std::string copy = text != nullptr ? text : "(null)";
    std::free(text);
    return copy;
}

/** Tests with a profile that has a value of every type. */
class SystemValues : public HostTest {
protected:
    SystemValues() {
        const std::string file = m_folder.path("every-type.json");
        writeFile(file, R"({
            "extends": "standard",
            "customFeatures": { "a/flag": true, "a/text": "feature" },
            "runtimeInformation": { "1": true, "2": 59.94, "3": "state" },
            "systemSettings": {
                "20": { "type": "bool", "default": false },
                "21": { "type": "string" },
                "22": { "type": "int" }
            }
        })");
        ::setenv("KLX_PROFILE", file.c_str(), 1);
    }
};

TEST_F(SystemValues, TellFactsByNumber) {
    int number = -1;
    EXPECT_EQ(system_info_get_value_int(fact(905), &number), success);
    EXPECT_EQ(number, 1342);
    char* text = nullptr;
    EXPECT_EQ(system_info_get_value_string(fact(292), &text), success);
    EXPECT_EQ(taken(text), "KLX55S900");
}

TEST_F(SystemValues, TellFeaturesByName) {
    int number = -1;
    EXPECT_EQ(system_info_get_custom_int(productType, &number), success);
    EXPECT_EQ(number, 0);
    bool flag = false;
    EXPECT_EQ(system_info_get_custom_bool("a/flag", &flag), success);
    EXPECT_TRUE(flag);
    char* text = nullptr;
    EXPECT_EQ(system_info_get_custom_string("a/text", &text), success);
    EXPECT_EQ(taken(text), "feature");
}

TEST_F(SystemValues, TellStatesOfEveryType) {
    int number = -1;
    EXPECT_EQ(runtime_info_get_value_int(state(10026), &number), success);
    EXPECT_EQ(number, 2);
    bool flag = false;
    EXPECT_EQ(runtime_info_get_value_bool(state(1), &flag), success);
    EXPECT_TRUE(flag);
    double fraction = 0;
    EXPECT_EQ(runtime_info_get_value_double(state(2), &fraction), success);
    EXPECT_DOUBLE_EQ(fraction, 59.94);
    char* text = nullptr;
    EXPECT_EQ(runtime_info_get_value_string(state(3), &text), success);
    EXPECT_EQ(taken(text), "state");
}

TEST_F(SystemValues, KeepSettingsOfEveryType) {
    EXPECT_EQ(system_settings_set_value_int(setting(22), -4), success);
    int number = 0;
    EXPECT_EQ(system_settings_get_value_int(setting(22), &number), success);
    EXPECT_EQ(number, -4);
    EXPECT_EQ(system_settings_set_value_bool(setting(20), true), success);
    EXPECT_EQ(system_settings_set_value_string(setting(13), "de_DE"), success);
    EXPECT_EQ(inOwnProcess([] {
                  char* text = nullptr;
                  EXPECT_EQ(system_settings_get_value_string(setting(13), &text), success);
                  EXPECT_EQ(taken(text), "de_DE");
                  return success;
              }),
              success);
}

TEST_F(SystemValues, HandOutNullForATextThatWasNeverGiven) {
    char* text = nullptr;
    EXPECT_EQ(system_settings_get_value_string(setting(21), &text), success);
    EXPECT_EQ(text, nullptr);
    int number = 0;
    EXPECT_EQ(system_settings_get_value_int(setting(22), &number), numberOf(HostError::NoValue));
}

TEST_F(SystemValues, AnswerAnErrorNumberForWhatTheyDoNotKnow) {
    int number = 99;
    char* text = nullptr;
    EXPECT_EQ(system_info_get_value_int(fact(1), &number), numberOf(HostError::UnknownKey));
    EXPECT_EQ(system_info_get_custom_int("a/b", &number), numberOf(HostError::UnknownKey));
    EXPECT_EQ(system_settings_get_value_int(setting(1), &number), numberOf(HostError::UnknownKey));
    EXPECT_EQ(system_settings_set_value_int(setting(1), 1), numberOf(HostError::UnknownKey));
    EXPECT_EQ(runtime_info_get_value_string(state(77), &text), numberOf(HostError::UnknownKey));
    EXPECT_EQ(number, 99);
    EXPECT_EQ(text, nullptr);
}

TEST_F(SystemValues, AnswerAnErrorNumberForAnotherType) {
    int number = 99;
    bool flag = false;
    char* text = nullptr;
    EXPECT_EQ(system_info_get_value_int(fact(292), &number), numberOf(HostError::WrongType));
    EXPECT_EQ(system_info_get_value_string(fact(905), &text), numberOf(HostError::WrongType));
    EXPECT_EQ(system_info_get_custom_bool(productType, &flag), numberOf(HostError::WrongType));
    EXPECT_EQ(system_settings_get_value_int(setting(13), &number), numberOf(HostError::WrongType));
    EXPECT_EQ(system_settings_get_value_string(setting(10006), &text),
              numberOf(HostError::WrongType));
    EXPECT_EQ(system_settings_set_value_bool(setting(10006), true), numberOf(HostError::WrongType));
    EXPECT_EQ(runtime_info_get_value_bool(state(10010), &flag), numberOf(HostError::WrongType));
    EXPECT_EQ(number, 99);
    EXPECT_EQ(text, nullptr);
}

TEST_F(SystemValues, RefuseNullPointers) {
    int number = 0;
    const int null = numberOf(HostError::NullPointer);
    EXPECT_EQ(system_info_get_value_int(fact(905), nullptr), null);
    EXPECT_EQ(system_info_get_value_string(fact(292), nullptr), null);
    EXPECT_EQ(system_info_get_custom_int(nullptr, &number), null);
    EXPECT_EQ(system_info_get_custom_int(productType, nullptr), null);
    EXPECT_EQ(system_info_get_custom_bool("a/flag", nullptr), null);
    EXPECT_EQ(system_info_get_custom_string("a/text", nullptr), null);
    EXPECT_EQ(system_settings_get_value_int(setting(22), nullptr), null);
    EXPECT_EQ(system_settings_get_value_string(setting(13), nullptr), null);
    EXPECT_EQ(system_settings_set_value_string(setting(13), nullptr), null);
    EXPECT_EQ(runtime_info_get_value_int(state(10026), nullptr), null);
    EXPECT_EQ(runtime_info_get_value_bool(state(1), nullptr), null);
    EXPECT_EQ(runtime_info_get_value_double(state(2), nullptr), null);
    EXPECT_EQ(runtime_info_get_value_string(state(3), nullptr), null);
}

} // namespace
} // namespace KLX::Host
