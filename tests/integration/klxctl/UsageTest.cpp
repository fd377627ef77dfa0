#include "KlxctlTest.h"

#include <gmock/gmock.h>

#include <iterator>
#include <sstream>

using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::StartsWith;

namespace {

void expectHelp(const Outcome& outcome, const std::vector<std::string>& parts) {
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.messages, "");
    for (const std::string& part : parts) {
        EXPECT_THAT(outcome.output, HasSubstr(part));
    }
}

void expectUsageError(const Outcome& outcome, const std::string& part) {
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.messages, StartsWith("klxctl: "));
    EXPECT_THAT(outcome.messages, HasSubstr(part));
    EXPECT_THAT(outcome.messages, EndsWith("\n"));
}

class ManualTest : public KlxctlTest {
protected:
    /// What can follow some words, as the tool itself tells it.
    std::vector<std::string> candidates(std::vector<std::string> words,
                                        const std::string& beginning) const {
        words.insert(words.begin(), {"complete", "--"});
        words.push_back(beginning);
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        std::istringstream lines(outcome.output);
        return {std::istream_iterator<std::string>(lines), {}};
    }

    std::vector<std::vector<std::string>> commands() const {
        std::vector<std::vector<std::string>> found;
        for (const std::string& name : candidates({}, "")) {
            if (name != "fms") {
                found.push_back({name});
            }
        }
        for (const std::string& name : candidates({"fms"}, "")) {
            found.push_back({"fms", name});
        }
        return found;
    }
};

/// The manual's section about a command; "" when there is none.
std::string sectionOf(const std::string& manual, const std::vector<std::string>& command) {
    std::string heading = "\n.SS";
    for (const std::string& word : command) {
        heading += " " + word;
    }
    const std::size_t begin = manual.find(heading + "\n");
    return begin == std::string::npos
               ? ""
               : manual.substr(begin, manual.find("\n.S", begin + 1) - begin);
}

/// A hyphen that is to be one stands behind a backslash there.
std::string asInManual(const std::string& option) {
    std::string written;
    for (const char character : option) {
        written += character == '-' ? "\\-" : std::string(1, character);
    }
    return written;
}

} // namespace

TEST_F(KlxctlTest, HelpNamesEveryCommandAndEveryExitStatus) {
    expectHelp(run({"--help"}), {"Usage: klxctl", "get ", "set ", "dump ", "list ", "inputs ",
                                 "port ", "stat ", "fms ", "restore ", "reset ", "diff ", "0 done",
                                 "1 the operation", "2 wrong arguments", "3 the set", "KLX_LOG"});
    EXPECT_EQ(run({"-h"}).output, run({"--help"}).output);
}

TEST_F(KlxctlTest, HelpOfACommandTellsItsArguments) {
    expectHelp(run({"get", "--help"}), {"Usage: klxctl get", "PATH", "/Picture/Backlight"});
    expectHelp(run({"set", "--help"}), {"Usage: klxctl set", "PATH VALUE", "exit status 3"});
    expectHelp(run({"dump", "--help"}),
               {"Usage: klxctl dump", "CATEGORY[/PATH]", "--format", "-o,--output FILE", "\"*\"",
                "General & Privacy", "Connection"});
    expectHelp(run({"restore", "--help"}),
               {"Usage: klxctl restore", "FILE", "--format FORMAT", "--settings-only", "--dry-run",
                "--all-or-nothing", "--json", "Exit status 3"});
    expectHelp(run({"reset", "--help"}), {"Usage: klxctl reset", "PATH", "--all ", "--dry-run",
                                          "--all-or-nothing", "--json"});
    expectHelp(run({"diff", "--help"}),
               {"Usage: klxctl diff [OPTIONS] FILE [OTHER]\n", "--json", "1 differences"});
    expectHelp(run({"list", "--help"}),
               {"Usage: klxctl list", "CATEGORY", "--changed", "--writable", "--json"});
    expectHelp(run({"inputs", "--help"}), {"Usage: klxctl inputs", "--json"});
    expectHelp(run({"port", "--help"}), {"Usage: klxctl port", "NAME STATE", "HDMI"});
    expectHelp(run({"stat", "--help"}), {"Usage: klxctl stat", "--json", "--watch SECONDS"});
    expectHelp(run({"fms", "--help"}), {"Usage: klxctl fms", "get ", "set "});
    expectHelp(run({"fms", "get", "--help"}), {"Usage: klxctl fms get", "KEY", "--type TYPE"});
    expectHelp(run({"fms", "set", "--help"}), {"Usage: klxctl fms set", "KEY VALUE", "_ / : + -"});
}

TEST_F(KlxctlTest, VersionIsTheProjects) {
    EXPECT_EQ(run({"--version"}).output, "klxctl " KLX_VERSION "\n");
}

TEST_F(KlxctlTest, HelpNeedsNoPlatform) {
    EXPECT_EQ(tool().environment("KLX_PROFILE", "/no/such/profile").run({"--help"}).status, 0);
}

