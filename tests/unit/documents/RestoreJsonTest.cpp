#include "DocumentsTest.h"
#include "SpecialPaths.h"

#include "Exception.h"

namespace fake = klx::fake;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

class RestoreJsonTest : public DocumentsTest {
protected:
    RestoreJsonTest() {
        records.add(ndAdj).add(hdrPlusMode).add(pictureMode).add("/Picture/Backlight");
        records.add("/Sound/Mute");
    }
};

TEST_F(RestoreJsonTest, WhatOthersDependOnGoesFirstAndIsAppliedAgainInItsPlace) {
    EXPECT_TRUE(restore(R"({
        "Sound": {"Mute": {"Default": "0", "Value": "1"}},
        "Picture": {"Picture Mode": {"Value": "2"}, "Backlight": {"Value": "20"},
                    "Expert Settings/HDR+ Mode": {"Value": "4"}},
        "Factory": {"ND_ADJ": {"Value": "3"}}})",
                        json));
    EXPECT_THAT(records.applied(),
                ElementsAre("/Factory/ND_ADJ = 3", "/Picture/Expert Settings/HDR+ Mode = 4",
                            "/Picture/Picture Mode = 2",

                            "/Factory/ND_ADJ = 3", "/Picture/Backlight = 20",
                            "/Picture/Expert Settings/HDR+ Mode = 4", "/Picture/Picture Mode = 2",
                            "/Sound/Mute = 1"));
}

TEST_F(RestoreJsonTest, SpecialPropertiesThatTheirMenuLacksChangeNothing) {
    EXPECT_TRUE(restore(R"({"Factory": {}, "Picture": {"Backlight": {"Value": "20"}}})", json));
    EXPECT_THAT(records.applied(), ElementsAre("/Picture/Backlight = 20"));
    EXPECT_THAT(logText(),
                ElementsAre("4 SetDeviceInfo: SetDeviceInfo start", "4 parseJsonData: start",
                            "4 parseJsonData: menu=[Factory]", "4 parseJsonData: menu=[Picture]",
                            "4 propertySet: mapKeyID=[/Picture/Backlight] value=[20]"));
}

TEST_F(RestoreJsonTest, MenusThatTheDocumentLacksAreNeitherMadeNorLogged) {
    EXPECT_TRUE(restore(R"({"Sound": {"Mute": {"Value": "1"}}})", json));
    EXPECT_THAT(linesOf("parseJsonData"), ElementsAre("4 start", "4 menu=[Sound]"));
}

TEST_F(RestoreJsonTest, EmptyObjectAppliesNothing) {
    EXPECT_TRUE(restore("{}", json));
    EXPECT_THAT(linesOf("parseJsonData"), ElementsAre("4 start"));
    EXPECT_THAT(records.applied(), IsEmpty());
}

TEST_F(RestoreJsonTest, DocumentOfNothingIsRestored) {
    EXPECT_TRUE(restore(dump({}, json), json));
    EXPECT_THAT(records.applied(), IsEmpty());
}

TEST_F(RestoreJsonTest, UnknownSpecialPathIsOnlyLogged) {
    DeviceInfoManagerSeam::records().erase(hdrPlusMode);
    EXPECT_TRUE(restore(R"({"Picture": {"Expert Settings/HDR+ Mode": {"Value": "1"},
                                        "Picture Mode": {"Value": "2"}}})",
                        json));
    EXPECT_THAT(records.applied(),
                ElementsAre("/Picture/Picture Mode = 2", "/Picture/Picture Mode = 2"));
    EXPECT_THAT(linesOf("propertySet"),
                Contains("4 menuID [/Picture/Expert Settings/HDR+ Mode] not found").Times(2));
}

TEST_F(RestoreJsonTest, FailingSettersAreLoggedAndTheRestIsApplied) {
    records.onSet(pictureMode, [](const std::string&) { throw KLX::Exception("refused"); });
    records.onSet("/Sound/A", [](const std::string&) { throw 7; });
    EXPECT_TRUE(restore(R"({"Picture": {"Picture Mode": {"Value": "2"}},
                            "Sound": {"A": {"Value": "1"}, "Mute": {"Value": "1"}}})",
                        json));
    EXPECT_THAT(records.applied(),
                ElementsAre("/Picture/Picture Mode = 2", "/Picture/Picture Mode = 2",
                            "/Sound/A = 1", "/Sound/Mute = 1"));
    EXPECT_THAT(linesOf("propertySet"),
                Contains("5 mapKeyID=[/Picture/Picture Mode] exception: [refused]").Times(2));
    EXPECT_THAT(linesOf("propertySet"),
                Contains("6 Exception in propertySetter mapKeyID=[/Sound/A]"));
}

