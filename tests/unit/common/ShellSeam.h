#pragma once

#include <boost/filesystem/operations.hpp>

#include <functional>
#include <string>
#include <vector>

namespace klx::test {

/**
 * Stands between the log-buffer switches and the machine for as long as it lives: no command is
 * run, no file is looked at. One at a time.
 */
class ShellSeam {
public:
    ShellSeam();
    ~ShellSeam();
    ShellSeam(const ShellSeam&) = delete;
    ShellSeam& operator=(const ShellSeam&) = delete;

    bool debugImage = false;
    boost::filesystem::file_type marker = boost::filesystem::file_not_found;

    /** What a command answers; may throw. */
    std::function<int(const std::string& command)> run = [](const std::string&) {
        return 0;
    };

    /** What was asked, in order: `access("/etc/debug", 0)`, `status("...")`, `system("...")`. */
    std::vector<std::string> asked;
};

} // namespace klx::test
