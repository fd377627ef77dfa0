#!/usr/bin/env python3
"""Runs the benchmark programs and prints what they found as one table.

usage: table.py BUILD-FOLDER [BENCHMARK-OPTION...]

Times are processor times, each the best of several runs in turns: what others do on the machine can
only add to a time. A ratio compares two times of the same run of the same program.
"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile

RUNS = ["--benchmark_repetitions=25", "--benchmark_enable_random_interleaving=true",
        "--benchmark_min_time=0.02"]
PLATFORMS = ["null", "host"]
SIZES = ["122", "1220", "12200"]

# What the rows of values and documents are called, and the benchmark that they show.
OPERATIONS = [
    ("get", "one get"),
    ("getPicture", "one get of a picture setting"),
    ("set", "one set"),
    ("dump/Xml", "XML document of 31 settings"),
    ("dump/Json", "JSON document of 31 settings"),
    ("restore/Xml", "restoring 31 settings from XML"),
    ("restore/Json", "restoring 31 settings from JSON"),
]
GROWTH = [
    ("dump/Xml", "XML document"),
    ("dump/Json", "JSON document"),
    ("restore/Xml", "restoring from XML"),
    ("restore/Json", "restoring from JSON"),
]


def run(program, *arguments):
    environment = os.environ | {"LC_ALL": "C"}
    with tempfile.TemporaryDirectory(dir=program.parent) as folder:
        # Nobody's own settings are touched.
        environment |= {"KLX_STATE_DIR": folder, "XDG_RUNTIME_DIR": folder}
        result = subprocess.run([str(program), *arguments], env=environment, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if result.returncode != 0:
        sys.exit(f"{program.name} failed:\n{result.stderr}")
    return result.stdout


def times(program, options):
    """Best processor time in seconds by benchmark."""
    units = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1}
    output = run(program, *RUNS, "--benchmark_format=json", *options)
    # A filter may leave a program nothing to run; it then prints nothing.
    report = json.loads(output) if output.strip() else {"benchmarks": []}
    found = {}
    for line in report["benchmarks"]:
        if line.get("error_occurred"):
            sys.exit(f"{program.name}: {line['name']}: {line['error_message']}")
        if line["run_type"] == "iteration":
            found.setdefault(line["run_name"], []).append(
                line["cpu_time"] * units[line["time_unit"]])
    return {name: min(all_runs) for name, all_runs in found.items()}


def duration(seconds):
    micros = seconds * 1e6
    if micros < 0.1:
        return f"{micros * 1000:.0f} ns"
    return f"{micros:.2f} µs" if micros < 10 else f"{micros:,.0f} µs"


def ratio(time, other):
    return "" if None in (time, other) else f"{time / other:.2f}"


def shown(time):
    return "" if time is None else duration(time)


def compared(name, own, floor, peer=None):
    return [name, shown(own), shown(floor), ratio(own, floor), shown(peer), ratio(own, peer)]


def operations(folder, options):
    measured = {platform: times(folder / f"klx_bench_{platform}", options)
                for platform in PLATFORMS}
    return [compared(f"{title}, {platform} platform", found[name], found.get(f"{name}/floor"),
                     found.get(f"{name}/peer"))
            for name, title in OPERATIONS
            for platform, found in measured.items() if name in found]


def per_record(title, found, name, size):
    return compared(title, *(found[key] / int(size) if (key := f"{name}{kind}/{size}") in found
                             else None for kind in ("", "/floor")))


def growth(folder, options):
    """Time per record; floors grow with the number of records, too, by what memory costs."""
    rows = []
    for platform in PLATFORMS:
        found = times(folder / f"klx_bench_growth_{platform}", options)
        rows += [per_record(f"{title}, per record of {int(size):,}, {platform} platform", found,
                            name, size)
                 for name, title in GROWTH for size in SIZES if f"{name}/{size}" in found]
    return rows


def starts(folder):
    rows = []
    heap = 0
    for platform in PLATFORMS:
        program = folder / f"klx_bench_start_{platform}"
        found = [run(program).split() for _ in range(21)]
        rows.append(compared(f"initialisation, {platform} platform",
                             min(float(time) for time, _ in found) / 1e6, None))
        heap = heap or int(found[0][1])
    return rows + [plain("heap held after it, null platform", heap)]


def plain(name, size):
    return [name, f"{size / 1024:.0f} KiB", "", "", "", ""]


def stripped_size(build):
    with tempfile.NamedTemporaryFile() as copy:
        library = build / "DeviceInfo/libKLXDeviceInfo.so"
        subprocess.run(["strip", "-o", copy.name, str(library)], check=True)
        return os.stat(copy.name).st_size


def main(arguments):
    if not arguments:
        sys.exit(__doc__)
    build, options = pathlib.Path(arguments[0]), arguments[1:]
    folder = build / "bench"
    rows = [["", "library", "floor", "ratio", "GSettings", "ratio"],
            ["---", "---:", "---:", "---:", "---:", "---:"]]
    rows += operations(folder, options) + growth(folder, options)
    rows += starts(folder) + [plain("stripped shared library", stripped_size(build))]
    for row in rows:
        print("| " + " | ".join(row) + " |")


if __name__ == "__main__":
    main(sys.argv[1:])
