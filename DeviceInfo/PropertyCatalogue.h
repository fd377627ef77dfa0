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

/// Every property that the library answers to.
std::vector<PropertyRow> propertyCatalogue();
