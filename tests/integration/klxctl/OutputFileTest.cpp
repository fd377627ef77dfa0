#include "KlxctlTest.h"

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr auto permissionBits = fs::perms::mask;

const char* const notPermitted = "mounting in a namespace of one's own is not permitted here";

class OutputFileTest : public KlxctlTest {
protected:
    fs::path file() const { return outputFolder() / "out.xml"; }

    Outcome dumpTo(const std::string& target) const { return run({"dump", "-o", target}); }

    /// Runs a script, in which $0 is the tool and $1 the file, where it may mount what it likes.
    Outcome inNamespace(const std::string& script) const {
        return tool().runProgram({"unshare", "-Urm", "sh", "-c", script, KLXCTL_TOOL, file()});
    }

    /// The tool over a disk that fails or stops answering when data has to be brought to it.
    ToolRun toolOverDisk(const std::string& behaviour) const {
        return tool()
            .environment("LD_PRELOAD", KLXCTL_FAULTY_DISK)
            .environment("KLXCTL_TEST_FSYNC", behaviour)
            .environment("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0");
    }

    Outcome dumpEndedAt(int moment) const {
        const fs::path folderWithoutLinks = fs::canonical(outputFolder());
        return tool()
            .environment("LD_PRELOAD", KLXCTL_ENDING_MOMENT)
            .environment("KLXCTL_TEST_FOLDER", folderWithoutLinks)
            .environment("KLXCTL_TEST_MOMENT", std::to_string(moment))
            .environment("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0")
            .run({"dump", "-o", folderWithoutLinks / file().filename()});
    }

    void expectOldOr(const std::string& document) const {
        EXPECT_THAT(contentOf(file()), testing::AnyOf("old", document));
        EXPECT_THAT(temporaryFiles(), IsEmpty());
    }

    /// Ends a dump by a signal while its temporary file is there.
    int statusOfInterruptedDump(int signal) const {
        const pid_t process =
            toolOverDisk("hang in " + outputFolder().string()).start({"dump", "-o", file()});
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (temporaryFiles().empty() && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        EXPECT_EQ(temporaryFiles().size(), 1U);
        kill(process, signal);
        int status = 0;
        waitpid(process, &status, 0);
        return status;
    }

    std::vector<std::string> temporaryFiles() const {
        std::vector<std::string> names = namesIn(outputFolder());
        names.erase(std::remove(names.begin(), names.end(), "out.xml"), names.end());
        return names;
    }
};

class InterruptedDump : public OutputFileTest, public testing::WithParamInterface<int> {};

} // namespace

TEST_F(OutputFileTest, EqualsWhatStandardOutputGives) {
    const Outcome outcome = dumpTo(file());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.messages, "");
    EXPECT_EQ(contentOf(file()), run({"dump"}).output);
    EXPECT_THAT(namesIn(outputFolder()), ElementsAre("out.xml"));
}

TEST_F(OutputFileTest, ReplacesALongerFile) {
    writeFile(file(), std::string(100000, 'x'));
    ASSERT_EQ(dumpTo(file()).status, 0);
    EXPECT_EQ(contentOf(file()), run({"dump"}).output);
}

TEST_F(OutputFileTest, LeavesTheReplacedFileToThoseWhoHaveItOpen) {
    writeFile(file(), "old");
    fs::create_hard_link(file(), outputFolder() / "other");
    ASSERT_EQ(dumpTo(file()).status, 0);
    EXPECT_EQ(contentOf(outputFolder() / "other"), "old");
}

TEST_F(OutputFileTest, HasThePermissionsThatTheUmaskLeaves) {
    ASSERT_EQ(tool().umask(0027).run({"dump", "-o", file()}).status, 0);
    EXPECT_EQ(fs::status(file()).permissions() & permissionBits, fs::perms(0640));
    ASSERT_EQ(tool().umask(0).run({"dump", "-o", file()}).status, 0);
    EXPECT_EQ(fs::status(file()).permissions() & permissionBits, fs::perms(0666));
}

