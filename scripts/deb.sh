# The Debian packages. They are built from a copy of the sources, so that nothing is left among these.
# shellcheck disable=SC2086,SC2154  # the package lists of scripts/packages.sh are split into words

# usage: copy_sources FOLDER: with debian/control, made of debian/control.in and what the build needs
copy_sources() {
    rm -rf "$1"
    mkdir -p "$1"
    tar -c --exclude=./build --exclude=./out --exclude=./.git . | tar -x -C "$1"
    builders=$(printf '%s, ' $packages_compiler $packages_product)
    sed "s/@BUILD_PACKAGES@/${builders%, }/" debian/control.in >"$1/debian/control"
}

# The project states its version for CMake and, as every Debian source does, in debian/changelog.
check_versions() {
    ours=$(sed -n 's/^ *VERSION \([0-9.]*\)$/\1/p' CMakeLists.txt)
    packaged=$(dpkg-parsechangelog -S Version)
    [ "$ours" = "$packaged" ] ||
        fail "CMakeLists.txt says version $ours, debian/changelog $packaged; add an entry there"
    check_release
}

# usage: is_released VERSION: whether CHANGELOG.md says so
is_released() {
    grep -qF "## [$1]" CHANGELOG.md
}

# CHANGELOG.md and debian/changelog are of one mind on whether the version is out.
check_release() {
    distribution=$(dpkg-parsechangelog -S Distribution)
    if is_released "$ours"; then
        [ "$distribution" != UNRELEASED ] ||
            fail "CHANGELOG.md says that $ours is out, debian/changelog that it is not; see CONTRIBUTING.md"
    else
        [ "$distribution" = UNRELEASED ] ||
            fail "debian/changelog says that $ours is out, CHANGELOG.md that it is not; see CONTRIBUTING.md"
    fi
}

# What the caller asks for, such as noopt or another parallel=, holds.
build_options() {
    case " ${DEB_BUILD_OPTIONS-} " in
    *' parallel='*) echo "$DEB_BUILD_OPTIONS" ;;
    *) echo "parallel=$(jobs) ${DEB_BUILD_OPTIONS-}" ;;
    esac
}

build_packages() {
    check_versions
    copy_sources build/deb/source
    say "building the packages in build/deb"
    rm -f build/deb/*.deb build/deb/*.ddeb build/deb/*.changes build/deb/*.buildinfo
    (cd build/deb/source && DEB_BUILD_OPTIONS=$(build_options) \
        dpkg-buildpackage -b -us -uc) >build/deb/build.log 2>&1 || {
        tail -n 40 build/deb/build.log >&2
        fail "the packages could not be built; build/deb/build.log tells all"
    }
    say "checking them with lintian"
    lintian --allow-root --fail-on error build/deb/*.changes
    mkdir -p out/deb
    rm -f out/deb/*.deb
    cp build/deb/*.deb out/deb/
}
