#include "HostLog.h"

#include "dlog.h"

namespace KLX::Host {

void hostLog(int priority, const std::string& text) {
    __dlog_print(DLOG_ID_MAIN, priority, "KLX_HOST", "%s", text.c_str());
}

} // namespace KLX::Host
