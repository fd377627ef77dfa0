#include "KlxctlTest.h"

#include <gmock/gmock.h>
#include <json/json.h>

#include <algorithm>
#include <regex>
#include <sstream>

namespace fs = std::filesystem;
using testing::ContainsRegex;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class ListTest : public KlxctlTest {
protected:
    /// What `list --json` prints; fails the test when that is no array.
    static Json::Value listedBy(const ToolRun& tool, std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"list", "--json"});
        const Outcome outcome = tool.run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        Json::Value list;
        std::istringstream stream(outcome.output);
        std::string errors;
        EXPECT_TRUE(Json::parseFromStream(Json::CharReaderBuilder(), stream, &list, &errors))
            << errors;
        EXPECT_TRUE(list.isArray());
        return list;
    }

    Json::Value listed(const std::vector<std::string>& arguments = {}) const {
        return listedBy(tool(), arguments);
    }

    static std::vector<std::string> pathsOf(const Json::Value& list) {
        std::vector<std::string> paths;
        for (const Json::Value& each : list) {
            paths.push_back(each["path"].asString());
        }
        return paths;
    }

    std::vector<std::string> pathsIn(const std::vector<std::string>& arguments) const {
        return pathsOf(listed(arguments));
    }

    Json::Value only(const std::string& path) const {
        const Json::Value list = listed({path});
        EXPECT_EQ(list.size(), 1U);
        return list[0];
    }
};

} // namespace

TEST_F(ListTest, ShowsPathValueDefaultChangeAndWritability) {
    ASSERT_EQ(run({"set", "/Picture/Backlight", "17"}).status, 0);
    const std::string table = run({"list", "Picture"}).output;
    EXPECT_THAT(table, StartsWith("PROPERTY "));
    EXPECT_THAT(table, ContainsRegex("\n/Picture/Backlight +17 +[0-9]+ +yes +yes\n"));
    EXPECT_THAT(table, ContainsRegex("\n/Picture/Contrast +[0-9]+ +[0-9]+ +yes\n"));
}

TEST_F(ListTest, ShowsThatAFactDiffersFromItsDefaultToo) {
    const std::string table = run({"list", "SetInformation/AutoReset_Count"}).output;
    EXPECT_THAT(table, ContainsRegex("\n/SetInformation/AutoReset_Count +2 +0 +yes +no\n"));
}

TEST_F(ListTest, HoldsEveryPropertyInByteOrder) {
    const std::vector<std::string> paths = pathsIn({});
    EXPECT_EQ(paths.size(), 122U);
    EXPECT_TRUE(std::is_sorted(paths.begin(), paths.end()));
}

TEST_F(ListTest, ValuesAreThoseOfGet) {
    std::vector<std::string> arguments = {"get"};
    std::string expected;
    for (const Json::Value& each : listed()) {
        arguments.push_back(each["path"].asString());
        expected += each["path"].asString() + "\t" + each["value"].asString() + "\n";
    }
    EXPECT_EQ(run(arguments).output, expected);
}

TEST_F(ListTest, JsonTellsDefaultsOfEveryKind) {
    EXPECT_EQ(only("/Network/IPMode")["default"], "DHCP");
    EXPECT_EQ(only("/Network/IP")["default"], "");
    EXPECT_EQ(only(number)["default"], "2");
    EXPECT_TRUE(only("/SetInformation/ProductType")["default"].isNull());
}

TEST_F(ListTest, JsonTellsWhatIsWritableAndChanged) {
    ASSERT_EQ(run({"set", number, "4"}).status, 0);
    EXPECT_EQ(only(number)["writable"], true);
    EXPECT_EQ(only(number)["changed"], true);
    EXPECT_EQ(only(flag)["changed"], false);
    EXPECT_EQ(only("/SetInformation/SerialNumber")["writable"], false);
    EXPECT_EQ(only("/SetInformation/SerialNumber")["changed"], false);
}

TEST_F(ListTest, OfACategoryHoldsThatOneOnly) {
    const std::vector<std::string> general = pathsIn({"General"});
    EXPECT_THAT(general, Each(StartsWith("/General/")));
    EXPECT_THAT(general, Not(IsEmpty()));
    EXPECT_EQ(pathsIn({"/General/"}), general);
}

TEST_F(ListTest, OfSeveralCategoriesAndMenusHoldsEachPropertyOnce) {
    const std::vector<std::string> paths =
        pathsIn({"Support", "Picture/Expert Settings", "Support"});
    EXPECT_THAT(paths, ElementsAre("/Picture/Expert Settings/Apply Picture Settings",
                                   "/Picture/Expert Settings/Film Mode",
                                   "/Support/Software Update/Update with Cellular Network",
                                   "/Support/SoftwareUpdate_AutoUpdate"));
}

