#include "FmsValue.h"

#include "DeviceInfoManager.h"
#include "Messages.h"
#include "SettingValue.h"

#include <algorithm>

namespace {

// Not isalnum(): the answer does not depend on the locale.
bool isHarmless(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') ||
           std::string("._/:+-").find(character) != std::string::npos;
}

} // namespace

std::string mistakeOfFmsText(const std::string& text) {
    if (!text.empty() && std::all_of(text.begin(), text.end(), isHarmless)) {
        return "";
    }
    return (text.empty() ? "it is empty"
                         : quoted(text) + " cannot be used, because a shell reads it") +
           "; write letters, digits and the characters . _ / : + - only";
}

bool isFmsHeld(const std::string& key, const std::string& value) {
    const auto told = [&key](const char* type) {
        return CDeviceInfoManager::getFMSvalue(key, type);
    };
    const bool isNumber = isWholeNumber(value);
    return (isNumber && (isHeld(value, told("int")) || isHeld(value, told("bool")))) ||
           value == told("string");
}
