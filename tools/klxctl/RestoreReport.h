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

/// Brings the set to hold values, prints what became of everything, and tells on standard error
/// what came between; where standard output refuses the report, also what it would have ended with.
/// No signal cuts it short, from its beginning until the report is written.
/// @param format of the documents that the library gets
/// @param noValue why a property was left alone
/// @return the status that the tool ends with
/// @throws Failure as `restore` does
ExitStatus restoreAndTell(const KnownProperties& known, DocumentFormat format, const Wishes& wishes,
                          const RestoreArguments& given, const std::string& noValue);
