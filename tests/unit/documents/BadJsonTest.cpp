#include "DocumentsTest.h"

#include <json/json.h>

namespace fake = klx::fake;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

class BadJsonTest : public DocumentsTest {
protected:
    BadJsonTest() {
        records.add("/Picture/Picture Mode").add("/Picture/Backlight").add("/Sound/Mute");
    }
};

class UnparsableJsonTest : public BadJsonTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(UnparsableJsonTest, IsRefusedBeforeAnythingIsApplied) {
    EXPECT_FALSE(restore(GetParam(), json));
    EXPECT_THAT(linesOf("createJsonNode"),
                ElementsAre(StartsWith("5 could not read json data = [* Line ")));
    EXPECT_THAT(linesOf("SetDeviceInfo"),
                ElementsAre("4 SetDeviceInfo start", "4 could not create jsonNode"));
    EXPECT_THAT(records.applied(), IsEmpty());
}

const std::string muted = R"({"Sound": {"Mute": {"Value": "1"}})";

INSTANTIATE_TEST_SUITE_P(NotWellFormed, UnparsableJsonTest,
                         ::testing::Values(" ", "\n", "text", "{", "}", "[", "<rm_as/>", muted,
                                           muted + ", 1}", muted + " \"a\": 1}", muted + ", a: 1}",
                                           muted + ", 'a': 1}", muted + R"(, "a": NaN})",
                                           muted + R"(, "a": "\ud83d"})", muted + R"(, "a": "\x"})",
                                           muted + "/* }", std::string(100, '\0')));

