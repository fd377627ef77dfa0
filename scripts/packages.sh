# The Debian packages that the project needs, and how they get onto the machine.
# shellcheck disable=SC2034,SC2048,SC2086,SC2116  # lists of names are split into words

# What makes the Debian packages, which hold no tests: debian/control names these.
packages_compiler="g++ cmake ninja-build pkg-config"
packages_product="
    libxml2-dev libjsoncpp-dev libssl-dev libv4l-dev
    libboost-dev libboost-filesystem-dev libboost-regex-dev libboost-thread-dev
    liblmdb-dev libnl-route-3-dev libudev-dev libpulse-dev libcli11-dev"
# What the sources with their tests are compiled against, here as for another processor.
packages_libraries="$packages_product libgtest-dev libgmock-dev libumockdev-dev"
packages_build="
    $packages_compiler python3 $packages_libraries
    libbenchmark-dev umockdev pulseaudio pulseaudio-utils iproute2"
# Building for another processor and running what was built. The sysroot's packages are that
# processor's own; they are unpacked below build/, not installed.
packages_armhf="g++-arm-linux-gnueabihf qemu-user"
packages_arm64="g++-aarch64-linux-gnu qemu-user"
packages_sysroot="libc6-dev $packages_libraries"
packages_bench="libglib2.0-dev libjson-glib-dev"
packages_deb="dpkg-dev debhelper lintian fakeroot"
packages_coverage="gcovr"
packages_abi="abigail-tools git"
packages_tidy="clang clang-tidy"
packages_fuzz="clang libclang-rt-14-dev"
# With what the tests of the scripts call.
packages_checks="$packages_tidy $packages_fuzz clang-format valgrind doxygen zsh git dpkg-dev"

missing_packages() {
    dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
        awk -v wanted="$*" '
            $1 == "installed" { present[$2] = 1 }
            END {
                count = split(wanted, names, " ")
                for (i = 1; i <= count; i++)
                    if (!(names[i] in present)) printf " %s", names[i]
            }'
}

# Installs those of the named packages that are not there; asks the package manager for nothing
# when all are.
need_packages() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        fail_without_apt "$@"
    fi
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    install="apt-get install -y --no-install-recommends$missing"
    as_root=
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "packages are missing. As root, run:
  apt-get update && $install"
        as_root=sudo
    fi
    say "installing Debian packages:$missing"
    $as_root sh -c "apt-get update || echo 'going on with the package lists that are here'
        DEBIAN_FRONTEND=noninteractive $install -o DPkg::Lock::Timeout=300" </dev/null >&2 ||
        fail "the packages could not be installed. When the cause is removed, run as root:
  apt-get update && $install"
}

fail_without_apt() {
    fail "this is not a Debian system (there is no apt-get), so nothing can be installed here.
Needed are what these packages of Debian 12 hold:
  $(echo $*)
With those in place, build with: cmake --preset dev && cmake --build --preset dev && ctest --preset dev"
}
