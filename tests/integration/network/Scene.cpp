#include "Scene.h"

#include <fcntl.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

namespace klx::network {
namespace {

constexpr const char* startedAgain = "KLX_NETWORK_TEST_STARTED_AGAIN";
constexpr const char* linkFolder = "/sys/class/net";

[[noreturn]] void fail(const std::string& what) {
    throw std::runtime_error(what + ": " + std::strerror(errno));
}

void check(int result, const std::string& what) {
    if (result != 0) {
        fail(what);
    }
}

/** The namespaces that the program began in, to go back to. */
struct Home {
    int network = ::open("/proc/self/ns/net", O_RDONLY | O_CLOEXEC);
    int mounts = ::open("/proc/self/ns/mnt", O_RDONLY | O_CLOEXEC);
    std::string folder = std::filesystem::current_path();
};

const Home& home() {
    static const Home home;
    return home;
}

bool canMakeScenes(std::string& reason) {
    try {
        const Scene scene;
        return true;
    } catch (const std::exception& failure) {
        reason = failure.what();
        return false;
    }
}

bool isRunning(const std::string& name) {
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request{};
    name.copy(request.ifr_name, IFNAMSIZ - 1);
    const int result = ::ioctl(descriptor, SIOCGIFFLAGS, &request);
    ::close(descriptor);
    return result == 0 && (request.ifr_flags & IFF_RUNNING) != 0;
}

} // namespace

std::string Scene::prepare(char** arguments) {
    std::string reason;
    if (canMakeScenes(reason)) {
        return {};
    }
    if (std::getenv(startedAgain) == nullptr &&
        std::system("unshare -Urnm true 2>/dev/null") == 0) {
        ::setenv(startedAgain, "1", 1);
        std::vector<char*> command{const_cast<char*>("unshare"), const_cast<char*>("-Urnm")};
        const std::string self = std::filesystem::read_symlink("/proc/self/exe");
        command.push_back(const_cast<char*>(self.c_str()));
        while (*++arguments != nullptr) {
            command.push_back(*arguments);
        }
        command.push_back(nullptr);
        ::execvp(command[0], command.data());
    }
    return reason;
}

Scene::Scene() {
    home();
    check(::unshare(CLONE_NEWNET | CLONE_NEWNS), "cannot make network and mount namespaces");
    check(::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr), "cannot part the mounts");
    check(::mount("sysfs", "/sys", "sysfs", 0, nullptr), "cannot mount the namespace's sysfs");
    ip("link set lo up");
}

// Namespaces end with their last user, and with them all links and mounts. The sanitizers keep a
// thread of their own, which shares the current folder; the kernel moves no mounts under it.
Scene::~Scene() {
    const bool isBack = ::unshare(CLONE_FS) == 0 && ::setns(home().network, CLONE_NEWNET) == 0 &&
                        ::setns(home().mounts, CLONE_NEWNS) == 0 &&
                        ::chdir(home().folder.c_str()) == 0;
    if (!isBack) {
        std::abort();
    }
}

bool Scene::tryIp(const std::string& arguments) const {
    return std::system(("ip " + arguments + " >/dev/null 2>&1").c_str()) == 0;
}

void Scene::ip(const std::string& arguments) const {
    if (std::system(("ip " + arguments).c_str()) != 0) {
        throw std::runtime_error("ip " + arguments + " failed; is the package iproute2 there?");
    }
}

void Scene::addCable(const std::string& name) const {
    ip("link add " + name + " type veth peer name " + name + "-far");
    ip("link set " + name + " up");
    ip("link set " + name + "-far up");
    awaitRunning(name);
}

void Scene::awaitRunning(const std::string& name, bool expected) const {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (isRunning(name) != expected) {
        if (std::chrono::steady_clock::now() > deadline) {
            throw std::runtime_error("the state of " + name + " did not change");
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void Scene::cover(const std::string& folder) {
    if (std::find(m_covered.begin(), m_covered.end(), folder) == m_covered.end()) {
        check(::mount("tmpfs", folder.c_str(), "tmpfs", 0, nullptr), "cannot cover " + folder);
        m_covered.push_back(folder);
    }
}

void Scene::write(const std::string& path, const std::string& content) const {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!(file << content).flush()) {
        fail("cannot write " + path);
    }
}

void Scene::describe(const std::string& link, const std::string& uevent,
                     const std::vector<std::string>& folders) {
    cover(linkFolder);
    const std::string entry = std::string(linkFolder) + '/' + link;
    write(entry + "/uevent", uevent);
    for (const std::string& folder : folders) {
        std::filesystem::create_directories(std::filesystem::path(entry) / folder);
    }
}

} // namespace klx::network
