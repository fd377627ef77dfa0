#include "PropertyCatalogue.h"

std::vector<PropertyRow> propertyCatalogue() {
    std::vector<PropertyRow> all;
    visitCatalogue([&all](const PropertyRow& row) { all.push_back(row); });
    return all;
}
