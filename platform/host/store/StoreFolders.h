#pragma once

#include <string>

namespace KLX::Host {

/**
 * Names the folder of the settings that outlive a restart: $KLX_STATE_DIR, else
 * $XDG_STATE_HOME/klx, else .local/state/klx in the home folder. Absolute; need not exist.
 * Throws StoreFault when there is no home to fall back on.
 */
std::string stateFolder();

/**
 * Names the folder of the settings that live until a restart, one for each state folder:
 * under $XDG_RUNTIME_DIR when that is a folder, else under /run when this user may write there,
 * else under /tmp. Need not exist.
 */
std::string runtimeFolder(const std::string& stateFolder);

/**
 * Makes a folder and what leads to it, 0700 each, unless it is there. Throws StoreFault when it
 * cannot be made, or is not this user's.
 */
void ensureFolder(const std::string& path);

/** As ensureFolder, and refuses a link or a folder that anybody else may look into. */
void ensurePrivateFolder(const std::string& path);

/** The kernel's name for the time since the last boot, or "unknown". */
std::string bootId();

/** Removes the files of memory stores from before the last boot. */
void discardStaleMemoryStores(const std::string& folder, const std::string& currentFileName);

} // namespace KLX::Host
