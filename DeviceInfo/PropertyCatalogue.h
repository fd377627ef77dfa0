#pragma once

#include "PropertyBinding.h"

#include <vector>

struct PropertyRow {
    const char* path;
    PropertyBinding binding;
};

/// The groups of the catalogue, in storing order.
std::vector<PropertyRow> inputRows();
std::vector<PropertyRow> pictureAndSoundRows();
std::vector<PropertyRow> generalRows();
std::vector<PropertyRow> setInformationRows();
std::vector<PropertyRow> networkRows();

/// Shows every property that the library answers to, one group of rows after the other.
template <class Visit>
void visitCatalogue(Visit visit) {
    for (const auto rows :
         {inputRows, pictureAndSoundRows, generalRows, setInformationRows, networkRows}) {
        for (const PropertyRow& row : rows()) {
            visit(row);
        }
    }
}

/// The same as one list, for whoever wants to keep them.
std::vector<PropertyRow> propertyCatalogue();