TEST_F(ListTest, ChangedIsNothingOnAFreshSetAndThenWhatWasSet) {
    EXPECT_THAT(pathsIn({"--changed"}), IsEmpty());
    ASSERT_EQ(run({"set", number, "4"}).status, 0);
    EXPECT_THAT(pathsIn({"--changed"}), ElementsAre(number));
    EXPECT_THAT(pathsIn({"--changed", "Picture"}), IsEmpty());
}

TEST_F(ListTest, ValueThatCannotBeReadIsNotChangedUnlessItIsAText) {
    ASSERT_EQ(run({"get", text}).status, 0);
    fs::permissions(stateFolder(), fs::perms::none);
    const std::vector<std::string> changed =
        pathsOf(listedBy(tool().underFilePermissions(), {"--changed", "Picture", text}));
    EXPECT_THAT(changed, ElementsAre(text));
}

TEST_F(ListTest, NumberThatCannotBeReadIsToldAsZero) {
    ASSERT_EQ(run({"get", number}).status, 0);
    fs::permissions(stateFolder(), fs::perms::none);
    const Json::Value list = listedBy(tool().underFilePermissions(), {number});
    EXPECT_EQ(list[0]["value"], "0");
}

TEST_F(ListTest, WritableLeavesOutWhatIsReadOnly) {
    const Json::Value writable = listed({"--writable"});
    EXPECT_EQ(writable.size(), 68U);
    for (const Json::Value& each : writable) {
        EXPECT_EQ(each["writable"], true) << each["path"];
    }
    EXPECT_THAT(pathsIn({"--writable", "Network"}), IsEmpty());
}

TEST_F(ListTest, WritableHoldsWhatCanBeWrittenWhoseFlagIsClear) {
    const Json::Value list = listed({"--writable", "/Sound/Sound Output"});
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0]["flag"], false);
    EXPECT_EQ(only(number)["flag"], true);
}

TEST_F(ListTest, JsonTellsOfReadOnlyPropertiesWhetherTheyDifferFromTheirDefault) {
    const Json::Value resets = only("/SetInformation/AutoReset_Count");
    EXPECT_EQ(resets["value"], "2");
    EXPECT_EQ(resets["default"], "0");
    EXPECT_EQ(resets["differs"], true);
    EXPECT_EQ(resets["changed"], false);
    EXPECT_EQ(only("/SetInformation/ProductType")["differs"], false);
    EXPECT_EQ(only(number)["differs"], false);
}

TEST_F(ListTest, HealthyDeskIsWarnedOfPortsWithoutANameAndOfItsImageOnly) {
    const Outcome outcome = tool().runProgram({"env", "-u", "KLX_LOG", KLXCTL_TOOL, "list"});
    EXPECT_EQ(outcome.status, 0);
    const auto warning = [](const std::string& told) {
        return R"(warning KLX: [A-Za-z]+\.cpp: [A-Za-z]+\([0-9]+\) > )" + told + "\n";
    };
    // A machine may be marked as a set is.
    EXPECT_TRUE(std::regex_match(outcome.messages,
                                 std::regex("(" + warning("FAILURE while getting image type") +
                                            ")?(" + warning("Failed to get port status") + "){5}")))
        << outcome.messages;
}

TEST_F(ListTest, OfAnUnknownCategoryIsAnErrorThatNamesTheNearest) {
    const Outcome outcome = run({"list", "Pictur"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.messages, HasSubstr("\"Pictur\"; did you mean\n  \"Picture\"\n"));
    EXPECT_EQ(run({"list", ""}).status, 2);
}

TEST_F(ListTest, OfAnUnknownPathIsAnErrorThatNamesTheNearest) {
    for (const std::string word : {"/Picture/Backligh", "Picture/Backligh", "Backlight"}) {
        const Outcome outcome = run({"list", word});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.messages, "klxctl: there is no category, menu or property \"" + word +
                                        "\"; did you mean\n  \"/Picture/Backlight\"\n");
    }
}

TEST_F(ListTest, OfAnUnknownNameThatResemblesNoneTellsHowToSeeAll) {
    EXPECT_THAT(run({"list", "Xyzzy"}).messages,
                HasSubstr("nor one of a similar name; \"klxctl list\" shows what there is"));
}

TEST_F(ListTest, IsColouredOnATerminalOnly) {
    EXPECT_THAT(run({"list", "Network"}).output, Not(HasSubstr("\033")));
    EXPECT_THAT(onATerminal(tool(), {"list", "Network"}), HasSubstr("\033["));
    EXPECT_THAT(onATerminal(tool(), {"list", "--json", "Network"}), Not(HasSubstr("\033")));
}

TEST_F(ListTest, IsNeverColouredWithNoColor) {
    EXPECT_THAT(onATerminal(tool().environment("NO_COLOR", "1"), {"list", "Network"}),
                Not(HasSubstr("\033")));
}
