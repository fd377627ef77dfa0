#pragma once

#include <string>
#include <vector>

/// Every category of the menu: the ten that a request for "*" stands for, then the others.
const std::vector<std::string>& menuCategories();
