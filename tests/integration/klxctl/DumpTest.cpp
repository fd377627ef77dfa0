#include "Categories.h"
#include "KlxctlTest.h"
#include "PropertyDirectory.h"

#include <gmock/gmock.h>
#include <json/json.h>

#include <sstream>

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class DumpTest : public KlxctlTest {
protected:
    /// The paths in the document that a dump prints; fails the test when it is no document.
    std::set<std::string> pathsIn(const std::vector<std::string>& arguments) const {
        std::vector<std::string> words = {"dump"};
        words.insert(words.end(), arguments.begin(), arguments.end());
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        EXPECT_EQ(outcome.messages, "");
        return PropertyDirectory::fromDocument(outcome.output).paths();
    }
};

Json::Value jsonOf(const std::string& document) {
    Json::Value root;
    std::istringstream stream(document);
    std::string errors;
    EXPECT_TRUE(Json::parseFromStream(Json::CharReaderBuilder(), stream, &root, &errors)) << errors;
    return root;
}

} // namespace

TEST_F(DumpTest, IsAnXmlDocumentOfTheSet) {
    const Outcome outcome = run({"dump"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, StartsWith("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                                           "<rm_as version=\"2.5\">\n"
                                           "  <deviceInfo devicetype=\"TV\">\n"));
    EXPECT_THAT(PropertyDirectory::fromDocument(outcome.output).paths(), Contains(number));
}

TEST_F(DumpTest, HoldsCurrentValues) {
    ASSERT_EQ(run({"set", number, "4"}).status, 0);
    EXPECT_THAT(
        run({"dump", number}).output,
        testing::ContainsRegex("<property name=\"Speed\" default=\"[^\"]*\" value=\"4\"/>"));
}

TEST_F(DumpTest, WithoutArgumentsIsTheRequestForAllTenCategories) {
    const std::set<std::string> paths = pathsIn({});
    EXPECT_THAT(paths, Contains(flag));
    EXPECT_THAT(paths, Not(Contains(text)));
    EXPECT_EQ(paths, pathsIn({"*"}));
}

TEST_F(DumpTest, OfTheOtherCategoryNamesIt) {
    const std::set<std::string> paths = pathsIn({"Connection"});
    EXPECT_THAT(paths, Contains(text));
    EXPECT_THAT(paths, testing::Each(StartsWith("/Connection/")));
}

TEST_F(DumpTest, OfEachCategoryHoldsThatCategoryOnly) {
    for (const std::string& category : menuCategories()) {
        EXPECT_THAT(pathsIn({category}), testing::Each(StartsWith("/" + category))) << category;
    }
}

TEST_F(DumpTest, OfGeneralBringsThePrivacyCategoryAlong) {
    EXPECT_THAT(pathsIn({"General"}), Contains(flag));
}

TEST_F(DumpTest, OfAPropertyHoldsThatPropertyOnly) {
    const std::set<std::string> expected = {number};
    EXPECT_EQ(pathsIn({number}), expected);
    EXPECT_EQ(pathsIn({number.substr(1)}), expected);
}

TEST_F(DumpTest, OfSeveralHoldsAllOfThem) {
    const std::set<std::string> paths = pathsIn({"Support", number, "/Connection", number});
    EXPECT_THAT(paths, Contains(number));
    EXPECT_THAT(paths, Contains(text));
    EXPECT_THAT(paths, Contains(StartsWith("/Support/")));
    EXPECT_THAT(paths, Not(Contains(flag)));
}

TEST_F(DumpTest, TakesASlashAtTheEndOfACategory) {
    EXPECT_EQ(pathsIn({"Support/"}), pathsIn({"Support"}));
}

TEST_F(DumpTest, OfAnUnknownPropertyWritesNoDocument) {
    const std::filesystem::path file = outputFolder() / "out.xml";
    const Outcome outcome = run({"dump", "Support", number + "s", "-o", file});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.messages, HasSubstr("did you mean\n  \"" + number + "\"\n"));
    EXPECT_THAT(namesIn(outputFolder()), IsEmpty());
}

TEST_F(DumpTest, OfAnUnknownCategoryNamesTheNearest) {
    const Outcome outcome = run({"dump", "Pictures"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.messages,
              "klxctl: there is no category \"Pictures\"; did you mean\n  \"Picture\"\n");
}

TEST_F(DumpTest, ReportsAllThatIsUnknown) {
    const Outcome outcome = run({"dump", "Nowhere", "Support/Nothing", "Nobody"});
    EXPECT_EQ(outcome.status, 2);
    for (const char* name : {"\"Nowhere\"", "\"/Support/Nothing\"", "\"Nobody\""}) {
        EXPECT_THAT(outcome.messages, HasSubstr(name));
    }
}

TEST_F(DumpTest, OfEverythingAndMoreIsAnError) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"dump", "*", "Connection"},
          {"dump", "Connection", "*"},
          {"dump", "*/Speed"}}) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.output, "");
        EXPECT_THAT(outcome.messages, HasSubstr("\"*\" stands for everything by itself"));
    }
}

TEST_F(DumpTest, OfANameWithoutACategoryIsAnError) {
    for (const char* word : {"", "/"}) {
        const Outcome outcome = run({"dump", word});
        EXPECT_EQ(outcome.status, 2) << word;
        EXPECT_THAT(outcome.messages, HasSubstr("names no category"));
    }
}

TEST_F(DumpTest, InXmlIsTheDefault) {
    EXPECT_EQ(run({"dump", "--format", "xml"}).output, run({"dump"}).output);
}

TEST_F(DumpTest, InJsonHoldsCurrentAndDefaultValues) {
    ASSERT_EQ(run({"set", number, "4"}).status, 0);
    const Outcome outcome = run({"dump", "--format", "json", number, "Connection"});
    EXPECT_EQ(outcome.status, 0) << outcome.messages;
    const Json::Value root = jsonOf(outcome.output);
    const Json::Value& speed =
        root["General & Privacy"]["Accessibility/Voice Guide Settings/Speed"];
    EXPECT_EQ(speed["Value"].asString(), "4");
    EXPECT_EQ(speed["Default"].asString(), "2");
    EXPECT_FALSE(root["Connection"].empty());
}

TEST_F(DumpTest, InJsonWithoutArgumentsIsTheRequestForAllTenCategories) {
    const Outcome outcome = run({"dump", "--format", "json"});
    EXPECT_EQ(outcome.status, 0);
    const Json::Value root = jsonOf(outcome.output);
    EXPECT_TRUE(root.isMember("Support"));
    EXPECT_FALSE(root.isMember("Connection"));
}

TEST_F(DumpTest, InJsonEndsTheLastLine) {
    EXPECT_THAT(run({"dump", "--format", "json", "Support"}).output, testing::EndsWith("}\n"));
}

TEST_F(DumpTest, InJsonOfAnUnknownPropertyWritesNoDocument) {
    const Outcome outcome = run({"dump", "--format", "json", "Support", number + "s"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.messages, HasSubstr("did you mean\n  \"" + number + "\"\n"));
}

TEST_F(DumpTest, InJsonIntoAFileEqualsStandardOutput) {
    const std::filesystem::path file = outputFolder() / "out.json";
    ASSERT_EQ(run({"dump", "--format", "json", "-o", file}).status, 0);
    EXPECT_EQ(contentOf(file), run({"dump", "--format", "json"}).output);
}
