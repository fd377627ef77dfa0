#include "RestoreTest.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

class DiffTest : public RestoreTest {
protected:
    std::string named(const std::string& name, const std::string& document) const {
        writeFile(outputFolder() / name, document);
        return outputFolder() / name;
    }

    std::string dumped(const std::string& name, const std::string& format) const {
        std::string file = outputFolder() / name;
        EXPECT_EQ(run({"dump", "Picture", "Input", "--format", format, "-o", file}).status, 0);
        return file;
    }
};

} // namespace

TEST_F(DiffTest, OfADocumentThatWasJustTakenIsNone) {
    for (const char* format : {"xml", "json"}) {
        const Outcome outcome = run({"diff", dumped("dump", format)});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.messages, "");
    }
}

TEST_F(DiffTest, OfADocumentAndTheSetNamesBothValues) {
    const std::string file = dumped("dump", "xml");
    ASSERT_EQ(run({"set", backlight, "12"}).status, 0);
    const Outcome outcome = run({"diff", file});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.messages, "");
    const std::size_t wide = file.size() + 2;
    EXPECT_EQ(outcome.output, "PROPERTY            \"" + file +
                                  "\"  the set\n/Picture/Backlight  \"35\"" +
                                  std::string(wide - 4, ' ') + "  \"12\"\n");
}

TEST_F(DiffTest, OfTwoDocumentsOfBothFormsComparesValues) {
    const std::string before = dumped("before", "xml");
    ASSERT_EQ(run({"set", backlight, "12"}).status, 0);
    const std::string after = dumped("after", "json");
    const Report report = this->report({"diff", before, after});
    EXPECT_EQ(report.status, 1);
    bool isFound = false;
    for (const Json::Value& entry : report.root["differences"]) {
        if (entry["path"] == backlight) {
            isFound = true;
            EXPECT_EQ(entry["first"], "35");
            EXPECT_EQ(entry["second"], "12");
        } else {
            // The JSON document has no sources of which the library keeps no record.
            EXPECT_THAT(entry["path"].asString(), HasSubstr("/Source_Connect/"));
            EXPECT_FALSE(entry.isMember("second"));
        }
    }
    EXPECT_TRUE(isFound);
}

TEST_F(DiffTest, IsOrderedByPath) {
    const std::string first =
        named("first", R"({"b": {"x": {"Value": "1"}}, "B": {"x": {"Value": "1"}},
                           "a b": {"x": {"Value": "1"}}, "a": {"x": {"Value": "1"}}})");
    const Report report = this->report({"diff", first, named("second", "{}")});
    std::vector<std::string> paths;
    for (const Json::Value& entry : report.root["differences"]) {
        paths.push_back(entry["path"].asString());
    }
    EXPECT_THAT(paths, testing::ElementsAre("/B/x", "/a b/x", "/a/x", "/b/x"));
}

