#include "LogMatchers.h"
#include "factoryInfo.h"

#include <gmock/gmock.h>

namespace fake = klx::fake;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr int someFact = 128;

class SystemInfoTest : public ::testing::Test {
protected:
    static fake::LineMatcher line(int priority, const std::string& message) {
        return fake::LineIn("factoryInfo.cpp", priority, "getSystemInfoValue", message);
    }
    static fake::LineMatcher entry() { return line(4, "System info key value is [128]"); }

    std::string read(const std::string& typeName) {
        return factory.getSystemInfoValue(typeName, static_cast<system_info_key_e>(someFact));
    }

    /** Reads what cannot be read. */
    void expectFailure(const std::string& typeName, int status) {
        fake::clearHistory();
        EXPECT_EQ(read(typeName), "");
        EXPECT_THAT(fake::logs(),
                    ElementsAre(entry(), line(6, "Failed getting " + typeName +
                                                     ", status: " + std::to_string(status))));
    }

    fake::Scene scene;
    factoryInfo factory;
};

TEST_F(SystemInfoTest, TextIsReadAsItIs) {
    scene.systemInfo(someFact, std::string("T-KTM2DEUC 1.0 %s"));
    EXPECT_EQ(read("string"), "T-KTM2DEUC 1.0 %s");
    EXPECT_THAT(fake::calls(), ElementsAre("system_info_get_value_string(128)"));
    EXPECT_THAT(fake::logs(), ElementsAre(entry()));
}

TEST_F(SystemInfoTest, NullTextIsEmpty) {
    scene.systemInfo(someFact, nullptr);
    EXPECT_EQ(read("string"), "");
    EXPECT_THAT(fake::logs(), ElementsAre(entry()));
}

TEST_F(SystemInfoTest, IntegerIsReadAsDecimal) {
    scene.systemInfo(someFact, -3);
    EXPECT_EQ(read("int"), "-3");
    EXPECT_THAT(fake::calls(), ElementsAre("system_info_get_value_int(128)"));
    EXPECT_THAT(fake::logs(), ElementsAre(entry()));
}

TEST_F(SystemInfoTest, WhatCannotBeReadIsEmpty) {
    expectFailure("string", fake::kNotProgrammed);
    expectFailure("int", fake::kNotProgrammed);
}

TEST_F(SystemInfoTest, ValueThatCameWithAFailureIsNotGiven) {
    scene.systemInfo(someFact, std::string("to be freed"))
        .answer("system_info_get_value_string", 9);
    expectFailure("string", 9);
    scene.systemInfo(someFact, 5).answer("system_info_get_value_int", -9);
    expectFailure("int", -9);
}

TEST_F(SystemInfoTest, OtherTypesAreRefusedWithoutACall) {
    scene.systemInfo(someFact, true);
    for (const char* type : {"bool", "double", "String", "INT", "", "50%s"}) {
        expectFailure(type, -1);
        EXPECT_THAT(fake::calls(), IsEmpty());
    }
}

} // namespace
