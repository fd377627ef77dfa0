#include "RestoreTest.h"

#include <gmock/gmock.h>

#include <csignal>
#include <cstdlib>
#include <optional>
#include <ostream>

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

using Words = std::vector<std::string>;

const char* const notPermitted = "mounting in a namespace of one's own is not permitted here";

/// A command line, and how it ends.
struct CommandLine {
    std::string name;
    Words words;                          ///< DOCUMENT stands for a file with another Backlight
    bool prints = true;                   ///< whether it has data for standard output
    int done = 0;                         ///< status when nothing is wrong
    int outputFailed = 1;                 ///< status when standard output takes no data
    std::optional<int> withoutStore = {}; ///< status when no setting can be read or written
    std::optional<int> withReadOnlyStore = {}; ///< status when settings can be read only
    std::string applied = {}; ///< the Backlight afterwards, for those that report what they did
};

void PrintTo(const CommandLine& line, std::ostream* out) {
    *out << line.name;
}

CommandLine reading(const std::string& name, const Words& words) {
    CommandLine line{name, words};
    line.withoutStore = 0;
    line.withReadOnlyStore = 0;
    return line;
}

CommandLine writing(const std::string& name, const Words& words) {
    CommandLine line{name, words};
    line.withoutStore = 3;
    line.withReadOnlyStore = 3;
    return line;
}

CommandLine restoring(const std::string& name, const Words& words, const std::string& applied) {
    CommandLine line = writing(name, words);
    line.applied = applied;
    return line;
}

/// Every command of the tool; those that concern no setting do without the store.
std::vector<CommandLine> commandLines() {
    CommandLine set = writing("Set", {"set", "/Picture/Backlight", "20"});
    set.prints = false;
    CommandLine reset = restoring("Reset", {"reset", "/Picture/Backlight"}, "35");
    // A default that cannot be read is none, and a property without one cannot be reset.
    reset.withoutStore = 2;
    CommandLine diff = reading("Diff", {"diff", "DOCUMENT"});
    diff.done = 1;
    diff.outputFailed = 2;
    diff.withoutStore = 1;
    diff.withReadOnlyStore = 1;
    // What is connected is not kept with the settings.
    CommandLine port{"Port", {"port", "HDMI2", "connected"}};
    port.prints = false;
    // A desk has not got the program that writes them.
    CommandLine fmsSet{"FmsSet", {"fms", "set", "com.velmora/featureconf/test", "1"}};
    fmsSet.prints = false;
    fmsSet.done = 3;
    return {
        reading("Get", {"get", "/Picture/Backlight"}),
        reading("GetSeveral", {"get", "/Picture/Backlight", "/Sound/Mute"}),
        set,
        reading("Dump", {"dump", "Picture/Backlight"}),
        reading("DumpJson", {"dump", "Picture/Backlight", "--format", "json"}),
        reading("List", {"list", "Picture"}),
        reading("ListJson", {"list", "Picture", "--json"}),
        {"Inputs", {"inputs"}},
        port,
        restoring("Restore", {"restore", "DOCUMENT"}, "20"),
        restoring("RestoreAllOrNothing", {"restore", "DOCUMENT", "--all-or-nothing"}, "20"),
        reset,
        diff,
        {"Stat", {"stat", "--json"}},
        {"FmsGet", {"fms", "get", "com.velmora/featureconf/product.product_type"}},
        fmsSet,
        {"Complete", {"complete", "--", "get", "/Pict"}},
        {"Help", {"--help"}},
        {"Version", {"--version"}},
    };
}

class EveryCommand : public RestoreTest, public testing::WithParamInterface<CommandLine> {
protected:
    /// The setting is not at its default, so that a reset has something to do.
    EveryCommand() {
        EXPECT_EQ(run({"set", "/Picture/Backlight", "30"}).status, 0);
        fileOf(jsonOf("Picture", {{"Backlight", "20"}}));
    }

    Words words() const {
        Words words = GetParam().words;
        for (std::string& word : words) {
            if (word == "DOCUMENT") {
                word = outputFolder() / "document";
            }
        }
        return words;
    }

    Words toolAndWords() const {
        Words command = {KLXCTL_TOOL};
        const Words all = words();
        command.insert(command.end(), all.begin(), all.end());
        return command;
    }

    /// Its end when standard output takes nothing; what has no data for it does not care.
    void expectOutputFailure(const Outcome& outcome, const std::string& reason) const {
        if (!GetParam().prints) {
            EXPECT_EQ(outcome.status, GetParam().done) << outcome.messages;
            return;
        }
        EXPECT_EQ(outcome.status, GetParam().outputFailed) << outcome.messages;
        EXPECT_THAT(outcome.messages,
                    HasSubstr("klxctl: cannot write to standard output: " + reason + "\n"));
        if (!GetParam().applied.empty()) {
            EXPECT_THAT(outcome.messages,
                        HasSubstr("klxctl: the report is lost; it would have ended with: "
                                  "1 asked for: 1 applied\n"));
            EXPECT_EQ(valueOf(backlight), GetParam().applied);
        }
    }

    ToolRun tellingErrors() const {
        ToolRun prepared = tool();
        prepared.environment("KLX_LOG", "error");
        return prepared;
    }

    /// Runs it by a shell in a mount namespace of its own, after a preparation in which $1 is the
    /// state folder. No outcome where that is not permitted.
    std::optional<Outcome> inNamespace(const std::string& preparation) const {
        Words script = {"unshare", "-Urm", "sh", "-c", preparation, "sh", stateFolder()};
        const Words command = toolAndWords();
        if (tool().runProgram(script).status != 0) {
            const char* const ci = std::getenv("CI");
            EXPECT_FALSE(ci != nullptr && std::string(ci) == "true") << preparation;
            return std::nullopt;
        }
        script[4] = preparation + R"( && shift && exec "$@")";
        script.insert(script.end(), command.begin(), command.end());
        return tellingErrors().runProgram(script);
    }
};

} // namespace