TEST_F(DiffTest, TellsWhatOneSideLacks) {
    const Outcome outcome =
        run({"diff", named("1", R"({"A": {"only": {"Value": ""}, "none": {}}})"),
             named("2", R"({"A": {"none": {"Value": "x"}, "same": {"Value": "y"}}})")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, testing::ContainsRegex("/A/none +\\(no value\\) +\"x\"\n"));
    EXPECT_THAT(outcome.output, testing::ContainsRegex("/A/only +\"\" +\\(not there\\)\n"));
    EXPECT_THAT(outcome.output, testing::ContainsRegex("/A/same +\\(not there\\) +\"y\"\n"));
}

TEST_F(DiffTest, OfOneHugeValueIsNoLongerThanIt) {
    Json::Value document;
    for (int index = 0; index < 1000; ++index) {
        document["A"]["name " + std::to_string(index)]["Value"] = "1";
    }
    document["A"]["huge"]["Value"] = std::string(1'000'000, 'x');
    const Outcome outcome =
        run({"diff", named("1", Json::writeString(Json::StreamWriterBuilder(), document)),
             named("2", "{}")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, HasSubstr("x\"  (not there)\n/A/name 0 "));
    EXPECT_LT(outcome.output.size(), 1'500'000U);
}

TEST_F(DiffTest, InJsonTellsWhatOneSideLacks) {
    const Report report =
        this->report({"diff", named("1", R"({"A": {"only": {"Value": ""}, "none": {}}})"),
                      named("2", R"({"A": {"none": {"Value": "x"}}})")});
    const Json::Value& differences = report.root["differences"];
    ASSERT_EQ(differences.size(), 2U);
    EXPECT_TRUE(differences[0]["first"].isNull() && differences[0].isMember("first"));
    EXPECT_EQ(differences[0]["second"], "x");
    EXPECT_EQ(differences[1]["first"], "");
    EXPECT_FALSE(differences[1].isMember("second"));
}

TEST_F(DiffTest, WithoutADifferenceIsAnEmptyListInJson) {
    const std::string file = dumped("dump", "json");
    const Report report = this->report({"diff", file, file});
    EXPECT_EQ(report.status, 0);
    EXPECT_TRUE(report.root["differences"].isArray());
    EXPECT_TRUE(report.root["differences"].empty());
}

TEST_F(DiffTest, TellsAPathThatTheSetLacks) {
    const std::string file = named("1", R"({"A": {"b": {"Value": "1"}}})");
    const Outcome outcome = tool().environment("KLX_LOG", "warning").run({"diff", file, "--json"});
    EXPECT_EQ(outcome.messages, "");
    const Report report = reportIn(outcome);
    EXPECT_EQ(report.status, 1);
    EXPECT_FALSE(report.root["differences"][0].isMember("second"));
}

TEST_F(DiffTest, ComparesNumbersAsNumbersAndTextsAsTexts) {
    const std::string keyboard = text.substr(12);
    const auto document = [&keyboard](const std::string& value) {
        return R"({"Picture": {"Backlight": {"Value": ")" + value + R"("}}, "Connection": {")" +
               keyboard + R"(": {"Value": ")" + value + "\"}}}";
    };
    const Report report =
        this->report({"diff", named("1", document("7")), named("2", document("07"))});
    ASSERT_EQ(report.root["differences"].size(), 1U);
    EXPECT_EQ(report.root["differences"][0]["path"], text);
}

TEST_F(DiffTest, ATextThatTheSetHoldsToTheByteIsNoDifference) {
    const std::string keyboard = text.substr(12);
    const std::string file =
        named("bytes", R"({"Connection": {")" + keyboard + "\": {\"Value\": \"A\xff\\u0007\"}}}");
    EXPECT_EQ(run({"diff", file}).status, 1);
    ASSERT_EQ(run({"restore", file}).status, 0);
    EXPECT_EQ(valueOf(text), "A\xff\x07");
    EXPECT_EQ(run({"diff", file}).status, 0);
}

TEST_F(DiffTest, TellsWhatStandsInAValuesPlace) {
    const std::string list = named("list", R"({"Sound": {"Mute": {"Value": [1]}}})");
    const std::string none = named("none", R"({"Sound": {"Mute": {}}})");
    EXPECT_THAT(run({"diff", list, none}).output, HasSubstr("(malformed)"));
    const Report report = this->report({"diff", list, none});
    EXPECT_EQ(report.status, 1);
    EXPECT_EQ(report.root["differences"][0]["malformed"][0], "first");
    EXPECT_EQ(run({"diff", list, list}).status, 0);
}

TEST_F(DiffTest, ReadsStandardInput) {
    const Outcome outcome =
        tool().runProgram({"sh", "-c", R"("$0" dump Picture | "$0" diff - )", KLXCTL_TOOL});
    EXPECT_EQ(outcome.status, 0) << outcome.messages;
}

TEST_F(DiffTest, TroubleIsNoDifference) {
    const std::string file = dumped("dump", "xml");
    const std::string missing = outputFolder() / "none";
    const std::string broken = named("broken", "<rm_as>");
    for (const std::vector<std::string>& words : {std::vector<std::string>{"diff"},
                                                  {"diff", missing},
                                                  {"diff", file, missing},
                                                  {"diff", broken},
                                                  {"diff", "-", "-"},
                                                  {"diff", file, file, file},
                                                  {"diff", ""}}) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 2) << testing::PrintToString(words);
        EXPECT_EQ(outcome.output, "");
        EXPECT_NE(outcome.messages, "");
    }
    ASSERT_EQ(run({"set", backlight, "12"}).status, 0);
    EXPECT_EQ(tool().outputTo("/dev/full").run({"diff", file}).status, 2);
    EXPECT_EQ(tool().outputClosed().run({"diff", file}).status, 2);
}
