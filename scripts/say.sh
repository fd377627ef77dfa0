# How ./dev speaks. Always on standard error: standard output is for what a command is asked for.

say() {
    printf '==> %s\n' "$*" >&2
}

fail() {
    printf 'dev: %s\n' "$*" >&2
    exit 1
}

# usage: fail_usage MESSAGE [MISTYPED-COMMAND]
fail_usage() {
    printf 'dev: %s\n' "$1" >&2
    if [ -n "${2-}" ]; then
        printf 'The nearest is:\n  ./dev %s\n' "$(nearest_command "$2")" >&2
    fi
    printf "'./dev help' lists all commands.\n" >&2
    exit 2
}

# The line of the command that takes the fewest edits to reach from what was typed.
nearest_command() {
    commands | awk -F'|' -v typed="$1" '
        function least(a, b) { return a < b ? a : b }
        function distance(a, b,    i, j, row, diagonal, above) {
            for (j = 0; j <= length(b); j++) row[j] = j
            for (i = 1; i <= length(a); i++) {
                diagonal = row[0]
                row[0] = i
                for (j = 1; j <= length(b); j++) {
                    above = row[j]
                    row[j] = least(least(above, row[j - 1]) + 1,
                                   diagonal + (substr(a, i, 1) != substr(b, j, 1)))
                    diagonal = above
                }
            }
            return row[length(b)]
        }
        { d = distance(typed, $1); if (NR == 1 || d < best) { best = d; line = $1 ($2 ? " " $2 : "") "    " $3 } }
        END { print line }'
}

# usage: need_folder FOLDER WHAT-IT-HOLDS
need_folder() {
    [ -f "$1/CMakeLists.txt" ] || fail "$2 should be in $1/, which is not in this source tree"
}
