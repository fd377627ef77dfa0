#pragma once

#include "../HostErrors.h"

#include <map>
#include <mutex>
#include <string>

namespace KLX::Host {

/** A failure of the store's files: the text names the file and says what to do about it. */
class StoreFault : public HostFailure {
public:
    using HostFailure::HostFailure;
};

/** Makes a fault out of an error, the file or folder that it concerns and what was seen there. */
StoreFault storeFault(HostError error, const std::string& path, const std::string& seen);

/** The same from a system or LMDB error code; `path` is also asked whether its disk is full. */
StoreFault storeFaultOf(int code, const std::string& path);

/**
 * Tells the log about faults, each once: the same fault is silent until the store worked again.
 * Safe from several threads.
 */
class FaultLog {
public:
    void report(const StoreFault& fault);

    /** The store works again: the next fault is news. */
    void settle();

private:
    std::mutex m_mutex;
    std::map<HostError, std::string> m_reported;
};

} // namespace KLX::Host
