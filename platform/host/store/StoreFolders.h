#pragma once

#include <optional>
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

/**
 * The kernel's name for the time since the last boot; nothing where the machine does not tell it to
 * this process. Throws StoreFault when only this attempt failed: a process that then went on
 * without the name would keep its settings apart from everybody else's.
 */
std::optional<std::string> bootId();

/** The file of the memory store in its folder, also where the boot has no name. */
std::string memoryStoreName(const std::optional<std::string>& boot);

/**
 * Removes the files of memory stores from before the last boot. Without the name of this boot
 * nobody can tell which they are, and nothing is removed; nor is ever the file of processes that do
 * not know the name, which may be in use.
 */
void discardStaleMemoryStores(const std::string& folder, const std::optional<std::string>& boot);

} // namespace KLX::Host
