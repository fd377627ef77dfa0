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

const std::string hdrPlusElement =
    "<property name=\"Expert Settings\"><property name=\"HDR+ Mode\" value=\"1\"/></property>";

class RestoreXmlTest : public DocumentsTest {
protected:
    RestoreXmlTest() {
        records.add(ndAdj).add(hdrPlusMode).add(pictureMode).add("/Picture/Backlight");
        records.add("/Sound/Mute");
    }
};

TEST_F(RestoreXmlTest, WhatOthersDependOnGoesFirstInItsFixedOrderAndOnce) {
    const std::string document =
        xmlDocument(xmlMenu("Sound", xmlProperty("Mute", "1")) +
                    xmlMenu("Picture", xmlProperty("Backlight", "20") +
                                           xmlProperty("Picture Mode", "2") + hdrPlusElement) +
                    xmlMenu("Factory", xmlProperty("ND_ADJ", "3")));
    EXPECT_TRUE(restore(document, xml));
    EXPECT_THAT(records.applied(),
                ElementsAre("/Factory/ND_ADJ = 3", "/Picture/Expert Settings/HDR+ Mode = 1",
                            "/Picture/Picture Mode = 2", "/Sound/Mute = 1",
                            "/Picture/Backlight = 20"));
}

TEST_F(RestoreXmlTest, OthersFollowInDocumentOrder) {
    records.add("/B/2").add("/B/1").add("/A/1");
    EXPECT_TRUE(restore(xmlDocument(xmlMenu("B", xmlProperty("2", "a") + xmlProperty("1", "b")) +
                                    xmlMenu("A", xmlProperty("1", "c")) +
                                    xmlMenu("B", xmlProperty("1", "d"))),
                        xml));
    EXPECT_THAT(records.applied(), ElementsAre("/B/2 = a", "/B/1 = b", "/A/1 = c", "/B/1 = d"));
}

