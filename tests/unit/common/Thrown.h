#pragma once

#include "Exception.h"

#include <string>

namespace klx::test {

/** The text of the KLX::Exception that the work throws; "(nothing thrown)" when it throws none. */
template <class Work>
std::string thrownBy(Work work) {
    try {
        work();
    } catch (const KLX::Exception& error) {
        return error.what();
    }
    return "(nothing thrown)";
}

} // namespace klx::test
