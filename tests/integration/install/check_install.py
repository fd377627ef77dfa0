#!/usr/bin/env python3
"""Checks one trait of an installed tree.

usage: check_install.py CHECK PREFIX SOURCE-FOLDER COMPILER
"""

import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).parent


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def listed(name):
    """The lines of a committed list, without its comments."""
    lines = (HERE / name).read_text().splitlines()
    return {line for line in lines if line and not line.startswith("#")}


class InstalledTree:
    def __init__(self, prefix, source, compiler):
        self.prefix = pathlib.Path(prefix)
        self.source = pathlib.Path(source)
        self.compiler = compiler

    def library(self):
        return next(self.prefix.glob("lib*/**/libKLXDeviceInfo.so"))

    def dynamic(self, tag):
        """The values of a tag in the library's dynamic section."""
        text = output_of("readelf", "-dW", str(self.library()))
        return set(re.findall(rf"\({tag}\).*\[(.*)\]", text))

    def HeadersCompileAlone(self):
        public = (self.source / "cmake/public-headers.txt").read_text().split()
        wanted = {pathlib.PurePath(header).name for header in public}
        found = sorted(self.prefix.glob("include/KLX*/*.h"))
        ours = {header.name for header in found if header.parent.name == "KLXDeviceInfo"}
        for header in found:
            self.compile_alone(header)
        return differences(wanted, ours, "public header")

    def compile_alone(self, header):
        command = [self.compiler, "-std=c++17", "-Wall", "-Wextra", "-Wpedantic", "-Werror",
                   "-fsyntax-only", f"-I{header.parent}", "-x", "c++", "-"]
        # Twice: a header must also bear being included again.
        text = f"#include <{header.name}>\n" * 2
        subprocess.run(command, input=text, check=True, text=True)

    def SymbolsAreTheListedOnes(self):
        text = output_of("nm", "-D", "--defined-only", "-C", str(self.library()))
        found = {line.split(maxsplit=2)[2] for line in text.splitlines()}
        return differences(listed("symbols.txt"), found, "exported symbol")

    def SonameIsTheMajorVersion(self):
        return differences({"libKLXDeviceInfo.so.1"}, self.dynamic("SONAME"), "soname")

    def NeededLibrariesAreTheListedOnes(self):
        needed = {name for name in self.dynamic("NEEDED") if not name.startswith("ld-linux")}
        found = {re.sub(r"\.so\..*", ".so", name) for name in needed}
        surplus = sorted(found - listed("needed.txt"))
        missing = {"libKLXPlatform.so"} - found
        return [f"links {name}, which needed.txt does not list" for name in surplus] + \
               [f"does not link {name}" for name in missing]

    def NoPathOfTheBuildIsLeft(self):
        files = [file for file in self.prefix.rglob("*") if file.is_file()]
        needle = str(self.source).encode() + b"/"
        return [f"{file} holds the path {needle.decode()}"
                for file in files if needle in file.read_bytes()] or \
               ([] if files else ["nothing is installed"])

    def ToolFindsItsLibraries(self):
        document = output_of(str(self.prefix / "bin/klxctl"), "dump")
        return [] if document.startswith("<?xml") else ["klxctl dump printed no document"]

    def CompletionsAreWhereShellsLook(self):
        places = {"share/bash-completion/completions/klxctl": "klxctl.bash",
                  "share/zsh/site-functions/_klxctl": "_klxctl"}
        written = self.source / "tools/klxctl/completion"
        return [f"{place} is not {name}" for place, name in places.items()
                if not (self.prefix / place).is_file()
                or (self.prefix / place).read_bytes() != (written / name).read_bytes()]


def differences(wanted, found, what):
    return [f"{what} missing: {name}" for name in sorted(wanted - found)] + \
           [f"{what} not listed: {name}" for name in sorted(found - wanted)]


def main(arguments):
    if len(arguments) != 4:
        sys.exit(__doc__)
    check, *tree = arguments
    faults = getattr(InstalledTree(*tree), check)()
    print("\n".join(faults) or f"{check}: holds")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
