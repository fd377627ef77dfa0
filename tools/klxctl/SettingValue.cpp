#include "SettingValue.h"

#include <optional>

namespace {

/// A whole number of any length without its leading zeros, plus sign and the sign of zero; nothing
/// for any other text.
std::optional<std::string> wholeNumber(const std::string& text) {
    const std::size_t digits = text.find_first_of("+-") == 0 ? 1 : 0;
    const bool isNumber =
        digits < text.size() && text.find_first_not_of("0123456789", digits) == std::string::npos;
    if (!isNumber) {
        return std::nullopt;
    }
    const std::size_t first = text.find_first_not_of('0', digits);
    if (first == std::string::npos) {
        return "0";
    }
    return (text.front() == '-' ? "-" : "") + text.substr(first);
}

} // namespace

bool isHeld(const std::string& asked, const std::string& told) {
    const std::optional<std::string> askedNumber = wholeNumber(asked);
    return asked == told || (askedNumber && askedNumber == wholeNumber(told));
}

bool isWholeNumber(const std::string& text) {
    return wholeNumber(text).has_value();
}
