#include "KlxctlTest.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

KlxctlTest::KlxctlTest() {
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

std::string KlxctlTest::valueOf(const std::string& path) const {
    const Outcome outcome = run({"get", path});
    EXPECT_EQ(outcome.status, 0) << outcome.messages;
    return outcome.output.substr(0, outcome.output.size() - 1);
}

fs::path KlxctlTest::outputFolder() const {
    return m_folder / "output";
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
