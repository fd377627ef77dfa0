#include "DocumentsTest.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const std::string mute = xmlProperty("Mute", "1");
const std::string adjustment = xmlMenu("Factory", xmlProperty("ND_ADJ", "3"));

class BadXmlTest : public DocumentsTest {
protected:
    BadXmlTest() { records.add("/Factory/ND_ADJ").add("/Sound/Mute").add("/Sound/Sound Mode"); }
};

class UnparsableXmlTest : public BadXmlTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(UnparsableXmlTest, IsRefusedBeforeAnythingIsApplied) {
    EXPECT_FALSE(restore(GetParam(), xml));
    EXPECT_THAT(
        linesOf("SetDeviceInfo"),
        ElementsAre("4 SetDeviceInfo start", "5 exception: [Failed to parse XML from string]"));
    EXPECT_THAT(records.applied(), IsEmpty());
}

const std::string head = "<rm_as><deviceInfo>" + xmlMenu("Sound", mute) + adjustment;

INSTANTIATE_TEST_SUITE_P(
    NotWellFormed, UnparsableXmlTest,
    ::testing::Values(" ", "\n", "text", "<", "<rm_as", "<?xml version=\"1.0\"?>", head,
                      head + "</deviceInfo>", head + "</rm_as>", head + "</deviceInfo></rm_as>text",
                      head + "</deviceInfo></rm_as><rm_as/>",
                      head + "<menu name=A/></deviceInfo></rm_as>",
                      head + "<menu name=\"A/></deviceInfo></rm_as>",
                      head + "<menu name=\"<\"/></deviceInfo></rm_as>",
                      head + "<menu name=\"A\" name=\"B\"/></deviceInfo></rm_as>",
                      head + "&undefined;</deviceInfo></rm_as>",
                      head + "<menu name=\"&undefined;\"/></deviceInfo></rm_as>",
                      head + "&#1;</deviceInfo></rm_as>", head + "&#xD800;</deviceInfo></rm_as>",
                      std::string(100, '\0')));

INSTANTIATE_TEST_SUITE_P(NotUtf8, UnparsableXmlTest,
                         ::testing::Values(head + xmlMenu("\xFF", "") + "</deviceInfo></rm_as>",
                                           head + xmlMenu("A", xmlProperty("A", "\xC3(")) +
                                               "</deviceInfo></rm_as>",
                                           head + "\xED\xA0\x80</deviceInfo></rm_as>",
                                           head + "<menu name=\"\x01\"/></deviceInfo></rm_as>",
                                           "<?xml version=\"1.0\" encoding=\"none-such\"?>" + head +
                                               "</deviceInfo></rm_as>"));

TEST_F(BadXmlTest, ZeroByteEndsNoDocumentSilently) {
    const std::string document = head + "</deviceInfo></rm_as>";
    EXPECT_FALSE(restore(document.substr(0, 30) + '\0' + document.substr(30), xml));
    EXPECT_THAT(records.applied(), IsEmpty());
}

