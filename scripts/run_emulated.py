"""Runs the test programs of a build for another processor under an emulator.

usage: run_emulated.py BUILD NAME all|unit EMULATOR...

With "unit" only the unit tests are run. Shows what failed, then one line for what was not run and why, and in the end
"N tests from NAME, M failed, K skipped".
"""

import json
import os
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

# All tests of the first programs run in a few emulators, those of the others in one each.
UNIT = "unit/*/klx_*_test"
KINDS = {
    "unit": ((UNIT,), ()),
    "all": ((UNIT, "load/klx_fake_load_test"),
            ("integration/host/klx_*_test", "integration/services/klx_*_test",
             "load/klx_host_load_test")),
}

LEFT_OUT = {
    "WidgetUsageDeathTest.*":
        "starts its own program anew, which the kernel of this machine's processor cannot do",
    "HostileSizeTest.HundredThousand*": "takes minutes; it is about time and memory for each name",
    "TruncatedDocumentTest.*": "takes minutes; it cuts documents after every byte",
    "tests/fault":
        "killed processes leave locks to the kernel's list of robust mutexes, which the emulator "
        "does not hand on",
    "tests/integration/klxctl": "start the tool, a program of the other processor",
    "tests/integration/network": "start the tool in network namespaces",
    "tests/integration/usb": "need umockdev's library loaded before the emulated program",
    "tests/integration/reference": "starts a program of the other processor through a script",
    "tests/integration/scripts": "run scripts of this machine only",
    "tests/layering": "reads the sources only",
    "tests/sweep": "takes minutes; what it fails one by one does not depend on the processor",
    "tests/integration/install": "compile against the installed tree and start the result",
}
SECONDS_ALLOWED = 900


def programs(build, patterns):
    for pattern in patterns:
        found = sorted((build / "tests").glob(pattern))
        if not found:
            sys.exit(f"run_emulated.py: there is no test program {build}/tests/{pattern}")
        yield from found


class Emulator:
    def __init__(self, command):
        self.command = command

    def run(self, program, arguments, **environment):
        return subprocess.run(
            [*self.command, program, *arguments], stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
            env={**os.environ, **environment}, timeout=SECONDS_ALLOWED, check=False)

    def tests(self, program):
        """The names of a program's tests, each after the line of its suite."""
        suite = ""
        for line in self.run(program, ["--gtest_list_tests"]).stdout.splitlines():
            word = line.split("#")[0].strip()
            if line.startswith(" "):
                yield suite + word
            elif word.endswith("."):
                suite = word

    def result(self, program, arguments, **environment):
        """The numbers of tests that ran, failed and skipped; what it wrote where one failed."""
        with tempfile.TemporaryDirectory() as folder:
            report = Path(folder) / "report.json"
            try:
                run = self.run(program, [*arguments, f"--gtest_output=json:{report}"], **environment)
            except subprocess.TimeoutExpired as late:
                return 1, 1, 0, f"{program} {arguments} took too long\n{late.stdout}"
            if not report.exists():
                return 1, 1, 0, f"{program} {arguments} ended with {run.returncode}\n{run.stdout}"
            return count(json.loads(report.read_text()), run)


def count(report, run):
    skipped = sum(test["result"] == "SKIPPED"
                  for suite in report["testsuites"] for test in suite["testsuite"])
    failed = max(report["failures"], 0 if run.returncode == 0 else 1)
    return report["tests"], failed, skipped, run.stdout if failed else ""


def tasks(emulator, build, kind, shards):
    whole, alone = KINDS[kind]
    patterns = ":".join(name for name in LEFT_OUT if "/" not in name)
    for program in programs(build, alone):
        names = list(emulator.tests(program))
        if not names:
            sys.exit(f"run_emulated.py: {program} lists no test")
        for name in names:
            yield program, [f"--gtest_filter={name}"], {"KLX_TEST_ALONE": "1"}
    for program in programs(build, whole):
        for shard in range(shards):
            yield program, [f"--gtest_filter=-{patterns}"], {
                "GTEST_TOTAL_SHARDS": str(shards), "GTEST_SHARD_INDEX": str(shard)}


def main():
    build, name, kind = Path(sys.argv[1]).resolve(), sys.argv[2], sys.argv[3]
    emulator = Emulator(sys.argv[4:])
    cores = os.cpu_count() or 1
    with ThreadPoolExecutor(cores) as pool:
        results = list(pool.map(lambda task: emulator.result(task[0], task[1], **task[2]),
                                tasks(emulator, build, kind, cores)))
    for *_, output in results:
        print(output, end="")
    for what, reason in LEFT_OUT.items():
        if kind == "unit" and "/" in what:
            continue
        print(f"not run under emulation: {what}: {reason}")
    ran, failed, skipped = (sum(result[i] for result in results) for i in range(3))
    print(f"{ran} tests from {name}, {failed} failed, {skipped} skipped")
    return 1 if failed or ran == skipped else 0


if __name__ == "__main__":
    sys.exit(main())