TEST_F(OutputFileTest, KeepsASymbolicLinkAndReplacesWhatItLeadsTo) {
    fs::create_directory(outputFolder() / "deep");
    writeFile(outputFolder() / "deep" / "real", "old");
    fs::create_symlink("deep/real", file());
    ASSERT_EQ(dumpTo(file()).status, 0);
    EXPECT_TRUE(fs::is_symlink(file()));
    EXPECT_EQ(contentOf(outputFolder() / "deep" / "real"), run({"dump"}).output);
}

TEST_F(OutputFileTest, KeepsASymbolicLinkThatLeadsToNoFileYet) {
    fs::create_directory(outputFolder() / "deep");
    fs::create_symlink("deep/link", file());
    fs::create_symlink("../real", outputFolder() / "deep" / "link");
    ASSERT_EQ(dumpTo(file()).status, 0);
    EXPECT_TRUE(fs::is_symlink(file()));
    EXPECT_TRUE(fs::is_symlink(outputFolder() / "deep" / "link"));
    EXPECT_EQ(contentOf(outputFolder() / "real"), run({"dump"}).output);
}

TEST_F(OutputFileTest, ACircleOfSymbolicLinksIsNoTarget) {
    fs::create_symlink("other", file());
    fs::create_symlink("out.xml", outputFolder() / "other");
    const Outcome outcome = dumpTo(file());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.messages, HasSubstr("Too many levels of symbolic links"));
    EXPECT_THAT(namesIn(outputFolder()), ElementsAre("other", "out.xml"));
}

TEST_F(OutputFileTest, MayBeNamedWithoutAFolder) {
    const Outcome outcome = tool().runProgram(
        {"sh", "-c", R"(cd "$1" && exec "$0" dump -o out.xml)", KLXCTL_TOOL, outputFolder()});
    EXPECT_EQ(outcome.status, 0) << outcome.messages;
    EXPECT_THAT(namesIn(outputFolder()), ElementsAre("out.xml"));
}

TEST_F(OutputFileTest, MayHaveALongName) {
    EXPECT_EQ(dumpTo(outputFolder() / std::string(255, 'n')).status, 0);
    const Outcome outcome = dumpTo(outputFolder() / std::string(256, 'n'));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.messages, HasSubstr("File name too long"));
    EXPECT_EQ(namesIn(outputFolder()).size(), 1U);
}

TEST_F(OutputFileTest, HyphenIsStandardOutput) {
    EXPECT_EQ(dumpTo("-").output, run({"dump"}).output);
}

// A mount point cannot be replaced, so that a tool that tries to does no harm to the device.
TEST_F(OutputFileTest, ADeviceIsWrittenInto) {
    const std::string mount = R"(touch "$1" && mount --bind /dev/full "$1")";
    if (inNamespace(mount).status != 0) {
        ASSERT_FALSE(inContinuousIntegration()) << notPermitted;
        GTEST_SKIP() << notPermitted;
    }
    const Outcome outcome = inNamespace(mount + R"( && "$0" dump -o "$1")");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.messages,
              "klxctl: cannot write \"" + file().string() + "\": No space left on device\n");
}

TEST_F(OutputFileTest, APipeIsWrittenInto) {
    const std::string script = R"(mkfifo "$1" || exit
        timeout 20 cat "$1" &
        "$0" dump -o "$1"
        status=$?
        wait
        test -p "$1" && exit $status)";
    const Outcome outcome =
        tool().runProgram({"sh", "-c", script, KLXCTL_TOOL, outputFolder() / "pipe"});
    EXPECT_EQ(outcome.status, 0) << outcome.messages;
    EXPECT_EQ(outcome.output, run({"dump"}).output);
}

TEST_F(OutputFileTest, AFolderIsNoTarget) {
    for (const std::string& target :
         {outputFolder().string(), outputFolder().string() + "/", file().string() + "/"}) {
        const Outcome outcome = dumpTo(target);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.messages, "klxctl: cannot write \"" + target + "\": Is a directory\n");
    }
    EXPECT_THAT(namesIn(outputFolder()), IsEmpty());
}

TEST_F(OutputFileTest, AMissingFolderIsTold) {
    const std::string target = outputFolder() / "none" / "out.xml";
    const Outcome outcome = dumpTo(target);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.messages,
              "klxctl: cannot write \"" + target + "\": No such file or directory\n");
}

