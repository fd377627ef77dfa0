#include "PulseSession.h"

#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>

namespace KLX::Host {
namespace {

constexpr auto defaultSink = "@DEFAULT_SINK@";
constexpr std::chrono::seconds patience{5};

using Operation = std::unique_ptr<pa_operation, void (*)(pa_operation*)>;

void noteMute(pa_context*, const pa_sink_info* sink, int, void* muted) {
    if (sink != nullptr) {
        *static_cast<std::optional<bool>*>(muted) = sink->mute != 0;
    }
}

void noteSuccess(pa_context*, int success, void* done) {
    *static_cast<bool*>(done) = success != 0;
}

} // namespace

PulseSession::PulseSession() : m_loop(pa_mainloop_new()) {
    if (m_loop == nullptr) {
        throw std::bad_alloc();
    }
    m_context.reset(pa_context_new(pa_mainloop_get_api(m_loop.get()), "KLX host platform"));
    if (m_context == nullptr) {
        throw std::bad_alloc();
    }
    if (pa_context_connect(m_context.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) {
        fail("cannot reach the sound server");
    }
    iterateUntil([this] { return pa_context_get_state(m_context.get()) == PA_CONTEXT_READY; },
                 "cannot reach the sound server");
}

PulseSession::~PulseSession() {
    pa_context_disconnect(m_context.get());
}

bool PulseSession::isDefaultSinkMuted() {
    std::optional<bool> muted;
    finish(pa_context_get_sink_info_by_name(m_context.get(), defaultSink, &noteMute, &muted),
           "cannot ask the default sink");
    if (!muted) {
        fail("there is no default sink");
    }
    return *muted;
}

void PulseSession::muteDefaultSink(bool on) {
    bool done = false;
    finish(pa_context_set_sink_mute_by_name(m_context.get(), defaultSink, on ? 1 : 0, &noteSuccess,
                                            &done),
           "cannot mute the default sink");
    if (!done) {
        fail("the default sink did not take the mute");
    }
}

void PulseSession::finish(pa_operation* started, const char* what) {
    const Operation operation(started, &pa_operation_unref);
    if (operation == nullptr) {
        fail(what);
    }
    iterateUntil(
        [&operation] { return pa_operation_get_state(operation.get()) != PA_OPERATION_RUNNING; },
        what);
}

void PulseSession::iterateUntil(const std::function<bool()>& done, const char* what) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point deadline = Clock::now() + patience;
    while (!done()) {
        const auto left =
            std::chrono::duration_cast<std::chrono::microseconds>(deadline - Clock::now());
        const bool isGood = PA_CONTEXT_IS_GOOD(pa_context_get_state(m_context.get())) != 0;
        if (!isGood || left.count() <= 0 ||
            pa_mainloop_prepare(m_loop.get(), static_cast<int>(left.count())) < 0 ||
            pa_mainloop_poll(m_loop.get()) < 0 || pa_mainloop_dispatch(m_loop.get()) < 0) {
            fail(what);
        }
    }
}

void PulseSession::fail(const char* what) const {
    throw std::runtime_error(std::string(what) + ": " +
                             pa_strerror(pa_context_errno(m_context.get())));
}

} // namespace KLX::Host
