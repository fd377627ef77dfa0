#include "DeviceInfoGeneral.h"
#include "LogMatchers.h"

#include <gmock/gmock.h>

namespace fake = klx::fake;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr auto unknownType = static_cast<valueType>(3);
constexpr auto negativeType = static_cast<valueType>(-1);

class VconfReadTest : public ::testing::Test {
protected:
    /** The one error that a read logs. */
    static auto error(const std::string& function, const std::string& message) {
        return ElementsAre(fake::LineIn("DeviceInfoGeneral.cpp", 6, function, message));
    }

    std::string read(valueType type) { return general.getVconfValueWrapper("db/menu/key", type); }
    std::string readDefault(valueType type = integerValue) {
        return general.getVconfDefaultValue("db/menu/key", type);
    }

    fake::Scene scene;
    DeviceInfoGeneral general;
};

TEST_F(VconfReadTest, IntegerIsReadAsDecimal) {
    scene.store("db/menu/key", -17);
    EXPECT_EQ(read(integerValue), "-17");
    EXPECT_THAT(fake::history(), ElementsAre("vconf_get_int(\"db/menu/key\")"));
}

TEST_F(VconfReadTest, IntegerThatCannotBeReadIsZero) {
    EXPECT_EQ(read(integerValue), "0");
    EXPECT_THAT(fake::calls(), ElementsAre("vconf_get_int(\"db/menu/key\")"));
    EXPECT_THAT(fake::logs(),
                error("getVconfValueWrapper", "Operation failed. Key db/menu/key valType 0"));
}

TEST_F(VconfReadTest, IntegerThatCameWithAFailureIsGivenAllTheSame) {
    scene.store("db/menu/key", 5).answer("vconf_get_int", -3);
    EXPECT_EQ(read(integerValue), "5");
    EXPECT_THAT(fake::logs(),
                error("getVconfValueWrapper", "Operation failed. Key db/menu/key valType 0"));
}

TEST_F(VconfReadTest, BooleanIsReadAsOneOrZero) {
    scene.store("db/menu/key", true);
    EXPECT_EQ(read(booleanValue), "1");
    scene.store("db/menu/key", false);
    EXPECT_EQ(read(booleanValue), "0");
    EXPECT_THAT(fake::history(),
                ElementsAre("vconf_get_bool(\"db/menu/key\")", "vconf_get_bool(\"db/menu/key\")"));
}

TEST_F(VconfReadTest, BooleanThatCannotBeReadIsZero) {
    scene.store("db/menu/key", 1);
    EXPECT_EQ(read(booleanValue), "0");
    EXPECT_THAT(fake::logs(),
                error("getVconfValueWrapper", "Operation failed. Key db/menu/key valType 1"));
}

TEST_F(VconfReadTest, TextIsReadAsItIs) {
    scene.store("db/menu/key", std::string("en_US\n%s"));
    EXPECT_EQ(read(stringValue), "en_US\n%s");
    EXPECT_THAT(fake::history(), ElementsAre("vconf_get_str(\"db/menu/key\")"));
}

TEST_F(VconfReadTest, TextMayBeEmpty) {
    scene.store("db/menu/key", std::string());
    EXPECT_EQ(read(stringValue), "");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(VconfReadTest, TextThatCannotBeReadIsEmpty) {
    EXPECT_EQ(read(stringValue), "");
    EXPECT_THAT(fake::logs(),
                error("getVconfValueWrapper", "Operation failed. Key db/menu/key valType 2"));
}

TEST_F(VconfReadTest, UnknownTypeIsRefused) {
    for (const valueType type : {unknownType, negativeType}) {
        fake::clearHistory();
        EXPECT_EQ(read(type), "");
        EXPECT_THAT(fake::calls(), IsEmpty());
        EXPECT_THAT(fake::logs(), error("getVconfValueWrapper", "Unrecognized type."));
    }
}

TEST_F(VconfReadTest, DefaultIsAskedForWithKeyAndType) {
    scene.storeDefault("db/menu/key", "42");
    EXPECT_EQ(readDefault(integerValue), "42");
    EXPECT_EQ(readDefault(booleanValue), "42");
    EXPECT_EQ(readDefault(stringValue), "42");
    EXPECT_EQ(readDefault(unknownType), "42");
    EXPECT_THAT(fake::history(), ElementsAre("get_vconf_key_default_value(\"db/menu/key\", 0)",
                                             "get_vconf_key_default_value(\"db/menu/key\", 1)",
                                             "get_vconf_key_default_value(\"db/menu/key\", 2)",
                                             "get_vconf_key_default_value(\"db/menu/key\", 3)"));
}

TEST_F(VconfReadTest, DefaultMayComeWithAnotherType) {
    scene.storeDefault("db/menu/key", "42", 1, 2);
    EXPECT_EQ(readDefault(integerValue), "42");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(VconfReadTest, DefaultWithoutATextIsEmpty) {
    scene.storeDefault("db/menu/key", std::nullopt);
    EXPECT_EQ(readDefault(), "");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(VconfReadTest, DefaultIsThereForAStatusOfOneOnly) {
    for (const int status : {0, 2, -1}) {
        fake::clearHistory();
        scene.storeDefault("db/menu/key", "to be freed", status);
        EXPECT_EQ(readDefault(), "");
        EXPECT_THAT(fake::logs(),
                    error("getVconfDefaultValue",
                          "Failed to get value for db/menu/key [" + std::to_string(status) + "]"));
    }
}

TEST_F(VconfReadTest, DefaultOfAnUnknownKeyIsEmpty) {
    EXPECT_EQ(readDefault(), "");
    EXPECT_THAT(fake::logs(),
                error("getVconfDefaultValue", "Failed to get value for db/menu/key [" +
                                                  std::to_string(fake::kNotProgrammed) + "]"));
}

} // namespace
