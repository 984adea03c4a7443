#!/usr/bin/env python3
"""Asks whether the tests notice faults of the library.

Changes the sources of the library one place at a time in a copy (a limit by one, a comparison turned, a name
swapped, a line left out), builds it, runs the tests and lists every change that no test noticed. Which
places, --seed decides; a run with the same seed and sources makes the same changes.

    tests/mutate.py --changes 300
    tests/mutate.py --only kormak/JobHeader.cpp --changes 1000
    tests/mutate.py --matching 'isNull'
    tests/mutate.py --only inspection --tests '^(Document|Field|XmlTree).*' --minutes 60
"""

import argparse
import collections
import filecmp
import math
import os
import pathlib
import random
import re
import resource
import shutil
import subprocess
import sys
import threading
import time

PROJECT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = sorted(path.parent.name for path in PROJECT.glob("*/CMakeLists.txt") if "kormak_add_library(" in path.read_text())
# A change may make a loop endless, and such a loop take memory.
SECONDS_OF_PROCESSOR = 600
SECONDS_FOR_TESTS = 600
BYTES_OF_MEMORY = 8 << 30

SWAPPED = {
    "==": "!=", "!=": "==", "<=": "<", ">=": ">", "&&": "||", "||": "&&", "++": "--", "--": "++", "+=": "-=",
    "true": "false", "false": "true", "isEmpty()": "isNull()", " + ": " - ", " - ": " + ",
}
SWAP = re.compile(r"==|!=|<=|>=|&&|\|\||\+\+|--|\+=|\btrue\b|\bfalse\b|isEmpty\(\)| [+-] (?=\w)")
STRICT = re.compile(r"(?<=[\w)\]]) ([<>]) (?=[\w(])")
NEGATION = re.compile(r"!(?=[A-Za-z_])")
NUMBER = re.compile(r"(?<![\w.\"'])(\d+)(?![\w.\"'x])")
NAME = re.compile(r"u\"([^\"\\]{2,})\"")
CONDITION = re.compile(r"\b(if|while) \((?!constexpr)(.*)\)( \{)?$")
STATEMENT = re.compile(r"^\s+(?!return\b|using\b|static_assert\b|const\b|constexpr\b|auto\b|break;)[\w:>.*()\[\]& -]*[\w)\]>*-]+"
                       r"(\(.*\)|( [-+|&]?= .*)|\+\+|--);$")
ROW = re.compile(r"^\s+[\w<>&:.(){}, \"]*(element|attribute|checkedElement|namedElement|ownedElement|\{u\").*\},?$|"
                 r"^\s+\w+<&.*>\(.*\).*,$")
RETURN_EARLY = re.compile(r"^\s+return\b.*;$")


class Change:
    def __init__(self, path, number, old, new):
        self.path, self.number, self.old, self.new = path, number, old, new

    def __str__(self):
        new = self.new.strip() or "(left out)"
        return f"{self.path}:{self.number + 1}: {self.old.strip()}  ->  {new}"


def changes_of_line(line):
    for match in SWAP.finditer(line):
        yield line[:match.start()] + SWAPPED[match.group()] + line[match.end():]
    for match in STRICT.finditer(line):
        yield line[:match.start(1)] + match.group(1) + "=" + line[match.end(1):]
    for match in NEGATION.finditer(line):
        yield line[:match.start()] + line[match.end():]
    for match in NUMBER.finditer(line):
        number = str(int(match.group()) + 1)
        is_place = line[match.start() - 1] == "%"  # in a text; arguments go to those that are there, in their order
        if not is_place or f"%{number}" in line:
            yield line[:match.start()] + number + line[match.end():]
    for match in NAME.finditer(line):
        name = match.group(1)
        yield line[:match.start(1)] + name[1] + name[0] + name[2:] + line[match.end(1):]
    if CONDITION.search(line) and not line.rstrip().startswith("}"):
        for value in ("true", "false"):
            yield CONDITION.sub(rf"\1 ({value})\3", line)
    if STATEMENT.match(line) or ROW.match(line):
        yield ""
    if RETURN_EARLY.match(line) and line.startswith("        return"):
        yield ";"


