#include "KlxctlTest.h"

#include <pty.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace {

/// Takes out of the environment what a developer may have set for the own desk.
void forgetOwnWishes() {
    std::vector<std::string> names = {"NO_COLOR"};
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string name(*entry, std::strcspn(*entry, "="));
        if (name.rfind("KLX_HOST_", 0) == 0) {
            names.push_back(name);
        }
    }
    for (const std::string& name : names) {
        unsetenv(name.c_str());
    }
}

} // namespace

KlxctlTest::KlxctlTest() {
    forgetOwnWishes();
    std::string name = (fs::temp_directory_path() / "klxctl-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("cannot create " + name);
    }
    m_folder = name;
    for (const char* part : {"state", "runtime", "output"}) {
        mkdir((m_folder / part).c_str(), 0700);
    }
}

KlxctlTest::~KlxctlTest() {
    std::error_code ignored;
    for (const char* part : {"state", "output"}) {
        fs::permissions(m_folder / part, fs::perms::owner_all, ignored);
    }
    fs::remove_all(m_folder, ignored);
}

ToolRun KlxctlTest::tool() const {
    ToolRun prepared;
    prepared.environment("KLX_STATE_DIR", stateFolder())
        .environment("XDG_RUNTIME_DIR", m_folder / "runtime")
        .environment("KLX_PROFILE", "standard")
        .environment("KLX_LOG", "off");
    return prepared;
}

ToolRun KlxctlTest::onPlayedHardware() const {
    ToolRun prepared = KlxctlTest::tool();
    prepared.environment("LD_PRELOAD", KLXCTL_PLAYED_HARDWARE)
        .environment("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0")
        .environment("KLXCTL_TEST_DVB", m_folder / "no receivers")
        .environment("KLXCTL_TEST_WATCHDOG", "")
        .environment("KLXCTL_TEST_CEC", "")
        .environment("KLXCTL_TEST_MARKERS", "");
    return prepared;
}

std::string KlxctlTest::valueOf(const std::string& path) const {
    const Outcome outcome = run({"get", path});
    EXPECT_EQ(outcome.status, 0) << outcome.messages;
    return outcome.output.substr(0, outcome.output.size() - 1);
}

fs::path KlxctlTest::outputFolder() const {
    return m_folder / "output";
}

std::string onATerminal(ToolRun tool, const std::vector<std::string>& arguments) {
    int outside = -1;
    int inside = -1;
    std::array<char, 256> name = {};
    EXPECT_EQ(openpty(&outside, &inside, name.data(), nullptr, nullptr), 0);
    EXPECT_EQ(tool.environment("TERM", "xterm").outputTo(name.data()).run(arguments).status, 0);
    std::array<char, 65536> printed = {};
    const ssize_t size = read(outside, printed.data(), printed.size());
    close(inside);
    close(outside);
    return {printed.data(), size > 0 ? static_cast<std::size_t>(size) : 0};
}

std::vector<std::string> namesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string contentOf(const fs::path& file) {
    std::ostringstream content;
    content << std::ifstream(file).rdbuf();
    return content.str();
}

void writeFile(const fs::path& file, const std::string& content) {
    std::ofstream(file) << content;
}

bool inContinuousIntegration() {
    const char* const ci = std::getenv("CI");
    return ci != nullptr && std::string(ci) == "true";
}
