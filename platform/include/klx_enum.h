#pragma once

/**
 * @file
 * How the platform headers declare enumerations so that C and C++ agree on them.
 *
 * Values outside the named ones are legal arguments throughout: the library casts numbers that it
 * was given to these types. C++ therefore needs a fixed underlying type, which C before C23 cannot
 * spell. In both languages each enumeration is 32 bits wide.
 *
 * @code
 * typedef enum fruit_e KLX_BASE_INT { FRUIT_APPLE = 0, FRUIT_PEAR = 1 } fruit_e;
 * KLX_OPEN_ENUM(colour_e);   // a distinct type whose values are plain numbers, none of them named
 * @endcode
 */

#ifdef __cplusplus
#define KLX_BASE_INT : int
#define KLX_BASE_UNSIGNED : unsigned
#define KLX_OPEN_ENUM(name) enum name : int {}
#else
#define KLX_BASE_INT
#define KLX_BASE_UNSIGNED
#define KLX_OPEN_ENUM(name) typedef int name
#endif
