#include "Completion.h"

#include "KlxctlTest.h"

#include <CLI/CLI.hpp>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

/// A tool with a command for each kind of argument.
class CompletionTest : public testing::Test {
protected:
    CompletionTest() {
        CLI::App* const get = app.add_subcommand("get", "");
        get->add_option("PATH", words, "")->expected(1, -1);
        CLI::App* const set = app.add_subcommand("set", "");
        set->add_option("PATH", word, "");
        set->add_option("VALUE", word, "");
        CLI::App* const dump = app.add_subcommand("dump", "");
        dump->add_option("CATEGORY[/PATH]", words, "")->expected(0, -1);
        dump->add_option("--format", word, "")->option_text("FORMAT");
        dump->add_option("-o,--output", word, "")->option_text("FILE");
        dump->add_flag("--json", flag, "");
        CLI::App* const fms = app.add_subcommand("fms", "");
        fms->add_subcommand("get", "")->add_option("--type", word, "")->option_text("TYPE");
        CLI::App* const port = app.add_subcommand("port", "");
        port->add_option("NAME", word, "");
        port->add_option("STATE", word, "");
        app.add_subcommand("hidden", "")->group("");
    }

    std::vector<std::string> complete(const std::vector<std::string>& given) const {
        return completions(app, given,
                           {[] {
                                return std::vector<std::string>{
                                    "/A & B/Sub+/One", "/A & B/Sub+/Two",    "/A & B/Three",
                                    "/A & B/Three D",  "/Deep/Only/Way/End", "/Slash//ed/In/x//y",
                                    "/Slash//ed/In/z"};
                            },
                            [] {
                                return std::vector<std::string>{"HDMI2", "HDMI1", "AV"};
                            }});
    }

    CLI::App app{"", "tool"};
    std::vector<std::string> words;
    std::string word;
    bool flag = false;
};

} // namespace

TEST_F(CompletionTest, OffersTheCommandsThatArePlain) {
    EXPECT_THAT(complete({}), ElementsAre("dump", "fms", "get", "port", "set"));
    EXPECT_THAT(complete({""}), ElementsAre("dump", "fms", "get", "port", "set"));
    EXPECT_THAT(complete({"f"}), ElementsAre("fms"));
    EXPECT_THAT(complete({"fms", ""}), ElementsAre("get"));
}

TEST_F(CompletionTest, OffersNothingForAnUnknownCommand) {
    EXPECT_THAT(complete({"got", ""}), IsEmpty());
    EXPECT_THAT(complete({"got"}), IsEmpty());
}

TEST_F(CompletionTest, OffersOptionsOfTheCommand) {
    EXPECT_THAT(complete({"dump", "-"}),
                ElementsAre("--format", "--help", "--json", "--output", "-h", "-o"));
    EXPECT_THAT(complete({"dump", "--f"}), ElementsAre("--format"));
    EXPECT_THAT(complete({"fms", "get", "--t"}), ElementsAre("--type"));
}

TEST_F(CompletionTest, OffersNoOptionsBehindTwoHyphens) {
    EXPECT_THAT(complete({"dump", "--", "-"}), IsEmpty());
    EXPECT_THAT(complete({"get", "--", "/D"}), ElementsAre("/Deep/Only/Way/End"));
}

TEST_F(CompletionTest, OffersTheValuesOfAnOption) {
    EXPECT_THAT(complete({"dump", "--format", ""}), ElementsAre("json", "xml"));
    EXPECT_THAT(complete({"dump", "--format", "x"}), ElementsAre("xml"));
    EXPECT_THAT(complete({"fms", "get", "--type", ""}), ElementsAre("bool", "int", "string"));
    EXPECT_THAT(complete({"dump", "-o", "any"}), ElementsAre(anyFile));
}

TEST_F(CompletionTest, TakesAValueThatIsJoinedToItsOption) {
    EXPECT_THAT(complete({"dump", "--format=j"}), ElementsAre("--format=json"));
    EXPECT_THAT(complete({"dump", "--format", "=", "j"}), ElementsAre("json"));
    EXPECT_THAT(complete({"dump", "--format", "="}), ElementsAre("json", "xml"));
    EXPECT_THAT(complete({"dump", "--json="}), IsEmpty());
    EXPECT_THAT(complete({"dump", "--no="}), IsEmpty());
}

