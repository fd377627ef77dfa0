#pragma once

#include <cstddef>

namespace klx::test {

/**
 * For as long as it is armed, one of the process's allocations finds no memory, and every block
 * that is taken is remembered until it is given back. What the platform takes for itself
 * (`fake::isInside`) is neither failed nor counted. One at a time.
 *
 * @code
 * AllocationFaults faults(nth);
 * const bool result = CDeviceInfoManager::Initialize();
 * faults.disarm();
 * @endcode
 */
class AllocationFaults {
public:
    /** @param nth  which allocation fails, counted from 1 and from now on; 0 for none */
    explicit AllocationFaults(int nth);
    ~AllocationFaults();
    AllocationFaults(const AllocationFaults&) = delete;
    AllocationFaults& operator=(const AllocationFaults&) = delete;

    /** From here on nothing fails and nothing more is remembered. */
    void disarm();

    /** Whether the allocation that was to fail came. */
    bool metFault() const;

    /** How many of the remembered blocks have not been given back so far. */
    std::size_t blocksLeft() const;
};

/** @name What the replaced allocation functions ask and tell */
/**@{*/
bool mayAllocate();
void noteTaken(void* block);
/** A text for the caller to free: counted even where the platform makes it. */
void noteText(void* block);
void noteGivenBack(void* block);
/**@}*/

} // namespace klx::test
