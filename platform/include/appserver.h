#pragma once

/**
 * @file
 * The application server: versions of applications, its hub site, memory that applications use.
 *
 * All calls may come from any thread and return 0 on success or an error number. The library zeroes
 * the records before it passes them.
 */

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/** About an application: 3212 bytes, the version at byte 640. */
typedef struct {
    char reserved[640];
    char version[2572]; /**< Zero-terminated text. */
} appserver_app_info_s;

/** About the server itself: 2560 bytes, the hub site at byte 256. */
typedef struct {
    char reserved[256];
    char hub_site[2304]; /**< Zero-terminated text. */
} appserver_debug_info_s;

/**
 * Fills a record about an application.
 *
 * @param application_id  zero-terminated, such as "10140000000"
 * @param info            the caller's record
 */
int appserver_get_app_info(const char* application_id, appserver_app_info_s* info);

/** Fills a record about the server. */
int appserver_get_debug_info(appserver_debug_info_s* info);

/**
 * Tells the memory that applications use.
 *
 * It may take long: the library calls it on a thread of its own and waits 20 seconds at most, but
 * the call is left to finish on its own.
 *
 * @param text  receives a text allocated with `malloc` that the caller frees, or NULL
 */
int appserver_get_used_memory(char** text);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
