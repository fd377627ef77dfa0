#pragma once

/**
 * @file
 * The programmable platform: every function of platform/include/, with answers a test decides on
 * and a record of everything that was asked.
 *
 * There is one platform a process, as on the set; a `Scene` makes it forget. Any member may be
 * called from any thread.
 *
 * What holds without programming:
 *  - a read fails with `kNotProgrammed` and leaves its output alone; it never succeeds by accident;
 *  - a write succeeds, is recorded, and where the service is a plain store a later read finds it;
 *  - opening succeeds: controls, connections and sessions are handed out.
 *
 * @code
 * class BacklightTest : public ::testing::Test { protected: fake::Scene scene; };
 *
 * TEST_F(BacklightTest, ReadsTheStoredCopy) {
 *     scene.pelm("backlight", 20).pelmDefault("backlight", 50);
 *     EXPECT_EQ(get("/Picture/Backlight"), "20");
 *     EXPECT_THAT(fake::calls(), ElementsAre("pelm_get_backlight(1, 1)"));
 * }
 * @endcode
 *
 * Functions are named as they are recorded: C functions by their name, operations of a service by
 * service and name ("VideoControl.SetPictureSize", "SettingsService.GetItemValue",
 * "PowerControl.getInstance"), the television service's own as "CreateVideoControl", "Destroy".
 * Every member that takes such a name throws std::invalid_argument for a name that does not exist,
 * so that a misspelt expectation cannot pass.
 */

#include <chrono>
#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace klx::fake {

/** Status of a read that nobody programmed. */
constexpr int kNotProgrammed = -404;
/** Status of a read of another type than the programmed one. */
constexpr int kWrongType = -415;
/** Status of a call with a handle that is closed or of another kind, or with a null pointer. */
constexpr int kBadHandle = -400;

/** A programmed value. `nullptr` stands for success with a null text. */
using Value = std::variant<std::nullptr_t, int, bool, double, std::string>;

/** A device for `Scene::usbDevices`; a text that is missing reads as null. */
struct UsbDevice {
    std::optional<std::string> product;
    std::optional<std::string> manufacturer;
};

/** A network profile. What it was not given cannot be read from it. */
class Profile {
public:
    /** @param name  how the call history shows the profile, e.g. "home" */
    explicit Profile(std::string name);

    Profile& type(int number); ///< Numbered as connection_profile_type_e.
    Profile& ip(Value text);
    Profile& subnetMask(Value text);
    Profile& gateway(Value text);
    Profile& dns(Value text, int order = 1);
    Profile& ipConfig(int number);
    Profile& interfaceName(Value text);

private:
    friend struct ProfileRecord;
    Profile& with(const std::string& name, Value value);

    std::string m_name;
    std::map<std::string, Value> m_values;
};

/**
 * What the platform answers during a test. A scene starts and ends with a platform that knows
 * nothing, has recorded nothing, and lets nobody wait. All members return the scene.
 */
class Scene {
public:
    Scene();
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    /** @name Settings store: an int, bool or text under a key */
    /**@{*/
    Scene& store(const std::string& key, Value value);
    Scene& unset(const std::string& key);
    /**
     * Programs get_vconf_key_default_value. The text is handed out whatever the status is, so that
     * a caller that frees it only on success is seen to leak.
     */
    Scene& storeDefault(const std::string& key, std::optional<std::string> text, int status = 1,
                        std::optional<int> type = std::nullopt);
    /**@}*/

    /** @name System information, settings and runtime states, by number; features by name */
    /**@{*/
    Scene& systemInfo(int key, Value value);
    Scene& feature(const std::string& name, Value value);
    Scene& systemSetting(int key, Value value);
    Scene& runtimeInfo(int key, Value value);
    /**@}*/

    /** @name Picture and sound: an adjustment is a function's name without "pelm_get_" */
    /**@{*/
    Scene& pelm(const std::string& adjustment, long long stored);
    Scene& pelmDefault(const std::string& adjustment, long long value);
    Scene& muted(bool muted);
    Scene& speaker(int selection);
    Scene& settingsItem(const std::string& item, int result, const std::string& text = "");
    /**@}*/

    /** @name Television service; to have no control, fail its Create function */
    /**@{*/
    Scene& source(int sourceId);
    Scene& snr(int hundredthsOfDecibel);
    Scene& pictureSize(int size);
    /**
     * What the HDMI processor's video device tells about the source in front: 8 and 16 characters,
     * cut or filled with zeroes; the bytes behind them come back as 'x'. v4l2_open, v4l2_ioctl and
     * v4l2_close stand in for libv4l2 in an executable that calls this. The history shows the bytes
     * that a request was made with, equal ones counted: "[3, 0 x 39]". Their failures are errno
     * values: `fail("v4l2_open", ENODEV)`; an unprogrammed request fails with 404.
     */
    Scene& hdmi(const std::string& vendor, const std::string& product);
    /**@}*/