TEST_F(KlxctlTest, NoCommandIsAnErrorThatNamesTheCommands) {
    expectUsageError(run({}), "no command is given; write get, set, dump");
    expectUsageError(run({"fms"}),
                     "no command is given; write get or set\nSee \"klxctl fms --help");
}

TEST_F(KlxctlTest, AnUnknownCommandIsTold) {
    expectUsageError(run({"got", number}), "got");
}

TEST_F(KlxctlTest, AMistypedCommandIsToldWithTheNearest) {
    expectUsageError(run({"lst"}), "there is no command \"lst\"; did you mean\n  \"list\"");
    expectUsageError(run({"fms", "gett"}), "there is no command \"gett\"; did you mean\n  \"get\"");
    expectUsageError(run({"qwertyuiop"}), "\"klxctl --help\" shows what there is");
}

TEST_F(KlxctlTest, AnUnknownOptionIsTold) {
    expectUsageError(run({"dump", "--colour"}), "--colour");
}

TEST_F(KlxctlTest, MissingArgumentsAreNamed) {
    expectUsageError(run({"get"}), "PATH is required");
    expectUsageError(run({"set"}), "PATH is required");
    expectUsageError(run({"set", number}), "VALUE is required");
    expectUsageError(run({"set", number}), "klxctl set --help");
    expectUsageError(run({"fms", "set", "key"}), "klxctl fms set --help");
}

TEST_F(KlxctlTest, AValueThatLooksLikeAnOptionIsExplained) {
    expectUsageError(run({"set", text, "-x"}), "write \"--\" before it");
}

TEST_F(KlxctlTest, SurplusArgumentsAreTold) {
    expectUsageError(run({"set", number, "1", "surplus"}), "surplus");
    EXPECT_EQ(run({"set", number, "1", "surplus"}).status, 2);
}

TEST_F(KlxctlTest, AnOptionWithoutItsValueOrWithTwoIsTold) {
    expectUsageError(run({"dump", "--format"}), "--format needs a value behind it\n");
    expectUsageError(run({"stat", "--watch"}), "--watch needs a value behind it\n");
    expectUsageError(run({"dump", "--format", "xml", "--format", "json"}),
                     "--format may be given once only\n");
}

TEST_F(ManualTest, TellsEachCommandWithItsOptions) {
    const std::string manual = contentOf(KLXCTL_MANUAL);
    EXPECT_THAT(commands(), IsSupersetOf({std::vector<std::string>{"restore"}, {"fms", "set"}}));
    for (const std::vector<std::string>& command : commands()) {
        const std::string section = sectionOf(manual, command);
        EXPECT_FALSE(section.empty()) << testing::PrintToString(command);
        const std::vector<std::string> options = candidates(command, "--");
        EXPECT_THAT(options, Contains("--help"));
        for (const std::string& option : options) {
            EXPECT_THAT(section, HasSubstr(option == "--help" ? "" : asInManual(option)));
        }
    }
}

TEST_F(KlxctlTest, AnUnknownFormatIsAnErrorThatNamesTheFormats) {
    expectUsageError(run({"dump", "--format", "yaml"}),
                     "there is no format \"yaml\"; write json or xml");
}

TEST_F(KlxctlTest, AnEmptyFileNameIsAnError) {
    expectUsageError(run({"dump", "-o", ""}), "the file name is empty");
}

TEST_F(KlxctlTest, TheManualTellsEveryCommandOptionAndStatus) {
    const std::string manual = contentOf(KLXCTL_MANUAL);
    for (const char* part : {".SS get",
                             ".SS set",
                             ".SS dump",
                             ".SS list",
                             ".SS inputs",
                             ".SS port",
                             ".SS stat",
                             ".SS fms get",
                             ".SS fms set",
                             ".SS restore",
                             ".SS reset",
                             ".SS diff",
                             ".SS complete",
                             "\\-\\-settings\\-only",
                             "\\-\\-dry\\-run",
                             "\\-\\-all\\-or\\-nothing",
                             ".B 128 + n",
                             "NO_COLOR",
                             "\\-\\-format",
                             "\\-\\-output",
                             "\\-\\-json",
                             "\\-\\-watch",
                             "\\-\\-type",
                             ".B \\-\\-changed",
                             ".B \\-\\-writable",
                             "\\-\\-help",
                             "\\-\\-version",
                             ".B 0",
                             ".B 1",
                             ".B 2",
                             ".B 3",
                             "SIGPIPE",
                             "KLX_STATE_DIR",
                             "KLX_PROFILE",
                             "KLX_LOG",
                             "KLX_HOST_SOUND",
                             "KLX_HOST_CEC",
                             "KLX_HOST_RFKILL",
                             "KLX_HOST_MAP_SIZE"}) {
        EXPECT_THAT(manual, HasSubstr(part));
    }
}
