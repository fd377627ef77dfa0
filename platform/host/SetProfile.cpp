#include "SetProfile.h"

#include "HostErrors.h"
#include "HostLog.h"
#include "profile/ProfileReader.h"

#include "dlog.h"

#include <dlfcn.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace KLX::Host {
namespace {

/** What loading came to: a profile, or the reason why there is none. */
struct Loaded {
    std::unique_ptr<const SetProfile> profile;
    std::string problem;
};

std::string chosenProfile() {
    const char* const name = std::getenv("KLX_PROFILE");
    return name != nullptr && *name != '\0' ? name : "standard";
}

Loaded load() {
    try {
        return {std::make_unique<SetProfile>(loadProfile(chosenProfile(), shippedProfilesFolder())),
                ""};
    } catch (const HostFailure& failure) {
        return {nullptr, std::string(failure.what()) + " (error " +
                             std::to_string(static_cast<int>(HostError::ProfileInvalid)) + ")"};
    }
}

/**
 * Loads at the first call. No lock is held meanwhile: a process that forks in that instant would
 * leave it held in the child for ever. Threads that come together may each load; one of them wins.
 */
const Loaded& loadedOnce() {
    static std::atomic<const Loaded*> current{nullptr};
    const Loaded* known = current.load(std::memory_order_acquire);
    if (known == nullptr) {
        auto fresh = std::make_unique<const Loaded>(load());
        if (current.compare_exchange_strong(known, fresh.get())) {
            // Never destroyed: services answer until the last thread is gone.
            known = fresh.release();
            if (!known->profile) {
                hostLog(DLOG_ERROR, known->problem);
            }
        }
    }
    return *known;
}

} // namespace

int ControlRange::defaultIn(int pictureMode) const {
    const auto found = defaultsByPictureMode.find(pictureMode);
    return found == defaultsByPictureMode.end() ? defaultValue : found->second;
}

const SetProfile& currentProfile() {
    const Loaded& loaded = loadedOnce();
    if (!loaded.profile) {
        throw HostFailure(HostError::ProfileInvalid, loaded.problem);
    }
    return *loaded.profile;
}

SetProfile loadProfile(const std::string& name, const std::string& shippedFolder) {
    return readProfile(readProfileDocument(name, shippedFolder), HostFacts());
}

std::string shippedProfilesFolder() {
    Dl_info info{};
    // Any address inside this library tells which file it was loaded from.
    if (::dladdr(reinterpret_cast<const void*>(&shippedProfilesFolder), &info) == 0) {
        throw HostFailure(HostError::ProfileInvalid, "the platform library cannot find itself");
    }
    std::error_code failure;
    const auto library = std::filesystem::canonical(info.dli_fname, failure);
    return (library.parent_path() / KLX_PROFILES_FROM_LIBRARY).lexically_normal().string();
}

} // namespace KLX::Host
