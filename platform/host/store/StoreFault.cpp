#include "StoreFault.h"

#include "../HostLog.h"

#include "dlog.h"

#include <lmdb.h>
#include <sys/statvfs.h>

#include <cerrno>

namespace KLX::Host {
namespace {

const char* remedyFor(HostError error) {
    switch (error) {
    case HostError::DiskFull:
        return "free space on its disk";
    case HostError::NotWritable:
        return "make it writable for this user, or set KLX_STATE_DIR to a writable folder";
    case HostError::StoreCorrupt:
        return "restore it from a backup, or move it away to start from the defaults";
    case HostError::StoreForeign:
        return "use the build that wrote it, or move it away to start from the defaults";
    case HostError::NotOurs:
        return "run as its owner, or set KLX_STATE_DIR to a folder of your own";
    case HostError::NoStateFolder:
        return "set KLX_STATE_DIR to a writable folder";
    case HostError::TooManyReaders:
        return "end some of the processes that read it";
    case HostError::StoreFull:
        return "end the paused process that holds old pages of it, or store less";
    case HostError::ValueTooLong:
        return "store a shorter text";
    default:
        return "see to that and try again";
    }
}

// A write that the disk took only in part is EIO to LMDB, so the disk itself is asked.
bool isDiskFull(const std::string& path) {
    constexpr unsigned long roomForOneWrite = 256UL * 1024UL;
    const std::string folder = path.substr(0, path.find_last_of('/') + 1);
    struct statvfs status {};
    return ::statvfs(folder.c_str(), &status) == 0 &&
           status.f_bavail * status.f_frsize < roomForOneWrite;
}

HostError errorOf(int code, const std::string& path) {
    switch (code) {
    case MDB_INVALID:
    case MDB_CORRUPTED:
    case MDB_PAGE_NOTFOUND:
        return HostError::StoreCorrupt;
    case MDB_VERSION_MISMATCH:
        return HostError::StoreForeign;
    case MDB_MAP_FULL:
        return HostError::StoreFull;
    case MDB_READERS_FULL:
        return HostError::TooManyReaders;
    case ENOSPC:
    case EDQUOT:
        return HostError::DiskFull;
    case EROFS:
    case EACCES:
    case EPERM:
        return HostError::NotWritable;
    case EIO:
        return isDiskFull(path) ? HostError::DiskFull : HostError::SystemFailure;
    default:
        return HostError::SystemFailure;
    }
}

} // namespace

StoreFault storeFault(HostError error, const std::string& path, const std::string& seen) {
    return {error, path + ": " + seen + "; " + remedyFor(error) + " (error " +
                       std::to_string(static_cast<int>(error)) + ")"};
}

StoreFault storeFaultOf(int code, const std::string& path) {
    return storeFault(errorOf(code, path), path, mdb_strerror(code));
}

void FaultLog::report(const StoreFault& fault) {
    const std::lock_guard lock(m_mutex);
    std::string& reported = m_reported[fault.error()];
    if (reported != fault.what()) {
        reported = fault.what();
        hostLog(DLOG_ERROR, reported);
    }
}

void FaultLog::settle() {
    const std::lock_guard lock(m_mutex);
    m_reported.clear();
}

} // namespace KLX::Host
