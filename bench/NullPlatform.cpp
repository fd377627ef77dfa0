// A platform whose every call returns at once, so that what is measured is the library's own time.

#include <dlog.h>
#include <pelm.h>
#include <system_info.h>
#include <vconf.h>

#include <cstdlib>
#include <cstring>

extern "C" {

int __dlog_print(int, int, const char*, const char*, ...) {
    return 0;
}

int vconf_get_int(const char*, int* value) {
    *value = 1;
    return 0;
}

int vconf_get_bool(const char*, int* value) {
    *value = 1;
    return 0;
}

char* vconf_get_str(const char*) {
    return strdup("1");
}

int vconf_set_int(const char*, int) {
    return 0;
}

int vconf_set_bool(const char*, int) {
    return 0;
}

int vconf_set_str(const char*, const char*) {
    return 0;
}

int pelm_get_backlight(int, int* value, pelm_save_type_e) {
    *value = 1;
    return 0;
}

int get_vconf_key_default_value(const char*, int*, char** value) {
    *value = strdup("1");
    return 1;
}

int system_info_get_custom_int(const char*, int* value) {
    *value = 0;
    return 0;
}
}
