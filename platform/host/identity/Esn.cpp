#include "esn.h"

#include "../Boundary.h"
#include "../SetProfile.h"

using namespace KLX::Host;

int esn_get(char* buffer, int* length) {
    return answer(__func__, [&] {
        requirePointer(buffer, "buffer");
        requirePointer(length, "length");
        const auto& esn = currentProfile().esn;
        if (!esn) {
            throw HostFailure(HostError::NoValue, "the profile has no ESN");
        }
        if (*length < 0 || esn->size() > static_cast<std::size_t>(*length)) {
            throw HostFailure(HostError::ValueTooLong,
                              "the ESN takes " + std::to_string(esn->size()) +
                                  " bytes, room is for " + std::to_string(*length));
        }
        esn->copy(buffer, esn->size());
        *length = static_cast<int>(esn->size());
    });
}
