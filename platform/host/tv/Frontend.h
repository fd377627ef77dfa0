#pragma once

#include <optional>

namespace KLX::Host {

/**
 * The carrier-to-noise ratio of the machine's first DVB receiver that is tuned and measures in
 * decibels, in hundredths of one; nothing where there is no such receiver. The order is that of the
 * adapters' numbers.
 */
std::optional<int> carrierToNoise();

} // namespace KLX::Host
