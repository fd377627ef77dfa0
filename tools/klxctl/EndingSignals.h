#pragma once

#include <array>
#include <csignal>

/// The signals by which people and machines ask the tool to end.
constexpr std::array<int, 3> endingSignals = {SIGHUP, SIGINT, SIGTERM};
