#include "DocumentDifference.h"

#include "PropertyReading.h"

#include <map>

namespace {

bool areAlike(const Side& first, const Side& second, const PropertyDescription* property) {
    if (first.isPresent != second.isPresent || first.isMalformed != second.isMalformed) {
        return false;
    }
    if (!first.value || !second.value) {
        return first.value == second.value;
    }
    return first.value == second.value ||
           (property != nullptr && areSame(*property, *first.value, *second.value));
}

} // namespace

std::vector<Difference> differencesBetween(const std::vector<Setting>& first,
                                           const std::vector<Setting>& second,
                                           const KnownProperties& known) {
    std::map<std::string, Difference> pairs;
    for (const Setting& setting : first) {
        pairs[setting.path].first = {true, setting.value, setting.isMalformed};
    }
    for (const Setting& setting : second) {
        pairs[setting.path].second = {true, setting.value, setting.isMalformed};
    }
    std::vector<Difference> differences;
    for (auto& [path, pair] : pairs) {
        if (!areAlike(pair.first, pair.second, known.find(path))) {
            pair.path = path;
            differences.push_back(std::move(pair));
        }
    }
    return differences;
}
