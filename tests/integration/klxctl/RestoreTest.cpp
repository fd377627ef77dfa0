#include "RestoreTest.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

TEST_F(RestoreTest, AppliesWhatDiffersAndLeavesTheRest) {
    ASSERT_EQ(run({"set", mute, "1"}).status, 0);
    const Report report = restore(
        xmlOf(R"(<menu name="Picture"><property name="Backlight" default="35" value="12"/></menu>
                 <menu name="Sound"><property name="Mute" default="0" value="1"/></menu>)"));
    EXPECT_EQ(report.status, 0);
    EXPECT_EQ(report.resultOf(backlight), "applied");
    EXPECT_EQ(report.of(backlight, "before"), "35");
    EXPECT_EQ(report.of(backlight, "held"), "12");
    EXPECT_EQ(report.resultOf(mute), "unchanged");
    EXPECT_EQ(valueOf(backlight), "12");
}

TEST_F(RestoreTest, WritesNothingThatIsHeldAlready) {
    const std::string file = outputFolder() / "all.xml";
    ASSERT_EQ(run({"dump", "-o", file}).status, 0);
    const Outcome outcome = tool().environment("KLX_LOG", "info").run({"restore", file});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.messages, testing::Not(HasSubstr("SetDeviceInfo")));
    EXPECT_THAT(outcome.messages, HasSubstr("GetDevicePropValue"));
}

TEST_F(RestoreTest, HandsTheLibraryOnlyWhatDiffers) {
    const std::string file =
        fileOf(jsonOf("Picture", {{"Backlight", "12"}, {"Brightness", "45"}, {"Color", "51"}}));
    const Outcome outcome = tool().environment("KLX_LOG", "info").run({"restore", file});
    EXPECT_THAT(outcome.messages, HasSubstr("mapKeyID=[/Picture/Backlight] value=[12]"));
    EXPECT_THAT(outcome.messages, HasSubstr("mapKeyID=[/Picture/Color] value=[51]"));
    EXPECT_THAT(outcome.messages, testing::Not(HasSubstr("mapKeyID=[/Picture/Brightness]")));
}

TEST_F(RestoreTest, ReadsNumbersAsNumbers) {
    EXPECT_EQ(restore(jsonOf("Picture", {{"Backlight", "035"}})).resultOf(backlight), "unchanged");
    EXPECT_EQ(restore(R"({"Picture": {"Backlight": {"Value": 12}}})").resultOf(backlight),
              "applied");
}

TEST_F(RestoreTest, ComparesTextsByteByByte) {
    ASSERT_EQ(run({"set", text, "7"}).status, 0);
    const Report report = restore(jsonOf("Connection", {{text.substr(12), "007"}}));
    EXPECT_EQ(report.resultOf(text), "applied");
    EXPECT_EQ(valueOf(text), "007");
}

TEST_F(RestoreTest, TellsWhatTheSetRefusesAndHolds) {
    const Report report = restore(jsonOf("Picture", {{"Backlight", "999"}, {"Color", "51"}}));
    EXPECT_EQ(report.status, 3);
    EXPECT_EQ(report.resultOf(backlight), "refused");
    EXPECT_EQ(report.of(backlight, "wanted"), "999");
    EXPECT_EQ(report.of(backlight, "held"), "35");
    EXPECT_EQ(report.resultOf("/Picture/Color"), "applied");
    EXPECT_FALSE(report.root["held"].asBool());
}

TEST_F(RestoreTest, TellsAReadOnlyPropertyThatDiffers) {
    const Report report = restore(jsonOf("SetInformation", {{"SerialNumber", "another"}}));
    EXPECT_EQ(report.status, 3);
    EXPECT_EQ(report.resultOf(fact), "read-only");
    EXPECT_EQ(report.of(fact, "held"), valueOf(fact));
}

