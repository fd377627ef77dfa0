#include "Peer.h"

#include <cstdlib>
#include <stdexcept>

peer::Backend peer::newBackend() {
    const char* const folder = std::getenv("KLX_STATE_DIR");
    if (folder == nullptr) {
        throw std::runtime_error("KLX_STATE_DIR has to name a folder for the benchmarks' settings");
    }
    const std::string file = std::string(folder) + "/peer.keyfile";
    return Backend(g_keyfile_settings_backend_new(file.c_str(), "/klx/", nullptr));
}
