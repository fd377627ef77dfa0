#pragma once

/**
 * @file
 * USB devices that are plugged in.
 *
 * The library brackets each query with `usb_device_init` and `usb_device_fini`. Queries on several
 * threads may overlap, so the pair has to nest. Unless noted, a call returns 0 on success and an
 * error number otherwise.
 */

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/** The devices of a class, as they were when the list was made. */
typedef void* usb_device_list_h;

/** One device of a list; it lives as long as the list. */
typedef void* usb_device_h;

/** Device classes, numbered as USB numbers them. */
enum { USB_DEVICE_CLASS_MASS_STORAGE = 8 };

/** Prepares the service for a query. */
int usb_device_init(void);

/** Ends what `usb_device_init` began. */
int usb_device_fini(void);

/** Counts the devices of a class: 0 or more, negative on failure. */
int usb_get_connected_device_number(int device_class);

/** Makes a list of a class; the caller gives it back with `usb_device_free_device_list`. */
int usb_device_get_device_list(int device_class, usb_device_list_h* list);

/**
 * Goes to the first device. It fails, leaving `device` alone, for an empty list and also for a null
 * one: the library does not look at the result of making the list.
 */
int usb_device_list_get_first(usb_device_list_h list, usb_device_h* device);

/** Goes on to the next device. It fails at the end, leaving `device` alone. */
int usb_device_list_get_next(usb_device_list_h list, usb_device_h* device);

/** Tells the product's name, owned by the list; NULL when the device does not tell it. */
const char* usb_device_get_product(usb_device_h device);

/** Tells the maker's name, owned by the list; NULL when the device does not tell it. */
const char* usb_device_get_manufacturer(usb_device_h device);

/** Releases a list with its devices and their texts. A null list is an error, not a crash. */
int usb_device_free_device_list(usb_device_list_h list);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