TEST_F(RestoreTest, AReadOnlyPropertyThatIsEqualIsUnchanged) {
    const Report report = restore(jsonOf("SetInformation", {{"SerialNumber", valueOf(fact)}}));
    EXPECT_EQ(report.status, 0);
    EXPECT_EQ(report.resultOf(fact), "unchanged");
}

TEST_F(RestoreTest, LeavesReadOnlyPropertiesOutWhenAsked) {
    const Report report = restore(
        xmlOf(R"(<menu name="SetInformation"><property name="SerialNumber" value="x"/></menu>
                 <menu name="Sound"><property name="Mute" value="1"/></menu>)"),
        "--settings-only");
    EXPECT_EQ(report.status, 0);
    EXPECT_EQ(report.resultOf(fact), "");
    EXPECT_EQ(report.resultOf(mute), "applied");
}

TEST_F(RestoreTest, TellsAnUnknownPathWithTheNearest) {
    const Report report = restore(jsonOf("Picture", {{"Backligt", "12"}, {"Color", "51"}}));
    EXPECT_EQ(report.status, 3);
    EXPECT_EQ(report.resultOf("/Picture/Backligt"), "unknown");
    EXPECT_EQ(report.root["properties"][0]["nearest"][0], backlight);
    EXPECT_EQ(report.resultOf("/Picture/Color"), "applied");
}

