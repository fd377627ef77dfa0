"""The layers of this project: who may include what. check_layers.py holds the sources to it."""

# A folder, the folders that it may include besides itself, and the third-party libraries that it
# may use. The longest folder name that a file's path begins with decides.
AREAS = {
    "platform/include": ([], []),
    "common": (["platform/include"], ["boost", "libxml2", "openssl"]),
    "DeviceInfo": (["common", "platform/include"], ["boost", "libxml2", "jsoncpp", "v4l2"]),
    "platform/host": (["platform/include"], ["lmdb", "libnl", "udev", "systemd", "jsoncpp",
                                            "pulse"]),
    "tools": (["public headers", "platform/include/vconf.h"], ["cli11", "libxml2", "jsoncpp"]),
    "tests/fake": (["platform/include"], ["googletest", "v4l2"]),
}

# What stands free to include any layer, but never two providers of the platform at once.
FREE_AREAS = ["tests", "bench", "fuzz"]
PROVIDERS = ["platform/host", "tests/fake"]

# Inside DeviceInfo/, from top to bottom: a file includes its own step and those below it. The
# registry's header stands below the catalogue, which binds its rows to the class declared there;
# its source stands above, because it walks the catalogue.
STEPS = [
    ("manager", ["DeviceInfoManager*", "*Document*", "EntityGrowth.*", "PropertyPath.*",
                 "PropertyDescription.cpp", "InputDevice.cpp"]),
    ("registry", ["DeviceProperty.cpp"]),
    ("catalogue", ["PropertyCatalogue.*", "*Binding.*", "catalogue/*"]),
    ("registry class", ["DeviceProperty.h"]),
    ("backends", ["DeviceInfoAV*", "DeviceInfoGeneral*", "DeviceInfoInput*", "DeviceInfoNetwork*",
                  "factoryInfo*"]),
    ("helpers", ["NetworkAPI*", "commonUtil.h"]),
    ("types", ["CpuInfo.h", "InputDevice.h", "PropertyAccessor.h", "PropertyDescription.h",
               "ValueTypes.h"]),
]

# Third-party headers by the library they come from.
LIBRARIES = {
    "boost/": "boost",
    "libxml/": "libxml2",
    "openssl/": "openssl",
    "json/": "jsoncpp",
    "libv4l2.h": "v4l2",
    "lmdb.h": "lmdb",
    "netlink/": "libnl",
    "libudev.h": "udev",
    "systemd/": "systemd",
    "pulse/": "pulse",
    "CLI/": "cli11",
    "umockdev.h": "umockdev",
    "gtest/": "googletest",
    "gmock/": "googletest",
    "benchmark/": "benchmark",
    "gio/": "glib",
    "json-glib/": "json-glib",
}

# Headers of the C library and of the kernel; C++ headers are known by having no suffix.
SYSTEM_FOLDERS = ["sys/", "linux/", "net/", "netinet/", "arpa/"]
SYSTEM_HEADERS = """
    assert.h ctype.h dirent.h dlfcn.h errno.h fcntl.h glob.h ifaddrs.h inttypes.h langinfo.h
    limits.h link.h locale.h malloc.h math.h netdb.h poll.h pthread.h pty.h pwd.h sched.h
    semaphore.h signal.h spawn.h stdarg.h stdbool.h stddef.h stdint.h stdio.h stdlib.h string.h
    strings.h syslog.h termios.h time.h ucontext.h unistd.h wchar.h
""".split()

# The one place of the library and its tools that may call the platform's log.
LOG_CALL = "__dlog_print"
LOG_CALLER = "common/Log.h"
LOG_AREAS = ["common", "DeviceInfo", "tools"]
