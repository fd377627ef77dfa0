#include "Environment.h"

#include "MetaPages.h"
#include "Record.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <limits>
#include <mutex>
#include <shared_mutex>
#include <utility>

namespace KLX::Host {
namespace {

// An outcome beside LMDB's own codes: nothing is open, or what is open is no longer the file.
constexpr int mustOpen = std::numeric_limits<int>::min();

// Every remedy makes progress of its own; this only ends a row of several that contend for ever.
constexpr int mostAttempts = 64;

MDB_val valueOf(std::string_view bytes) {
    // LMDB takes its input through the same type as its output, without const.
    return {bytes.size(), const_cast<char*>(bytes.data())};
}

std::string_view bytesOf(const MDB_val& value) {
    return {static_cast<const char*>(value.mv_data), value.mv_size};
}

int begin(MDB_env* environment, unsigned flags, TransactionHandle& transaction) {
    MDB_txn* raw = nullptr;
    const int code = mdb_txn_begin(environment, nullptr, flags, &raw);
    transaction.reset(code == MDB_SUCCESS ? raw : nullptr);
    return code;
}

} // namespace

Environment::Environment(Locator locate) : m_locate(std::move(locate)) {}

std::optional<Value> Environment::read(std::string_view key) {
    std::optional<Value> value;
    perform(Use::Read, [&] { return tryRead(key, value); });
    return value;
}

void Environment::update(std::string_view key, const Change& change) {
    perform(Use::Write, [&] { return tryUpdate(key, change); });
    m_faults.settle();
}

template <typename Attempt>
void Environment::perform(Use use, const Attempt& attempt) {
    for (int i = 0; i < mostAttempts; ++i) {
        const Outcome outcome = attemptOnce(use, attempt);
        if (outcome.code == MDB_SUCCESS) {
            return;
        }
        remedy(outcome);
    }
    const std::shared_lock lock(m_lock);
    fail(storeFault(HostError::SystemFailure, m_file.path, "is contended for too heavily"));
}

template <typename Attempt>
Environment::Outcome Environment::attemptOnce(Use use, const Attempt& attempt) {
    const std::shared_lock lock(m_lock);
    return {mayUse(use) ? attempt() : mustOpen, m_mapSize};
}

int Environment::tryRead(std::string_view key, std::optional<Value>& value) {
    TransactionHandle transaction;
    int code = begin(m_store.environment.get(), MDB_RDONLY, transaction);
    if (code != MDB_SUCCESS) {
        return code;
    }
    MDB_val name = valueOf(key);
    MDB_val bytes{};
    code = mdb_get(transaction.get(), m_store.database, &name, &bytes);
    if (code == MDB_SUCCESS) {
        value = decode(key, bytes);
    }
    return code == MDB_NOTFOUND ? MDB_SUCCESS : code;
}

int Environment::tryUpdate(std::string_view key, const Change& change) {
    if (m_store.isReadOnly) {
        return EROFS;
    }
    // Slots of killed readers would keep old pages from being used again.
    int cleared = 0;
    mdb_reader_check(m_store.environment.get(), &cleared);
    TransactionHandle transaction;
    int code = begin(m_store.environment.get(), 0, transaction);
    if (code != MDB_SUCCESS) {
        return code;
    }
    MDB_val name = valueOf(key);
    MDB_val present{};
    code = mdb_get(transaction.get(), m_store.database, &name, &present);
    if (code != MDB_SUCCESS && code != MDB_NOTFOUND) {
        return code;
    }
    const std::string bytes = encodeRecord(
        key, change(code == MDB_SUCCESS ? std::optional(decode(key, present)) : std::nullopt));
    checkLength(key, bytes.size());
    MDB_val value = valueOf(bytes);
    code = mdb_put(transaction.get(), m_store.database, &name, &value, 0);
    return code == MDB_SUCCESS ? mdb_txn_commit(transaction.release()) : code;
}

Value Environment::decode(std::string_view key, const MDB_val& bytes) {
    if (auto value = decodeRecord(key, bytesOf(bytes))) {
        return *std::move(value);
    }
    fail(storeFault(HostError::StoreCorrupt, m_file.path,
                    "has a damaged record under \"" + std::string(key) + '"'));
}

void Environment::checkLength(std::string_view key, std::size_t length) {
    if (length >= m_mapSize || length > std::numeric_limits<std::uint32_t>::max()) {
        fail(storeFault(HostError::ValueTooLong, m_file.path,
                        "the value of \"" + std::string(key) + "\" (" + std::to_string(length) +
                            " bytes) is longer than the map (" + std::to_string(m_mapSize) +
                            " bytes)"));
    }
}

// A file that became shorter would kill the process at the next look into the map. One that was
// removed is not where other processes look for it.
bool Environment::isIntact() {
    int descriptor = -1;
    struct stat status {};
    if (!m_store.environment ||
        mdb_env_get_fd(m_store.environment.get(), &descriptor) != MDB_SUCCESS ||
        ::fstat(descriptor, &status) != 0 || status.st_nlink == 0 ||
        status.st_size < m_fileSize.load()) {
        return false;
    }
    long long known = m_fileSize.load();
    while (known < status.st_size && !m_fileSize.compare_exchange_weak(known, status.st_size)) {
    }
    return true;
}

// Nor is one that was moved away or replaced, and the locks have to lie beside it.
bool Environment::isInPlace() const {
    return identityAt(m_file.path) == m_store.data && identityAt(m_file.lockPath()) == m_store.lock;
}

// Following the names takes longer than a whole read: reads do it once in a tick of a clock that
// has a few milliseconds. A write always does, since it would be lost.
bool Environment::mayUse(Use use) {
    if (!isIntact()) {
        return false;
    }
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    const long long tick = now.tv_sec * 1'000'000'000LL + now.tv_nsec;
    const bool isLookedAt = m_lookedAt.exchange(tick, std::memory_order_relaxed) == tick;
    return (use == Use::Read && isLookedAt) || isInPlace();
}

void Environment::remedy(const Outcome& outcome) {
    const std::unique_lock lock(m_lock);
    try {
        switch (outcome.code) {
        case mustOpen:
            return open();
        case MDB_MAP_RESIZED:
            return resizeMap(0);
        case MDB_MAP_FULL:
            return makeRoom(outcome.mapSize);
        case MDB_READERS_FULL:
            return clearReaders();
        default:
            giveUp(outcome.code);
        }
    } catch (const StoreFault& fault) {
        fail(fault);
    }
}

void Environment::open() {
    if (isIntact() && isInPlace()) {
        return;
    }
    m_store = {};
    m_fileSize = 0;
    m_file = m_locate();
    m_store = openStore(m_file);
    noteMapSize();
}

void Environment::clearReaders() {
    int cleared = 0;
    if (m_store.environment) {
        mdb_reader_check(m_store.environment.get(), &cleared);
    }
    if (cleared == 0) {
        giveUp(MDB_READERS_FULL);
    }
}

void Environment::giveUp(int code) {
    // A read-only or broken environment is opened anew at the next use, in case that helps.
    if (code != ENOSPC && code != MDB_READERS_FULL) {
        m_store = {};
    }
    throw storeFaultOf(code, m_file.path);
}

void Environment::noteMapSize() {
    MDB_envinfo info{};
    mdb_env_info(m_store.environment.get(), &info);
    m_mapSize = info.me_mapsize;
}

void Environment::makeRoom(std::size_t sizeSeen) {
    if (!m_store.environment || m_mapSize > sizeSeen) {
        return;
    }
    if (m_mapSize >= largestMap) {
        throw storeFault(HostError::StoreFull, m_file.path,
                         "holds " + std::to_string(m_mapSize) + " bytes already");
    }
    resizeMap(std::min(m_mapSize * 2, largestMap));
}

void Environment::resizeMap(std::size_t size) {
    if (!m_store.environment) {
        return;
    }
    const int code = mdb_env_set_mapsize(m_store.environment.get(), size);
    if (code != MDB_SUCCESS) {
        // The old map is gone by now.
        m_store = {};
        throw storeFaultOf(code, m_file.path);
    }
    noteMapSize();
}

void Environment::fail(const StoreFault& fault) {
    m_faults.report(fault);
    throw fault;
}

} // namespace KLX::Host
