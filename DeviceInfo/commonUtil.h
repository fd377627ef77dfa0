#pragma once

#include "Log.h"

#include <exception>
#include <string>

/// Conversions between text and the values that platform calls take. All members are static and
/// keep no state, so any thread may call them. Lines that they log carry this header's name.
class commonUtil {
public:
    commonUtil() = delete;

    /// @return the number in decimal; "" when it cannot be written
    static std::string intToStr(int number) {
        try {
            return std::to_string(number);
        } catch (...) {
            KLX_LOG(LogError, "Exception ERR std::to_string");
            return "";
        }
    }

    /// @return the number at the start of @p text (leading white space and a sign are accepted,
    ///         what follows the digits is ignored); 0 when there is none or it does not fit
    static int strToInt(const std::string& text) {
        try {
            return std::stoi(text);
        } catch (...) {
            KLX_LOG(LogError, "Exception ERR std::stoi");
            return 0;
        }
    }
};
