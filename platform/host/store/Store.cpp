#include "Store.h"

#include "MetaPages.h"
#include "StoreFolders.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <memory>

namespace KLX::Host {
namespace {

constexpr unsigned long long firstMapSize = 64ULL * 1024 * 1024;
constexpr unsigned long long smallestMapSize = 64ULL * 1024;

// A small map lets tests fill it. A file with a larger one than the largest would pass for damaged.
std::size_t chosenMapSize() {
    const char* const text = std::getenv("KLX_HOST_MAP_SIZE");
    const auto size = text != nullptr ? std::strtoull(text, nullptr, 10) : firstMapSize;
    constexpr std::size_t page = 4096;
    const auto kept = std::clamp<unsigned long long>(size, smallestMapSize, largestMap);
    return static_cast<std::size_t>(kept) / page * page;
}

StoreFile persistentFile() {
    const std::string folder = stateFolder();
    ensureFolder(folder);
    return {folder + "/settings.mdb", true, chosenMapSize()};
}

StoreFile memoryFile() {
    const std::string folder = runtimeFolder(stateFolder());
    ensurePrivateFolder(folder);
    const std::optional<std::string> boot = bootId();
    discardStaleMemoryStores(folder, boot);
    return {folder + '/' + memoryStoreName(boot), false, chosenMapSize()};
}

/** The store of one process, told apart by its number. */
struct Generation {
    pid_t process;
    Store* store;
};

} // namespace

Store::Store() : m_persistent(persistentFile), m_memory(memoryFile) {}

Store& Store::instance() {
    static std::atomic<Generation*> current{nullptr};
    const pid_t process = ::getpid();
    Generation* generation = current.load(std::memory_order_acquire);
    while (generation == nullptr || generation->process != process) {
        // What a parent left behind is given up: LMDB's handles end with the process that opened
        // them, and its locks may be held by threads that are not here.
        auto store = std::unique_ptr<Store>(new Store);
        auto fresh = std::make_unique<Generation>(Generation{process, store.get()});
        if (current.compare_exchange_strong(generation, fresh.get())) {
            static_cast<void>(fresh.release());
            return *store.release();
        }
    }
    return *generation->store;
}

Environment& Store::environmentOf(const std::string& key) {
    return key.rfind("memory/", 0) == 0 ? m_memory : m_persistent;
}

std::optional<Value> Store::read(const std::string& key) {
    return environmentOf(key).read(key);
}

void Store::write(const std::string& key, const Value& value) {
    environmentOf(key).update(key, [&](const auto& /*present*/) { return value; });
}

void Store::update(const std::string& key, const Change& change) {
    environmentOf(key).update(key, change);
}

} // namespace KLX::Host
