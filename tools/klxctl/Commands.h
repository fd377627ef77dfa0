#pragma once

#include "ExitStatus.h"

#include <CLI/App.hpp>

#include <functional>
#include <string>

/// The work of the command that the arguments name; it throws `Failure` to end early.
using Command = std::function<ExitStatus()>;

/// Each of these declares one command with its arguments and, when the arguments name that command,
/// leaves its work in @p chosen. Both objects have to outlive that work.
void addGetCommand(CLI::App& app, Command& chosen);
void addSetCommand(CLI::App& app, Command& chosen);
void addDumpCommand(CLI::App& app, Command& chosen);
