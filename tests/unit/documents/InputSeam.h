#pragma once

#include <exception>
#include <string>
#include <vector>

/**
 * Stands in for what the manager asks of the inputs, for as long as it lives; otherwise the
 * library's own answers are in force. The linker sends the manager's calls here.
 */
struct InputSeam {
    /** These devices are connected. */
    explicit InputSeam(std::vector<std::string> connected);
    /** The query for the devices throws. */
    explicit InputSeam(std::exception_ptr thrown);
    ~InputSeam();
    InputSeam(const InputSeam&) = delete;
    InputSeam& operator=(const InputSeam&) = delete;

    /** Details of USB devices are answered with this and the text that was asked with. */
    InputSeam& answerDetails(const std::string& prefix);

    std::vector<std::string> devices;
    std::exception_ptr failure;
    std::string detailPrefix;
};
