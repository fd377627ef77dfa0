#pragma once

/**
 * @file
 * The platform log.
 *
 * A porter supplies `__dlog_print`. It is called from every thread, often, and sometimes while a
 * failure is being handled: it must be thread safe, must not throw, must not call back into the
 * library, and should not block.
 */

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/** Log buffers. The library writes to the main one only. */
enum { DLOG_ID_MAIN = 0 };

/** Priorities, rising with urgency. */
enum {
    DLOG_DEBUG = 3,   /**< Details for a developer. */
    DLOG_INFO = 4,    /**< An operation was entered or left. */
    DLOG_WARNING = 5, /**< Something was missing or failed; the operation went on. */
    DLOG_ERROR = 6    /**< An operation was left undone. */
};

/**
 * Writes one line to a log buffer.
 *
 * @param log_id    the buffer, `DLOG_ID_MAIN` here
 * @param priority  3 to 6, see above
 * @param tag       the writer's name, "KLX" here
 * @param format    a printf format without a trailing line feed. The library's formats begin
 *                  "%s: %s(%d) > ", filled with source file, function and line
 * @return 0 or more on success, negative on failure; the library does not look at it
 *
 * All texts belong to the caller and are valid during the call only.
 */
int __dlog_print(int log_id, int priority, const char* tag, const char* format, ...)
    __attribute__((format(printf, 4, 5)));

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
