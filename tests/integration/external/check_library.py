#!/usr/bin/env python3
"""Checks one trait of the library that was built for a platform from elsewhere.

usage: check_library.py CHECK LIBRARY HOST-LIBRARY
"""

import pathlib
import subprocess
import sys
import tempfile


def StrippedSizeStaysSmall(library, _):
    limit = 400 * 1024
    with tempfile.NamedTemporaryFile() as copy:
        subprocess.run(["strip", "-o", copy.name, library], check=True)
        size = pathlib.Path(copy.name).stat().st_size
    print(f"{size} bytes, fewer than {limit} are allowed")
    return size < limit


def symbols(library):
    listed = subprocess.run(["nm", "-D", "--defined-only", library], check=True,
                            stdout=subprocess.PIPE, text=True).stdout
    return {line.split()[-1] for line in listed.splitlines()}


def ExportsTheSameSymbols(library, host_library):
    own, wanted = symbols(library), symbols(host_library)
    for name in sorted(own ^ wanted):
        print(f"only in one of the two: {name}")
    return own == wanted and len(own) > 0


CHECKS = {check.__name__: check for check in (StrippedSizeStaysSmall, ExportsTheSameSymbols)}


def main(arguments):
    if len(arguments) != 3 or arguments[0] not in CHECKS:
        sys.exit(__doc__)
    return 0 if CHECKS[arguments[0]](*arguments[1:]) else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
