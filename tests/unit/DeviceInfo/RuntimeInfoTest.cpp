#include "DeviceInfoGeneral.h"
#include "LogMatchers.h"

#include <gmock/gmock.h>

#include <limits>

namespace fake = klx::fake;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr int someState = 10006;

class RuntimeInfoTest : public ::testing::Test {
protected:
    static fake::LineMatcher error(const std::string& message) {
        return fake::LineIn("DeviceInfoGeneral.cpp", 6, "getRuntimeInfoValue", message);
    }

    std::string read(const std::string& typeName) {
        return general.getRuntimeInfoValue(typeName, static_cast<runtime_info_key_e>(someState));
    }

    fake::Scene scene;
    DeviceInfoGeneral general;
};

TEST_F(RuntimeInfoTest, IntegerIsReadAsDecimal) {
    scene.runtimeInfo(someState, -12);
    EXPECT_EQ(read("int"), "-12");
    EXPECT_THAT(fake::history(), ElementsAre("runtime_info_get_value_int(10006)"));
}

TEST_F(RuntimeInfoTest, BooleanIsReadAsOneOrZero) {
    scene.runtimeInfo(someState, true);
    EXPECT_EQ(read("bool"), "1");
    scene.runtimeInfo(someState, false);
    EXPECT_EQ(read("bool"), "0");
    EXPECT_THAT(fake::history(), ElementsAre("runtime_info_get_value_bool(10006)",
                                             "runtime_info_get_value_bool(10006)"));
}

TEST_F(RuntimeInfoTest, TextIsReadAsItIs) {
    scene.runtimeInfo(someState, std::string("text %s"));
    EXPECT_EQ(read("string"), "text %s");
    EXPECT_THAT(fake::history(), ElementsAre("runtime_info_get_value_string(10006)"));
}

TEST_F(RuntimeInfoTest, NullTextIsEmpty) {
    scene.runtimeInfo(someState, nullptr);
    EXPECT_EQ(read("string"), "");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(RuntimeInfoTest, NumbersThatCannotBeReadAreZero) {
    const std::string status = std::to_string(fake::kNotProgrammed);
    EXPECT_EQ(read("int"), "0");
    EXPECT_EQ(read("bool"), "0");
    EXPECT_EQ(read("double"), "0");
    EXPECT_THAT(fake::logs(), ElementsAre(error("Failed getting int, status: " + status),
                                          error("Failed getting bool, status: " + status),
                                          error("Failed getting double, status: " + status)));
}

TEST_F(RuntimeInfoTest, TextThatCannotBeReadIsEmpty) {
    scene.fail("runtime_info_get_value_string", -5);
    EXPECT_EQ(read("string"), "");
    EXPECT_THAT(fake::logs(), ElementsAre(error("Failed getting string, status: -5")));
}

TEST_F(RuntimeInfoTest, ValueThatCameWithAFailureIsGivenAllTheSame) {
    scene.runtimeInfo(someState, 7).answer("runtime_info_get_value_int", -5);
    EXPECT_EQ(read("int"), "7");
    scene.runtimeInfo(someState, std::string("text")).answer("runtime_info_get_value_string", 2);
    EXPECT_EQ(read("string"), "text");
    EXPECT_THAT(fake::logs(), ElementsAre(error("Failed getting int, status: -5"),
                                          error("Failed getting string, status: 2")));
}

TEST_F(RuntimeInfoTest, UnknownTypeIsRefusedInTwoLines) {
    for (const std::string type : {"float", "INT", "Int", " int", "", "50%s"}) {
        fake::clearHistory();
        EXPECT_EQ(read(type), "");
        EXPECT_THAT(fake::calls(), IsEmpty());
        EXPECT_THAT(fake::logs(), ElementsAre(error("Wrong type parameter. type= " + type),
                                              error("Failed getting [" + type + "]")));
    }
}

struct Fraction {
    double number;
    const char* text;
};

std::ostream& operator<<(std::ostream& out, const Fraction& fraction) {
    return out << fraction.number;
}

class RuntimeDoubleTest : public RuntimeInfoTest, public ::testing::WithParamInterface<Fraction> {};

TEST_P(RuntimeDoubleTest, LosesItsFraction) {
    scene.runtimeInfo(someState, GetParam().number);
    EXPECT_EQ(read("double"), GetParam().text);
    EXPECT_THAT(fake::history(), ElementsAre("runtime_info_get_value_double(10006)"));
}

INSTANTIATE_TEST_SUITE_P(Numbers, RuntimeDoubleTest,
                         ::testing::Values(Fraction{59.94, "59"}, Fraction{2.9, "2"},
                                           Fraction{-2.9, "-2"}, Fraction{0.99, "0"},
                                           Fraction{-0.99, "0"}, Fraction{100.0, "100"}));

constexpr double infinity = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    BeyondIntegers, RuntimeDoubleTest,
    ::testing::Values(Fraction{2147483647.5, "2147483647"}, Fraction{-2147483648.5, "-2147483648"},
                      Fraction{1e300, "2147483647"}, Fraction{-1e300, "-2147483648"},
                      Fraction{infinity, "2147483647"}, Fraction{-infinity, "-2147483648"},
                      Fraction{std::numeric_limits<double>::quiet_NaN(), "0"}));

} // namespace
