#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace klx::test {

/** A setting that one worker alone writes. */
struct OwnedSetting {
    enum class Kind { flag, number, text };

    std::string path;
    Kind kind;

    /** The value of the nth write; each is another than the one before. */
    std::string valueFor(int nth) const;
};

/** Settings that have nothing to do with each other, every one kept in the settings store. */
const std::vector<OwnedSetting>& independentSettings();

/**
 * One of many clients at once. It writes the settings that it owns, by single writes and by
 * restoring documents that hold nothing else, and every read and document has to tell what it wrote
 * last. There may be fewer settings than clients: each owns a key of the settings store, too, that
 * is no property of the library. It also writes one text that all workers write, which must never
 * be mixed of two.
 */
class Worker {
public:
    /** The share of the independent settings that falls to the worker of that number. */
    Worker(int number, int workers);

    /** Makes a call that is the first of its kind in the process; which one goes by the number. */
    void makeFirstCall();

    /** Reads, writes, dumps, restores and diagnoses until the time has come or a check failed. */
    void workUntil(std::chrono::steady_clock::time_point end);

    /** Gives all that it owns the value that `expectFinalValues` looks for. */
    void writeFinalValues();

    /** Checks, from any process, that nothing was lost in the end of what so many workers wrote. */
    static void expectFinalValues(int workers);

private:
    void work(int round);
    void writeOwn();
    void writeKey() const;
    void writeShared() const;
    void restoreOwn(bool asXml);
    void dumpAll(bool asXml) const;
    void diagnose(int round) const;
    void expectOwnValues() const;

    int m_number;
    int m_writes = 0;
    std::vector<OwnedSetting> m_owned;
    OwnedSetting m_key;
};

/** How long a load test goes on: KLX_LOAD_SECONDS, else two seconds. */
std::chrono::seconds loadTime();

/** Runs the workers of these numbers on a thread each, which set off at once. */
void workTogether(std::vector<Worker>& workers);

} // namespace klx::test
