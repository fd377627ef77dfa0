#pragma once

#include <optional>
#include <string>

namespace KLX::Host {

/**
 * What this machine knows about one system information number, for which a profile says "host":
 * 128 (firmware version, out of os-release) and 187 (serial number, out of the DMI table).
 */
class HostFacts {
public:
    /** `root` stands before every path that is read; "" is this machine. */
    explicit HostFacts(std::string root = "");

    /** Whether the machine can be asked about the number at all. */
    static bool covers(int systemInformation);

    /** The fact, or nothing when the machine does not tell it, to this user at least. */
    std::optional<std::string> find(int systemInformation) const;

private:
    std::optional<std::string> firmwareVersion() const;
    std::optional<std::string> serialNumber() const;

    std::string m_root;
};

} // namespace KLX::Host
