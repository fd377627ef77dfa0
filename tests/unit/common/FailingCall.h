#pragma once

/**
 * @file
 * Lets a call for memory fail that an object of this executable makes: the linker sends those calls
 * through wrappers. What shared libraries do among themselves is not touched.
 */

#include <vector>

namespace klx::test {

/** The functions whose calls can be failed. */
enum class Failing { malloc, calloc, strdup, operatorNew, bioNew, bioWrite, bioFlush };

/** For as long as it lives, one call that this thread makes to the function fails. */
class FailingCall {
public:
    /** @param nth  which call, counted from 1 and from now on */
    explicit FailingCall(Failing function, int nth = 1);
    ~FailingCall();
    FailingCall(const FailingCall&) = delete;
    FailingCall& operator=(const FailingCall&) = delete;

private:
    Failing m_function;
};

/** For as long as it lives, BIO_write takes everything that this thread gives it without a look. */
class PretendedBioWrites {
public:
    PretendedBioWrites();
    ~PretendedBioWrites();
    PretendedBioWrites(const PretendedBioWrites&) = delete;
    PretendedBioWrites& operator=(const PretendedBioWrites&) = delete;

    std::vector<int> sizes; ///< Of the writes, in order.
};

} // namespace klx::test