TEST_F(RestoreXmlTest, DocumentWithoutSpecialPropertiesIsRestored) {
    EXPECT_TRUE(restore(xmlDocument(xmlMenu("Sound", xmlProperty("Mute", "1"))), xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_F(RestoreXmlTest, DocumentWithoutAnythingIsRestored) {
    EXPECT_TRUE(restore("<rm_as/>", xml));
    EXPECT_TRUE(restore(xmlDocument(""), xml));
    EXPECT_THAT(records.applied(), IsEmpty());
}

TEST_F(RestoreXmlTest, AdjacentSpecialElementsAreAllAppliedAndRemoved) {
    const std::string mode = xmlProperty("Picture Mode", "1");
    EXPECT_TRUE(restore(xmlDocument(xmlMenu("Picture", mode + mode + mode)), xml));
    EXPECT_THAT(records.applied(),
                ElementsAre("/Picture/Picture Mode = 1", "/Picture/Picture Mode = 1",
                            "/Picture/Picture Mode = 1"));
}

TEST_F(RestoreXmlTest, ThePlaceOfASpecialPropertyDecidesNotItsName) {
    records.add("/Sound/Picture Mode").add("/Picture/Expert Settings/Picture Mode");
    const std::string mode = xmlProperty("Picture Mode", "1");
    EXPECT_TRUE(restore(xmlDocument(xmlMenu("Sound", mode) +
                                    xmlMenu("Picture", "<property name=\"Expert Settings\">" +
                                                           mode + "</property>" + mode)),
                        xml));
    EXPECT_THAT(records.applied(),
                ElementsAre("/Picture/Picture Mode = 1", "/Sound/Picture Mode = 1",
                            "/Picture/Expert Settings/Picture Mode = 1"));
}

TEST_F(RestoreXmlTest, MenuEmptiedOfItsSpecialPropertyIsALeafWithoutAValue) {
    EXPECT_TRUE(restore(xmlDocument(xmlMenu("Picture", hdrPlusElement)), xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Picture/Expert Settings/HDR+ Mode = 1"));
    const std::string missing = "4 Path does not contain attribute value: /Picture/Expert Settings";
    const std::string found = "4 Restoring value of /Picture/Expert Settings/HDR+ Mode to 1";
    EXPECT_THAT(linesOf("restore"), ElementsAre(found, found, missing, missing));
}

TEST_F(RestoreXmlTest, UnknownSpecialPathEndsTheWholeRestore) {
    DeviceInfoManagerSeam::records().erase(hdrPlusMode);
    EXPECT_FALSE(
        restore(xmlDocument(xmlMenu("Factory", xmlProperty("ND_ADJ", "3")) +
                            xmlMenu("Picture", hdrPlusElement + xmlProperty("Picture Mode", "2") +
                                                   xmlProperty("Backlight", "20"))),
                xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Factory/ND_ADJ = 3"));
    EXPECT_THAT(linesOf("SetDeviceInfo"),
                ElementsAre("4 SetDeviceInfo start", "5 exception: [map::at]"));
}

TEST_F(RestoreXmlTest, UnknownSpecialPathThatTheDocumentLacksDoesNotMatter) {
    DeviceInfoManagerSeam::records().erase(hdrPlusMode);
    EXPECT_TRUE(restore(xmlDocument(xmlMenu("Picture", xmlProperty("Picture Mode", "2"))), xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Picture/Picture Mode = 2"));
}

TEST_F(RestoreXmlTest, UnknownPathIsLoggedAndTheRestIsApplied) {
    EXPECT_TRUE(restore(xmlDocument(xmlMenu("Nowhere", xmlProperty("Nothing", "1")) +
                                    xmlMenu("Sound", xmlProperty("Mute", "1"))),
                        xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
    EXPECT_THAT(linesOf("propertySet"), ElementsAre("4 mapKeyID=[/Nowhere/Nothing] value=[1]",
                                                    "4 menuID [/Nowhere/Nothing] not found",
                                                    "4 mapKeyID=[/Sound/Mute] value=[1]"));
}

TEST_F(RestoreXmlTest, FailingSettersAreLoggedAndTheRestIsApplied) {
    records.onSet("/Sound/A", [](const std::string&) { throw KLX::Exception("refused"); });
    records.onSet("/Sound/B", [](const std::string&) { throw 7; });
    EXPECT_TRUE(restore(xmlDocument(xmlMenu("Sound", xmlProperty("A", "1") + xmlProperty("B", "2") +
                                                         xmlProperty("Mute", "3"))),
                        xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/A = 1", "/Sound/B = 2", "/Sound/Mute = 3"));
    EXPECT_THAT(linesOf("propertySet"), Contains("5 mapKeyID=[/Sound/A] exception: [refused]"));
    EXPECT_THAT(linesOf("propertySet"),
                Contains("6 Exception in propertySetter mapKeyID=[/Sound/B]"));
}

TEST_F(RestoreXmlTest, FailingSetterOfASpecialPropertyEndsTheRestore) {
    records.onSet(hdrPlusMode, [](const std::string&) { throw KLX::Exception("refused"); });
    EXPECT_FALSE(restore(xmlDocument(xmlMenu("Factory", xmlProperty("ND_ADJ", "3")) +
                                     xmlMenu("Picture", hdrPlusElement) +
                                     xmlMenu("Sound", xmlProperty("Mute", "1"))),
                         xml));
    EXPECT_THAT(records.applied(),
                ElementsAre("/Factory/ND_ADJ = 3", "/Picture/Expert Settings/HDR+ Mode = 1"));
    EXPECT_THAT(fake::messages(5), ElementsAre("exception: [refused]"));
}

TEST_F(RestoreXmlTest, EmptySetterOfASpecialPropertyEndsTheRestore) {
    records.answering(pictureMode, argumentInBrackets);
    EXPECT_FALSE(restore(xmlDocument(xmlMenu("Picture", xmlProperty("Picture Mode", "2"))), xml));
    EXPECT_THAT(fake::messages(5), ElementsAre("exception: [bad_function_call]"));
}

TEST_F(RestoreXmlTest, SpecialPropertyThatThrowsAnythingEndsTheRestore) {
    records.onSet(pictureMode, [](const std::string&) { throw 7; });
    EXPECT_FALSE(restore(xmlDocument(xmlMenu("Picture", xmlProperty("Picture Mode", "2"))), xml));
    EXPECT_THAT(linesOf("SetDeviceInfo"), Contains("6 Exception in setDeviceInfo"));
}

TEST_F(RestoreXmlTest, EveryDeviceInfoIsRestoredForItself) {
    const std::string elements = xmlMenu("Sound", xmlProperty("Mute", "1")) +
                                 xmlMenu("Picture", xmlProperty("Picture Mode", "2"));
    EXPECT_TRUE(restore("<rm_as><deviceInfo>" + elements + "</deviceInfo><other>" + elements +
                            "</other>text<deviceInfo>" + elements + "</deviceInfo></rm_as>",
                        xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Picture/Picture Mode = 2", "/Sound/Mute = 1",
                                               "/Picture/Picture Mode = 2", "/Sound/Mute = 1"));
}

TEST_F(RestoreXmlTest, ValuesAreAppliedAsTheyStand) {
    EXPECT_TRUE(restore(
        xmlDocument(xmlMenu("Sound", xmlProperty("Mute", "") +
                                         xmlProperty("Mute", " &lt;&quot;&#9;&#10;&amp;amp; "))),
        xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = ", "/Sound/Mute =  <\"\t\n&amp; "));
}

TEST_F(RestoreXmlTest, DefaultIsNeverApplied) {
    EXPECT_TRUE(
        restore(xmlDocument(xmlMenu("Sound", "<property name=\"Mute\" default=\"1\"/>")), xml));
    EXPECT_THAT(records.applied(), IsEmpty());
}

TEST_F(RestoreXmlTest, SlashInANameIsPartOfItsSegment) {
    records.add("/Sound/A//B/C").add("/Sound/A/B/C");
    EXPECT_TRUE(restore(xmlDocument(xmlMenu("Sound", "<property name=\"A/B\">" +
                                                         xmlProperty("C", "1") + "</property>")),
                        xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/A//B/C = 1"));
}

TEST_F(RestoreXmlTest, OtherEncodingsAreRead) {
    EXPECT_TRUE(restore("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><rm_as><deviceInfo>" +
                            xmlMenu("Sound", xmlProperty("Mute", "\xF1")) + "</deviceInfo></rm_as>",
                        xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = \xC3\xB1"));
}

TEST_F(RestoreXmlTest, EveryStepIsLogged) {
    EXPECT_TRUE(restore(xmlDocument(xmlMenu("Picture", xmlProperty("Backlight", "20") +
                                                           xmlProperty("Picture Mode", "2"))),
                        xml));
    const std::string backlight = "4 restore: Restoring value of /Picture/Backlight to 20";
    const std::string mode = "4 restore: Restoring value of /Picture/Picture Mode to 2";
    EXPECT_THAT(logText(), ElementsAre("4 SetDeviceInfo: SetDeviceInfo start", backlight, mode,
                                       backlight, mode, backlight, mode, backlight,
                                       "4 propertySet: mapKeyID=[/Picture/Backlight] value=[20]"));
    EXPECT_THAT(fake::logs(),
                Each(fake::LineIn("DeviceInfoManager.cpp", 4, ::testing::_, ::testing::_)));
}

} // namespace