TEST_P(EveryCommand, TellsThatItsOutputIsClosed) {
    expectOutputFailure(tool().outputClosed().run(words()), "Bad file descriptor");
}

TEST_P(EveryCommand, TellsThatItsOutputIsFull) {
    expectOutputFailure(tool().outputTo("/dev/full").run(words()), "No space left on device");
}

TEST_P(EveryCommand, EndsQuietlyWhenItsReaderWentAway) {
    const Outcome outcome = tool().outputUnread().run(words());
    if (!GetParam().applied.empty()) {
        // What was done to the set is not kept quiet.
        expectOutputFailure(outcome, "Broken pipe");
        return;
    }
    if (GetParam().prints) {
        EXPECT_EQ(outcome.signal, SIGPIPE);
    } else {
        EXPECT_EQ(outcome.status, GetParam().done);
    }
    // A value that is not held is told of, whoever reads.
    if (GetParam().done == 3) {
        EXPECT_THAT(outcome.messages, HasSubstr("after it was written"));
        EXPECT_THAT(outcome.messages, Not(HasSubstr("standard output")));
    } else {
        EXPECT_EQ(outcome.messages, "");
    }
}

TEST_P(EveryCommand, TellsThatItsReaderWentAwayWhereTheSignalIsIgnored) {
    Words script = {"sh", "-c", R"(trap '' PIPE; exec "$@")", "sh"};
    const Words command = toolAndWords();
    script.insert(script.end(), command.begin(), command.end());
    expectOutputFailure(tool().outputUnread().runProgram(script), "Broken pipe");
}

TEST_P(EveryCommand, TellsWhatIsWrongWithALockedHome) {
    const fs::path home = folder() / "home";
    fs::create_directory(home);
    fs::permissions(home, fs::perms::owner_read | fs::perms::owner_exec);
    Words command = {"env", "-u", "KLX_STATE_DIR", "-u", "XDG_STATE_HOME", "HOME=" + home.string()};
    const Words own = toolAndWords();
    command.insert(command.end(), own.begin(), own.end());
    const Outcome outcome = tellingErrors().underFilePermissions().runProgram(command);
    EXPECT_EQ(outcome.status, GetParam().withoutStore.value_or(GetParam().done))
        << outcome.messages;
    if (GetParam().withoutStore) {
        EXPECT_THAT(outcome.messages, HasSubstr(home.string() + "/.local: Permission denied"));
        EXPECT_THAT(outcome.messages, HasSubstr("set KLX_STATE_DIR to a writable folder"));
    }
    EXPECT_THAT(namesIn(home), IsEmpty());
}

TEST_P(EveryCommand, TellsWhatIsWrongWithALockedStateFolder) {
    const std::string before = contentOf(stateFolder() / "settings.mdb");
    for (const std::string& name : namesIn(stateFolder())) {
        fs::permissions(stateFolder() / name, fs::perms::owner_read);
    }
    fs::permissions(stateFolder(), fs::perms::owner_read | fs::perms::owner_exec);
    const Outcome outcome = tellingErrors().underFilePermissions().run(words());
    EXPECT_EQ(outcome.status, GetParam().withoutStore.value_or(GetParam().done))
        << outcome.messages;
    if (GetParam().withoutStore) {
        EXPECT_THAT(outcome.messages, HasSubstr(stateFolder().string()));
        EXPECT_THAT(outcome.messages, HasSubstr("set KLX_STATE_DIR to a writable folder"));
    }
    EXPECT_EQ(contentOf(stateFolder() / "settings.mdb"), before);
}

TEST_P(EveryCommand, ReadsAndDoesNotWriteOnAReadOnlyDisk) {
    const std::string before = contentOf(stateFolder() / "settings.mdb");
    const auto outcome = inNamespace(R"(mount --bind "$1" "$1" && mount -o remount,bind,ro "$1")");
    if (!outcome) {
        ASSERT_FALSE(inContinuousIntegration()) << notPermitted;
        GTEST_SKIP() << notPermitted;
    }
    EXPECT_EQ(outcome->status, GetParam().withReadOnlyStore.value_or(GetParam().done))
        << outcome->messages;
    const bool isRefused = GetParam().withReadOnlyStore.value_or(0) == 3;
    EXPECT_EQ(outcome->messages.find("Read-only file system") != std::string::npos, isRefused)
        << outcome->messages;
    EXPECT_EQ(contentOf(stateFolder() / "settings.mdb"), before);
}

TEST_P(EveryCommand, TellsThatTheDiskOfItsSettingsIsFull) {
    const auto outcome = inNamespace(
        R"(mount -t tmpfs -o size=4k,mode=0700 settings "$1" && printf all > "$1/taken")");
    if (!outcome) {
        ASSERT_FALSE(inContinuousIntegration()) << notPermitted;
        GTEST_SKIP() << notPermitted;
    }
    EXPECT_EQ(outcome->status, GetParam().withoutStore.value_or(GetParam().done))
        << outcome->messages;
    EXPECT_EQ(outcome->messages.find("free space on its disk") != std::string::npos,
              GetParam().withoutStore.has_value())
        << outcome->messages;
}

INSTANTIATE_TEST_SUITE_P(Each, EveryCommand, testing::ValuesIn(commandLines()),
                         [](const auto& line) { return line.param.name; });
