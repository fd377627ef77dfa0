#include "network_control.h"

#include "Guard.h"
#include "Radios.h"
#include "SetProfile.h"
#include "store/Store.h"

#include <cstdlib>
#include <cstring>

namespace {

using KLX::Host::guarded;
using KLX::Host::HostError;
using KLX::Host::HostFailure;
using KLX::Host::NetworkError;
using KLX::Host::Radios;
using KLX::Host::Store;

/** A switch that the settings store keeps; the profile says how it stands at first. */
struct KeptSwitch {
    const char* key;
    bool (*isOnAtFirst)();
};

constexpr KeptSwitch wifiSwitch{"network/wifi_enabled", [] {
                                    return KLX::Host::currentProfile().switches.wifi != 0;
                                }};
constexpr KeptSwitch wakeOnMobileSwitch{
    "network/wake_on_mobile", [] {
        return KLX::Host::currentProfile().switches.wakeOnMobile;
    }};

bool readSwitch(const KeptSwitch& kept) {
    const auto value = Store::instance().read(kept.key);
    if (!value) {
        return kept.isOnAtFirst();
    }
    const bool* const isOn = std::get_if<bool>(&*value);
    if (isOn == nullptr) {
        throw HostFailure(HostError::WrongType, kept.key);
    }
    return *isOn;
}

void writeSwitch(const KeptSwitch& kept, bool isOn) {
    Store::instance().write(kept.key, isOn);
}

// Switching a desk's radios from a settings call surprises; it has to be asked for.
Radios radiosInUse() {
    const char* const wish = std::getenv("KLX_HOST_RFKILL");
    return wish != nullptr && std::strcmp(wish, "1") == 0 ? KLX::Host::readRadios() : Radios{};
}

} // namespace

int wifi_get_enable_kq(int* enabled) {
    return guarded([&] {
        if (enabled == nullptr) {
            return NetworkError::NullPointer;
        }
        const Radios radios = radiosInUse();
        *enabled = (radios.exist ? radios.areOn : readSwitch(wifiSwitch)) ? 1 : 0;
        return NetworkError::None;
    });
}

int wifi_set_enable_kq(bool enable) {
    return guarded([&] {
        if (radiosInUse().exist) {
            KLX::Host::switchRadios(enable);
        } else {
            writeSwitch(wifiSwitch, enable);
        }
        return NetworkError::None;
    });
}

int util_get_wakeOnMobile_mode(bool* enabled) {
    return guarded([&] {
        if (enabled == nullptr) {
            return NetworkError::NullPointer;
        }
        *enabled = readSwitch(wakeOnMobileSwitch);
        return NetworkError::None;
    });
}

int util_set_wakeOnMobile_mode(bool enable) {
    return guarded([&] {
        writeSwitch(wakeOnMobileSwitch, enable);
        return NetworkError::None;
    });
}
