#pragma once

#include "HostErrors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/types.h>

#include <functional>
#include <string>

namespace KLX::Host {

/** The number by which a service answers an error; 0 is success. */
constexpr int numberOf(HostError error) {
    return static_cast<int>(error);
}
constexpr int success = 0;

/** A folder of the test's own, removed with all its content in the end. */
class TemporaryFolder {
public:
    TemporaryFolder();
    /** In another folder, whose name ends in a slash. */
    explicit TemporaryFolder(const std::string& parent);
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    /** The folder, or a path inside it. */
    std::string path(const std::string& inside = "") const;

private:
    std::string m_path;
};

/** A test over the host platform with state and runtime folders of its own. */
class HostTest : public ::testing::Test {
protected:
    HostTest();
    /** With its folders in another one, whose name ends in a slash. */
    explicit HostTest(const std::string& parent);

    std::string stateFolder() const { return m_folder.path("state"); }
    std::string runtimeFolder() const { return m_folder.path("run"); }
    std::string dataFile() const { return stateFolder() + "/settings.mdb"; }

    TemporaryFolder m_folder;
};

/** A process of its own, ended with the object at the latest. */
class ChildProcess {
public:
    /** Runs the body in a fork; what it answers is the exit status, 100 after a failed check. */
    explicit ChildProcess(const std::function<int()>& body);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    pid_t id() const { return m_id; }

    /** Waits; the exit status, or minus the signal that ended it. */
    int wait();

    void kill(int signal) const;

private:
    pid_t m_id;
};

/** Runs the body in a process of its own; the exit status, or minus the signal that ended it. */
int inOwnProcess(const std::function<int()>& body);

/** What the body writes to standard error. */
std::string standardErrorOf(const std::function<void()>& body);

/** How many lines a text has. */
long linesIn(const std::string& text);

std::string contentOf(const std::string& file);
void writeFile(const std::string& file, const std::string& content);

/** Files of a folder whose names begin with a prefix. */
long countFiles(const std::string& folder, const std::string& prefix);

} // namespace KLX::Host
