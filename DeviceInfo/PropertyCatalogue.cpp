#include "PropertyCatalogue.h"

#include <iterator>

std::vector<PropertyRow> propertyCatalogue() {
    std::vector<PropertyRow> all;
    for (const auto rows :
         {inputRows, pictureAndSoundRows, generalRows, setInformationRows, networkRows}) {
        std::vector<PropertyRow> part = rows();
        all.reserve(all.size() + part.size());
        std::move(part.begin(), part.end(), std::back_inserter(all));
    }
    return all;
}
