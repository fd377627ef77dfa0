#!/bin/sh
# usage: check_scripts.sh SOURCES CASE
# Shows one behaviour of the scripts behind ./dev, in a temporary folder.
# shellcheck disable=SC1090,SC1091,SC2034,SC2317  # the scripts are read from the sources; cases are called by name
set -eu
sources=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

for script in say packages build checks abi cross deb; do
    . "$sources/scripts/$script.sh"
done

wrong() {
    echo "wrong: $*" >&2
    exit 1
}

# usage: must_fail TEXT COMMAND...: the command fails and says the text
must_fail() {
    text=$1
    shift
    if (set +e && "$@") >said 2>&1; then
        wrong "$* succeeded"
    fi
    grep -qF -e "$text" said || {
        cat said >&2
        wrong "$* did not say '$text'"
    }
}

# Nothing is installed or built should a command take its arguments after all.
only_harmless_programs() {
    mkdir bin
    for program in apt-get sudo cmake dpkg-query; do
        printf '#!/bin/sh\necho "%s was run"\nexit 1\n' "$program" >"bin/$program"
        chmod +x "bin/$program"
    done
    PATH=$PWD/bin:$PATH
}

case_surplus_arguments_are_refused() {
    only_harmless_programs
    must_fail "build takes no arguments, not 'x'" sh "$sources/dev" build x
    for line in 'setup --all x' 'fuzz 1 2' 'test-armhf --unit x' 'test-arm64 --unit x' \
        'format --check x' 'install here there'; do
        # shellcheck disable=SC2086  # split into words
        must_fail "${line%% *} takes one argument at most, not '${line#* }'" sh "$sources/dev" $line
    done
}

git_here() {
    git -c user.name=tester -c user.email=tester@example.com -c commit.gpgsign=false \
        -c tag.gpgsign=false "$@"
}

# Exit status 77 tells that the test was left out, which continuous integration does not permit.
need() {
    command -v "$1" >/dev/null || {
        echo "there is no $1"
        [ "${CI-}" != true ] || exit 1
        exit 77
    }
}

# Neither the repository that the caller works in nor anybody's configuration is the test's.
need_git() {
    need git
    # shellcheck disable=SC2046  # a list of names
    unset $(git rev-parse --local-env-vars)
    export GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_NOSYSTEM=1
}

env_of_another_owner() {
    GIT_TEST_ASSUME_DIFFERENT_OWNER=1
    export GIT_TEST_ASSUME_DIFFERENT_OWNER
    "$@"
}

commit() {
    git_here commit -q --allow-empty -m "$1"
}

repository() {
    git init -q "$1"
    cd "$1"
    commit first
}

version_must_be() {
    (check_history) || wrong "the history is refused"
    version=$(last_version)
    [ "$version" = "$1" ] || wrong "the last version is '$version', not '$1'"
}

case_abi_compares_with_the_version_before() {
    need_git
    repository project
    version_must_be ''
    git tag v1.0.0
    version_must_be ''
    commit second
    version_must_be v1.0.0
    git tag v1.1.0
    version_must_be v1.0.0
    git tag other
    commit third
    version_must_be v1.1.0
}

case_abi_fails_where_git_cannot_tell() {
    need_git
    GIT_CEILING_DIRECTORIES=$(dirname "$PWD")
    export GIT_CEILING_DIRECTORIES
    must_fail 'The sources must be a clone.' check_history
    repository project
    git tag v1.0.0
    commit second
    must_fail 'safe.directory' env_of_another_owner check_history
    mkdir part
    cd part
    must_fail 'a part of another project' check_history
    cd ../..
    git clone -q --depth 1 --no-tags "file://$PWD/project" shallow
    cd shallow
    must_fail 'git fetch --unshallow --tags' check_history
    cd ../project
    git checkout -q --orphan other
    commit third
    must_fail 'none of the tagged versions' last_version
}

case_a_folder_configured_for_a_set_is_foreign() {
    mkdir -p build/release build/armhf
    ! is_foreign release || wrong "a new folder is foreign"
    printf '%s\n' KLX_PLATFORM:STRING=host >build/release/CMakeCache.txt
    ! is_foreign release || wrong "the machine's own folder is foreign"
    echo CMAKE_TOOLCHAIN_FILE:FILEPATH=/home/set.cmake >>build/release/CMakeCache.txt
    is_foreign release || wrong "another toolchain is not noticed"
    echo KLX_PLATFORM:STRING=external >build/release/CMakeCache.txt
    is_foreign release || wrong "another platform is not noticed"
    echo CMAKE_TOOLCHAIN_FILE:FILEPATH=/home/cmake/toolchain-armhf.cmake >build/armhf/CMakeCache.txt
    ! is_foreign armhf || wrong "the folder's own toolchain is foreign"
}

