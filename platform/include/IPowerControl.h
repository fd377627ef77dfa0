#pragma once

/**
 * @file
 * The power control's failure counters.
 */

#pragma GCC visibility push(default)

/** Tells how often the set went down against its will. May be used from any thread. */
class IPowerControl {
public:
    /** The one instance, owned by the service; null when there is no power control. */
    static IPowerControl* getInstance();

    virtual ~IPowerControl() = default;

    /** Counts the failures of the supply voltage. @return negative on failure. */
    virtual int getPowerFailCount(int* count) = 0;

    /** Counts the resets by the watchdog. @return negative on failure. */
    virtual int getWatchdogCount(int* count) = 0;
};

#pragma GCC visibility pop