TEST_F(CompletionTest, GoesOnBehindAnOption) {
    EXPECT_THAT(complete({"dump", "--format", "xml", "De"}), ElementsAre("Deep/Only/Way/End"));
    EXPECT_THAT(complete({"dump", "--format=xml", "De"}), ElementsAre("Deep/Only/Way/End"));
    EXPECT_THAT(complete({"dump", "--json", "De"}), ElementsAre("Deep/Only/Way/End"));
}

TEST_F(CompletionTest, LetsAPathGrowLevelByLevel) {
    EXPECT_THAT(complete({"get", ""}), ElementsAre("/A & B/", "/Deep/", "/Slash//ed/"));
    EXPECT_THAT(complete({"get", "/A"}),
                ElementsAre("/A & B/Sub+/", "/A & B/Three", "/A & B/Three D"));
    EXPECT_THAT(complete({"get", "/A & B/S"}), ElementsAre("/A & B/Sub+/One", "/A & B/Sub+/Two"));
    EXPECT_THAT(complete({"get", "/A & B/Three"}), ElementsAre("/A & B/Three", "/A & B/Three D"));
    EXPECT_THAT(complete({"get", "/a"}), IsEmpty());
}

TEST_F(CompletionTest, GoesToTheEndOfAPathThatDividesNowhere) {
    EXPECT_THAT(complete({"get", "/D"}), ElementsAre("/Deep/Only/Way/End"));
}

TEST_F(CompletionTest, KeepsDoubledSlashesTogether) {
    EXPECT_THAT(complete({"get", "/S"}), ElementsAre("/Slash//ed/In/x//y", "/Slash//ed/In/z"));
}

TEST_F(CompletionTest, OffersPathsForEveryPlaceThatTakesOne) {
    EXPECT_THAT(complete({"get", "/x", "/y", "/D"}), ElementsAre("/Deep/Only/Way/End"));
    EXPECT_THAT(complete({"set", "/D"}), ElementsAre("/Deep/Only/Way/End"));
    EXPECT_THAT(complete({"set", "/x", "/D"}), IsEmpty());
    EXPECT_THAT(complete({"set", "/x", "1", "/D"}), IsEmpty());
}

TEST_F(CompletionTest, TakesACategoryWithOrWithoutItsSlash) {
    EXPECT_THAT(complete({"dump", ""}), ElementsAre("A & B/", "Deep/", "Slash//ed/"));
    EXPECT_THAT(complete({"dump", "/D"}), ElementsAre("/Deep/Only/Way/End"));
}

TEST_F(CompletionTest, OffersInputsAndTheStatesThatTheyCanShow) {
    EXPECT_THAT(complete({"port", ""}), ElementsAre("AV", "HDMI1", "HDMI2"));
    EXPECT_THAT(complete({"port", "H"}), ElementsAre("HDMI1", "HDMI2"));
    EXPECT_THAT(complete({"port", "AV", ""}), ElementsAre("connected", "disconnected"));
}

TEST_F(KlxctlTest, CompleteOffersTheInputsThatPortTakes) {
    EXPECT_EQ(run({"complete", "--", "port", "HD"}).output, "HDMI1\nHDMI2\nHDMI3\nHDMI4\n");
    EXPECT_THAT(run({"complete", "--", "port", ""}).output, Not(testing::HasSubstr("USB")));
}

TEST_F(KlxctlTest, CompletePrintsWhatTheLastWordCouldBecome) {
    const Outcome outcome = run({"complete", "--", "get", "/Picture/Contr"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "/Picture/Contrast\n/Picture/Contrast Enhancer\n");
    EXPECT_EQ(outcome.messages, "");
}

TEST_F(KlxctlTest, CompleteTakesWordsThatAreOptionsAndCommands) {
    EXPECT_EQ(run({"complete", "--", "dump", "--fo"}).output, "--format\n");
    EXPECT_EQ(run({"complete", "--", "fms", "ge"}).output, "get\n");
    EXPECT_EQ(run({"complete", "--", "get", "--", "/Picture/Ti"}).output, "/Picture/Tint\n");
    EXPECT_THAT(run({"complete"}).output, testing::HasSubstr("dump\n"));
    EXPECT_THAT(run({"complete"}).output, Not(testing::HasSubstr("complete")));
}

TEST_F(KlxctlTest, CompleteReadsNoProperty) {
    const Outcome outcome = tool()
                                .environment("KLX_PROFILE", "/no/such/profile")
                                .run({"complete", "--", "get", "/Picture/Ti"});
    EXPECT_EQ(outcome.output, "/Picture/Tint\n");
    EXPECT_THAT(namesIn(stateFolder()), IsEmpty());
}
