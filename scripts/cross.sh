# Building for another processor: the sysroot, the build, and its tests under emulation.
# shellcheck disable=SC2086,SC2116,SC2154  # the package lists of scripts/packages.sh are split into words
# shellcheck disable=SC2016  # what the package manager shows has variables of its own

# usage: main_archive: the archive that this machine takes its own packages from, as "URI RELEASE";
# neither the security nor the update archive, which need not hold all of another processor's.
main_archive() {
    apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(CODENAME) $(COMPONENT)' \
        'Created-By: Packages' |
        awk -v codename="$(. /etc/os-release && echo "$VERSION_CODENAME")" \
            '$3 == codename && $4 == "main" { print $1, $2; exit }'
}

# usage: apt_for ARCHITECTURE FOLDER: makes a package manager's configuration that knows the other
# processor alone and keeps all its state in FOLDER, so that this machine's own is left as it is.
apt_for() {
    mkdir -p "$2/state/lists/partial" "$2/cache/archives/partial"
    : >"$2/state/status"
    archive=$(main_archive)
    [ -n "$archive" ] || fail "the package manager names no main archive of this Debian release.
When /etc/apt has one, run as root: apt-get update"
    echo "deb [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $archive main" \
        >"$2/sources.list"
    cat >"$2/apt.conf" <<CONFIGURATION
#clear APT::Architectures;
APT::Architecture "$1";
APT::Architectures { "$1"; };
APT::Sandbox::User "";
Dir::State "$2/state";
Dir::State::status "$2/state/status";
Dir::Cache "$2/cache";
Dir::Etc::SourceList "$2/sources.list";
Dir::Etc::SourceParts "-";
Acquire::Languages "none";
Acquire::Retries "3";
CONFIGURATION
}

# usage: download_packages CONFIGURATION
download_packages() {
    apt-get -qq -c "$1" update >&2 || return 1
    apt-get -qq -c "$1" install --download-only -y --no-install-recommends $packages_sysroot >&2
}

# usage: unpack_packages ARCHIVES FOLDER
# Links from the root of the processor's own file system are made to hold in FOLDER, too. Fails with
# the first package or link that does.
unpack_packages() {
    mkdir "$2" || return 1
    for package in "$1"/*.deb; do
        dpkg -x "$package" "$2" || return 1
    done
    find "$2" -type l -lname '/*' | while read -r link; do
        ln -srfn "$2$(readlink "$link")" "$link" || exit 1
    done
}

# usage: need_sysroot ARCHITECTURE: build/sysroot/ARCHITECTURE, made anew when the list of packages
# has changed. It is put together beside its place, so that it is there as a whole or not at all.
need_sysroot() {
    sysroot=$PWD/build/sysroot/$1
    wanted=$(echo $packages_sysroot)
    if [ "$(cat "$sysroot.packages" 2>/dev/null)" = "$wanted" ] && [ -d "$sysroot" ]; then
        return 0
    fi
    say "downloading the libraries of $1 for build/sysroot/$1"
    making=$sysroot.making
    rm -rf "$making" "$sysroot" "$sysroot.packages"
    apt_for "$1" "$making"
    if ! download_packages "$making/apt.conf"; then
        rm -rf "$making"
        fail "the packages for $1 could not be downloaded; the reason is above.
When it is removed, run the same command again: nothing half-made was left."
    fi
    if ! unpack_packages "$making/cache/archives" "$making/root"; then
        rm -rf "$making"
        fail "the packages for $1 could not be unpacked; the reason is above.
When it is removed, run the same command again: nothing half-made was left."
    fi
    mv "$making/root" "$sysroot"
    printf '%s\n' "$wanted" >"$sysroot.packages"
    rm -rf "$making"
}

# usage: emulator ARCHITECTURE
emulator() {
    case $1 in
    armhf) echo qemu-arm ;;
    arm64) echo qemu-aarch64 ;;
    esac
}

# usage: kind_of_tests COMMAND [--unit]: "unit" or "all"
kind_of_tests() {
    case ${2-} in
    '') echo all ;;
    --unit) echo unit ;;
    *) fail_usage "$1 takes --unit or nothing, not '$2'" ;;
    esac
}

# usage: test_emulated ARCHITECTURE all|unit
test_emulated() {
    need_sysroot "$1"
    case $2 in
    all) build "$1" ;;
    unit) build "$1" tests/unit/all ;;
    esac
    say "running the tests of build/$1 under emulation"
    result=0
    python3 -B scripts/run_emulated.py "build/$1" "$1" "$2" \
        "$(emulator "$1")" -L "build/sysroot/$1" >"build/$1/tests.log" || result=$?
    cat "build/$1/tests.log"
    return $result
}
