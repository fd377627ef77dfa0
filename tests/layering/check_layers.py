#!/usr/bin/env python3
"""Checks that includes, log calls and links point down the layers of layers.py.

usage: check_layers.py SOURCE-FOLDER

Prints one line for each breach, "file:line: what is wrong", and ends with status 1 when there is
any.
"""

import fnmatch
import pathlib
import re
import sys

import layers

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
LINK = re.compile(r"target_link_libraries\s*\(([^)]*)\)", re.S)
SOURCES = (".h", ".cpp", ".c")


def area_of(path):
    """The folder of AREAS or FREE_AREAS that the file belongs to, None outside all of them."""
    areas = [*layers.AREAS, *layers.FREE_AREAS]
    return max((a for a in areas if path.startswith(a + "/")), key=len, default=None)


def step_of(path):
    """The number of a file's step within DeviceInfo/, 0 at the top; None when it has none."""
    name = path.removeprefix("DeviceInfo/")
    for number, (_, patterns) in enumerate(layers.STEPS):
        if any(fnmatch.fnmatchcase(name, pattern) for pattern in patterns):
            return number
    return None


def library_of(header):
    """The third-party library of a header, "" for the system's own, None for an unknown one."""
    for prefix, library in layers.LIBRARIES.items():
        if header.startswith(prefix):
            return library
    if "." not in header.split("/")[-1] or header in layers.SYSTEM_HEADERS:
        return ""
    return "" if any(header.startswith(f) for f in layers.SYSTEM_FOLDERS) else None


class Tree:
    """A source tree and the breaches found in it."""

    def __init__(self, root):
        self.root = pathlib.Path(root)
        self.breaches = []
        folders = [self.root / area for area in [*layers.AREAS, *layers.FREE_AREAS]]
        found = {file for folder in folders for file in folder.rglob("*") if file.is_file()}
        self.files = sorted(str(file.relative_to(self.root)) for file in found)
        self.sources = [file for file in self.files if file.endswith(SOURCES)]
        listing = self.root / "cmake/public-headers.txt"
        self.public = listing.read_text().split() if listing.exists() else []

    def check(self):
        for path in self.sources:
            self.check_source(path)
        for path in [f for f in self.files if f.endswith("CMakeLists.txt")]:
            self.check_links(path)
        return self.breaches

    def breach(self, path, line, text):
        self.breaches.append(f"{path}:{line}: {text}")

    def check_source(self, path):
        if path.startswith("DeviceInfo/") and step_of(path) is None:
            self.breach(path, 1, "has no step; give it one in tests/layering/layers.py")
            return
        providers = set()
        for number, line in enumerate((self.root / path).read_text().splitlines(), start=1):
            self.check_log_call(path, number, line)
            include = INCLUDE.match(line)
            if include:
                target = self.check_include(path, number, *include.groups())
                providers.add(target and area_of(target))
        if providers.issuperset(layers.PROVIDERS):
            self.breach(path, 1, "includes two providers of the platform")

    def check_log_call(self, path, number, line):
        if area_of(path) in layers.LOG_AREAS and path != layers.LOG_CALLER:
            if re.search(rf"\b{layers.LOG_CALL}\b", line):
                self.breach(path, number,
                            f"calls {layers.LOG_CALL}; only {layers.LOG_CALLER} may, use KLX_LOG")

    def check_include(self, path, number, quote, header):
        """Checks one include and returns the project's file that it names, if it names one."""
        target = self.resolve(path, quote, header)
        if target is None:
            self.check_library(path, number, header)
        elif area_of(target) == area_of(path):
            self.check_step(path, number, target)
        elif not self.may_include(path, target):
            self.breach(path, number, f"includes {target}, which {area_of(path)}/ must not know")
        if target is not None and path in self.public and target not in self.public:
            self.breach(path, number, f"is installed but includes {target}, which is not")
        return target

    def resolve(self, path, quote, header):
        """The project's file that an include names, the nearest first; None when there is none."""
        folder = pathlib.PurePosixPath(path).parent
        if quote == '"' and (self.root / folder / header).is_file():
            return str((self.root / folder / header).resolve().relative_to(self.root.resolve()))
        named = [f for f in self.sources if f == header or f.endswith("/" + header)]
        area = area_of(path)
        order = [area, *layers.AREAS.get(area, ([],))[0]]
        rank = {name: number for number, name in enumerate(order)}
        return min(named, key=lambda f: rank.get(area_of(f), len(rank)), default=None)

    def may_include(self, path, target):
        area = area_of(path)
        if area in layers.FREE_AREAS:
            return True
        allowed = layers.AREAS[area][0]
        return {area_of(target), target} & set(allowed) or ("public headers" in allowed and target in self.public)

    def check_step(self, path, number, target):
        if not path.startswith("DeviceInfo/"):
            return
        mine, other = step_of(path), step_of(target)
        if other is not None and other < mine:
            names = [name for name, _ in layers.STEPS]
            self.breach(path, number,
                        f"({names[mine]}) includes {target} ({names[other]}), a step above it")

    def check_library(self, path, number, header):
        library = library_of(header)
        if library is None:
            self.breach(path, number, f"includes the unknown header {header}; "
                        "name its library in tests/layering/layers.py")
        elif library and path in self.public:
            self.breach(path, number, f"is installed but includes {header} of {library}")
        elif library and area_of(path) in layers.AREAS:
            if library not in layers.AREAS[area_of(path)][1]:
                self.breach(path, number, f"uses {library}, which {area_of(path)}/ must not know")

    def check_links(self, path):
        text = (self.root / path).read_text()
        for call in LINK.finditer(text):
            words = set(call.group(1).split())
            if "klx_fake" in words and words & {"klx_platform", "KLXDeviceInfo", "KLX::DeviceInfo"}:
                number = text.count("\n", 0, call.start()) + 1
                self.breach(path, number, "links two providers of the platform")


def main(arguments):
    if len(arguments) != 1:
        sys.exit(__doc__)
    tree = Tree(arguments[0])
    breaches = tree.check()
    print("\n".join(breaches) or f"{len(tree.sources)} sources keep to their layers")
    return 1 if breaches or not tree.sources else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
