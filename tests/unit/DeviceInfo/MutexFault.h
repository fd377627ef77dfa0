#pragma once

namespace klx::test {

/** The next lock of a mutex by an object of this executable on this thread fails with `error`. */
class MutexFault {
public:
    explicit MutexFault(int error);
    ~MutexFault();
    MutexFault(const MutexFault&) = delete;
    MutexFault& operator=(const MutexFault&) = delete;
};

} // namespace klx::test
