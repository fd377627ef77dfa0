#pragma once

/**
 * @file
 * The error numbers by which the host platform's services answer.
 *
 * A C function returns the number itself, `static_cast<int>(HostError::WrongType)` for example.
 * All numbers are negative, so that none is taken for a count or for the "exactly 1" of
 * `get_vconf_key_default_value`. They are part of the interface and are not renumbered.
 */

#include <stdexcept>
#include <string>

namespace KLX::Host {

enum class HostError : int {
    None = 0,
    NullPointer = -7001,    ///< A pointer argument is null.
    InvalidKey = -7002,     ///< A key that does not begin with "db/" or "memory/".
    KeyTooLong = -7003,     ///< A key above 511 bytes.
    UnknownKey = -7004,     ///< Nobody declared the key and nobody wrote it.
    WrongType = -7005,      ///< The value under the key has another type.
    NoValue = -7006,        ///< The key is declared without a default and was never written.
    OutOfRange = -7007,     ///< The set does not know this number (a picture size, a control).
    ValueTooLong = -7008,   ///< The value is longer than the store's map.
    StoreFull = -7009,      ///< The store is as large as it may become.
    DiskFull = -7010,       ///< No space is left for the store's files.
    NotWritable = -7011,    ///< The store's folder or files are read-only for this user.
    StoreCorrupt = -7012,   ///< The store's file is damaged.
    StoreForeign = -7013,   ///< The store's file was written by something else.
    NotOurs = -7014,        ///< A folder of the store belongs to another user or is not private.
    NoStateFolder = -7015,  ///< No folder for the store is named or can be found.
    TooManyReaders = -7016, ///< Every reader slot of the store is taken.
    SystemFailure = -7017,  ///< The operating system refused a call, memory for example.
    ProfileInvalid = -7018, ///< The set profile cannot be found or has a mistake.
};

/** What went wrong with a service call: an error number and a text that says with what. */
class HostFailure : public std::runtime_error {
public:
    HostFailure(HostError error, const std::string& text)
        : std::runtime_error(text), m_error(error) {}

    HostError error() const noexcept { return m_error; }

private:
    HostError m_error;
};

} // namespace KLX::Host