def all_changes(only):
    found = []
    for folder in FOLDERS:
        for path in sorted((PROJECT / folder).glob("*")):
            name = str(path.relative_to(PROJECT))
            if path.suffix not in (".cpp", ".h") or (only and name not in only and folder not in only):
                continue
            lines = path.read_text(encoding="utf-8").split("\n")
            for number, line in enumerate(lines):
                code = line.split("//")[0].rstrip()
                if not code.strip() or code.lstrip().startswith(("#", "template", "using ", "[[maybe_unused]]")):
                    continue
                if path.suffix == ".h" and not line.startswith(" "):
                    continue
                seen = {code}
                for new in changes_of_line(code):
                    if new not in seen:
                        seen.add(new)
                        found.append(Change(name, number, line, new))
    return found


def run(command, log, seconds=None, environment=None, processor=None):
    """Whether the command succeeds; one that hangs, or one of whose processes takes more seconds, does not."""
    def limit():
        resource.setrlimit(resource.RLIMIT_AS, (BYTES_OF_MEMORY, BYTES_OF_MEMORY))
        if processor:
            resource.setrlimit(resource.RLIMIT_CPU, (processor, processor))

    with open(log, "w", encoding="utf-8") as output:
        process = subprocess.Popen(command, stdout=output, stderr=subprocess.STDOUT, start_new_session=True,
                                   env={**os.environ, **(environment or {})}, preexec_fn=limit)
        try:
            return process.wait(seconds) == 0
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, 9)
            process.wait()
            return False


def processor_time():
    """Of all processes that have ended."""
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return usage.ru_utime + usage.ru_stime


class Copy:
    """A copy of the project in which changes are made."""

    def __init__(self, folder, tests):
        self.source, self.build = folder / "source", folder / "build"
        self.tests, self.targets = tests, []
        self.processor = SECONDS_OF_PROCESSOR
        self.log = folder / "log"
        folder.mkdir(parents=True, exist_ok=True)
        self.copy_project()
        configure = ["cmake", "-G", "Ninja", "-S", self.source, "-B", self.build, "-DCMAKE_BUILD_TYPE=Debug",
                     "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON", "-DKORMAK_INSTALL=OFF"]
        configured = run(configure, self.log)
        if configured and tests:
            listed = subprocess.run(["ctest", "--test-dir", self.build, "-N", "-R", tests],
                                    stdout=subprocess.PIPE, text=True, check=True)
            self.targets = [f"{name}Test" for name in re.findall(r"^ *Test +#\d+: (\w+)$", listed.stdout, re.MULTILINE)]
            if not self.targets:
                sys.exit(f"No test is called as {tests} says")
        if not (configured and self.builds()):
            sys.exit(f"The project does not build; see {self.log}")
        before = processor_time()
        if not self.survives():
            sys.exit(f"The tests fail without a change; see {self.log}")
        self.processor = min(5 + int(3 * (processor_time() - before)), SECONDS_OF_PROCESSOR)

    def copy_project(self):
        """What is the same stays as it is; what an earlier run changed becomes newer than what was built of it."""
        listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                                cwd=PROJECT, stdout=subprocess.PIPE, check=True).stdout
        names = {os.fsdecode(name) for name in listed.split(b"\0") if name and (PROJECT / os.fsdecode(name)).is_file()}
        for path in self.source.rglob("*"):
            if path.is_file() and str(path.relative_to(self.source)) not in names:
                path.unlink()
        for name in names:
            path = self.source / name
            if not (path.is_file() and filecmp.cmp(PROJECT / name, path, shallow=False)):
                path.parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(PROJECT / name, path)
                path.chmod((PROJECT / name).stat().st_mode)

    def builds(self):
        targets = ["--target", *self.targets] if self.targets else []
        return run(["cmake", "--build", self.build, "--parallel", "1", *targets], self.log)

    def survives(self):
        if self.targets:
            names = "|".join(target[:-len("Test")] for target in self.targets)
            return self.runs(["-R", f"^({names})$"])
        return self.passes(True) and self.passes(False)

    def passes(self, quick):
        """Whether the tests pass: those of the classes, which are quick, or the others."""
        library = "|".join(path.name[:-len("Test.cpp")] for folder in FOLDERS
                           for path in (PROJECT / "tests" / folder).glob("*Test.cpp"))
        return self.runs(["-R" if quick else "-E", f"^({library})$"])

    def runs(self, selection):
        # One failure is enough, and nobody reads the stack of a crash.
        environment = {"QTEST_FATAL_FAIL": "1", "QTEST_DISABLE_CORE_DUMP": "1", "QTEST_DISABLE_STACK_DUMP": "1"}
        return run(["ctest", "--test-dir", self.build, *selection, "-LE", "Locales", "--stop-on-failure"],
                   self.log, SECONDS_FOR_TESTS, environment, self.processor)

    def judge(self, change):
        path = self.source / change.path
        original = path.read_text(encoding="utf-8")
        lines = original.split("\n")
        lines[change.number] = change.new
        path.write_text("\n".join(lines), encoding="utf-8")
        try:
            if not self.builds():
                return "does not build"
            return "survived" if self.survives() else "noticed"
        finally:
            path.write_text(original, encoding="utf-8")


