#pragma once

#include "DeviceInfoManager.h"

#include <list>
#include <map>
#include <string>

/// Categories, each with its list of paths; see `CDeviceInfoManager::GetDeviceInfo`.
using DocumentRequest = std::map<std::string, std::list<std::string>>;

/// The library's document for a request.
/// @throws Failure when the library cannot build it
std::string libraryDocument(const DocumentRequest& request,
                            CDeviceInfoManager::DataFormatType format);
