#pragma once

/// The network's properties. Keeps no state.
class DeviceInfoNetwork {};
