#!/usr/bin/env python3
"""kill_sweep.py WRITER: kills a process that writes settings, once at each of its system calls.

Whatever happens: every write that the process told as finished is there, and others go on reading and writing.
First in a home without a registry, then in one where another process was killed before. Answers 77 (skipped)
where strace is not installed, which continuous integration does not accept.
"""
import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

COUNT = 6
# Everything by which a process changes its files, or looks at them while others may change them.
CALLS = ["openat", "mkdir", "pwrite64", "pread64", "ftruncate", "fallocate", "fsync", "fdatasync", "unlink",
         "rename", "fcntl", "flock", "mmap", "munmap", "close", "fchmod", "lseek"]


def require_strace():
    if shutil.which("strace") and subprocess.run(["strace", "-o", os.devnull, "true"]).returncode == 0:
        return
    print("strace is missing or not allowed here")
    sys.exit(1 if os.environ.get("CI") else 77)


def environment(home):
    # A sanitizer's leak check cannot run under strace.
    return {**os.environ, "ZEK_HOME": str(home), "ASAN_OPTIONS": "detect_leaks=0"}


def write(writer, home, *strace):
    before = ["strace", "-f", "-qq", *strace] if strace else []
    return subprocess.run([*before, writer, "write", str(COUNT)], capture_output=True, text=True,
                          env=environment(home))


def check(writer, home, finished):
    return subprocess.run([writer, "check"], input=finished, capture_output=True, text=True,
                          env=environment(home))


def calls_of(writer, home):
    """(name, number) of each system call from the first that looks for the home on."""
    log = home.parent / "log"
    write(writer, home, "-o", str(log), "-e", "trace=" + ",".join(CALLS))
    seen = {}
    calls = []
    within = False
    for line in log.read_text().splitlines():
        made = re.match(r"(?:\d+ +)?(\w+)\(", line)
        if made:
            seen[made[1]] = seen.get(made[1], 0) + 1
            within = within or str(home) in line
            if within:
                calls.append((made[1], seen[made[1]]))
    return calls


def killed_home(writer, folder, template, name, number):
    """A home as it is left when the process dies at a call, and what the process had told by then."""
    home = pathlib.Path(tempfile.mkdtemp(dir=folder)) / "home"
    if template:
        shutil.copytree(template, home)
    result = write(writer, home, "-o", os.devnull, "-e", f"trace={name}",
                   "-e", f"inject={name}:signal=KILL:when={number}")
    return home, result


def kill_at(writer, folder, template, name, number):
    home, result = killed_home(writer, folder, template, name, number)
    checked = check(writer, home, result.stdout)
    shutil.rmtree(home.parent)
    killed = result.returncode not in (0, 1, 2)
    if killed and checked.returncode == 0:
        return True
    print(f"{name} {number}, {'used' if template else 'fresh'} home: exit code {result.returncode}, "
          f"told {result.stdout.split()}: {checked.stdout}{checked.stderr}")
    return False


def sweep(writer, folder, template):
    home = pathlib.Path(tempfile.mkdtemp(dir=folder)) / "home"
    if template:
        shutil.copytree(template, home)
    calls = calls_of(writer, home)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(lambda call: kill_at(writer, folder, template, *call), calls))
    print(f"{'used' if template else 'fresh'} home: killed at {len(results)} calls, {results.count(False)} wrong")
    return calls, bool(results) and all(results)


def main():
    require_strace()
    writer = sys.argv[1]
    folder = tempfile.mkdtemp(prefix="zek-sweep-")
    calls, fresh_is_right = sweep(writer, folder, None)
    # The template is left in the midst of a later write: its journal holds more than the database.
    writes = [call for call in calls if call[0] == "pwrite64"]
    template, _ = killed_home(writer, folder, None, *writes[-1])
    _, used_is_right = sweep(writer, folder, template)
    shutil.rmtree(folder)
    sys.exit(0 if fresh_is_right and used_is_right else 1)


if __name__ == "__main__":
    main()
