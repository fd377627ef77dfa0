# Configuring, building, testing and installing. Every build has its own folder, build/NAME.

jobs() {
    getconf _NPROCESSORS_ONLN
}

# usage: configure NAME [CMAKE-OPTION...]
# A configured folder follows changes of its CMake files by itself, but neither those of the presets
# nor another compiler in CC and CXX: the stamp tells when to begin anew.
configure() {
    name=$1
    shift
    stamp=build/$name/.configured
    wanted="${CC-} ${CXX-} $*"
    if [ -f "$stamp" ]; then
        if [ "$(cat "$stamp")" = "$wanted" ] && [ -z "$(find CMakePresets.json -newer "$stamp")" ]; then
            return 0
        fi
        set -- --fresh "$@"
    fi
    say "configuring build/$name"
    cmake "$@" -B "build/$name"
    printf '%s\n' "$wanted" >"$stamp"
}

# Test programs of the thread sanitizer are run while building, too; it cannot place its shadow
# memory under some kernels' address-space randomisation, so that is off where it can be.
in_plain_address_space() {
    if setarch "$(uname -m)" -R true 2>/dev/null; then
        setarch "$(uname -m)" -R "$@"
    else
        "$@"
    fi
}

# usage: build PRESET [TARGET]
build() {
    configure "$1" --preset "$1"
    say "building ${2-everything} in build/$1"
    if [ "$1" = tsan ]; then
        in_plain_address_space cmake --build build/tsan --target "${2-all}"
    else
        cmake --build "build/$1" --target "${2-all}"
    fi
}

# usage: run_tests PRESET [CTEST-OPTION...]
run_tests() {
    preset=$1
    shift
    say "running the tests of build/$preset"
    log=$PWD/build/$preset/tests.log
    rm -f "$log"
    set -- ctest --preset "$preset" --parallel "$(jobs)" --output-log "$log" "$@"
    if [ "$preset" = tsan ]; then
        in_plain_address_space "$@"
    else
        "$@"
    fi
}

# usage: fuzz_targets SECONDS
# All targets run at once; what each of them says is shown when it has ended.
fuzz_targets() {
    say "fuzzing in build/fuzz, $1 seconds for each target"
    cmake --build build/fuzz --target fuzz ||
        fail "a target failed as shown above. The input that did it lies in build/fuzz/fuzz; again with
  build/fuzz/fuzz/fuzz_TARGET INPUT"
}

run_benchmarks() {
    say "running the benchmarks of build/release; the table takes a minute"
    python3 -B bench/table.py build/release "$@"
}

# usage: install_release PREFIX
install_release() {
    configure install --preset release -DKLX_BUILD_TESTS=OFF -DKLX_BUILD_BENCH=OFF
    say "building everything in build/install"
    cmake --build build/install
    say "installing under $1"
    cmake --install build/install --prefix "$1"
}