TEST_F(RestoreTest, AnUnknownSpecialPathCostsNothingElse) {
    const Report report =
        restore(xmlOf(R"(<menu name="Factory"><property name="ND_ADJ" value="1"/></menu>
                 <menu name="Sound"><property name="Mute" value="1"/></menu>)"));
    EXPECT_EQ(report.resultOf("/Factory/ND_ADJ"), "unknown");
    EXPECT_EQ(report.resultOf(mute), "applied");
}

TEST_F(RestoreTest, AnAbsentValueOverwritesNothing) {
    ASSERT_EQ(run({"set", text, "something"}).status, 0);
    for (const char* document :
         {R"({"Sound": {"Mute": {}}})", R"({"Sound": {"Mute": {"Value": null}}})",
          R"({"Sound": {"Mute": {"Default": "1"}}})"}) {
        EXPECT_EQ(restore(document).resultOf(mute), "left alone") << document;
    }
    const Report report =
        restore(xmlOf(R"(<menu name="Sound"><property name="Mute" default="1"/></menu>)"));
    EXPECT_EQ(report.resultOf(mute), "left alone");
    EXPECT_EQ(report.status, 0);
    EXPECT_EQ(valueOf(mute), "0");
}

TEST_F(RestoreTest, AnEmptyValueOverwritesTextsOnly) {
    ASSERT_EQ(run({"set", text, "something"}).status, 0);
    ASSERT_EQ(run({"set", number, "4"}).status, 0);
    const Report texts = restore(jsonOf("Connection", {{text.substr(12), ""}}));
    EXPECT_EQ(texts.resultOf(text), "applied");
    EXPECT_EQ(valueOf(text), "");
    const Report numbers = restore(jsonOf("General & Privacy", {{number.substr(19), ""}}));
    EXPECT_EQ(numbers.resultOf(number), "left alone");
    EXPECT_EQ(valueOf(number), "4");
    EXPECT_EQ(restore(jsonOf("SetInformation", {{"DUID", ""}})).status, 0);
}

TEST_F(RestoreTest, OfSeveralMentionsTheLastOneHolds) {
    const Report report =
        restore(xmlOf(R"(<menu name="Picture"><property name="Backlight" value="12"/></menu>
                 <menu name="Picture"><property name="Backlight" value="13"/></menu>)"));
    EXPECT_EQ(report.root["properties"].size(), 1U);
    EXPECT_EQ(valueOf(backlight), "13");
    EXPECT_EQ(restore(R"({"Sound": {"Mute": {"Value": "0"}, "Mute": {"Value": "1"}}})").status, 0);
    EXPECT_EQ(valueOf(mute), "1");
}

TEST_F(RestoreTest, WhatIsNoTextCostsNothingElse) {
    const Report report = restore(R"({"Picture": {"Backlight": {"Value": ["12"]}, "Color": "51"},
                                      "Sound": {"Mute": {"Value": "1"}}, "Input": 3})");
    EXPECT_EQ(report.status, 3);
    EXPECT_EQ(report.count("malformed"), 3);
    EXPECT_EQ(report.resultOf("/Input"), "malformed");
    EXPECT_EQ(report.resultOf(mute), "applied");
}

TEST_F(RestoreTest, SettingsOfAModeAreAppliedInThatMode) {
    ASSERT_EQ(run({"set", backlight, "20"}).status, 0);
    const Report report =
        restore(xmlOf(R"(<menu name="Picture"><property name="Backlight" value="20"/>
                 <property name="Brightness" value="45"/><property name="Sharpness" value="11"/>
                 <property name="Picture Mode" value="0"/></menu>)"));
    EXPECT_EQ(report.status, 0);
    EXPECT_EQ(valueOf(mode), "0");
    EXPECT_EQ(valueOf(backlight), "20");
    EXPECT_EQ(valueOf("/Picture/Brightness"), "45");
    EXPECT_EQ(valueOf("/Picture/Sharpness"), "11");
}

TEST_F(RestoreTest, TellsWhatTheModeHeldThatASettingIsAppliedIn) {
    ASSERT_EQ(run({"set", mode, "3"}).status, 0);
    ASSERT_EQ(run({"set", backlight, "11"}).status, 0);
    ASSERT_EQ(run({"set", mode, "1"}).status, 0);
    ASSERT_EQ(run({"set", backlight, "35"}).status, 0);
    const Report report = restore(jsonOf("Picture", {{"Picture Mode", "3"}, {"Backlight", "35"}}));
    EXPECT_EQ(report.status, 0);
    EXPECT_EQ(report.resultOf(backlight), "applied");
    EXPECT_EQ(report.of(backlight, "before"), "11");
    EXPECT_EQ(valueOf(backlight), "35");
}

TEST_F(RestoreTest, DryRunTellsThatAnotherModeIsNotForeseen) {
    const std::string file =
        fileOf(jsonOf("Picture", {{"Picture Mode", "3"}, {"Backlight", "12"}}));
    const Outcome outcome = run({"restore", file, "--dry-run", "--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.messages, "klxctl: with another \"/Picture/Picture Mode\" the set may hold "
                                "other values and defaults than those that are told here\n");
    EXPECT_TRUE(jsonFrom(outcome.output)["uncertain"].asBool());
    EXPECT_EQ(valueOf(mode), "1");
}

TEST_F(RestoreTest, DryRunIsCertainWhereTheModeStays) {
    const std::string file =
        fileOf(jsonOf("Picture", {{"Picture Mode", "1"}, {"Backlight", "12"}}));
    const Outcome outcome = run({"restore", file, "--dry-run", "--json"});
    EXPECT_EQ(outcome.messages, "");
    EXPECT_FALSE(jsonFrom(outcome.output)["uncertain"].asBool());
}

TEST_F(RestoreTest, WhereOneSettingActsOnAnotherTheLastOneHolds) {
    const std::string protection = "/General/System Manager/Auto Protection Time";
    const std::string saver = "/General & Privacy/Power and Energy Saving/Screen Saver";
    const std::string before = valueOf(protection);
    ASSERT_NE(before, "3");
    const Report report = restore(xmlOf(
        R"(<menu name="General"><property name="System Manager">
           <property name="Auto Protection Time" value=")" +
        before + R"("/></property></menu>
           <menu name="General &amp; Privacy"><property name="Power and Energy Saving">
           <property name="Screen Saver" value="3"/></property></menu>)"));
    EXPECT_EQ(report.status, 3);
    EXPECT_EQ(report.resultOf(saver), "applied");
    EXPECT_EQ(report.resultOf(protection), "refused");
    EXPECT_EQ(report.of(protection, "held"), "3");
}

TEST_F(RestoreTest, WhereOneSettingActsOnAnotherNothingElseIsWrittenAgain) {
    const std::string protection = "/General/System Manager/Auto Protection Time";
    const std::string file = fileOf(xmlOf(
        R"(<menu name="General"><property name="System Manager">
           <property name="Auto Protection Time" value=")" +
        valueOf(protection) + R"("/></property></menu>
           <menu name="Picture"><property name="Color" value="50"/></menu>
           <menu name="General &amp; Privacy"><property name="Power and Energy Saving">
           <property name="Screen Saver" value="3"/></property></menu>)"));
    const Outcome outcome = tool().environment("KLX_LOG", "info").run({"restore", file, "--json"});
    EXPECT_EQ(reportIn(outcome).resultOf("/Picture/Color"), "unchanged");
    EXPECT_THAT(outcome.messages, HasSubstr("mapKeyID=[" + protection + "] value="));
    EXPECT_THAT(outcome.messages, testing::Not(HasSubstr("mapKeyID=[/Picture/Color] value=")));
}

TEST_F(RestoreTest, AValueThatStandsInNoMenuIsMalformed) {
    const Report report = restore(xmlOf(
        R"(<property name="Mute" value="1"/><menu name="Sound"><property name="Mute" value="1"/>
           </menu>)"));
    EXPECT_EQ(report.status, 3);
    EXPECT_EQ(report.resultOf("/Mute"), "malformed");
    EXPECT_EQ(report.resultOf(mute), "applied");
}

TEST_F(RestoreTest, DryRunTellsAndWritesNothing) {
    const Report report = restore(
        jsonOf("Picture", {{"Backlight", "12"}, {"Color", "50"}, {"Colour", "1"}}), "--dry-run");
    EXPECT_EQ(report.resultOf(backlight), "would apply");
    EXPECT_EQ(report.resultOf("/Picture/Color"), "unchanged");
    EXPECT_EQ(report.resultOf("/Picture/Colour"), "unknown");
    EXPECT_EQ(report.status, 3);
    EXPECT_TRUE(report.root["dryRun"].asBool());
    EXPECT_EQ(restore(jsonOf("Picture", {{"Backlight", "12"}}), "--dry-run").status, 0);
    EXPECT_EQ(valueOf(backlight), "35");
}

TEST_F(RestoreTest, TheTableHasALineForEachPropertyAndASummary) {
    const Outcome outcome = run(
        {"restore", fileOf(R"({"Picture": {"Backlight": {"Value": "12"}, "Color": {"Value": "50"},
                    "Tint": {"Value": ""}, "Contrast": {"Value": "-1"}, "Backligt": {"Value": "1"}},
                    "SetInformation": {"SerialNumber": {"Value": "x"}}})")});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.output,
              "PROPERTY                      RESULT      VALUE\n"
              "/Picture/Backlight            applied     \"35\" -> \"12\"\n"
              "/Picture/Backligt             unknown     did you mean \"/Picture/Backlight\"?\n"
              "/Picture/Color                unchanged   \"50\"\n"
              "/Picture/Contrast             refused     wanted \"-1\", holds \"95\"\n"
              "/Picture/Tint                 left alone  the document has no value\n"
              "/SetInformation/SerialNumber  read-only   wanted \"x\", holds \"" +
                  valueOf(fact) +
                  "\"\n\n"
                  "6 asked for: 1 applied, 1 unchanged, 1 left alone, 1 refused, 1 read-only, "
                  "1 unknown\n");
    EXPECT_EQ(outcome.messages, "");
}

TEST_F(RestoreTest, ReadsStandardInput) {
    const Outcome outcome = tool().runProgram(
        {"sh", "-c", R"("$0" restore - < "$1")", KLXCTL_TOOL,
         fileOf(xmlOf(R"(<menu name="Sound"><property name="Mute" value="1"/></menu>)"))});
    EXPECT_EQ(outcome.status, 0) << outcome.messages;
    EXPECT_EQ(valueOf(mute), "1");
}

TEST_F(RestoreTest, AnEmptyDocumentAsksForNothing) {
    for (const char* document : {"null", "{}", "<rm_as><deviceInfo/></rm_as>"}) {
        const Outcome outcome = run({"restore", fileOf(document)});
        EXPECT_EQ(outcome.status, 0) << document;
        EXPECT_EQ(outcome.output, "0 asked for\n");
    }
}

TEST_F(RestoreTest, RefusesWhatIsNoDocumentBeforeAnythingIsWritten) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", "it is empty"},
        {"Backlight=12", "begins neither as an XML nor as a JSON document"},
        {"[1]", "begins neither"},
        {"{\"Sound\": ", "not well-formed JSON"},
        {R"({"Sound": {"Mute": {"Value": "1"}}} {"Sound": {}})", "not well-formed JSON"},
        {R"({"Sound": {"Mute": {"Value": "1"}}} x)", "not well-formed JSON"},
        {"<rm_as><deviceInfo>", "not well-formed XML: line 1"},
        {"<rm_as/>", "no element \"deviceInfo\""},
        {xmlOf(R"(<menu name="Sound"><property name="Mute" value="1"/><property/></menu>)"),
         "the element in line 3 has no name"},
        {"<!DOCTYPE a [<!ENTITY b \"c\">]>\n<rm_as><deviceInfo/></rm_as>", "declares entities"},
        {std::string(R"({"a":)") + std::string(5000, '[') + "}", "not well-formed JSON"},
    };
    for (const auto& [document, message] : cases) {
        const Outcome outcome = run({"restore", fileOf(document)});
        EXPECT_EQ(outcome.status, 1) << document;
        EXPECT_EQ(outcome.output, "");
        EXPECT_THAT(outcome.messages, HasSubstr("klxctl: cannot read \""));
        EXPECT_THAT(outcome.messages, HasSubstr(message));
    }
    EXPECT_EQ(valueOf(mute), "0");
}

TEST_F(RestoreTest, TheFormatCanBeNamed) {
    const std::string file = fileOf(R"({"Sound": {"Mute": {"Value": "1"}}})");
    EXPECT_EQ(run({"restore", "--format", "xml", file}).status, 1);
    EXPECT_EQ(valueOf(mute), "0");
    EXPECT_EQ(run({"restore", "--format", "json", file}).status, 0);
    EXPECT_EQ(run({"restore", "--format", "yaml", file}).status, 2);
}

TEST_F(RestoreTest, AnEmptyFileIsToldWhateverItsFormat) {
    for (const char* format : {"xml", "json"}) {
        EXPECT_THAT(run({"restore", "--format", format, fileOf("")}).messages,
                    HasSubstr("it is empty"));
    }
}

TEST_F(RestoreTest, AStoreThatMayGrowNoFurtherIsTold) {
    const Outcome outcome = tool().runProgram(
        {"sh", "-c", R"(ulimit -f 0; exec "$0" restore "$1" --all-or-nothing | cat)", KLXCTL_TOOL,
         fileOf(jsonOf("Sound", {{"Mute", "1"}}))});
    EXPECT_THAT(outcome.output, HasSubstr("1 asked for: 1 refused"));
    EXPECT_THAT(outcome.messages, HasSubstr("the set is as it was"));
    EXPECT_EQ(valueOf(mute), "0");
}

TEST_F(RestoreTest, AMissingFileIsTold) {
    const std::string file = outputFolder() / "none";
    const Outcome outcome = run({"restore", file});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.messages,
              "klxctl: cannot read \"" + file + "\": No such file or directory\n");
    EXPECT_THAT(run({"restore", outputFolder()}).messages, HasSubstr("Is a directory"));
}

TEST_F(RestoreTest, BytesThatDocumentsCannotCarryAreNoDifference) {
    ASSERT_EQ(run({"set", text, "a\x01z\xff"}).status, 0);
    for (const char* format : {"xml", "json"}) {
        const std::string file = outputFolder() / "dumped";
        ASSERT_EQ(run({"dump", "Connection", "--format", format, "-o", file}).status, 0);
        EXPECT_EQ(report({"restore", file}).resultOf(text), "unchanged");
        EXPECT_EQ(run({"diff", file}).status, 0);
    }
    EXPECT_EQ(valueOf(text), "a\x01z\xff");
}

TEST_F(RestoreTest, TellsWhatWasDoneWhereTheReportCannotBeWritten) {
    const std::string file = fileOf(jsonOf("Picture", {{"Backlight", "12"}, {"Color", "999"}}));
    const Outcome outcome = tool().outputTo("/dev/full").run({"restore", file, "--all-or-nothing"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.messages,
              "klxctl: cannot write to standard output: No space left on device\n"
              "klxctl: the report is lost; it would have ended with: "
              "2 asked for: 1 refused, 1 put back\n"
              "klxctl: not everything could be held, so what had been changed was put back\n");
    EXPECT_EQ(valueOf(backlight), "35");
}

// The log has a line about a value that the set refuses. It does not end what is under way.
TEST_F(RestoreTest, IsCarriedThroughWhereNobodyReadsItsMessages) {
    const std::string file = fileOf(jsonOf("Picture", {{"Backlight", "999"}, {"Color", "51"}}));
    const ToolRun unread = tool().environment("KLX_LOG", "error").messagesUnread();
    const Report putBack = reportIn(unread.run({"restore", file, "--all-or-nothing", "--json"}));
    EXPECT_EQ(putBack.status, 3);
    EXPECT_EQ(putBack.resultOf("/Picture/Color"), "put back");
    EXPECT_EQ(valueOf("/Picture/Color"), "50");
    const Report applied = reportIn(unread.run({"restore", file, "--json"}));
    EXPECT_EQ(applied.status, 3);
    EXPECT_EQ(applied.resultOf(backlight), "refused");
    EXPECT_EQ(applied.resultOf("/Picture/Color"), "applied");
    EXPECT_EQ(valueOf("/Picture/Color"), "51");
}

TEST_F(RestoreTest, OfAHundredThousandUnknownNamesAppliesTheOthers) {
    Json::Value document;
    for (int index = 0; index < 100000; ++index) {
        document["Picture"]["Backlight " + std::to_string(index)]["Value"] = "1";
    }
    document["Picture"][std::string(1000000, 'x')]["Value"] = "1";
    document["Sound"]["Mute"]["Value"] = "1";
    const Report report = restore(Json::writeString(Json::StreamWriterBuilder(), document));
    EXPECT_EQ(report.status, 3);
    EXPECT_EQ(report.count("unknown"), 100001);
    EXPECT_EQ(report.count("applied"), 1);
    EXPECT_EQ(valueOf(mute), "1");
    const Outcome table = run({"restore", outputFolder() / "document"});
    EXPECT_EQ(table.status, 3);
    EXPECT_THAT(table.output, testing::EndsWith("\n\n100002 asked for: 1 unchanged, "
                                                "100001 unknown\n"));
    EXPECT_LT(table.output.size(), 30'000'000U);
}

TEST_F(RestoreTest, AValueOfManyMegabytesIsTold) {
    std::string value;
    value.resize(20'000'000, 'x');
    EXPECT_EQ(run({"restore", fileOf(xmlOf("<menu name=\"Sound\"><property name=\"Mute\" value=\"" +
                                           value + "\"/></menu>"))})
                  .status,
              1);
    const Report report = restore(jsonOf("Sound", {{"Mute", value}}));
    EXPECT_EQ(report.status, 3);
    EXPECT_EQ(report.resultOf(mute), "refused");
}
