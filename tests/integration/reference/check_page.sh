#!/bin/sh
# usage: check_page.sh PROGRAM PAGE
# Compares a page with what the program prints that writes it.
set -eu
printed=$(mktemp)
trap 'rm -f "$printed"' EXIT
"$1" >"$printed"
[ -s "$printed" ] || {
    echo "$1 printed nothing"
    exit 1
}
diff -u "$2" "$printed" || {
    echo "$2 is not what the catalogue says; './dev reference' writes it anew"
    exit 1
}
