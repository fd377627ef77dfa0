#include "Guard.h"

#include "HostErrors.h"
#include "HostLog.h"

#include "dlog.h"

#include <new>

namespace KLX::Host {
namespace {

void tell(const char* text) noexcept {
    try {
        hostLog(DLOG_WARNING, text);
    } catch (const std::bad_alloc&) {
        // The error number still tells the caller.
    }
}

} // namespace

int numberOfCurrentException() noexcept {
    try {
        throw;
    } catch (const NetworkFault& fault) {
        tell(fault.what());
        return static_cast<int>(fault.error());
    } catch (const HostFailure& failure) {
        // The store has told the log of its own failures.
        return static_cast<int>(failure.error());
    } catch (const std::bad_alloc&) {
        return static_cast<int>(NetworkError::OutOfMemory);
    } catch (const std::exception& exception) {
        tell(exception.what());
        return static_cast<int>(HostError::SystemFailure);
    }
}

} // namespace KLX::Host
