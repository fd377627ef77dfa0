#include "SetProfile.h"

#include "HostErrors.h"
#include "HostLog.h"
#include "profile/ProfileReader.h"

#include "dlog.h"

#include <dlfcn.h>

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
        const std::string problem = std::string(failure.what()) + " (error " +
                                    std::to_string(static_cast<int>(HostError::ProfileInvalid)) +
                                    ")";
        hostLog(DLOG_ERROR, problem);
        return {nullptr, problem};
    }
}

} // namespace

int ControlRange::defaultIn(int pictureMode) const {
    const auto found = defaultsByPictureMode.find(pictureMode);
    return found == defaultsByPictureMode.end() ? defaultValue : found->second;
}

const SetProfile& currentProfile() {
    // Never destroyed: services answer until the last thread is gone.
    static const Loaded& loaded = *new Loaded(load());
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
