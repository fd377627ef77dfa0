#include "RestoreTest.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <ostream>
#include <thread>

using testing::HasSubstr;

namespace {

struct Case {
    const char* behaviour;
    int signal;
};

void PrintTo(const Case& each, std::ostream* out) {
    *out << each.behaviour;
}

/// Work that a signal interrupts while the first setting is written.
class InterruptedRestore : public RestoreTest, public testing::WithParamInterface<Case> {
protected:
    /// More settings than the library gets at once.
    std::string document() const {
        return fileOf(jsonOf("Picture", {{"Backlight", "12"},
                                         {"Brightness", "12"},
                                         {"Color", "12"},
                                         {"Contrast", "12"},
                                         {"Contrast Enhancer", "1"},
                                         {"Expert Settings/Apply Picture Settings", "1"},
                                         {"Expert Settings/Film Mode", "2"},
                                         {"Gamma", "2"},
                                         {"Gamma Value", "1"},
                                         {"HDR+ Mode", "1"},
                                         {"Sharpness", "12"},
                                         {"Tint", "70/30"}}));
    }

    Report interrupted(std::vector<std::string> arguments) const {
        arguments.emplace_back("--json");
        return reportIn(toolOverDisk(GetParam().behaviour).run(arguments));
    }
};

} // namespace

TEST_P(InterruptedRestore, TellsWhatWasAppliedAndWhatWasNot) {
    const Report report = interrupted({"restore", document()});
    EXPECT_EQ(report.status, 128 + GetParam().signal);
    EXPECT_EQ(report.count("applied"), 8);
    EXPECT_EQ(report.count("not written"), 4);
    EXPECT_EQ(report.resultOf("/Picture/Tint"), "not written");
    EXPECT_EQ(report.of("/Picture/Tint", "held"), "50/50");
    const std::string name = std::string("SIG") + sigabbrev_np(GetParam().signal);
    EXPECT_EQ(report.root["interruptedBy"], name);
    EXPECT_THAT(report.messages, HasSubstr("interrupted by " + name));
    EXPECT_EQ(valueOf(backlight), "12");
    EXPECT_EQ(valueOf("/Picture/Tint"), "50/50");
}

TEST_P(InterruptedRestore, PutsBackWhatWasAppliedWhenAllOrNothingIsWanted) {
    const std::string before = run({"dump", "Picture"}).output;
    const Report report = interrupted({"restore", document(), "--all-or-nothing"});
    EXPECT_EQ(report.status, 128 + GetParam().signal);
    EXPECT_EQ(report.count("put back"), 8);
    EXPECT_EQ(report.count("not written"), 4);
    EXPECT_EQ(run({"dump", "Picture"}).output, before);
}

TEST_P(InterruptedRestore, PutsBackAlsoWhenEverythingWasAppliedByThen) {
    const std::string file = fileOf(jsonOf("Picture", {{"Backlight", "12"}, {"Color", "12"}}));
    const Report report = interrupted({"restore", file, "--all-or-nothing"});
    EXPECT_EQ(report.status, 128 + GetParam().signal);
    EXPECT_EQ(report.count("put back"), 2);
    EXPECT_EQ(valueOf(backlight), "35");
}

TEST_P(InterruptedRestore, ThatIsReportedAlreadyIsDoneAsTheReportSays) {
    for (const char* option : {"--json", "--all-or-nothing"}) {
        ASSERT_EQ(run({"reset", "/Picture"}).status, 0);
        const Outcome outcome = tool()
                                    .environment("LD_PRELOAD", KLXCTL_FAULTY_DISK)
                                    .environment("KLXCTL_TEST_OUTPUT", GetParam().behaviour)
                                    .environment("ASAN_OPTIONS", sanitizerOptions)
                                    .run({"restore", document(), option});
        EXPECT_EQ(outcome.status, 0) << option;
        EXPECT_EQ(outcome.signal, 0) << option;
        EXPECT_THAT(outcome.output, HasSubstr("Tint")) << option;
        EXPECT_EQ(outcome.messages, "");
        EXPECT_EQ(valueOf("/Picture/Tint"), "70/30");
    }
}

