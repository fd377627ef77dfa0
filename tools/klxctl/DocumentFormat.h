#pragma once

#include "DeviceInfoManager.h"

#include <optional>
#include <string>

using DocumentFormat = CDeviceInfoManager::DataFormatType;

/// The formats that can be written after "--format", for messages.
std::string formatNames();

/// @param name one that `checkFormat` accepts
DocumentFormat formatNamed(const std::string& name);

/// @return a message when there is no such format, else ""
std::string checkFormat(const std::string& name);

/// What a text seems to be written in.
/// @return nothing when it begins neither as XML nor as a JSON document does
std::optional<DocumentFormat> guessedFormat(const std::string& text);
