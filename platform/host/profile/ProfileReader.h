#pragma once

#include "../SetProfile.h"
#include "HostFacts.h"
#include "ProfileDocument.h"

namespace KLX::Host {

/** Turns a document into a profile; throws HostFailure (ProfileInvalid) at the first mistake. */
SetProfile readProfile(const ProfileDocument& document, const HostFacts& facts);

} // namespace KLX::Host
