#!/usr/bin/env python3
"""fault_sweep.py SAMPLE: makes every system call of a save fail, and kills the save at every one.

Whatever happens: the old file is there byte for byte or the new one is; a save that failed says so; nothing
else is left in the folder, except by a killed process, and that the next save removes. Answers 77 (skipped)
where strace is not installed, which continuous integration does not accept.
"""
import concurrent.futures
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile

from ooxml import Checks

# Calls that write; then those that only ask or read, of which one kind of failure is enough.
WRITING = ["pwrite64", "write", "fsync", "renameat2", "rename", "openat"]
OTHERS = ["pread64", "flock", "fchmod", "fcntl", "close", "getdents64"]
OLD = b"the old file"


class Run:
    """One save of the sample "small" in a folder of its own, over an old file or none."""

    def __init__(self, sample, old):
        self.sample = sample
        self.old = old
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="zek-sweep-"))
        self.target = self.folder / "book.xlsx"
        if old:
            self.target.write_bytes(OLD)

    def __enter__(self):
        return self

    def __exit__(self, *unused):
        shutil.rmtree(self.folder)

    def command(self, *strace):
        before = ["strace", "-f", "-qq", *strace] if strace else []
        # A sanitizer's leak check cannot run under strace.
        return subprocess.run([*before, self.sample, "small", str(self.target)], capture_output=True,
                              env={**os.environ, "ASAN_OPTIONS": "detect_leaks=0"})

    def content(self):
        return self.target.read_bytes() if self.target.exists() else None

    def others(self):
        return [p.name for p in self.folder.iterdir() if p != self.target]


def require_strace():
    if shutil.which("strace") and subprocess.run(["strace", "-o", os.devnull, "true"]).returncode == 0:
        return
    print("strace is missing or not allowed here")
    sys.exit(1 if os.environ.get("CI") else 77)


def new_content(sample):
    with Run(sample, old=False) as run:
        assert run.command().returncode == 0
        return run.content()


def count_calls(sample, old, names):
    """How often a save makes each call."""
    with Run(sample, old) as run:
        log = run.folder / "log"
        run.command("-o", str(log), "-e", "trace=" + ",".join(names))
        made = re.findall(r"(?m)^(?:\d+ +)?(\w+)\(", log.read_text())
    return {name: made.count(name) for name in names if name in made}


def check_outcome(run, new, label, result, checks):
    code = result.returncode
    checks.equal(f"{label}: no crash", 0 <= code <= 127, True)  # 127: the loader could not start it
    checks.equal(f"{label}: content", run.content(), new if code == 0 else OLD if run.old else None)
    checks.equal(f"{label}: other files", run.others(), [])
    if code == 3:
        checks.equal(f"{label}: reason", result.stderr.startswith(b"Cannot "), True)


def fail_call(sample, new, old, name, number, error, sticky):
    checks = Checks()
    when = f"{number}{'+' if sticky else ''}"
    with Run(sample, old) as run:
        result = run.command("-o", os.devnull, "-e", f"trace={name}",
                             "-e", f"inject={name}:error={error}:when={when}")
        check_outcome(run, new, f"{name} {when} {error} old={old}", result, checks)
        if error == "EINTR" and not sticky:
            checks.equal(f"{name} {when} interrupted: saved all the same", result.returncode, 0)
    return checks


def kill_at(sample, new, old, name, number):
    checks = Checks()
    label = f"killed at {name} {number} old={old}"
    with Run(sample, old) as run:
        run.command("-o", os.devnull, "-e", f"trace={name}", "-e", f"inject={name}:signal=KILL:when={number}")
        checks.equal(f"{label}: content", run.content() in (new, OLD if old else None), True)
        checks.equal(f"{label}: at most one other file", len(run.others()) <= 1, True)
        checks.equal(f"{label}: next save", run.command().returncode, 0)
        checks.equal(f"{label}: after the next save", (run.content(), run.others()), (new, []))
    return checks


def fill_disk(sample, new, old, size):
    """The file may not grow beyond `size` bytes, as if the disk were full then."""
    def limit():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))

    checks = Checks()
    with Run(sample, old) as run:
        result = subprocess.run([sample, "small", str(run.target)], capture_output=True, preexec_fn=limit)
        check_outcome(run, new, f"disk of {size} bytes", result, checks)
        checks.equal(f"disk of {size} bytes: reported", result.returncode, 3 if size < len(new) else 0)
    return checks


def jobs(sample, new):
    for old in (True, False):
        counts = count_calls(sample, old, WRITING + OTHERS)
        for name, count in counts.items():
            for number in range(1, count + 1):
                faults = [("ENOSPC", False), ("ENOSPC", True), ("EIO", False), ("EIO", True)]
                if name in OTHERS:
                    faults = [("EIO", False)]
                if name in ("pwrite64", "fsync"):
                    faults += [("EINTR", False), ("EINTR", True)]
                for error, sticky in faults:
                    yield fail_call, (sample, new, old, name, number, error, sticky)
                yield kill_at, (sample, new, old, name, number)
        for size in range(0, len(new) + 1, 256):
            yield fill_disk, (sample, new, old, size)
        yield fill_disk, (sample, new, old, len(new))


def main():
    sample = sys.argv[1]
    require_strace()
    new = new_content(sample)
    total = Checks()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for checks in pool.map(lambda job: job[0](*job[1]), list(jobs(sample, new))):
            total.count += checks.count
            total.failed += checks.failed
    total.finish(least=1000)


main()
