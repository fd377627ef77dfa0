#pragma once

/**
 * What the linker calls functions that a test stands in for. A 32-bit machine has further ones for
 * file sizes and times of 64 bits, and those are what the library calls there.
 */
#if __SIZEOF_POINTER__ == 4
#define KLX_LINKED_FOPEN "fopen64"
#define KLX_LINKED_STATVFS "statvfs64"
#define KLX_LINKED_NANOSLEEP "__nanosleep64"
#else
#define KLX_LINKED_FOPEN "fopen"
#define KLX_LINKED_STATVFS "statvfs"
#define KLX_LINKED_NANOSLEEP "nanosleep"
#endif
