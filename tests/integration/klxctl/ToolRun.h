#pragma once

#include <map>
#include <string>
#include <vector>

/// How a process ended and what it wrote.
struct Outcome {
    int status = -1; ///< exit status; -1 when a signal ended it
    int signal = 0;  ///< the signal that ended it; 0 for none
    std::string output;
    std::string messages; ///< what went to standard error
};

/// Starts the tool as a process of its own, as a shell would.
class ToolRun {
public:
    /// Adds to the environment that the tool gets.
    ToolRun& environment(const std::string& name, const std::string& value);

    /// Gives the tool a file or device as its standard output; the outcome then has none.
    ToolRun& outputTo(const std::string& path);

    /// Starts the tool without a standard output.
    ToolRun& outputClosed();

    /// Starts the tool without any of the three standard streams.
    ToolRun& streamsClosed();

    /// Starts the tool with a standard output that nobody reads.
    ToolRun& outputUnread();

    /// Starts the tool with a standard error that nobody reads.
    ToolRun& messagesUnread();

    /// Takes from the tool, even when root starts it, the right to pass over file permissions.
    ToolRun& underFilePermissions();

    ToolRun& umask(unsigned mask);

    /// Runs the tool to its end.
    Outcome run(const std::vector<std::string>& arguments) const;

    /// Runs another program in the tool's stead, found as a shell finds it.
    Outcome runProgram(const std::vector<std::string>& command) const;

    /// Starts the tool and leaves it running; both streams lead nowhere.
    /// @return its process number, to be waited for by the caller
    int start(const std::vector<std::string>& arguments) const;

private:
    [[noreturn]] void becomeProgram(const std::vector<std::string>& command) const;
    void prepareStreams() const;

    std::map<std::string, std::string> m_environment;
    std::string m_outputPath;
    bool m_outputClosed = false;
    bool m_streamsClosed = false;
    bool m_outputUnread = false;
    bool m_messagesUnread = false;
    bool m_underFilePermissions = false;
    int m_umask = -1;
};
