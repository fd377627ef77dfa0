#include "KLXCommonUtil.h"
#include "LogMatchers.h"
#include "ShellSeam.h"

#include <gmock/gmock.h>

#include <stdexcept>
#include <string>

namespace fake = klx::fake;
namespace filesystem = boost::filesystem;
using namespace klx::test;
using fake::LineIn;
using ::testing::ElementsAre;
using ::testing::Values;

namespace {

/** One of the two switches, with what it is expected to run. */
struct Switch {
    std::string name;
    void (*run)();
    std::string tool;
    std::string markerCommand;
    filesystem::file_type changing; ///< The marker's state that calls for the command.
    filesystem::file_type settled;  ///< The one that does not.
};

std::ostream& operator<<(std::ostream& out, const Switch& which) {
    return out << which.name;
}

const Switch enabling{"EnableDlogBuffer",
                      &KLXCommonUtil::EnableDlogBuffer,
                      "/usr/bin/dlogctrl -k plog -s 1",
                      "touch /opt/etc/disable_dlogutil",
                      filesystem::file_not_found,
                      filesystem::regular_file};

const Switch disabling{"DisableDlogBuffer",
                       &KLXCommonUtil::DisableDlogBuffer,
                       "/usr/bin/dlogctrl -k plog -s 0",
                       "rm -rf  /opt/etc/disable_dlogutil",
                       filesystem::regular_file,
                       filesystem::file_not_found};

const std::string askedForDebugImage = "access(\"/etc/debug\", 0)";
const std::string askedForMarker = "status(\"/opt/etc/disable_dlogutil\")";

std::string ran(const std::string& command) {
    return "system(\"" + command + "\")";
}

class DlogBufferTest : public ::testing::TestWithParam<Switch> {
protected:
    DlogBufferTest() { shell.marker = which.changing; }

    /** Lets one command end with a status; others end with 0. */
    void endsWith(const std::string& command, int status) {
        shell.run = [command, status](const std::string& any) {
            return any == command ? status : 0;
        };
    }

    template <class E>
    void throwsFrom(const std::string& command, E exception) {
        shell.run = [command, exception](const std::string& any) {
            return any == command ? throw exception : 0;
        };
    }

    fake::LineMatcher info(const std::string& message) {
        return LineIn("KLXCommonUtil.cpp", 4, which.name, message);
    }
    fake::LineMatcher warning(const std::string& message) {
        return LineIn("KLXCommonUtil.cpp", 5, which.name, message);
    }
    fake::LineMatcher toolEnded(int status) {
        return info(which.name + " command exited with " + std::to_string(status));
    }
    fake::LineMatcher markerCommandEnded(int status) {
        return info("cmd [" + which.markerCommand + "] ret=[" + std::to_string(status) + "]");
    }

    const Switch which = GetParam();
    fake::Scene scene;
    ShellSeam shell;
};

TEST_P(DlogBufferTest, RunsNothingOnADebugImage) {
    shell.debugImage = true;
    which.run();
    EXPECT_THAT(shell.asked, ElementsAre(askedForDebugImage));
    EXPECT_THAT(fake::logs(), ElementsAre(info("start")));
}

TEST_P(DlogBufferTest, TellsTheToolAndChangesTheMarker) {
    which.run();
    EXPECT_THAT(shell.asked, ElementsAre(askedForDebugImage, ran(which.tool), askedForMarker,
                                         ran(which.markerCommand)));
    EXPECT_THAT(fake::logs(), ElementsAre(info("start"), toolEnded(0), markerCommandEnded(0)));
}

TEST_P(DlogBufferTest, LeavesAMarkerThatIsRight) {
    shell.marker = which.settled;
    which.run();
    EXPECT_THAT(shell.asked, ElementsAre(askedForDebugImage, ran(which.tool), askedForMarker));
    EXPECT_THAT(fake::logs(), ElementsAre(info("start"), toolEnded(0)));
}

TEST_P(DlogBufferTest, ExceptionFromTheToolEndsTheSwitch) {
    throwsFrom(which.tool, std::runtime_error("no shell"));
    which.run();
    EXPECT_THAT(shell.asked, ElementsAre(askedForDebugImage, ran(which.tool)));
    EXPECT_THAT(fake::logs(), ElementsAre(info("start"), warning("Unknown exception occured")));
}

TEST_P(DlogBufferTest, ExceptionFromTheMarkerCommandGoesNoFurther) {
    throwsFrom(which.markerCommand, 5);
    which.run();
    EXPECT_THAT(fake::logs(),
                ElementsAre(info("start"), toolEnded(0), warning("Unknown exception occured")));
}

INSTANTIATE_TEST_SUITE_P(Both, DlogBufferTest, Values(enabling, disabling));

TEST(DlogMarkerTest, HasItsPath) {
    EXPECT_EQ(DlogFilePath, "/opt/etc/disable_dlogutil");
}

TEST(DlogMarkerTest, WithoutAReadableStatusIsCreatedByEnabling) {
    const fake::Scene scene;
    ShellSeam shell;
    shell.marker = filesystem::status_error;
    KLXCommonUtil::EnableDlogBuffer();
    EXPECT_THAT(shell.asked, ElementsAre(askedForDebugImage, ran(enabling.tool), askedForMarker,
                                         ran(enabling.markerCommand)));
}

TEST(DlogMarkerTest, WithoutAReadableStatusIsLeftByDisabling) {
    const fake::Scene scene;
    ShellSeam shell;
    shell.marker = filesystem::status_error;
    KLXCommonUtil::DisableDlogBuffer();
    EXPECT_THAT(shell.asked, ElementsAre(askedForDebugImage, ran(disabling.tool), askedForMarker));
}

/** Runs of the commands that end with a status. */
class DlogStatusTest : public DlogBufferTest {
protected:
    /** The log of a run whose tool ends with the status. */
    void toolEndsWith(int status) {
        endsWith(which.tool, status);
        which.run();
    }
    void markerCommandEndsWith(int status) {
        endsWith(which.markerCommand, status);
        which.run();
    }
};

TEST_P(DlogStatusTest, FailedToolIsReportedAndTheMarkerChanged) {
    for (const int status : {-1, 127}) {
        fake::clearHistory();
        toolEndsWith(status);
        EXPECT_THAT(fake::logs(), ElementsAre(info("start"), toolEnded(status),
                                              warning(which.name + " command Failed with " +
                                                      std::to_string(status)),
                                              markerCommandEnded(0)));
    }
}

TEST_P(DlogStatusTest, FailedMarkerCommandIsReportedInTheEnablingPathsWords) {
    for (const int status : {-1, 127}) {
        fake::clearHistory();
        markerCommandEndsWith(status);
        EXPECT_THAT(
            fake::logs(),
            ElementsAre(info("start"), toolEnded(0), markerCommandEnded(status),
                        warning("EnableDlogBuffer command Failed with " + std::to_string(status))));
    }
}

TEST_P(DlogStatusTest, AnyOtherStatusCountsAsDone) {
    for (const int status : {1, 126, 128, 256, 127 << 8, -2}) {
        fake::clearHistory();
        shell.run = [status](const std::string&) {
            return status;
        };
        which.run();
        EXPECT_THAT(fake::logs(),
                    ElementsAre(info("start"), toolEnded(status), markerCommandEnded(status)));
    }
}

INSTANTIATE_TEST_SUITE_P(Both, DlogStatusTest, Values(enabling, disabling));

} // namespace
