#include "Categories.h"

const std::vector<std::string>& menuCategories() {
    static const std::vector<std::string> categories = {
        "Picture",           "General", "Sound",      "Broadcasting",
        "Factory",           "Input",   "Network",    "SetInformation",
        "SystemInformation", "Support", "Connection", "General & Privacy",
    };
    return categories;
}
