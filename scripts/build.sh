# Configuring, building, testing and installing. Every build has its own folder, build/NAME.

jobs() {
    getconf _NPROCESSORS_ONLN
}

# usage: is_foreign NAME: whether build/NAME was configured by hand for a set, or with a toolchain
# that is not its own. Such choices outlive configuring again.
is_foreign() {
    cache=build/$1/CMakeCache.txt
    [ -f "$cache" ] || return 1
    ! grep -q '^KLX_PLATFORM:[^=]*=external$' "$cache" || return 0
    grep '^CMAKE_TOOLCHAIN_FILE:[^=]*=.' "$cache" | grep -qv "/cmake/toolchain-$1\.cmake\$"
}

# usage: configure NAME [CMAKE-OPTION...]
# A configured folder follows changes of its CMake files by itself, but neither those of the presets
# nor another compiler in CC and CXX: the stamp tells when to begin anew.
configure() {
    name=$1
    shift
    stamp=build/$name/.configured
    wanted="${CC-} ${CXX-} $*"
    if is_foreign "$name"; then
        set -- --fresh "$@"
    elif [ -f "$stamp" ]; then
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

# usage: summary FOLDER NAME: what the last run of ctest there came to, with the names of the tests
# that skipped themselves. A program that runs many tests counts as those, another as one.
summary() {
    LC_ALL=C awk -v build="$2" '
        function close_block() {
            if (!open) return
            ran += tests ? tests : 1
            if (failures || bad) failed += failures ? failures : 1
            if (!tests && name in left_out) { skipped++; print "skipped: " name }
        }
        FNR == NR { if (/^\t *[0-9]+ - .* \(Skipped\)$/) left_out[$3] = 1; next }
        /^[0-9]+\/[0-9]+ Testing: / { close_block(); open = 1; name = $3; tests = failures = bad = 0 }
        /^\[==========\] [0-9]+ tests? from .* ran\./ { tests = $2 }
        /^ *[0-9]+ FAILED TESTS?$/ { failures = $1 }
        /^\[  SKIPPED \] [^ ]+\.[^ ]+$/ { skipped++; print "skipped: " $4 }
        /^Test Failed\.$/ { bad = 1 }
        END {
            close_block()
            printf "%d tests from %s, %d failed, %d skipped\n", ran, build, failed, skipped
        }' "$1/tests.log" "$1/Testing/Temporary/LastTest.log"
}

# usage: run_tests PRESET [CTEST-OPTION...]
run_tests() {
    preset=$1
    shift
    say "running the tests of build/$preset"
    log=$PWD/build/$preset/tests.log
    rm -f "$log" "build/$preset/Testing/Temporary/LastTest.log"
    # Half as many again as there are processors, because some tests wait.
    set -- ctest --preset "$preset" --parallel "$(($(jobs) * 3 / 2))" --output-log "$log" "$@"
    result=0
    if [ "$preset" = tsan ]; then
        in_plain_address_space "$@" || result=$?
    else
        "$@" || result=$?
    fi
    if [ -f "$log" ] && [ -f "build/$preset/Testing/Temporary/LastTest.log" ]; then
        summary "build/$preset" "$preset" | tee -a "$log"
    fi
    return $result
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
