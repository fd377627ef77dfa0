#pragma once

#include <string>
#include <vector>

namespace klx::network {

/**
 * Network, mounts and sysfs of the calling thread alone, without any link but loopback. What it
 * makes is gone with it, and the machine's own network is never touched.
 *
 * It belongs to the thread that made it; threads started meanwhile live in it, too. Making one
 * needs the right to namespaces. A step that fails throws std::runtime_error.
 */
class Scene {
public:
    /**
     * Sees to it that scenes can be made: starts this program again in a user namespace of its
     * own when this user may not make them here. Returns the reason when none can be made at all.
     */
    static std::string prepare(char** arguments);

    Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;
    ~Scene();

    /** Runs `ip` with arguments, "link add eth0 type veth" for example. */
    void ip(const std::string& arguments) const;

    /** The same, but tells whether it worked: some kernels lack some kinds of links. */
    bool tryIp(const std::string& arguments) const;

    /** A link that looks like a cable's end; its other end is NAME-far. Both are up. */
    void addCable(const std::string& name) const;

    /** Waits until the kernel says that traffic can pass, or cannot pass, over a link. */
    void awaitRunning(const std::string& name, bool expected = true) const;

    /**
     * Has sysfs describe links by `uevent` lines and empty folders, "wireless" for example, rather
     * than as they are. Links that are not described are not there for sysfs.
     */
    void describe(const std::string& link, const std::string& uevent,
                  const std::vector<std::string>& folders = {});

    /** Lays an empty folder over one of the machine's; once is enough for each. */
    void cover(const std::string& folder);

    /** Writes a file, with the folders that lead to it, below a covered folder. */
    void write(const std::string& path, const std::string& content) const;

private:
    std::vector<std::string> m_covered;
};

} // namespace klx::network