TEST_F(BadXmlTest, RootOfAnotherNameIsWalkedLikeARoot) {
    EXPECT_TRUE(restore("<else>" + head.substr(7) + "</deviceInfo></else>", xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Factory/ND_ADJ = 3", "/Sound/Mute = 1"));
}

TEST_F(BadXmlTest, RootWithoutDeviceInfoAppliesNothing) {
    EXPECT_TRUE(restore("<deviceInfo>" + xmlMenu("Sound", mute) + "</deviceInfo>", xml));
    EXPECT_TRUE(restore("<rm_as>" + xmlMenu("Sound", mute) + "</rm_as>", xml));
    EXPECT_TRUE(
        restore("<rm_as><DeviceInfo>" + xmlMenu("Sound", mute) + "</DeviceInfo></rm_as>", xml));
    EXPECT_THAT(records.applied(), IsEmpty());
}

TEST_F(BadXmlTest, MissingNameEndsTheRestore) {
    EXPECT_FALSE(restore(xmlDocument(xmlMenu("Sound", mute + "<property value=\"1\"/>")), xml));
    EXPECT_THAT(linesOf("SetDeviceInfo"), Contains("5 exception: [Failed to get attribute: name]"));
    EXPECT_THAT(records.applied(), IsEmpty());
}

TEST_F(BadXmlTest, MissingNameOfAMenuEndsTheRestore) {
    EXPECT_FALSE(restore(xmlDocument("<menu>" + mute + "</menu>"), xml));
    EXPECT_FALSE(restore(xmlDocument("<item/>"), xml));
    EXPECT_THAT(linesOf("SetDeviceInfo"), Contains("5 exception: [Failed to get attribute: name]"));
}

TEST_F(BadXmlTest, WhatWasAppliedBeforeAMissingNameStaysApplied) {
    EXPECT_FALSE(restore(xmlDocument(adjustment + xmlMenu("Sound", mute) + "<menu/>"), xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Factory/ND_ADJ = 3"));
    EXPECT_EQ(records.valueOf("/Factory/ND_ADJ"), "3");
}

TEST_F(BadXmlTest, DeviceInfoBeforeABadOneStaysApplied) {
    EXPECT_FALSE(restore("<rm_as><deviceInfo>" + xmlMenu("Sound", mute) +
                             "</deviceInfo><deviceInfo><menu/></deviceInfo></rm_as>",
                         xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_F(BadXmlTest, MissingNameWhereNobodyLooksDoesNotMatter) {
    EXPECT_TRUE(restore("<rm_as><item/><deviceInfo>" + xmlMenu("Sound", mute) +
                            "<item name=\"A\"><menu/></item>" + "</deviceInfo></rm_as>",
                        xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_F(BadXmlTest, MissingValueIsLoggedAndSkipped) {
    EXPECT_TRUE(restore(
        xmlDocument(xmlMenu("Sound", "<property name=\"Sound Mode\" default=\"1\"/>" + mute)),
        xml));
    EXPECT_THAT(linesOf("restore"),
                Contains("4 Path does not contain attribute value: /Sound/Sound Mode").Times(4));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_F(BadXmlTest, AttributesOfOtherCaseAreMissing) {
    EXPECT_TRUE(
        restore(xmlDocument(xmlMenu("Sound", "<property name=\"Mute\" Value=\"1\"/>")), xml));
    EXPECT_THAT(records.applied(), IsEmpty());
    EXPECT_FALSE(restore(xmlDocument("<menu Name=\"Sound\"/>"), xml));
}

TEST_F(BadXmlTest, DuplicateNamesAreAppliedInTheirOrder) {
    EXPECT_TRUE(
        restore(xmlDocument(xmlMenu("Sound", xmlProperty("Mute", "1") + xmlProperty("Mute", "2")) +
                            xmlMenu("Sound", xmlProperty("Mute", "3"))),
                xml));
    EXPECT_THAT(records.applied(),
                ElementsAre("/Sound/Mute = 1", "/Sound/Mute = 2", "/Sound/Mute = 3"));
}

TEST_F(BadXmlTest, EmptyNamesMakePathsOfSlashes) {
    records.add("//").add("///");
    EXPECT_TRUE(restore(
        xmlDocument(xmlMenu("", xmlProperty("", "1") + xmlMenu("", xmlProperty("", "2")))), xml));
    EXPECT_THAT(records.applied(), ElementsAre("// = 1", "/// = 2"));
}

TEST_F(BadXmlTest, CommentsTextsAndInstructionsAreSkipped) {
    EXPECT_TRUE(restore(xmlDocument("text<!-- <menu/> --><?menu?><![CDATA[<menu/>]]>" +
                                    xmlMenu("Sound", "text" + mute + "<!-- -->")),
                        xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_F(BadXmlTest, NamespacesAreNoHindrance) {
    EXPECT_TRUE(restore("<x:rm_as xmlns:x=\"urn:x\"><x:deviceInfo><x:menu name=\"Sound\">"
                        "<x:property name=\"Mute\" value=\"1\"/></x:menu></x:deviceInfo></x:rm_as>",
                        xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

} // namespace
