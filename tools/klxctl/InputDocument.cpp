#include "InputDocument.h"

#include "ExitStatus.h"
#include "Messages.h"
#include "Progress.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace {

[[noreturn]] void fail(const std::string& file, const std::string& reason) {
    throw Failure(ExitStatus::Failed, "cannot read " + documentName(file) + ": " + reason);
}

/// @return false with `errno` set when it cannot be read to its end
bool readAll(int descriptor, std::string& text) {
    std::array<char, 65536> buffer;
    for (;;) {
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count == 0) {
            return true;
        }
        if (count > 0) {
            text.append(buffer.data(), static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return false;
        }
    }
}

std::string contentOf(const std::string& file) {
    const bool isStandardInput = file == "-";
    const int descriptor =
        isStandardInput ? STDIN_FILENO : open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    std::string text;
    const bool isRead = descriptor >= 0 && readAll(descriptor, text);
    const int error = errno;
    if (!isStandardInput && descriptor >= 0) {
        close(descriptor);
    }
    if (!isRead) {
        fail(file, std::strerror(error));
    }
    return text;
}

DocumentFormat formatOf(const std::string& file, const std::string& text) {
    const std::optional<DocumentFormat> format = guessedFormat(text);
    if (!format) {
        fail(file, "it begins neither as an XML nor as a JSON document does");
    }
    return *format;
}

} // namespace

std::string documentName(const std::string& file) {
    return file == "-" ? "standard input" : quoted(file);
}

std::string checkInputName(const std::string& name) {
    return name.empty() ? "the file name is empty; write one, or - for standard input" : "";
}

SettingsDocument readDocument(const std::string& file, const std::string& format) {
    const std::string text = contentOf(file);
    if (text.empty()) {
        fail(file, "it is empty");
    }
    Progress progress;
    progress.tell("reading " + documentName(file));
    const DocumentFormat form = format.empty() ? formatOf(file, text) : formatNamed(format);
    try {
        return SettingsDocument::parse(text, form);
    } catch (const Failure& failure) {
        fail(file, failure.what());
    }
}
