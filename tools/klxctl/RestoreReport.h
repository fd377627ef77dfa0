#pragma once

#include "ExitStatus.h"
#include "Restoration.h"

#include <CLI/App.hpp>

#include <string>

/// What the commands that bring a set to hold values have in common.
struct RestoreArguments {
    RestoreOptions options;
    bool asJson = false;
};

/// Declares the options for it.
void addRestoreOptions(CLI::App& command, RestoreArguments& given);

/// Prints what became of everything, and tells on standard error what came between.
/// @param noValue why a property was left alone
/// @return the status that the tool ends with
/// @throws Failure when standard output refuses the data
ExitStatus tell(const Restoration& restoration, const KnownProperties& known, bool asJson,
                const std::string& noValue);
