#include "StoreCalls.h"

#include "vconf.h"

#include <cstdlib>
#include <memory>

namespace KLX::Host {

int setInteger(const std::string& key, int value) {
    return vconf_set_int(key.c_str(), value);
}

int setText(const std::string& key, const std::string& value) {
    return vconf_set_str(key.c_str(), value.c_str());
}

int integerOr(const std::string& key) {
    int value = 0;
    const int error = vconf_get_int(key.c_str(), &value);
    return error == 0 ? value : error;
}

std::string textOf(const std::string& key) {
    const std::unique_ptr<char, void (*)(void*)> text(vconf_get_str(key.c_str()), std::free);
    return text ? text.get() : "(failed)";
}

} // namespace KLX::Host
