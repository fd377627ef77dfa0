#pragma once

#include <pthread.h>

namespace KLX::Host {

/**
 * A lock for std::shared_lock and std::unique_lock that lets a waiting writer go first. Readers
 * that follow each other closely would otherwise keep the map from ever growing. Not recursive.
 */
class MapLock {
public:
    MapLock() {
        pthread_rwlockattr_t attributes;
        ::pthread_rwlockattr_init(&attributes);
        ::pthread_rwlockattr_setkind_np(&attributes, PTHREAD_RWLOCK_PREFER_WRITER_NONRECURSIVE_NP);
        ::pthread_rwlock_init(&m_lock, &attributes);
        ::pthread_rwlockattr_destroy(&attributes);
    }
    MapLock(const MapLock&) = delete;
    MapLock& operator=(const MapLock&) = delete;
    ~MapLock() { ::pthread_rwlock_destroy(&m_lock); }

    void lock() { ::pthread_rwlock_wrlock(&m_lock); }
    void unlock() { ::pthread_rwlock_unlock(&m_lock); }
    void lock_shared() { ::pthread_rwlock_rdlock(&m_lock); }
    void unlock_shared() { ::pthread_rwlock_unlock(&m_lock); }

private:
    pthread_rwlock_t m_lock{};
};

} // namespace KLX::Host
