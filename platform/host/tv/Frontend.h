#pragma once

#include <optional>

namespace KLX::Host {

/**
 * The carrier-to-noise ratio of the machine's first DVB receiver in hundredths of a decibel;
 * nothing where there is no receiver, or it is not tuned or does not measure in decibels.
 */
std::optional<int> carrierToNoise();

} // namespace KLX::Host
