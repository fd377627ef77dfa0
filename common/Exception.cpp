#include "Exception.h"

#include "Log.h"

#include <boost/format.hpp>

#include <cstdlib>
#include <cstring>
#include <locale>

namespace KLX {

namespace {

char* copyOrNull(char const* text) {
    return text != nullptr ? strdup(text) : nullptr;
}

char const* textOf(char const* text) {
    return text != nullptr ? text : "";
}

std::locale* makePlainLocale() {
    auto* const characters = new std::ctype<char>;
    auto* const locale = new std::locale(std::locale::classic(), characters);
    char const all[] = {'a'};
    char narrowed[sizeof all];
    characters->narrow(all, all + sizeof all, '\0', narrowed);
    return locale;
}

// The process's own locale would group digits. The classic locale would not, but the standard
// library completes its table of characters at the first use, which is no use by two threads at
// once; this one's is complete before anybody sees it. It is never destroyed, so that exceptions
// can be made until the process ends.
std::locale const& plainLocale() {
    static std::locale const* const locale = makePlainLocale();
    return *locale;
}

} // namespace

Exception::Exception(char const* msg) : message(copyOrNull(msg)) {}

Exception::Exception(std::string msg) : message(strdup(msg.c_str())) {}

Exception::Exception(char const* fmt, char const* arg) {
    createMessage(fmt, textOf(arg));
}

Exception::Exception(char const* fmt, std::string arg) {
    createMessage(fmt, arg.c_str());
}

Exception::Exception(char const* fmt, int arg) {
    createMessage(fmt, arg);
}

Exception::Exception(Exception const& other)
    : std::exception(other), message(strdup(other.what())) {}

Exception::~Exception() {
    std::free(message);
}

char const* Exception::what() const noexcept {
    return message != nullptr ? message : "Out of memory";
}

template <class Argument>
void Exception::createMessage(char const* fmt, Argument const& arg) noexcept {
    message = nullptr;
    try {
        std::string const text = (boost::format(fmt, plainLocale()) % arg).str();
        std::size_t const size = text.size() + 1;
        message = static_cast<char*>(std::malloc(size));
        if (message != nullptr) {
            std::memcpy(message, text.c_str(), size);
        }
    } catch (boost::io::too_few_args const& error) {
        KLX_LOG(LogWarning, "Caught exception: %s", error.what());
    } catch (boost::io::too_many_args const& error) {
        KLX_LOG(LogWarning, "Caught exception: %s", error.what());
    } catch (boost::io::bad_format_string const& error) {
        KLX_LOG(LogWarning, "Caught exception: %s", error.what());
    } catch (...) {
        KLX_LOG(LogWarning, "Caught unknown exception.");
    }
}

} // namespace KLX
