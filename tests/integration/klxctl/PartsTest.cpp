#include "DumpSelection.h"
#include "ExitStatus.h"
#include "NearestNames.h"
#include "PathParts.h"
#include "PropertyDirectory.h"
#include "SettingValue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string documentOf(const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<rm_as version=\"2.5\">\n"
           "  <deviceInfo devicetype=\"TV\">" +
           content + "</deviceInfo>\n</rm_as>\n";
}

} // namespace

TEST(PropertyDirectory, FindsPropertiesOnEveryLevel) {
    const auto directory = PropertyDirectory::fromDocument(documentOf(R"(
        <menu name="A">
          <property name="b" default="" value=""/>
          <property name="c"><property name="d" default="" value="1"/></property>
        </menu>)"));
    EXPECT_THAT(directory.paths(), ElementsAre("/A/b", "/A/c/d"));
    EXPECT_TRUE(directory.contains("/A/b"));
    EXPECT_FALSE(directory.contains("/A/c"));
}

TEST(PropertyDirectory, FindsAPropertyThatHoldsOthersToo) {
    const auto directory = PropertyDirectory::fromDocument(documentOf(R"(
        <menu name="A">
          <property name="b" default="" value=""><property name="c" default="" value=""/></property>
        </menu>)"));
    EXPECT_THAT(directory.paths(), ElementsAre("/A/b", "/A/b/c"));
}

TEST(PropertyDirectory, DoublesTheSlashesOfNames) {
    const auto directory = PropertyDirectory::fromDocument(
        documentOf(R"(<menu name="A/B"><property name="c/d" default="" value=""/></menu>)"));
    EXPECT_THAT(directory.paths(), ElementsAre("/A//B/c//d"));
}

TEST(PropertyDirectory, KeepsMarkupCharactersOfNames) {
    const auto directory = PropertyDirectory::fromDocument(documentOf(
        R"(<menu name="A &amp; &quot;B&quot;"><property name="c" default="" value=""/></menu>)"));
    EXPECT_THAT(directory.paths(), ElementsAre(R"(/A & "B"/c)"));
}

TEST(PropertyDirectory, OfAnEmptyDocumentIsEmpty) {
    EXPECT_THAT(PropertyDirectory::fromDocument(documentOf("")).paths(), IsEmpty());
}

TEST(PropertyDirectory, RefusesWhatIsNoDocument) {
    EXPECT_THROW(PropertyDirectory::fromDocument(""), Failure);
    EXPECT_THROW(PropertyDirectory::fromDocument("<rm_as>"), Failure);
}

TEST(PropertyDirectory, KnowsTheBeginningsOfPaths) {
    const auto directory = PropertyDirectory::fromDocument(
        documentOf(R"(<menu name="Ab"><property name="c" default="" value=""/></menu>)"));
    EXPECT_TRUE(directory.containsPrefix("/A"));
    EXPECT_TRUE(directory.containsPrefix("/Ab/c"));
    EXPECT_FALSE(directory.containsPrefix("/B"));
    EXPECT_FALSE(directory.containsPrefix("/Ab/cd"));
}

TEST(PathParts, DividesBehindTheCategory) {
    const auto parts = partsOf("/Picture/Expert Settings/Gamma");
    ASSERT_TRUE(parts);
    EXPECT_EQ(parts->category, "Picture");
    EXPECT_EQ(parts->rest, "Expert Settings/Gamma");
}

TEST(PathParts, KeepsDoubledSlashesTogether) {
    const auto parts = partsOf("/A//B/c//d");
    ASSERT_TRUE(parts);
    EXPECT_EQ(parts->category, "A//B");
    EXPECT_EQ(parts->rest, "c//d");
}

TEST(PathParts, NeedsALeadingSlashAndASecondPart) {
    for (const char* path : {"", "/", "Picture/Gamma", "/Picture", "/A//B"}) {
        EXPECT_FALSE(partsOf(path)) << path;
    }
}

TEST(NearestNames, IgnoreCase) {
    EXPECT_THAT(nearestNames("/PICTURE/backlight", {"/Picture/Backlight", "/Sound/Mute"}),
                ElementsAre("/Picture/Backlight"));
}

TEST(NearestNames, AreTheOneThatOnlyCaseOrBlanksTellApart) {
    EXPECT_THAT(nearestNames("hdmi1", {"HDMI1", "HDMI2"}), ElementsAre("HDMI1"));
    EXPECT_THAT(nearestNames(" HDMI2 ", {"HDMI1", "HDMI2"}), ElementsAre("HDMI2"));
    EXPECT_THAT(nearestNames("HDMI", {"HDMI1", "HDMI2"}), ElementsAre("HDMI1", "HDMI2"));
    EXPECT_THAT(nearestNames("  ", {"HDMI1", "HDMI2"}), IsEmpty());
}

TEST(NearestNames, OfAShortNameDifferInOneCharacterOnly) {
    EXPECT_THAT(nearestNames("lst", {"get", "list", "set"}), ElementsAre("list"));
}

TEST(NearestNames, PutTheClosestSpellingFirst) {
    EXPECT_THAT(nearestNames("/Pictur/Backligt", {"/Picture/Backlights", "/Picture/Backlight"}),
                ElementsAre("/Picture/Backlight", "/Picture/Backlights"));
}

TEST(NearestNames, HoldWhatBeginsWithTheWrittenName) {
    EXPECT_THAT(nearestNames("/sound", {"/Picture/Backlight", "/Sound/Mute", "/Sound/Audio Delay"}),
                ElementsAre("/Sound/Mute", "/Sound/Audio Delay"));
}

TEST(NearestNames, HoldWhatContainsTheWrittenName) {
    EXPECT_THAT(nearestNames("delay", {"/Sound/Mute", "/Sound/Audio Delay"}),
                ElementsAre("/Sound/Audio Delay"));
}

TEST(NearestNames, HoldTheLastSegmentElsewhere) {
    EXPECT_THAT(
        nearestNames("/Picture/Expert Settings/Backlight", {"/Sound/Mute", "/Eco/Backlight"}),
        ElementsAre("/Eco/Backlight"));
}

TEST(NearestNames, HoldTheMisspeltLastSegmentElsewhere) {
    EXPECT_THAT(nearestNames("/Picture/Backlihgt", {"/Sound/Mute", "/Eco Solution/Backlight"}),
                ElementsAre("/Eco Solution/Backlight"));
}

TEST(NearestNames, AreFiveAtMost) {
    EXPECT_EQ(nearestNames("/A/x", {"/A/x1", "/A/x2", "/A/x3", "/A/x4", "/A/x5", "/A/x6"}).size(),
              5U);
}

TEST(NearestNames, AreNoneForWhatResemblesNothing) {
    EXPECT_THAT(nearestNames("/Qwerty/Uiop", {"/Picture/Backlight"}), IsEmpty());
    EXPECT_THAT(nearestNames("/Picture/Nope", {"/Factory/Type", "/Network/Type"}), IsEmpty());
    EXPECT_THAT(nearestNames("", {"/Picture/Backlight"}), IsEmpty());
}

TEST(SettingValue, IsHeldWhenItIsTheSameText) {
    EXPECT_TRUE(isHeld("", ""));
    EXPECT_TRUE(isHeld("en_GB", "en_GB"));
    EXPECT_FALSE(isHeld("en_GB", "en_gb"));
    EXPECT_FALSE(isHeld("1 ", "1"));
    EXPECT_FALSE(isHeld("true", "1"));
}

TEST(SettingValue, IsHeldWhenItIsTheSameWholeNumber) {
    EXPECT_TRUE(isHeld("070", "70"));
    EXPECT_TRUE(isHeld("+7", "7"));
    EXPECT_TRUE(isHeld("-07", "-7"));
    EXPECT_TRUE(isHeld("-0", "0"));
    EXPECT_TRUE(isHeld("00000000000000000000000000000000000000000000001", "1"));
}

TEST(SettingValue, IsNotHeldWhenItIsAnotherNumber) {
    EXPECT_FALSE(isHeld("5", "1"));
    EXPECT_FALSE(isHeld("-7", "7"));
    EXPECT_FALSE(isHeld("70", "7"));
    EXPECT_FALSE(isHeld("0", ""));
    EXPECT_FALSE(isHeld("", "0"));
    EXPECT_FALSE(isHeld("-", "0"));
    EXPECT_FALSE(isHeld("7.0", "7"));
    EXPECT_FALSE(isHeld("4294967296", "0"));
}

TEST(DumpSelection, TakesAMenuCategoryThatIsEmptyForKnown) {
    const DumpSelection selection({"Picture"});
    EXPECT_FALSE(selection.reportUnknown(documentOf("")));
}

TEST(DumpSelection, GathersThePathsOfACategory) {
    const DumpSelection selection({"Picture/Backlight", "/Picture/Gamma", "Sound"});
    const DocumentRequest expected = {{"Picture", {"Backlight", "Gamma"}}, {"Sound", {"*"}}};
    EXPECT_EQ(selection.request(), expected);
}

TEST(DumpSelection, OfNothingIsEverything) {
    const DocumentRequest everything = {{"*", {"*"}}};
    EXPECT_EQ(DumpSelection({}).request(), everything);
    EXPECT_EQ(DumpSelection({"*"}).request(), everything);
    EXPECT_TRUE(DumpSelection({"*"}).isEverything());
}
