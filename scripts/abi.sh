# Whether programs that were linked with the last version go on running with this one.

# usage: library_for_comparison SOURCES BUILD: builds the library with what abidiff reads of it
library_for_comparison() {
    cmake -S "$1" -B "$2" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKLX_BUILD_TESTS=OFF >"$2.log" &&
        cmake --build "$2" --target KLXDeviceInfo >>"$2.log" || {
        tail -n 20 "$2.log" >&2
        fail "the library in $1 does not build; $2.log tells all"
    }
}

# abidiff's status is a sum: 1 and 2 stand for its own failures, 4 for any change, 8 for one that no
# program survives. A record that has grown is a mere change to it, but callers hold records by value.
# New functions break nobody.
compare_libraries() {
    status=0
    abidiff --no-added-syms "$1" "$2" || status=$?
    [ $((status & 3)) -eq 0 ] || fail "abidiff could not compare $1 with $2"
    [ "$status" -eq 0 ] || fail "programs that were linked with $last would break, as shown above.
Take the change back, or raise the major version, which changes the library's soname"
}

soname() {
    objdump -p "$1" | awk '$1 == "SONAME" { print $2 }'
}

# Git must be able to tell the versions: where it cannot, there may be some all the same.
check_history() {
    prefix=$(git rev-parse --show-prefix) || fail "git cannot tell which versions there are; the reason is above.
The sources must be a clone. Where git speaks of dubious ownership, tell it that the folder is yours:
  git config --global --add safe.directory '$PWD'"
    [ -z "$prefix" ] || fail "git takes $PWD for a part of another project.
The sources must be a clone of their own to tell which versions there are"
    [ "$(git rev-parse --is-shallow-repository)" = false ] || fail "this clone lacks most of its history, so git cannot tell the last version. Run:
  git fetch --unshallow --tags"
}

# usage: nearest_version COMMIT: its tag, when it or one before it has any
nearest_version() {
    git describe --tags --abbrev=0 --match 'v[0-9]*' "$1" 2>/dev/null
}

# Prints the tag of the version before what is here; nothing when there is none. A commit that is a
# version by itself is compared with the one before.
last_version() {
    if ! git describe --tags --exact-match --match 'v[0-9]*' HEAD >/dev/null 2>&1; then
        nearest_version HEAD || [ -z "$(git tag --list 'v[0-9]*')" ] ||
            fail "none of the tagged versions leads to this commit; './dev abi' is for what follows one"
    elif git rev-parse --quiet --verify HEAD^ >/dev/null; then
        nearest_version HEAD^ || true
    fi
}

compare_with_last_version() {
    check_history
    last=$(last_version) || exit 1
    if [ -z "$last" ]; then
        say "no version is tagged before this one, so there is nothing to compare with"
        return 0
    fi
    say "comparing the library with that of $last"
    rm -rf build/abi
    mkdir -p build/abi/sources
    git archive "$last" | tar -x -C build/abi/sources
    library_for_comparison build/abi/sources build/abi/last
    library_for_comparison . build/abi/now
    before=build/abi/last/DeviceInfo/libKLXDeviceInfo.so
    after=build/abi/now/DeviceInfo/libKLXDeviceInfo.so
    if [ "$(soname "$before")" = "$(soname "$after")" ]; then
        compare_libraries "$before" "$after"
        say "programs that were linked with $last go on running"
    else
        say "the soname has changed since $last, so nothing has to fit"
    fi
}
