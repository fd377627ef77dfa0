#include "PulseSession.h"
#include "SoundBackend.h"

namespace {

using namespace KLX::Host;

/** A connection for each request: the server may come and go between them. */
class PulseBackend : public SoundBackend {
public:
    bool isMuted() override { return PulseSession().isDefaultSinkMuted(); }
    void mute(bool on) override { PulseSession().muteDefaultSink(on); }
};

} // namespace

extern "C" __attribute__((visibility("default"))) SoundBackend* klx_host_sound_backend() {
    static PulseBackend backend;
    return &backend;
}
