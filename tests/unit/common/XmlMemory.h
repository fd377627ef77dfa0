#pragma once

namespace klx::test {

/** For as long as it lives, one of libxml2's allocations on this thread finds no memory. */
class FailingXmlMemory {
public:
    /** @param nth  which allocation, counted from 1 and from now on */
    explicit FailingXmlMemory(int nth);
    ~FailingXmlMemory();
    FailingXmlMemory(const FailingXmlMemory&) = delete;
    FailingXmlMemory& operator=(const FailingXmlMemory&) = delete;
};

} // namespace klx::test
