"""The inventories beside the tools that a user could run over the same folders.

Makes its data below build/bench once. Each row is the median of interleaved rounds with everything in
the disk cache: the scan within a process that runs, the whole command-line program, and the tool.
"""

import os
import shutil
import statistics
import subprocess
import sys
import time

BIN = os.path.join("build", "release", "bin")
BENCH = os.path.join(BIN, "orvex-bench-engines")
ORVEX = os.path.join(BIN, "orvex")
DATA = os.path.join("build", "bench")
CACHE = os.path.join(DATA, "cache")
ROUNDS = 9
ENV = dict(os.environ, XDG_CACHE_HOME=os.path.abspath(CACHE), LC_ALL="C.UTF-8")


def make_luts(folder, count, size=33):
    if os.path.exists(folder):
        return
    values = [f"{i / (size - 1):.6f}" for i in range(size)]
    lattice = "".join(f"{r} {g} {b}\n" for b in values for g in values for r in values)
    for i in range(count):
        below = os.path.join(folder, f"Pack {i // 100}", f"Look {i // 10 % 10}")
        os.makedirs(below, exist_ok=True)
        with open(os.path.join(below, f"Film {i}.cube"), "w") as file:
            file.write(f'TITLE "Film {i}"\nLUT_3D_SIZE {size}\n{lattice}')


def touch(path):
    os.close(os.open(path, os.O_CREAT | os.O_WRONLY, 0o644))


def make_motion(folder, entries):
    """Templates in folders of their own, each with four pictures beside it."""
    if os.path.exists(folder):
        return
    for i in range(entries // 6):
        below = os.path.join(folder, ("Titles", "Effects")[i % 2], f"Category {i // 100}", f"Name {i}")
        os.makedirs(below)
        touch(os.path.join(below, f"Name {i}.{('moti', 'moef')[i % 2]}"))
        for name in ("small.png", "large.png", "a.png", "b.png"):
            touch(os.path.join(below, name))


def make_fxplug(folder, entries):
    """Bundles of nine entries among folders of plain files."""
    if os.path.exists(folder):
        return
    bundles = entries // 100
    for i in range(bundles):
        contents = os.path.join(folder, f"Vendor {i // 20}", f"Plug {i}.fxplug", "Contents")
        os.makedirs(os.path.join(contents, "MacOS"))
        os.makedirs(os.path.join(contents, "Resources", "tr.lproj"))
        with open(os.path.join(contents, "Info.plist"), "w") as file:
            file.write('<?xml version="1.0" encoding="UTF-8"?>\n<plist version="1.0"><dict>'
                       f"<key>CFBundleIdentifier</key><string>com.x.plug{i}</string>"
                       f"<key>CFBundleName</key><string>Plug {i}</string>"
                       "<key>CFBundleShortVersionString</key><string>1.0</string></dict></plist>")
        touch(os.path.join(contents, "MacOS", "program"))
        touch(os.path.join(contents, "Resources", "icon.png"))
    for i in range((entries - 9 * bundles) // 51):
        below = os.path.join(folder, f"Vendor {i % 20}", f"Presets {i}")
        os.makedirs(below)
        for k in range(50):
            touch(os.path.join(below, f"{k}.txt"))


def files_of(folder):
    return [os.path.join(below, name) for below, _, names in os.walk(folder) for name in names]


def run(command, **output):
    """Milliseconds, the most memory held (MiB) and what was printed."""
    start = time.perf_counter()
    process = subprocess.Popen(command, env=ENV, **output)
    printed = process.stdout.read() if process.stdout else b""
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = status
    if status:
        sys.exit(f"{command[0]} failed")
    return (time.perf_counter() - start) * 1000, usage.ru_maxrss / 1024, printed


def wall(command):
    return run(command, stdout=subprocess.DEVNULL)[0]


def inner(kind, folder):
    _, memory, printed = run([BENCH, kind, folder], stdout=subprocess.PIPE)
    return float(printed.split()[0]), memory


def forget():
    shutil.rmtree(CACHE, ignore_errors=True)


def row(title, kind, folder, against, goal, before=lambda: None):
    folder = os.path.abspath(folder)
    times = {"scan": [], "program": [], "tool": []}
    memory = []
    for _ in range(ROUNDS + 1):  # the first warms up
        times["tool"].append(wall(against))
        before()
        scan, held = inner(kind, folder)
        times["scan"].append(scan)
        memory.append(held)
        before()
        times["program"].append(wall([ORVEX, kind, folder, "--json"]))
    scan, program, tool = (statistics.median(values[1:]) for values in times.values())
    print(f"{title:32} scan {scan:8.2f} ms  {statistics.median(memory):6.1f} MiB  program {program:8.1f} ms  "
          f"{against[0]:4} {tool:8.1f} ms  ratio {scan / tool:5.2f} (program {program / tool:5.2f}), goal {goal}",
          flush=True)


def lists(count):
    rounds = [[float(value) for value in run([BENCH, "lists", str(count)], stdout=subprocess.PIPE)[2].split()]
              for _ in range(ROUNDS)]
    bytewise, sort, fold, search = (statistics.median(values) for values in zip(*rounds))
    print(f"{f'sort, {count} names':32} localized {sort:7.2f} ms  byte-wise {bytewise:7.2f} ms  "
          f"ratio {sort / bytewise:5.2f}, goal 3")
    print(f"{f'search, {count} items':32} slowest keystroke {search:5.2f} ms, goal 4 (folding them once "
          f"{fold:.1f} ms)", flush=True)


def machine_limit(folder):
    """What two readers of the same files take together: how much a second processor can help here."""
    files = files_of(folder)
    alone, together = [], []
    for _ in range(ROUNDS):
        alone.append(wall(["cat", *files]))
        start = time.perf_counter()
        readers = [subprocess.Popen(["cat", *files[i::2]], stdout=subprocess.DEVNULL) for i in range(2)]
        for reader in readers:
            reader.wait()
        together.append((time.perf_counter() - start) * 1000)
    alone, together = statistics.median(alone), statistics.median(together)
    print(f"{'two readers at once':32} {together:8.1f} ms  cat {alone:8.1f} ms  ratio {together / alone:5.2f}")


def main():
    for factor in (1, 10, 100):
        luts = os.path.join(DATA, f"luts-{10 * factor}")
        motion = os.path.join(DATA, f"motion-{1_000 * factor}")
        fxplug = os.path.join(DATA, f"fxplug-{1_000 * factor}")
        make_luts(luts, 10 * factor)
        make_motion(motion, 1_000 * factor)
        make_fxplug(fxplug, 1_000 * factor)
        # Files that have just been made are not trusted not to change again.
        time.sleep(3)
        row(f"LUTs, first scan, {10 * factor}", "luts", luts, ["cat", *files_of(luts)], 0.5, forget)
        if factor == 100:
            machine_limit(luts)
        wall([ORVEX, "luts", luts])
        row(f"LUTs, rescan, {10 * factor}", "luts", luts, ["find", luts, "-name", "*.cube", "-size", "+0"], 2)
        row(f"Motion, {1_000 * factor} entries", "motion", motion, ["find", motion, "-name", "*.mo[et]?"], 1.5)
        row(f"FxPlug, {1_000 * factor} entries", "fxplug", fxplug, ["find", fxplug, "-name", "*.fxplug"], 1.5)
        lists(500 * factor)


if __name__ == "__main__":
    main()
