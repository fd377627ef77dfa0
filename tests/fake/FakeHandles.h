#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace klx::fake {

/**
 * Everything the fake ever handed out as a pointer. Entries live until the scene ends, so that a
 * handle that is used after it was closed is recognised instead of crashing.
 */
class HandleTable {
public:
    /** What becomes of a handle. Lent ones belong to the service and are never counted as open. */
    enum class Kept { byClient, byService };

    /** Hands out `object`, of a kind and shown in the history under a name. */
    template <typename T>
    T* add(std::shared_ptr<T> object, const std::string& kind, const std::string& name, Kept kept) {
        T* const raw = object.get();
        insert(raw, {std::move(object), kind, name, kept == Kept::byClient, true});
        return raw;
    }

    /** The object behind an open handle of that kind; null, and a misuse noted, otherwise. */
    template <typename T>
    T* find(const void* handle, const std::string& kind, const std::string& function) {
        return static_cast<T*>(lookUp(handle, kind, function));
    }

    /** Closes a handle. @return whether it was open and of that kind. */
    bool close(const void* handle, const std::string& kind, const std::string& function);

    /** The kind of an open handle, "" for everything else. */
    std::string kindOf(const void* handle) const;

    std::string describe(const void* handle) const;
    std::vector<std::string> open() const;
    void noteMisuse(const void* handle, const std::string& function);
    const std::vector<std::string>& misuses() const { return m_misuses; }
    void clearMisuses() { m_misuses.clear(); }

private:
    struct Entry {
        std::shared_ptr<void> object;
        std::string kind;
        std::string name;
        bool counted;
        bool open;
    };

    void insert(const void* handle, Entry entry);
    void* lookUp(const void* handle, const std::string& kind, const std::string& function);

    std::map<const void*, Entry> m_entries;
    std::vector<const void*> m_order;
    std::vector<std::string> m_misuses;
};

} // namespace klx::fake
