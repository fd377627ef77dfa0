#include "Boundary.h"

#include "HostLog.h"

#include "dlog.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace KLX::Host {
namespace {

void tell(const char* service, const char* what) noexcept {
    try {
        hostLog(DLOG_DEBUG, std::string(service) + ": " + what);
    } catch (const std::exception&) {
        // Out of memory while saying so: the error number still tells the caller.
    }
}

} // namespace

int errorOfCurrentException(const char* service) noexcept {
    try {
        throw;
    } catch (const HostFailure& failure) {
        tell(service, failure.what());
        return static_cast<int>(failure.error());
    } catch (const std::exception& exception) {
        tell(service, exception.what());
        return static_cast<int>(HostError::SystemFailure);
    }
}

void requirePointer(const void* argument, const char* name) {
    if (argument == nullptr) {
        throw HostFailure(HostError::NullPointer, std::string(name) + " is null");
    }
}

char* handOut(const std::string& text) {
    char* const copy = ::strdup(text.c_str());
    if (copy == nullptr) {
        throw std::bad_alloc();
    }
    return copy;
}

} // namespace KLX::Host
