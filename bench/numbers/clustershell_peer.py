"""Folds a list of numbers (a file, one a line) with ClusterShell, steps from four numbers on, and reads the
text again: prints the seconds of both."""
import sys
import time

from ClusterShell.RangeSet import RangeSet

with open(sys.argv[1]) as file:
    numbers = file.read().split()
begin = time.perf_counter()
folded = RangeSet(autostep=4)
folded.update(numbers)
text = str(folded)
middle = time.perf_counter()
list(RangeSet(text, autostep=4))
print(middle - begin, time.perf_counter() - middle)
