#include "DeviceInfoGeneral.h"
#include "LogMatchers.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace fake = klx::fake;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class VconfWriteTest : public ::testing::Test {
protected:
    static auto error(const std::string& message) {
        return ElementsAre(
            fake::LineIn("DeviceInfoGeneral.cpp", 6, "setVconfValueWrapper", message));
    }

    void write(valueType type, const std::string& value) {
        general.setVconfValueWrapper("db/menu/key", type, value);
    }

    /** Writes a text that is refused before the store is asked. */
    void expectNothingWritten(valueType type, const std::string& value) {
        fake::clearHistory();
        write(type, value);
        EXPECT_THAT(fake::calls(), IsEmpty());
        EXPECT_THAT(fake::logs(), error("Operation failed."));
    }

    fake::Scene scene;
    DeviceInfoGeneral general;
};

struct Number {
    const char* text;
    const char* number;
};

std::ostream& operator<<(std::ostream& out, const Number& number) {
    return out << ::testing::PrintToString(std::string(number.text));
}

class VconfNumberTest : public VconfWriteTest, public ::testing::WithParamInterface<Number> {};

TEST_P(VconfNumberTest, IsWrittenAsAnInteger) {
    write(integerValue, GetParam().text);
    EXPECT_THAT(fake::history(), ElementsAre("vconf_set_int(\"db/menu/key\", " +
                                             std::string(GetParam().number) + ")"));
}

TEST_P(VconfNumberTest, IsWrittenAsABooleanUnchanged) {
    write(booleanValue, GetParam().text);
    EXPECT_THAT(fake::history(), ElementsAre("vconf_set_bool(\"db/menu/key\", " +
                                             std::string(GetParam().number) + ")"));
}

INSTANTIATE_TEST_SUITE_P(Texts, VconfNumberTest,
                         ::testing::Values(Number{"0", "0"}, Number{"1", "1"}, Number{"5", "5"},
                                           Number{"-5", "-5"}, Number{"+7", "7"},
                                           Number{" \t\n12", "12"}, Number{"12abc", "12"},
                                           Number{"3.9", "3"}, Number{"007", "7"},
                                           Number{"0x10", "0"}, Number{"2147483647", "2147483647"},
                                           Number{"-2147483648", "-2147483648"}));

class VconfNoNumberTest : public VconfWriteTest,
                          public ::testing::WithParamInterface<const char*> {};

TEST_P(VconfNoNumberTest, WritesNothing) {
    expectNothingWritten(integerValue, GetParam());
    expectNothingWritten(booleanValue, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Texts, VconfNoNumberTest,
                         ::testing::Values("", "true", "abc1", "-", "2147483648", "-2147483649",
                                           "99999999999999999999"));

TEST_F(VconfWriteTest, TextIsWrittenAsItIs) {
    write(stringValue, "true 5%s");
    write(stringValue, "");
    EXPECT_THAT(fake::history(), ElementsAre("vconf_set_str(\"db/menu/key\", \"true 5%s\")",
                                             "vconf_set_str(\"db/menu/key\", \"\")"));
}

TEST_F(VconfWriteTest, RefusedIntegerIsLoggedWithItsText) {
    scene.fail("vconf_set_int", -3);
    write(integerValue, "12abc");
    EXPECT_THAT(fake::logs(), error("Operation failed. Key db/menu/key valType 0 nVal 12abc"));
}

TEST_F(VconfWriteTest, RefusedBooleanIsLoggedWithItsText) {
    scene.fail("vconf_set_bool", 1);
    write(booleanValue, "1");
    EXPECT_THAT(fake::logs(), error("Operation failed. Key db/menu/key valType 1 nVal 1"));
}

TEST_F(VconfWriteTest, RefusedTextIsLogged) {
    scene.fail("vconf_set_str", -1);
    write(stringValue, "50%s");
    EXPECT_THAT(fake::logs(), error("Operation failed. Key db/menu/key valType 2 nVal 50%s"));
}

TEST_F(VconfWriteTest, UnknownTypeIsRefused) {
    for (const int type : {3, -1}) {
        fake::clearHistory();
        write(static_cast<valueType>(type), "no number");
        EXPECT_THAT(fake::calls(), IsEmpty());
        EXPECT_THAT(fake::logs(), error("Unrecognized type."));
    }
}

TEST_F(VconfWriteTest, ExceptionOfAnyKindGoesNoFurther) {
    scene.throwFrom("vconf_set_str", std::runtime_error("store"));
    write(stringValue, "text");
    EXPECT_THAT(fake::logs(), error("Operation failed."));
    fake::clearHistory();
    scene.throwFrom("vconf_set_int", 5);
    write(integerValue, "1");
    EXPECT_THAT(fake::logs(), error("Operation failed."));
}

} // namespace
