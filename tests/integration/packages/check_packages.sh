# usage: check_packages.sh PACKAGES-FOLDER FOLDER
# Installs the packages together into a clean folder with a package database of its own, runs the tool
# from there, and compiles the consumer of the installed tree against the development package.
set -eu
packages=$(cd "$1" && pwd)
root=$2
checks=$(cd "$(dirname "$0")" && pwd)
consumer=$checks/../install/consumer

fail() {
    echo "check_packages.sh: $*" >&2
    exit 1
}

rm -rf "$root"
mkdir -p "$root/var/lib/dpkg/updates" "$root/var/lib/dpkg/info" "$root/state"
: >"$root/var/lib/dpkg/status"
root=$(cd "$root" && pwd)

# What they need of Debian is not in that folder; among themselves they must agree. Each comes after
# what it needs, so that nothing is said of a neighbour that is not there yet.
set --
for name in klx-host-platform libklxdeviceinfo1 libklxdeviceinfo-dev klxctl; do
    set -- "$@" "$packages/${name}"_[0-9]*.deb
done
[ $# -eq 4 ] || fail "there should be four packages, not $#: $*"
fakeroot dpkg --root="$root" --force-depends --log=/dev/null -i "$@" >"$root/install.log" 2>&1 || {
    cat "$root/install.log" >&2
    fail "the packages could not be installed"
}
! grep 'depends on \(lib\)\?klx' "$root/install.log" ||
    fail "the packages do not fit each other"

libraries=$(dirname "$(find "$root/usr/lib" -name libKLXDeviceInfo.so.1)")
[ -f "$root/usr/share/man/man1/klxctl.1.gz" ] || fail "the manual page is not there"
[ -f "$root/usr/share/bash-completion/completions/klxctl" ] || fail "bash finds no completion"
find "$root/usr/share/zsh" -name _klxctl | grep -q . || fail "zsh finds no completion"
[ "$(stat -c %s "$libraries/libKLXDeviceInfo.so.1.0.0")" -lt $((400 * 1024)) ] ||
    fail "the library has outgrown a set: $(stat -c %s "$libraries/libKLXDeviceInfo.so.1.0.0") bytes"
[ -f "$libraries/libKLXDeviceInfo.so" ] || fail "the linker's name of the library leads nowhere"

export KLX_STATE_DIR="$root/state" XDG_RUNTIME_DIR="$root/state" LD_LIBRARY_PATH="$libraries"
klxctl=$root/usr/bin/klxctl
ldd "$klxctl" | grep -q "$libraries/libKLXDeviceInfo.so.1 " || fail "klxctl takes another library"
"$klxctl" set /Picture/Backlight 7
[ "$("$klxctl" get /Picture/Backlight)" = 7 ] || fail "the value that was set does not come back"
"$klxctl" dump | grep -q '<property name="Backlight"' || fail "klxctl dump tells of no backlight"

sh "$checks/../install/consume_by_pkg_config.sh" c++ pkg-config "$libraries" "$root/by-pkg-config"
cmake -S "$consumer" -B "$root/by-cmake" "-DCMAKE_PREFIX_PATH=$root/usr" >"$root/cmake.log"
cmake --build "$root/by-cmake" >>"$root/cmake.log"
"$root/by-cmake/consumer"
echo "the packages install, the tool runs, a consumer compiles"