class Counts(collections.Counter):
    """How many changes each verdict was passed on."""

    def __str__(self):
        return ", ".join(f"{self[verdict]} {verdict}" for verdict in ("noticed", "survived", "does not build"))


class Trial:
    """Makes changes in several copies at once until enough of them have built or the time is over."""

    def __init__(self, changes, enough, minutes):
        self.changes, self.enough = iter(changes), enough
        self.end = time.monotonic() + 60 * minutes
        self.counts, self.counts_of_files = Counts(), collections.defaultdict(Counts)
        self.lock = threading.Lock()

    def take(self):
        with self.lock:
            is_enough = self.counts["noticed"] + self.counts["survived"] >= self.enough
            return None if is_enough or time.monotonic() > self.end else next(self.changes, None)

    def work(self, copy):
        while change := self.take():
            verdict = copy.judge(change)
            with self.lock:
                self.counts[verdict] += 1
                self.counts_of_files[change.path][verdict] += 1
                if verdict == "survived":
                    print(change, flush=True)
                print(self.counts, file=sys.stderr, flush=True)

    def __str__(self):
        files = [f"{path}: {counts}" for path, counts in sorted(self.counts_of_files.items())]
        return "\n".join([*files, f"all: {self.counts}"])


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--changes", type=int, default=300, help="how many to make that build (default: 300)")
    parser.add_argument("--minutes", type=float, default=math.inf, help="begin no change after that time")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--only", action="append", metavar="FILE|FOLDER",
                        help="change only this source, or those of this library; may be repeated")
    parser.add_argument("--tests", metavar="REGEX", help="build and run only the tests that are called so")
    parser.add_argument("--matching", type=re.compile, default="", metavar="REGEX",
                        help="make only the changes in whose line of --list this is found")
    parser.add_argument("--folder", type=pathlib.Path, default=PROJECT / "build" / "mutate",
                        help="where the copies are made (default: build/mutate)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="how many copies to work on at once")
    parser.add_argument("--list", action="store_true", help="only list the places")
    arguments = parser.parse_args()

    changes = [change for change in all_changes(arguments.only) if re.search(arguments.matching, str(change))]
    random.Random(arguments.seed).shuffle(changes)
    if arguments.list:
        print("\n".join(map(str, changes)))
        return 0
    copies = [Copy(arguments.folder / str(number), arguments.tests) for number in range(arguments.jobs)]
    trial = Trial(changes, arguments.changes, arguments.minutes)
    threads = [threading.Thread(target=trial.work, args=(copy,)) for copy in copies]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    print(trial)
    return 1 if trial.counts["survived"] else 0


if __name__ == "__main__":
    sys.exit(main())
