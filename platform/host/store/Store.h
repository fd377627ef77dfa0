#pragma once

#include "../Value.h"
#include "Environment.h"

#include <optional>
#include <string>

namespace KLX::Host {

/**
 * The typed values that the host platform keeps, for services to build on.
 *
 * Keys under "memory/" live until the machine restarts; all other keys outlive that. A key is 1 to
 * 511 bytes. Keys that callers of the settings store can name begin with "db/" or "memory/";
 * a service keeps its own values under another first segment, "system-settings/13" for example.
 *
 * A write is on disk when it returns, except under "memory/". All calls may come from any thread,
 * from several processes at once, and from a child after a fork. Failures throw StoreFault, after
 * the log was told once.
 *
 * @code
 * Store& store = Store::instance();
 * store.write("picture/backlight", 35);
 * const int backlight = std::get<int>(store.read("picture/backlight").value_or(50));
 * store.update("power/cycles", [](const std::optional<Value>& cycles) -> Value {
 *     return cycles ? std::get<int>(*cycles) + 1 : 1;
 * });
 * @endcode
 */
class Store {
public:
    using Change = Environment::Change;

    /** The one store of this process; a forked child gets its own. Lives until the process ends. */
    static Store& instance();

    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    /** The value that was last written under a key, or nothing. */
    std::optional<Value> read(const std::string& key);

    /** Writes a value, whatever type was there before. */
    void write(const std::string& key, const Value& value);

    /**
     * Reads, changes and writes a value with nobody in between. `change` may be called several
     * times and must not use the store; what it throws comes out and nothing is written.
     */
    void update(const std::string& key, const Change& change);

private:
    Store();

    Environment& environmentOf(const std::string& key);

    Environment m_persistent;
    Environment m_memory;
};

} // namespace KLX::Host
