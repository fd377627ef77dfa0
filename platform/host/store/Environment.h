#pragma once

#include "../Value.h"
#include "MapLock.h"
#include "StoreFault.h"
#include "StoreFile.h"

#include <atomic>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace KLX::Host {

/**
 * One LMDB environment: typed values under keys, each call a transaction of its own.
 *
 * It is opened at the first use. An opening that failed is tried again at the next use, so a disk
 * that was cleaned up, or a file that was put back, needs no restart. The map grows when it is
 * full. A failure of the files throws StoreFault after it was logged once.
 *
 * Any number of threads and processes may use the same store at once. After a fork the child makes
 * an object of its own.
 */
class Environment {
public:
    /** Names the store's file and makes its folders; called at each opening. */
    using Locator = std::function<StoreFile()>;

    /**
     * Makes the new value of a key out of the present one. It may be called several times for one
     * update and must not use the store itself.
     */
    using Change = std::function<Value(const std::optional<Value>& present)>;

    explicit Environment(Locator locate);

    /** The value under a key of 1 to 511 bytes, or nothing. */
    std::optional<Value> read(std::string_view key);

    /** Replaces the value under a key. What `change` throws leaves everything as it was. */
    void update(std::string_view key, const Change& change);

private:
    struct Outcome {
        int code;
        std::size_t mapSize;
    };

    enum class Use { Read, Write };

    template <typename Attempt>
    void perform(Use use, const Attempt& attempt);
    template <typename Attempt>
    Outcome attemptOnce(Use use, const Attempt& attempt);
    void remedy(const Outcome& outcome);
    int tryRead(std::string_view key, std::optional<Value>& value);
    int tryUpdate(std::string_view key, const Change& change);
    Value decode(std::string_view key, const MDB_val& bytes);
    void checkLength(std::string_view key, std::size_t length);
    bool isIntact();
    bool isInPlace() const;
    bool mayUse(Use use);
    void open();
    void makeRoom(std::size_t sizeSeen);
    void resizeMap(std::size_t size);
    void noteMapSize();
    void clearReaders();
    [[noreturn]] void giveUp(int code);
    [[noreturn]] void fail(const StoreFault& fault);

    Locator m_locate;
    MapLock m_lock; ///< Shared for a transaction; alone to open, close or resize.
    OpenedStore m_store;
    StoreFile m_file{};
    std::size_t m_mapSize = 0;
    std::atomic<long long> m_fileSize{0};
    std::atomic<long long> m_lookedAt{0}; ///< The tick in which the files were last in place.
    FaultLog m_faults;
};

} // namespace KLX::Host
