"""Runs modelreport and takes its output apart; for the test scripts beside this file."""
import os
import subprocess
import tempfile


class Run:
    """One run: exit code, output, error text, and the printed lines by their titles."""

    def __init__(self, program, *arguments, cwd=None, env=None):
        with tempfile.TemporaryDirectory(prefix="zek-home-") as home:
            environment = {**os.environ, "ZEK_HOME": home, **(env or {})}
            done = subprocess.run([program, *arguments], capture_output=True, cwd=cwd, env=environment,
                                  timeout=250, check=False)
        self.code = done.returncode
        self.output = done.stdout.decode("utf-8", "replace")
        self.errors = done.stderr.decode("utf-8", "replace")
        self.lines = [line.split(": ", 1) for line in self.output.splitlines()]

    def value(self, title):
        found = [rest for name, rest in self.lines if name == title]
        if len(found) != 1:
            raise AssertionError(f"{len(found)} lines '{title}' in:\n{self.output}{self.errors}")
        return found[0]

    def numbers(self, title):
        """The numbers of a line COUNT: RANGES; the count must be theirs."""
        count, ranges = self.value(title).split(": ", 1)
        numbers = expand(ranges)
        if len(numbers) != int(count):
            raise AssertionError(f"{title}: {count} announced, {len(numbers)} in '{ranges}'")
        return numbers


def expand(ranges):
    """The numbers of a text such as "1to9by2 15", ascending."""
    numbers = []
    for item in ranges.split():
        bounds, _, step = item.partition("by")
        first, _, last = bounds.partition("to")
        numbers += range(int(first), int(last or first) + 1, int(step or 1))
    return sorted(numbers)
