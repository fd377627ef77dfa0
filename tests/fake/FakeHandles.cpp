#include "FakeHandles.h"

namespace klx::fake {

void HandleTable::insert(const void* handle, Entry entry) {
    m_order.push_back(handle);
    m_entries.insert_or_assign(handle, std::move(entry));
}

void* HandleTable::lookUp(const void* handle, const std::string& kind,
                          const std::string& function) {
    const auto found = m_entries.find(handle);
    if (found != m_entries.end() && found->second.open && found->second.kind == kind) {
        return found->second.object.get();
    }
    noteMisuse(handle, function);
    return nullptr;
}

bool HandleTable::close(const void* handle, const std::string& kind, const std::string& function) {
    if (lookUp(handle, kind, function) == nullptr) {
        return false;
    }
    m_entries.at(handle).open = false;
    return true;
}

std::string HandleTable::kindOf(const void* handle) const {
    const auto found = m_entries.find(handle);
    return found != m_entries.end() && found->second.open ? found->second.kind : "";
}

std::string HandleTable::describe(const void* handle) const {
    if (handle == nullptr) {
        return "null";
    }
    const auto found = m_entries.find(handle);
    if (found == m_entries.end()) {
        return "unknown handle";
    }
    return (found->second.open ? "" : "stale ") + found->second.name;
}

std::vector<std::string> HandleTable::open() const {
    std::vector<std::string> names;
    for (const void* handle : m_order) {
        const Entry& entry = m_entries.at(handle);
        if (entry.open && entry.counted) {
            names.push_back(entry.name);
        }
    }
    return names;
}

void HandleTable::noteMisuse(const void* handle, const std::string& function) {
    if (handle != nullptr) {
        m_misuses.push_back(function + "(" + describe(handle) + ")");
    }
}

} // namespace klx::fake
