#pragma once

#include "ExitStatus.h"

#include <CLI/App.hpp>

#include <functional>
#include <string>

/// The command that the arguments name.
struct Command {
    std::function<ExitStatus()> work; ///< throws `Failure` to end early
    /// What a failure of input, output or the library ends with.
    ExitStatus onFailure = ExitStatus::Failed;
};

/// Each of these declares one command with its arguments and, when the arguments name that command,
/// leaves it in @p chosen. Both objects have to outlive its work.
void addGetCommand(CLI::App& app, Command& chosen);
void addSetCommand(CLI::App& app, Command& chosen);
void addDumpCommand(CLI::App& app, Command& chosen);
void addListCommand(CLI::App& app, Command& chosen);
void addInputsCommand(CLI::App& app, Command& chosen);
/// Only where the host platform stands in for a set: a set's ports are its own.
void addPortCommand(CLI::App& app, Command& chosen);
void addStatCommand(CLI::App& app, Command& chosen);
void addFmsCommand(CLI::App& app, Command& chosen);
void addRestoreCommand(CLI::App& app, Command& chosen);
void addResetCommand(CLI::App& app, Command& chosen);
void addDiffCommand(CLI::App& app, Command& chosen);
void addCompleteCommand(CLI::App& app, Command& chosen);
