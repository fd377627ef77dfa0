# Checks of the sources that need no test run, and what is made of their comments.
# shellcheck disable=SC2086  # the list of folders is split into words

source_folders="common DeviceInfo platform tools tests bench fuzz"

list_sources() {
    find $source_folders -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.c' \) | sort
}

# usage: format_sources [--check]
format_sources() {
    if [ $# -eq 0 ]; then
        say "formatting the sources"
        list_sources | xargs clang-format -i
    else
        say "checking the sources' format"
        list_sources | xargs clang-format --dry-run -Werror ||
            fail "the sources named above are not formatted; './dev format' does it"
    fi
}

# usage: as_pattern TEXT: a regular expression that nothing but the text matches
as_pattern() {
    printf '%s\n' "$1" | sed 's/[][\\.^$*+?(){}|]/\\&/g'
}

# usage: known_sources COMPILATION-DATABASE
known_sources() {
    sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "$1"
}

# run-clang-tidy takes the files from the compilation database, one clang-tidy a core. The tests are
# left out: they are most of the sources, and a defect there shows when they run.
tidy_sources() {
    say "running clang-tidy on the library, the host platform and the tools"
    # CMake may name a folder that is reached by a link either way.
    here="$(as_pattern "$PWD")|$(as_pattern "$(pwd -P)")"
    wanted="^($here)/(common|DeviceInfo|platform|tools)/"
    # With no file to check, run-clang-tidy succeeds.
    known_sources build/dev/compile_commands.json | grep -qE "$wanted" ||
        fail "build/dev/compile_commands.json names no file of the sources; './dev clean' begins anew"
    run-clang-tidy -quiet -p build/dev -j "$(jobs)" "$wanted" ||
        fail "clang-tidy found something; .clang-tidy tells what is looked for"
}

# usage: run_doxygen SETTING...
run_doxygen() {
    { cat docs/Doxyfile && printf '%s\n' "$@"; } | doxygen - ||
        fail "the comments named above need mending"
}

# The headers that users and porters read; a word that doxygen has to say about them is an error. Of
# those that users include it wants to see everything described, down to each parameter.
make_api_reference() {
    headers=$(tr '\n' ' ' <cmake/public-headers.txt)
    rm -rf build/docs
    mkdir -p build
    say "checking that the public headers describe everything"
    run_doxygen "INPUT = $headers" "EXTRACT_ALL = NO" "WARN_NO_PARAMDOC = YES" \
        "HTML_OUTPUT = checked"
    say "making the API reference"
    run_doxygen "INPUT = $headers platform/include"
    say "the API reference is build/docs/html/index.html"
}