TEST_P(InterruptedRestore, OfAResetIsTheSame) {
    ASSERT_EQ(run({"restore", document()}).status, 0);
    const Report report = interrupted({"reset", "/Picture"});
    EXPECT_EQ(report.status, 128 + GetParam().signal);
    EXPECT_EQ(report.count("applied"), 8);
    EXPECT_EQ(report.count("not written"), 4);
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptedRestore,
                         testing::Values(Case{"hang up", SIGHUP}, Case{"interrupt", SIGINT},
                                         Case{"terminate", SIGTERM}),
                         [](const auto& each) {
                             return std::string(sigabbrev_np(each.param.signal));
                         });

namespace {

class KilledRestore : public RestoreTest {
protected:
    static bool comesAbout(const std::function<bool()>& condition) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!condition() && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        return condition();
    }

    /// The writing end of a pipe that somebody else opens to read.
    static int openedByReader(const std::filesystem::path& pipe) {
        int descriptor = -1;
        EXPECT_TRUE(comesAbout([&] {
            descriptor = descriptor >= 0 ? descriptor
                                         : open(pipe.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
            return descriptor >= 0;
        }));
        return descriptor;
    }

    static int unreadIn(int pipe) {
        int count = -1;
        ioctl(pipe, FIONREAD, &count);
        return count;
    }

    /// How a process ended; by SIGKILL when it would not.
    static int statusWithoutWaitingForever(pid_t process) {
        int status = 0;
        bool isOver = false;
        if (!comesAbout(
                [&] { return isOver = isOver || waitpid(process, &status, WNOHANG) > 0; })) {
            kill(process, SIGKILL);
            waitpid(process, &status, 0);
        }
        return status;
    }
};

} // namespace

TEST_F(KilledRestore, CanBeRepeatedAndLeavesNoFile) {
    const std::string file = fileOf(jsonOf("Picture", {{"Backlight", "12"}, {"Color", "12"}}));
    const std::filesystem::path marker = folder() / "hanging";
    const pid_t process =
        toolOverDisk("hang").environment("KLXCTL_TEST_HANGING", marker).start({"restore", file});
    EXPECT_TRUE(comesAbout([&marker] { return exists(marker); }));
    kill(process, SIGKILL);
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_THAT(namesIn(outputFolder()), testing::ElementsAre("document"));
    EXPECT_EQ(run({"restore", file}).status, 0);
    EXPECT_EQ(valueOf(backlight), "12");
}

TEST_F(KilledRestore, IsEndedAtOnceWhileItWaitsForTheDocument) {
    const std::filesystem::path pipe = outputFolder() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const pid_t process = tool().start({"restore", pipe});
    const int writing = openedByReader(pipe);
    EXPECT_EQ(write(writing, "{", 1), 1);
    EXPECT_TRUE(comesAbout([writing] { return unreadIn(writing) == 0; }));
    kill(process, SIGINT);
    const int status = statusWithoutWaitingForever(process);
    close(writing);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGINT);
}

TEST_F(KilledRestore, AnIgnoredSignalStaysIgnored) {
    const std::string file = fileOf(jsonOf("Picture", {{"Backlight", "12"}}));
    const Outcome outcome = toolOverDisk("hang up").runProgram(
        {"sh", "-c", R"(trap '' HUP; exec "$0" restore "$1")", KLXCTL_TOOL, file});
    EXPECT_EQ(outcome.status, 0) << outcome.messages;
}

TEST_F(KilledRestore, AFailingDiskIsTold) {
    const std::string file = fileOf(jsonOf("Picture", {{"Backlight", "12"}}));
    const Outcome outcome = toolOverDisk("fail").run({"restore", file});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.output, HasSubstr("refused  wanted \"12\", holds \"35\""));
}
