#pragma once

namespace KLX::Host {

/** The machine's Wi-Fi radios, as one switch (rfkill). */
struct Radios {
    bool exist = false;
    bool areOn = false;      ///< At least one of them may send.
    bool areBlocked = false; ///< A switch on the machine itself keeps every one of them off.
};

/** Looks at the radios. Throws NetworkFault when the kernel does not let this user look. */
Radios readRadios();

/**
 * Switches every Wi-Fi radio on or off, and those that are plugged in later. Throws NetworkFault
 * when this user may not, or when a switch on the machine keeps them off.
 */
void switchRadios(bool on);

} // namespace KLX::Host
