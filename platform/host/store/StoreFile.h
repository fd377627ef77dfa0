#pragma once

#include "FileIdentity.h"
#include "Handles.h"

#include <cstddef>
#include <string>

namespace KLX::Host {

/** Where a store lies and how it is opened. */
struct StoreFile {
    std::string path;    ///< The data file, absolute.
    bool isDurable;      ///< A write is on disk before it is acknowledged.
    std::size_t mapSize; ///< Bytes of the first map.

    std::string lockPath() const { return path + "-lock"; }
};

/** An opened store. */
struct OpenedStore {
    EnvironmentHandle environment;
    MDB_dbi database = 0;
    bool isReadOnly = false; ///< It lies on a read-only file system.
    FileIdentity data{};     ///< The data file that is open.
    FileIdentity lock{}; ///< Its lock file; none where there is none on a read-only file system.
};

/**
 * Opens a store, makes it when it is not there, and checks it from the first page to the last.
 * Throws StoreFault. A process has each store open once at a time; the caller sees to that.
 */
OpenedStore openStore(const StoreFile& file);

} // namespace KLX::Host
