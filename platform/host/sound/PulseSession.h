#pragma once

#include <pulse/pulseaudio.h>

#include <functional>
#include <memory>

namespace KLX::Host {

/**
 * One connection to the sound server, for one request. Used by one thread; never starts a server of
 * its own. Everything throws std::runtime_error with PulseAudio's words, also when the server does
 * not answer within five seconds.
 */
class PulseSession {
public:
    PulseSession();
    ~PulseSession();
    PulseSession(const PulseSession&) = delete;
    PulseSession& operator=(const PulseSession&) = delete;

    bool isDefaultSinkMuted();
    void muteDefaultSink(bool on);

private:
    void iterateUntil(const std::function<bool()>& done, const char* what);
    void finish(pa_operation* started, const char* what);
    [[noreturn]] void fail(const char* what) const;

    struct FreesLoop {
        void operator()(pa_mainloop* loop) const noexcept { pa_mainloop_free(loop); }
    };
    struct DropsContext {
        void operator()(pa_context* context) const noexcept { pa_context_unref(context); }
    };

    std::unique_ptr<pa_mainloop, FreesLoop> m_loop;
    std::unique_ptr<pa_context, DropsContext> m_context;
};

} // namespace KLX::Host