    /** @name Network */
    /**@{*/
    Scene& connectionType(int type);
    Scene& currentProfile(const Profile& profile);
    Scene& registeredProfile(const Profile& profile); ///< Appends to what a walk visits.
    Scene& mac(int connectionType, Value text);
    Scene& wifiState(int state);
    Scene& cellularState(int state);
    Scene& ethernetState(int state);
    Scene& wifi(int enabled);
    Scene& wakeOnMobile(bool enabled);
    /**@}*/

    /** @name Other services */
    /**@{*/
    Scene& usbDevices(std::vector<UsbDevice> devices); ///< Of class 8, mass storage.
    Scene& cec(int state);
    Scene& powerFailCount(int count);
    Scene& watchdogCount(int count);
    /** Bytes beyond the record are cut; a text that fills it is not terminated. */
    Scene& appVersion(const std::string& applicationId, const std::string& bytes);
    Scene& hubSite(const std::string& bytes);
    Scene& usedMemory(Value text);
    /** @param claimed  the length that is reported, when it is not the number of bytes written */
    Scene& esn(const std::string& bytes, std::optional<int> claimed = std::nullopt);
    /**@}*/

    /** @name Departures, for any function by name; pointers come back null where one fails */
    /**@{*/
    /** The function does nothing and answers `status`. (What releases a handle still does.) */
    Scene& fail(const std::string& function, int status);
    /** The same for one call only, the nth from now on, counted from 1. */
    Scene& failNth(const std::string& function, int nth, int status);
    /** The function does its work but answers `status`. */
    Scene& answer(const std::string& function, int status);
    /** The function throws a copy of `exception`, which may be of any type. */
    template <typename E>
    Scene& throwFrom(const std::string& function, E exception) {
        return throwWith(function, [exception] { throw exception; });
    }
    /** `action` runs on the caller's thread when a call comes; it may program the scene. */
    Scene& onCall(const std::string& function, std::function<void()> action);
    /** Ends every departure of the function. */
    Scene& restore(const std::string& function);
    /**@}*/

private:
    Scene& throwWith(const std::string& function, std::function<void()> thrower);
};

/**
 * Holds every call to a function, after it was recorded, until the gate is opened or destroyed.
 *
 * @code
 * fake::Gate gate("appserver_get_used_memory");
 * std::thread client(query);
 * ASSERT_TRUE(gate.waitForCaller());
 * gate.open();
 * @endcode
 */
class Gate {
public:
    explicit Gate(const std::string& function);
    ~Gate();
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;

    void open();

    /** Waits until `callers` calls have arrived. @return false when `limit` ran out before. */
    bool waitForCaller(int callers = 1,
                       std::chrono::milliseconds limit = std::chrono::seconds(5)) const;

    struct State;

private:
    std::shared_ptr<State> m_state;
};

/** A line of the platform's log. */
struct LogLine {
    int logId = 0;
    int priority = 0;
    std::string tag;
    std::string file;
    std::string function;
    int line = 0;
    std::string message;     ///< Without the leading "file: function(line) > ".
    std::string format;      ///< As it was passed.
    bool conforming = false; ///< The format began "%s: %s(%d) > "; if not, `message` is all of it.
};

bool operator==(const LogLine& left, const LogLine& right);
bool operator!=(const LogLine& left, const LogLine& right);
std::ostream& operator<<(std::ostream& out, const LogLine& line);

/**
 * The calls so far, in the order in which they came, as text: `vconf_set_int("db/menu/x", 5)`,
 * `VideoControl.SetPictureSize(3, 1)`, `connection_destroy(connection)`. Output pointers are left
 * out, in-out values shown. Handles read as what they are ("connection", "iterator", "usb list",
 * "usb device 1", "SourceControl", "video device", a profile's name), as "null", or as "stale ..."
 * once closed.
 */
std::vector<std::string> calls();

/** The calls to one function. */
std::vector<std::string> callsTo(const std::string& function);

/** The log. */
std::vector<LogLine> logs();

/** The messages of one priority. */
std::vector<std::string> messages(int priority);

/** Calls and log lines in their common order; a line reads as `log(5) function: message`. */
std::vector<std::string> history();

/** Forgets calls, lines and misuses, and nothing else. */
void clearHistory();

/**
 * What is open, one entry for each: "connection", "iterator", "usb list", "SourceControl",
 * "TunerControl", "VideoControl", "video device", and "usb session", "cec session" between their
 * first and last call.
 */
std::vector<std::string> openHandles();

/** Calls with a closed handle or one of another kind. Null is no misuse: it merely fails. */
std::vector<std::string> misuses();

/**
 * Whether the calling thread is inside a function of the platform. What it allocates there is the
 * platform's own affair and not its caller's.
 */
bool isInside();

/** The names of all functions, for tests that hold for each of them. */
std::vector<std::string> functions();

/** Makes the platform forget everything; a `Scene` does it at both ends. */
void reset();

} // namespace klx::fake
