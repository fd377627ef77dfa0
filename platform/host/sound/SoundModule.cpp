#include "SoundModule.h"

#include "../HostErrors.h"

#include <dlfcn.h>

#include <string>

namespace KLX::Host {
namespace {

std::string folderOfThisLibrary() {
    Dl_info here{};
    if (::dladdr(reinterpret_cast<const void*>(&folderOfThisLibrary), &here) == 0) {
        return "";
    }
    const std::string path = here.dli_fname;
    return path.substr(0, path.rfind('/') + 1);
}

SoundBackend* loadPulse() {
    const std::string path = folderOfThisLibrary() + "klx/libKLXSoundPulse.so";
    void* const module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        throw HostFailure(HostError::UnknownKey,
                          std::string("KLX_HOST_SOUND=pulse needs its module: ") + ::dlerror());
    }
    // The module is never closed: its backend is handed out for good.
    const auto entry = reinterpret_cast<SoundModuleEntry>(::dlsym(module, soundModuleEntry));
    if (entry == nullptr) {
        throw HostFailure(HostError::UnknownKey, path + " is no sound module");
    }
    return entry();
}

} // namespace

SoundBackend& pulseBackend() {
    static SoundBackend* const backend = loadPulse();
    return *backend;
}

} // namespace KLX::Host
