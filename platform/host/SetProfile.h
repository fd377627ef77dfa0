#pragma once

/**
 * @file
 * What one model of the virtual television is like: its identity, its inputs, its ranges and the
 * defaults of its settings. docs/set-profile.md describes the file that it is read from.
 */

#include "Value.h"

#include <map>
#include <optional>
#include <string>
#include <unordered_map>

namespace KLX::Host {

/** The type of a setting and the value that it has until somebody writes it. */
struct SettingDeclaration {
    ValueType type;                    ///< Integer, Boolean or Text.
    std::optional<Value> defaultValue; ///< Of that type.
};

/** The range of a picture, sound, energy or game control, both ends included. */
struct ControlRange {
    int minimum = 0;
    int maximum = 0;
    int defaultValue = 0;
    std::map<int, int> defaultsByPictureMode; ///< Where a picture mode has a default of its own.

    bool contains(int value) const noexcept { return value >= minimum && value <= maximum; }

    /** The default in one picture mode, by the mode's number. */
    int defaultIn(int pictureMode) const;
};

/** Something that the screen can show. */
struct Source {
    int id = 0;          ///< The television service's number.
    std::string portKey; ///< Settings-store key of the port's state; "" where there is no port.
};

/** How the sound leaves the set. */
struct SoundOutput {
    bool isMuted = false;
    ControlRange speaker; ///< Numbers of the speaker selections.
};

/** The switches that services of their own keep. */
struct Switches {
    int hdmiCec = 0; ///< 1 on, 0 off.
    int wifi = 0;    ///< 1 on, 0 off.
    bool wakeOnMobile = false;
};

/** What the application server tells. What is missing makes the query fail. */
struct ApplicationServer {
    std::map<std::string, std::string> versions; ///< By application id.
    std::optional<std::string> hubSite;
    std::optional<std::string> usedMemory;
};

/** Counters of the power control; a missing one makes its query fail. */
struct PowerCounters {
    std::optional<int> powerFail;
    std::optional<int> watchdog;
};

/** One model. What is missing, the set does not have: its queries fail. */
struct SetProfile {
    std::string model;
    std::unordered_map<std::string, SettingDeclaration> settings; ///< By settings-store key.
    std::map<int, SettingDeclaration> systemSettings;             ///< Without the shared ones.
    std::map<int, Value> systemInformation;
    std::map<int, Value> runtimeInformation; ///< Without those that mirror a system setting.
    std::map<std::string, Value> customFeatures;
    std::map<int, std::string> pictureModes;      ///< Name by number.
    std::map<int, std::string> pictureSizes;      ///< Name by number.
    std::map<std::string, ControlRange> controls; ///< By pelm name, "backlight" for example.
    std::map<std::string, Source> sources;        ///< By name, "HDMI1" for example.
    std::optional<std::string> initialSource;     ///< A name out of `sources`.
    std::map<std::string, int> settingsItems;     ///< Items of the settings service.
    SoundOutput sound;
    Switches switches;
    std::optional<std::string> esn;
    ApplicationServer applicationServer;
    PowerCounters power;
    std::optional<int> snrHundredthsOfDecibel;
};

/**
 * The profile of this process: the one that $KLX_PROFILE names, "standard" when it names none.
 *
 * It is loaded at the first call and stays the same. Throws HostFailure (ProfileInvalid) when it
 * cannot be found or has a mistake; the log is told once. Safe from any thread.
 *
 * @code
 * const auto& controls = currentProfile().controls;
 * const auto found = controls.find("backlight");
 * if (found == controls.end() || !found->second.contains(value)) { ... }
 * @endcode
 */
const SetProfile& currentProfile();

/**
 * Loads a profile: a file when the name contains a slash or ends in ".json", else the shipped one
 * of that name in `shippedFolder`. Throws HostFailure (ProfileInvalid) with file, place in the
 * file and what was expected there.
 */
SetProfile loadProfile(const std::string& name, const std::string& shippedFolder);

/** The folder of the shipped profiles, found from where this library itself was loaded. */
std::string shippedProfilesFolder();

} // namespace KLX::Host
