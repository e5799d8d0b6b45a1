"""The managed copy of a LUT beside the tools that a user could run instead.

Makes its data below build/bench once. Each row is the median of interleaved rounds with everything in
the disk cache: the preparation within a process that runs, and sha256sum, cp and cmp of the same file
one after another. The copy is on the disk when the preparation returns; that of cp need not be.
"""

import os
import shutil
import statistics
import subprocess
import sys
import time

BENCH = os.path.join("build", "release", "bin", "orvex-bench-lut")
DATA = os.path.join("build", "bench")
LIBRARY = os.path.join(DATA, "managed")
ROUNDS = 9
MIB = 1024 * 1024


def make_lut(path, size):
    """A 3D LUT of exactly `size` bytes, its last lines comments."""
    if os.path.exists(path) and os.path.getsize(path) == size:
        return
    os.makedirs(os.path.dirname(path), exist_ok=True)
    edge = next(n for n in range(256, 1, -1) if n**3 * 27 + 40 <= size)
    values = [f"{i / (edge - 1):.6f}" for i in range(edge)]
    with open(path, "w") as file:
        file.write(f"LUT_3D_SIZE {edge}\n")
        for b in values:
            file.write("".join(f"{r} {g} {b}\n" for g in values for r in values))
        left = size - file.tell()
        file.write("# rest\n" * (left // 7) + "#" * (left % 7))


def wall(*commands):
    start = time.perf_counter()
    for command in commands:
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return (time.perf_counter() - start) * 1000


def prepare(source):
    output = subprocess.run([BENCH, source, os.path.dirname(source), os.path.abspath(LIBRARY)],
                            check=True, capture_output=True, text=True)
    return [float(value) for value in output.stdout.split()]


def row(mib):
    source = os.path.abspath(os.path.join(DATA, "lut", f"{mib} MiB.cube"))
    copy = os.path.join(DATA, "copy.cube")
    make_lut(source, mib * MIB)
    times = {"first": [], "copy": [], "second": [], "check": []}
    memory = 0
    for _ in range(ROUNDS + 1):  # the first warms up
        shutil.rmtree(LIBRARY, ignore_errors=True)
        if os.path.exists(copy):
            os.remove(copy)
        os.sync()
        times["copy"].append(wall(["sha256sum", source], ["cp", source, copy], ["cmp", source, copy]))
        os.sync()
        first, memory = prepare(source)
        times["first"].append(first)
        times["second"].append(prepare(source)[0])
        times["check"].append(wall(["sha256sum", source], ["cmp", source, copy]))
    first, tools, second, check = (statistics.median(values[1:]) for values in times.values())
    print(f"managed copy, {mib:3} MiB: first {first:7.1f} ms  sha256sum+cp+cmp {tools:7.1f} ms  "
          f"ratio {first / tools:5.2f}, goal 0.7;  second {second:7.1f} ms  sha256sum+cmp {check:7.1f} ms  "
          f"ratio {second / check:5.2f}, goal 1;  peak memory {memory:6.1f} MiB")


def main():
    for mib in (1, 8, 64) if "--growth" in sys.argv[1:] else (64,):
        row(mib)


if __name__ == "__main__":
    main()