# usage: sources_in FOLDER: a compilation database with one file of the library in FOLDER
sources_in() {
    mkdir -p "$1/build/dev"
    printf '[\n{\n  "file": "%s/common/Exception.cpp"\n}\n]\n' "$1" >"$1/build/dev/compile_commands.json"
    cd "$1"
}

# Stands in for clang-tidy's, which picks the files with Python's expressions.
run_clang_tidy_here() {
    mkdir "$folder/bin"
    cat >"$folder/bin/run-clang-tidy" <<'PROGRAM'
#!/usr/bin/env python3
import json, re, sys
names = [entry["file"] for entry in json.load(open("build/dev/compile_commands.json"))]
print("checked", sum(bool(re.search(sys.argv[-1], name)) for name in names))
PROGRAM
    chmod +x "$folder/bin/run-clang-tidy"
    PATH=$folder/bin:$PATH
}

case_tidy_checks_the_files_in_a_folder_of_any_name() {
    run_clang_tidy_here
    sources_in "$PWD/c++ (new) [1].d"
    [ "$(tidy_sources)" = "checked 1" ] || wrong "the file was not checked"
}

case_tidy_fails_when_there_is_nothing_to_check() {
    run_clang_tidy_here
    sources_in "$PWD/elsewhere"
    mkdir -p "$folder/here/build"
    cp -r build/dev "$folder/here/build/"
    cd "$folder/here"
    must_fail 'names no file of the sources' tidy_sources
}

case_packages_are_built_as_the_caller_asks() {
    jobs() { echo 2; }
    [ "$(unset DEB_BUILD_OPTIONS && build_options)" = 'parallel=2 ' ] || wrong "without options"
    [ "$(DEB_BUILD_OPTIONS=noopt && build_options)" = 'parallel=2 noopt' ] || wrong "with others"
    [ "$(DEB_BUILD_OPTIONS='noopt parallel=1' && build_options)" = 'noopt parallel=1' ] ||
        wrong "with a number"
}

case_packages_are_built_from_what_their_build_needs() {
    mkdir debian
    cp "$sources/debian/control.in" debian/
    copy_sources build/deb/source
    needed=$(sed -n 's/^Build-Depends: //p' build/deb/source/debian/control)
    case $needed in
    *libxml2-dev*libcli11-dev*) ;;
    *) wrong "what the library needs is missing: $needed" ;;
    esac
    case $needed in
    *test* | *mock* | *benchmark* | *pulseaudio* | *python3*) wrong "tests are needed: $needed" ;;
    esac
}

# usage: changes HEADING DISTRIBUTION: both logs of a project of version 1.0.0
changes() {
    mkdir -p debian
    echo '    VERSION 1.0.0' >CMakeLists.txt
    echo "## [$1]" >CHANGELOG.md
    printf 'x (1.0.0) %s; urgency=medium\n\n  * All.\n\n -- X <x@example.com>  %s\n' \
        "$2" 'Sat, 21 Nov 2026 12:00:00 +0000' >debian/changelog
}

case_a_version_is_out_for_both_logs_or_for_none() {
    need dpkg-parsechangelog
    changes Unreleased UNRELEASED
    check_versions
    changes 1.0.0 unstable
    check_versions
    changes 1.0.0 UNRELEASED
    must_fail 'debian/changelog that it is not' check_versions
    changes Unreleased unstable
    must_fail 'CHANGELOG.md that it is not' check_versions
}

# Stand in for the package manager.
apt_for() {
    mkdir -p "$2/cache/archives"
}
download_packages() {
    cp ./*.deb build/sysroot/armhf.making/cache/archives/
}

make_package() {
    mkdir -p "$1/DEBIAN" "$1/usr/share/$1" "$1/etc"
    printf 'Package: %s\nVersion: 1\nArchitecture: all\nMaintainer: x <x@example.com>\nDescription: x\n' \
        "$1" >"$1/DEBIAN/control"
    echo content >"$1/usr/share/$1/file"
    ln -s "/usr/share/$1/file" "$1/etc/$1"
    dpkg-deb -b "$1" "$1.deb" >/dev/null
}

case_a_sysroot_holds_every_package() {
    make_package one
    make_package two
    need_sysroot armhf
    for package in one two; do
        [ "$(cat "build/sysroot/armhf/etc/$package")" = content ] || wrong "$package is not there"
    done
    [ -f build/sysroot/armhf.packages ] || wrong "it is not marked complete"
}

case_a_package_that_cannot_be_unpacked_leaves_no_sysroot() {
    make_package one
    make_package two
    head -c 100 two.deb >broken.deb
    must_fail 'could not be unpacked' need_sysroot armhf
    [ -z "$(ls build/sysroot)" ] || wrong "it left $(ls build/sysroot)"
}

"case_$2"