TEST_F(RestoreJsonTest, DefaultIsNeverApplied) {
    EXPECT_TRUE(restore(R"({"Sound": {"Mute": {"Default": "1"}}})", json));
    EXPECT_THAT(records.applied(), IsEmpty());
}

TEST_F(RestoreJsonTest, ValuesAreAppliedAsTheyStand) {
    EXPECT_TRUE(restore(R"({"Sound": {"Mute": {"Value": ""}}})", json));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = "));
    EXPECT_TRUE(
        restore(R"({"Sound": {"Mute": {"Value": " \"<\u00f1\ud83d\ude00\t\n\/ "}}})", json));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute =  \"<\xC3\xB1\xF0\x9F\x98\x80\t\n/ "));
}

TEST_F(RestoreJsonTest, NamesMakeThePathAsTheyStand) {
    records.add("/A/B/C//D").add("/General & Privacy/E  F+(G) H");
    EXPECT_TRUE(restore(R"({"A/B": {"C//D": {"Value": "1"}},
                            "General & Privacy": {"E  F+(G) H": {"Value": "2"}}})",
                        json));
    EXPECT_THAT(records.applied(),
                ElementsAre("/A/B/C//D = 1", "/General & Privacy/E  F+(G) H = 2"));
}

TEST_F(RestoreJsonTest, EveryStepIsLogged) {
    EXPECT_TRUE(restore(R"({"Picture": {"Backlight": {"Value": "20"},
                                        "Picture Mode": {"Value": "2"}}})",
                        json));
    const std::string mode = "4 propertySet: mapKeyID=[/Picture/Picture Mode] value=[2]";
    EXPECT_THAT(logText(),
                ElementsAre("4 SetDeviceInfo: SetDeviceInfo start", "4 parseJsonData: start", mode,
                            "4 parseJsonData: menu=[Picture]",
                            "4 propertySet: mapKeyID=[/Picture/Backlight] value=[20]", mode));
    EXPECT_THAT(fake::logs(),
                Each(fake::LineIn("DeviceInfoManager.cpp", 4, ::testing::_, ::testing::_)));
}

TEST_F(RestoreJsonTest, DevicesOfSourceConnectAreAppliedByTheirPaths) {
    records.add("/Input/Source_Connect/HDMI1").add("/Input/Source_Connect/USB1");
    EXPECT_TRUE(restore(R"({"Input": {"Source_Connect": {
        "HDMI1": {"Default": "0", "Value": "1"},
        "USB1": {"Default": "0", "Value": "1", "vendor": {"Default": "0", "Value": "Maker"}},
        "USB2": {"Value": "0"}}}})",
                        json));
    EXPECT_THAT(linesOf("propertySet"),
                ElementsAre("4 mapKeyID=[/Input/Source_Connect/HDMI1] value=[1]",
                            "4 mapKeyID=[/Input/Source_Connect/USB1] value=[1]",
                            "4 mapKeyID=[/Input/Source_Connect/USB2] value=[0]",
                            "4 menuID [/Input/Source_Connect/USB2] not found"));
}

TEST_F(RestoreJsonTest, OddDevicesOfSourceConnectCostNothingElse) {
    records.add("/Input/Source_Connect/HDMI4").add("/Sound/Mute");
    EXPECT_TRUE(restore(R"({"Input": {"Source_Connect": {"HDMI1": "1", "HDMI2": {},
        "HDMI3": {"Value": []}, "HDMI4": {"Value": "1"}}}, "Sound": {"Mute": {"Value": "1"}}})",
                        json));
    EXPECT_THAT(records.applied(),
                ElementsAre("/Input/Source_Connect/HDMI4 = 1", "/Sound/Mute = 1"));
    EXPECT_THAT(linesOf("restore"), ElementsAre("5 exception: [JSON object expected]",
                                                "4 Path does not contain attribute value: "
                                                "/Input/Source_Connect/HDMI2",
                                                HasSubstr("5 exception: [")));
}

TEST_F(RestoreJsonTest, SourceConnectThatIsNoObjectIsLogged) {
    EXPECT_TRUE(
        restore(R"({"Input": {"Source_Connect": "1"}, "Sound": {"Mute": {"Value": "1"}}})", json));
    EXPECT_THAT(linesOf("restore"), ElementsAre(HasSubstr("5 exception: [")));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_F(RestoreJsonTest, NameThatOnlyContainsSourceConnectIsOrdinary) {
    records.add("/Input/My Source_Connect");
    EXPECT_TRUE(restore(R"({"Input": {"My Source_Connect": {"Value": "1"}}})", json));
    EXPECT_THAT(records.applied(), ElementsAre("/Input/My Source_Connect = 1"));
}

} // namespace
