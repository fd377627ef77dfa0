#pragma once

#include <functional>
#include <string>
#include <vector>

namespace klx::test {

/** What a public operation answered. */
struct Answer {
    bool done = false;
    std::string text; ///< The value or document, "" where the operation gives none.
};

/** Makes one call whose arguments are ready, so that all the memory it takes is the library's. */
using PreparedCall = std::function<void(Answer&)>;

/** A public operation as it is applied to a property. */
struct Operation {
    const char* name;
    PreparedCall (*prepare)(const std::string& path);
    bool writes; ///< Afterwards the property has `anotherValue`, if it takes one.
};

void PrintTo(const Operation& operation, std::ostream* out);

/** Reading, changing, both documents of the property alone, and restoring from either. */
std::vector<Operation> operationsOnAProperty();

/** The operations on no property at all and those that are refused; the path is ignored. */
std::vector<Operation> otherOperations();

/** Documents of the whole catalogue; the path is ignored. */
std::vector<Operation> operationsOnAll();

/** The value of a property as a read gives it. */
std::string valueOf(const std::string& path);

/** Gives a property a value. */
void change(const std::string& path, const std::string& value);

} // namespace klx::test
