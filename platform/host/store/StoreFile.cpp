#include "StoreFile.h"

#include "MetaPages.h"
#include "PageWalk.h"
#include "Record.h"
#include "StoreFault.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace KLX::Host {
namespace {

constexpr mdb_mode_t filePermissions = S_IRUSR | S_IWUSR;
constexpr unsigned readerSlots = 510;

void check(int code, const std::string& path) {
    if (code != MDB_SUCCESS) {
        throw storeFaultOf(code, path);
    }
}

/**
 * Keeps the standard descriptors from being given to the store's files where the process was
 * started without them: a line to standard error must not land in a store.
 */
class StandardDescriptors {
public:
    StandardDescriptors() {
        Descriptor filler(::open("/dev/null", O_RDWR | O_CLOEXEC));
        while (filler.isOpen() && filler.get() <= STDERR_FILENO) {
            m_fillers.push_back(std::move(filler));
            filler = Descriptor(::open("/dev/null", O_RDWR | O_CLOEXEC));
        }
    }

private:
    std::vector<Descriptor> m_fillers;
};

EnvironmentHandle makeEnvironment(const StoreFile& file) {
    MDB_env* raw = nullptr;
    check(mdb_env_create(&raw), file.path);
    EnvironmentHandle environment(raw);
    check(mdb_env_set_mapsize(raw, file.mapSize), file.path);
    check(mdb_env_set_maxreaders(raw, readerSlots), file.path);
    return environment;
}

void flush(const std::string& path) {
    const Descriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!descriptor.isOpen() || ::fsync(descriptor.get()) != 0) {
        throw storeFaultOf(errno, path);
    }
}

// Somebody else may have made the store meanwhile; then theirs is the one.
void moveInPlace(const std::string& from, const std::string& path) {
    if (::link(from.c_str(), path.c_str()) == 0 || errno == EEXIST) {
        return;
    }
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, path.c_str(), RENAME_NOREPLACE) != 0 &&
        errno != EEXIST) {
        throw storeFaultOf(errno, path);
    }
}

/** A file under a name of its own that is removed in the end. */
class DraftFile {
public:
    explicit DraftFile(const std::string& path) : m_name(path + ".XXXXXX") {
        const Descriptor descriptor(::mkostemp(m_name.data(), O_CLOEXEC));
        if (!descriptor.isOpen()) {
            throw storeFaultOf(errno, path);
        }
    }
    DraftFile(const DraftFile&) = delete;
    DraftFile& operator=(const DraftFile&) = delete;
    ~DraftFile() { ::unlink(m_name.c_str()); }

    const std::string& name() const { return m_name; }

private:
    std::string m_name;
};

/**
 * Makes an empty store. It appears under its name only when it is complete, so that a full disk or
 * a killed process never leaves half of one, which would look damaged ever after.
 */
void createStore(const StoreFile& file) {
    const DraftFile draft(file.path);
    const EnvironmentHandle environment = makeEnvironment(file);
    check(mdb_env_open(environment.get(), draft.name().c_str(), MDB_NOSUBDIR | MDB_NOLOCK,
                       filePermissions),
          file.path);
    flush(draft.name());
    moveInPlace(draft.name(), file.path);
    flush(file.path.substr(0, file.path.find_last_of('/')));
}

