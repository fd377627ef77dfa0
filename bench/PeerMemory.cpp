#include "Peer.h"

peer::Backend peer::newBackend() {
    return Backend(g_memory_settings_backend_new());
}