class ScalarRootTest : public BadJsonTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(ScalarRootTest, IsLoggedAndAppliesNothing) {
    EXPECT_TRUE(restore(GetParam(), json));
    EXPECT_THAT(linesOf("parseJsonData"), ElementsAre("4 start", StartsWith("5 exception: [")));
    EXPECT_THAT(fake::calls(), IsEmpty());
    EXPECT_THAT(records.applied(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Roots, ScalarRootTest,
                         ::testing::Values("1", "-1.5", "true", "\"Sound\"", "[]",
                                           R"([{"Sound": {"Mute": {"Value": "1"}}}])"));

TEST_F(BadJsonTest, NullRootAppliesNothing) {
    EXPECT_TRUE(restore("null", json));
    EXPECT_THAT(records.applied(), IsEmpty());
}

struct OddValue {
    std::string written;
    std::string applied;
};

class ScalarValueTest : public BadJsonTest, public ::testing::WithParamInterface<OddValue> {};

TEST_P(ScalarValueTest, IsAppliedAsItsText) {
    EXPECT_TRUE(restore(R"({"Sound": {"Mute": {"Value": )" + GetParam().written + "}}}", json));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = " + GetParam().applied));
}

INSTANTIATE_TEST_SUITE_P(Values, ScalarValueTest,
                         ::testing::Values(OddValue{"5", "5"}, OddValue{"-5", "-5"},
                                           OddValue{"18446744073709551615", "18446744073709551615"},
                                           OddValue{"1.5", "1.5"}, OddValue{"true", "true"},
                                           OddValue{"false", "false"}, OddValue{"null", ""}));

class WrongKindTest : public BadJsonTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(WrongKindTest, ValueIsLoggedAndTheNextMemberIsTaken) {
    EXPECT_TRUE(restore(
        R"({"Sound": {"A": {"Value": )" + GetParam() + R"(}, "Mute": {"Value": "1"}}})", json));
    EXPECT_THAT(linesOf("restore"),
                ElementsAre("5 exception: [Type is not convertible to string]"));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

INSTANTIATE_TEST_SUITE_P(Values, WrongKindTest,
                         ::testing::Values("{}", "[]", "[1]", R"({"Value": "1"})"));

class OddMemberTest : public BadJsonTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(OddMemberTest, PropertyIsLoggedAndTheNextMemberIsTaken) {
    EXPECT_TRUE(
        restore(R"({"Sound": {"A": )" + GetParam() + R"(, "Mute": {"Value": "1"}}})", json));
    EXPECT_THAT(linesOf("restore"), ElementsAre(StartsWith("5 exception: [")));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_P(OddMemberTest, SpecialPropertyIsLoggedInBothPassesAndTheNextOneIsTaken) {
    EXPECT_TRUE(restore(R"({"Factory": {"ND_ADJ": )" + GetParam() +
                            R"(}, "Picture": {"Picture Mode": {"Value": "1"}}})",
                        json));
    EXPECT_THAT(linesOf("restore"),
                ElementsAre(StartsWith("5 exception: ["), StartsWith("5 exception: [")));
    EXPECT_THAT(records.applied(),
                ElementsAre("/Picture/Picture Mode = 1", "/Picture/Picture Mode = 1"));
}

TEST_P(OddMemberTest, MenuIsSkipped) {
    EXPECT_TRUE(
        restore(R"({"A": )" + GetParam() + R"(, "Sound": {"Mute": {"Value": "1"}}})", json));
    EXPECT_THAT(linesOf("parseJsonData"), ElementsAre("4 start", "4 menu=[A]", "4 menu=[Sound]"));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_P(OddMemberTest, MenuOfASpecialPropertyCostsNothingElse) {
    EXPECT_TRUE(restore(R"({"Factory": )" + GetParam() +
                            R"(, "Picture": {"Picture Mode": {"Value": "1"}}})",
                        json));
    EXPECT_THAT(records.applied(),
                ElementsAre("/Picture/Picture Mode = 1", "/Picture/Picture Mode = 1"));
}

INSTANTIATE_TEST_SUITE_P(Members, OddMemberTest,
                         ::testing::Values("null", "1", "1.5", "true", "\"Value\"", "[]",
                                           R"([{"Value": "1"}])"));

TEST_F(BadJsonTest, MissingValueIsLoggedAndSkipped) {
    EXPECT_TRUE(restore(R"({"Sound": {"A": {"Default": "1", "value": "1"},
                                      "Mute": {"Value": "1"}}})",
                        json));
    EXPECT_THAT(linesOf("restore"),
                ElementsAre("4 Path does not contain attribute value: /Sound/A"));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_F(BadJsonTest, MissingValueOfASpecialPropertyIsLoggedInBothPasses) {
    EXPECT_TRUE(restore(R"({"Picture": {"Picture Mode": {}}})", json));
    EXPECT_THAT(
        linesOf("restore"),
        Contains("4 Path does not contain attribute value: /Picture/Picture Mode").Times(2));
    EXPECT_THAT(linesOf("propertySet"), IsEmpty());
}

TEST_F(BadJsonTest, LastOfDuplicateMembersCounts) {
    EXPECT_TRUE(restore(R"({"Sound": {"Mute": {"Value": "1"}},
                            "Sound": {"Mute": {"Value": "2", "Value": "3"}}})",
                        json));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 3"));
}

TEST_F(BadJsonTest, CommentsAreRead) {
    EXPECT_TRUE(restore("// head\n{ /* menu */ \"Sound\": {\"Mute\": // property\n"
                        "{\"Value\": /* text */ \"1\"}}} // end",
                        json));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_F(BadJsonTest, WhatFollowsTheRootIsIgnored) {
    EXPECT_TRUE(restore(muted + "} {\"Sound\": 1} nonsense", json));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_F(BadJsonTest, BytesThatAreNotUtf8AreAppliedAsTheyStand) {
    EXPECT_TRUE(restore("{\"Sound\": {\"Mute\": {\"Value\": \"\xFF\xC3(\x80\"}}}", json));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = \xFF\xC3(\x80"));
}

TEST_F(BadJsonTest, NamesThatAreNotUtf8AreUnknown) {
    EXPECT_TRUE(restore("{\"\xFF\": {\"\xC3\": {\"Value\": \"1\"}}}", json));
    EXPECT_THAT(linesOf("propertySet"), Contains("4 menuID [/\xFF/\xC3] not found"));
}

TEST_F(BadJsonTest, ZeroInAValueIsPartOfIt) {
    EXPECT_TRUE(restore("{\"Sound\": {\"Mute\": {\"Value\": \"1\\u00002\"}}}", json));
    EXPECT_EQ(records.valueOf("/Sound/Mute"), std::string("1\0002", 3));
}

TEST_F(BadJsonTest, UnknownPathsAreLoggedAndTheRestIsApplied) {
    EXPECT_TRUE(restore(R"({"Nowhere": {"Nothing": {"Value": "1"}},
                            "Sound": {"": {"Value": "1"}, "Mute": {"Value": "1"}}})",
                        json));
    EXPECT_THAT(linesOf("propertySet"), AllOf(Contains("4 menuID [/Nowhere/Nothing] not found"),
                                              Contains("4 menuID [/Sound/] not found")));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

} // namespace
