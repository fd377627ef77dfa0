#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace KLX::Host {

/** A program whose standard output is read; killed with the object at the latest. */
class Program {
public:
    Program(const std::string& file, const std::vector<std::string>& arguments);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    /** Waits for some output; false when the program ended before it wrote anything. */
    bool waitForOutput();

    /** Ends the program as kill -9 does and waits for its end. */
    void kill();

    /** What it has written and what was not taken yet. A program that writes much waits for it. */
    std::string takeOutput();

private:
    pid_t m_id = -1;
    int m_output = -1;
};

} // namespace KLX::Host
