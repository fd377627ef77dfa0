#pragma once

#include "KLXExport.h"

#include <exception>
#include <string>

namespace KLX {

/// The one exception type of this library.
///
/// It owns its message; a copy owns a message of its own. An object never changes after its
/// construction, so `what()` may be called from any thread.
///
/// A message that cannot be allocated or composed never makes a constructor throw: `what()` then
/// answers "Out of memory".
///
/// @code
/// throw KLX::Exception("file[%s] open failed", path);   // what(): file[a.txt] open failed
/// @endcode
class KLX_API Exception : public std::exception {
public:
    /// Takes the text as it is; a percent sign is only a character.
    /// @param msg the message, which is copied; null is allowed
    explicit Exception(char const* msg);

    /// The same.
    /// @param msg the message
    explicit Exception(std::string msg);

    /// Applies a printf-like format to exactly one argument. A format that takes none or more than
    /// one is logged and leaves the message null.
    /// @param fmt the format
    /// @param arg its argument
    Exception(char const* fmt, char const* arg);

    /// The same.
    /// @param fmt the format
    /// @param arg its argument
    Exception(char const* fmt, std::string arg);

    /// The same.
    /// @param fmt the format
    /// @param arg its argument
    Exception(char const* fmt, int arg);

    /// Owns a message of its own.
    /// @param other the exception whose message is copied
    Exception(Exception const& other);
    Exception& operator=(Exception const&) = delete;
    ~Exception() override;

    /// @return the message, or "Out of memory" when there is none; valid as long as this object.
    char const* what() const noexcept override;

private:
    template <class Argument>
    void createMessage(char const* fmt, Argument const& arg) noexcept;

    char* message;
};

} // namespace KLX