void checkExisting(const StoreFile& file) {
    const Descriptor descriptor(::open(file.path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!descriptor.isOpen()) {
        throw storeFaultOf(errno, file.path);
    }
    struct stat status {};
    if (::fstat(descriptor.get(), &status) == 0 && !S_ISREG(status.st_mode)) {
        throw storeFault(HostError::StoreForeign, file.path, "is not a file");
    }
    checkMetaPages(descriptor.get(), file.path);
}

// On a tmpfs a signal cuts a reservation short, also one whose handler asks for a restart.
int reserve(int descriptor, off_t size) {
    int result = 0;
    do {
        result = ::fallocate(descriptor, 0, 0, size);
    } while (result != 0 && errno == EINTR);
    return result;
}

/**
 * Gives the lock file its blocks before it is mapped. Without them the first write into the map
 * kills the process when the disk is full.
 */
void reserveLockFile(const StoreFile& file) {
    constexpr off_t size = off_t{32} * 1024; // what LMDB needs for all reader slots
    const std::string path = file.lockPath();
    const Descriptor descriptor(
        ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, filePermissions));
    if (!descriptor.isOpen() && errno == EROFS) {
        return;
    }
    if (!descriptor.isOpen()) {
        throw storeFaultOf(errno, path);
    }
    // Some file systems cannot do this ahead of time; they are used as they are.
    if (reserve(descriptor.get(), size) != 0 && errno != EOPNOTSUPP) {
        throw storeFaultOf(errno, path);
    }
}

OpenedStore openEnvironment(const StoreFile& file) {
    // Reader slots belong to transactions, not to threads: any number of threads may come and go.
    constexpr unsigned common = MDB_NOSUBDIR | MDB_NOTLS;
    OpenedStore store;
    store.environment = makeEnvironment(file);
    const unsigned flags = common | (file.isDurable ? 0U : MDB_NOSYNC);
    int code = mdb_env_open(store.environment.get(), file.path.c_str(), flags, filePermissions);
    if (code == EROFS) {
        store.environment = makeEnvironment(file);
        store.isReadOnly = true;
        code = mdb_env_open(store.environment.get(), file.path.c_str(), common | MDB_RDONLY,
                            filePermissions);
    }
    check(code, file.path);
    int descriptor = -1;
    check(mdb_env_get_fd(store.environment.get(), &descriptor), file.path);
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    store.data = identityOf(descriptor);
    store.lock = identityAt(file.lockPath());
    return store;
}

TransactionHandle beginReading(MDB_env* environment, const std::string& path) {
    MDB_txn* raw = nullptr;
    int code = mdb_txn_begin(environment, nullptr, MDB_RDONLY, &raw);
    if (code == MDB_MAP_RESIZED) {
        check(mdb_env_set_mapsize(environment, 0), path);
        code = mdb_txn_begin(environment, nullptr, MDB_RDONLY, &raw);
    }
    check(code, path);
    return TransactionHandle(raw);
}

bool isRecord(std::string_view key, std::string_view bytes) {
    return decodeRecord(key, bytes).has_value();
}

/** Walks one snapshot; false when it was overtaken before its meta page could be read. */
bool checkSnapshot(OpenedStore& store, const std::string& path) {
    MDB_env* const environment = store.environment.get();
    const TransactionHandle transaction = beginReading(environment, path);
    int descriptor = -1;
    check(mdb_env_get_fd(environment, &descriptor), path);
    const auto meta = metaOf(descriptor, mdb_txn_id(transaction.get()));
    if (!meta) {
        return false;
    }
    if (const auto problem = PageWalk(descriptor, *meta, isRecord).findProblem()) {
        throw storeFault(HostError::StoreCorrupt, path, "is damaged (" + *problem + ")");
    }
    check(mdb_dbi_open(transaction.get(), nullptr, 0, &store.database), path);
    return true;
}

void checkPages(OpenedStore& store, const std::string& path) {
    constexpr int looks = 100;
    for (int look = 0; look < looks; ++look) {
        if (checkSnapshot(store, path)) {
            return;
        }
    }
    throw storeFault(HostError::SystemFailure, path, "is being written too often to be checked");
}

} // namespace

OpenedStore openStore(const StoreFile& file) {
    const StandardDescriptors standardDescriptors;
    if (::access(file.path.c_str(), F_OK) != 0 && errno == ENOENT) {
        createStore(file);
    }
    checkExisting(file);
    reserveLockFile(file);
    OpenedStore store = openEnvironment(file);
    int cleared = 0;
    check(mdb_reader_check(store.environment.get(), &cleared), file.path);
    checkPages(store, file.path);
    return store;
}

} // namespace KLX::Host
