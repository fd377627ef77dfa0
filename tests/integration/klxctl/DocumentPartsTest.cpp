#include "DocumentFormat.h"
#include "ExitStatus.h"
#include "PathParts.h"
#include "RestoreTest.h"
#include "SettingsDocument.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

constexpr DocumentFormat json = CDeviceInfoManager::DATA_FORMAT_JSON;
constexpr DocumentFormat xml = CDeviceInfoManager::DATA_FORMAT_XML;

std::vector<std::string> linesOf(const std::string& document, DocumentFormat format) {
    std::vector<std::string> lines;
    const SettingsDocument parsed = SettingsDocument::parse(document, format);
    for (const Setting& setting : parsed.settings()) {
        lines.push_back(setting.path + "=" + setting.value.value_or("(none)") +
                        (setting.isMalformed ? "!" : ""));
    }
    return lines;
}

const std::vector<Assignment> awkward = {
    {"/Z & \"Y\"/Power On with  Mobile", "<1>\n\t'\xC3\xA4"},
    {"/A+(B)/c//d/e", ""},
    {"/A+(B)/c//d", " x "},
};

} // namespace

TEST(DocumentFormat, IsGuessedFromTheFirstCharacters) {
    EXPECT_EQ(guessedFormat("<?xml version=\"1.0\"?>"), xml);
    EXPECT_EQ(guessedFormat("\xEF\xBB\xBF \r\n\t<rm_as/>"), xml);
    EXPECT_EQ(guessedFormat(std::string("\xFF\xFE<\0", 4)), xml);
    EXPECT_EQ(guessedFormat("\n{}"), json);
    EXPECT_EQ(guessedFormat("// a remark\n{}"), json);
    EXPECT_EQ(guessedFormat("null"), json);
    for (const char* text : {"", " \n", "[]", "1", "nil", "\xEF\xBB\xBF"}) {
        EXPECT_EQ(guessedFormat(text), std::nullopt) << text;
    }
}

TEST(PathParts, SegmentsHaveSingleSlashes) {
    EXPECT_THAT(segmentsOf("/A//B/c/d//e"), ElementsAre("A/B", "c", "d/e"));
    EXPECT_THAT(segmentsOf("/A"), ElementsAre("A"));
}

TEST(SettingsDocument, OfXmlKeepsTheOrderOfTheDocument) {
    EXPECT_THAT(linesOf(xmlOf(R"(<menu name="B"><property name="z" value="1"/>
                                 <property name="y"><property name="x/w" value="2"/></property>
                                 </menu><menu name="A"><property name="v" value="3"/></menu>)"),
                        xml),
                ElementsAre("/B/z=1", "/B/y/x//w=2", "/A/v=3"));
}

TEST(SettingsDocument, OfXmlMayHoldAPropertyBelowAnother) {
    EXPECT_THAT(linesOf(xmlOf(R"(<menu name="A"><property name="b" value="1">
                                 <property name="c" value="2"/></property></menu>)"),
                        xml),
                ElementsAre("/A/b/c=2", "/A/b=1"));
}

TEST(SettingsDocument, OfXmlTellsLeavesWithoutAValueButNoEmptyMenus) {
    EXPECT_THAT(linesOf(xmlOf(R"(<menu name="A"/><property name="D"/>
                                 <menu name="B"><property name="c"/></menu>)"),
                        xml),
                ElementsAre("/B/c=(none)"));
}

TEST(SettingsDocument, OfXmlTellsAValueThatStandsInNoMenu) {
    EXPECT_THAT(linesOf(xmlOf(R"(<property name="A" value="1"/><menu name="B" value="2"/>
                                 <menu name="C" value="3"><property name="d" value="4"/></menu>)"),
                        xml),
                ElementsAre("/A=(none)!", "/B=(none)!", "/C/d=4", "/C=(none)!"));
}

TEST(SettingsDocument, OfJsonIsOrderedByName) {
    EXPECT_THAT(linesOf(R"({"B": {"z": {"Value": "1"}}, "A": {"y/x": {"Value": true}, "w": {},
                            "v": 1, "u": {"Value": 7}, "t": {"Value": null}}})",
                        json),
                ElementsAre("/A/t=(none)", "/A/u=7", "/A/v=(none)!", "/A/w=(none)", "/A/y/x=true",
                            "/B/z=1"));
}

TEST(SettingsDocument, OfJsonHasSourcesOneLevelDeeper) {
    EXPECT_THAT(linesOf(R"({"Input": {"Source_Connect": {"USB1": {"Value": "1",
                            "vendor": {"Value": "x"}}, "AV": 3}}})",
                        json),
                ElementsAre("/Input/Source_Connect/AV=(none)!", "/Input/Source_Connect/USB1=1"));
}

TEST(SettingsDocument, OfSeveralMentionsKeepsTheLastInItsPlace) {
    EXPECT_THAT(linesOf(xmlOf(R"(<menu name="A"><property name="b" value="1"/>
                                 <property name="c" value="2"/><property name="b" value="3"/>
                                 </menu>)"),
                        xml),
                ElementsAre("/A/c=2", "/A/b=3"));
}

TEST(SettingsDocument, IsReadAsItWasWritten) {
    EXPECT_THAT(linesOf(documentOf(awkward, xml), xml),
                ElementsAre("/Z & \"Y\"/Power On with  Mobile=<1>\n\t'\xC3\xA4",
                            "/A+(B)/c//d/e=", "/A+(B)/c//d= x "));
    EXPECT_THAT(linesOf(documentOf(awkward, json), json),
                ElementsAre("/A+(B)/c//d= x ",
                            "/A+(B)/c//d/e=", "/Z & \"Y\"/Power On with  Mobile=<1>\n\t'\xC3\xA4"));
}

TEST(SettingsDocument, OfJsonCarriesAnyBytes) {
    EXPECT_THAT(linesOf(documentOf({{"/A/b", "\x01\xFF\x7F\""}}, json), json),
                ElementsAre("/A/b=\x01\xFF\x7F\""));
}

TEST(SettingsDocument, RefusesWhatIsNoDocument) {
    for (const char* text : {"", "[]", "\"x\"", "{", "3"}) {
        EXPECT_THROW(SettingsDocument::parse(text, json), Failure) << text;
    }
    for (const char* text : {"", "<a>", "<a/>", "<deviceInfo/>"}) {
        EXPECT_THROW(SettingsDocument::parse(text, xml), Failure) << text;
    }
}
