# How much of the library its unit tests reach.

least_line_coverage=97

# usage: run_unit_tests PRESET
run_unit_tests() {
    find "build/$1" -name '*.gcda' -delete
    for program in build/"$1"/tests/unit/*/klx_*_test; do
        say "running $program"
        "$program" --gtest_brief=1 >"build/$1/tests.log" 2>&1 </dev/null || {
            cat "build/$1/tests.log" >&2
            fail "$program failed"
        }
    done
}

# Branches that only an exception of a callee takes are not counted: the compiler adds one behind
# nearly every call.
report_coverage() {
    gcovr --root . --object-directory build/coverage -j "$(jobs)" \
        --filter common/ --filter DeviceInfo/ --exclude-throw-branches \
        --txt --print-summary --html-details build/coverage/report.html \
        --fail-under-line "$least_line_coverage" build/coverage/common build/coverage/DeviceInfo ||
        fail "less than $least_line_coverage percent of the lines are reached;
build/coverage/report.html shows which are not"
}