TEST_F(OutputFileTest, AnUnwritableFolderIsTold) {
    writeFile(file(), "old");
    fs::permissions(outputFolder(), fs::perms::owner_read | fs::perms::owner_exec);
    const Outcome outcome = tool().underFilePermissions().run({"dump", "-o", file()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.messages,
              "klxctl: cannot write \"" + file().string() + "\": Permission denied\n");
    EXPECT_EQ(contentOf(file()), "old");
}

TEST_F(OutputFileTest, AFullDiskLeavesTheOldFileAndNothingElse) {
    const std::string mount = R"(cd "${1%/*}" && mount -t tmpfs -o size=4k none . && cd "$PWD")";
    if (inNamespace(mount).status != 0) {
        ASSERT_FALSE(inContinuousIntegration()) << notPermitted;
        GTEST_SKIP() << notPermitted;
    }
    const Outcome outcome = inNamespace(mount + R"( && printf old > out.xml || exit
        "$0" dump -o out.xml
        echo $?
        ls -A
        cat out.xml)");
    EXPECT_EQ(outcome.output, "1\nout.xml\nold");
    EXPECT_EQ(outcome.messages, "klxctl: cannot write \"out.xml\": No space left on device\n");
}

TEST_F(OutputFileTest, ADiskThatFailsLeavesTheOldFileAndNothingElse) {
    writeFile(file(), "old");
    const Outcome outcome =
        toolOverDisk("fail in " + outputFolder().string()).run({"dump", "-o", file()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.messages,
              "klxctl: cannot write \"" + file().string() + "\": Input/output error\n");
    EXPECT_EQ(contentOf(file()), "old");
    EXPECT_THAT(temporaryFiles(), IsEmpty());
}

TEST_P(InterruptedDump, LeavesTheOldFileAndNothingElse) {
    writeFile(file(), "old");
    const int status = statusOfInterruptedDump(GetParam());
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), GetParam());
    EXPECT_EQ(contentOf(file()), "old");
    EXPECT_THAT(temporaryFiles(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptedDump, testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](const auto& signal) {
                             return std::string(sigabbrev_np(signal.param));
                         });

TEST_F(OutputFileTest, EndedBetweenAnyTwoStepsIsOldOrNewAndNothingElseIsLeft) {
    constexpr int momentsOfEachStep = 2;
    constexpr int steps = 5; // to open, write, bring to the disk, close and name it
    const std::string document = run({"dump"}).output;
    int ended = 0;
    for (bool isEnded = true; isEnded; ended += isEnded ? 1 : 0) {
        writeFile(file(), "old");
        isEnded = dumpEndedAt(ended + 1).signal == SIGTERM;
        expectOldOr(document);
    }
    EXPECT_GE(ended, momentsOfEachStep * steps);
    EXPECT_EQ(contentOf(file()), document);
}

TEST_F(OutputFileTest, InterruptedAtAnyMomentIsOldOrNewAndNothingElseIsLeft) {
    constexpr int moments = 40;
    const std::string document = run({"dump"}).output;
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(dumpTo(file()).status, 0);
    const auto whole = std::chrono::steady_clock::now() - begin;
    for (int moment = 1; moment <= moments; ++moment) {
        writeFile(file(), "old");
        const pid_t process = tool().start({"dump", "-o", file()});
        std::this_thread::sleep_for(whole * moment / moments);
        kill(process, SIGTERM);
        waitpid(process, nullptr, 0);
        expectOldOr(document);
    }
}

TEST_F(OutputFileTest, AnIgnoredSignalStaysIgnored) {
    const Outcome outcome = toolOverDisk("hang up in " + outputFolder().string())
                                .runProgram({"sh", "-c", R"(trap '' HUP; exec "$0" dump -o "$1")",
                                             KLXCTL_TOOL, file()});
    EXPECT_EQ(outcome.status, 0) << outcome.messages;
    EXPECT_EQ(contentOf(file()), run({"dump"}).output);
}

TEST_F(OutputFileTest, ATerminalThatGoesAwayEndsTheDump) {
    const Outcome outcome =
        toolOverDisk("hang up in " + outputFolder().string()).run({"dump", "-o", file()});
    EXPECT_EQ(outcome.signal, SIGHUP);
    EXPECT_THAT(namesIn(outputFolder()), IsEmpty());
}
