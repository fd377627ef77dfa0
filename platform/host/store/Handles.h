#pragma once

#include <lmdb.h>
#include <unistd.h>

#include <memory>
#include <utility>

namespace KLX::Host {

/** A file descriptor, closed at the end. */
class Descriptor {
public:
    explicit Descriptor(int number = -1) noexcept : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor() {
        if (isOpen()) {
            ::close(m_number);
        }
    }

    bool isOpen() const noexcept { return m_number >= 0; }
    int get() const noexcept { return m_number; }

private:
    int m_number;
};

/** Hands a handle back by the function that LMDB names for it. */
template <auto release>
struct ReleasedBy {
    template <typename Handle>
    void operator()(Handle* handle) const noexcept {
        release(handle);
    }
};

using EnvironmentHandle = std::unique_ptr<MDB_env, ReleasedBy<mdb_env_close>>;

/** A transaction; aborted unless it was committed and released before. */
using TransactionHandle = std::unique_ptr<MDB_txn, ReleasedBy<mdb_txn_abort>>;

} // namespace KLX::Host
