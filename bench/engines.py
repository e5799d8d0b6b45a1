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


def make_luts(folder, count):
    if os.path.exists(folder):
        return
    size = 33
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


def wall(command):
    start = time.perf_counter()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, env=ENV)
    return (time.perf_counter() - start) * 1000


def inner(kind, folder):
    output = subprocess.run([BENCH, kind, folder], check=True, capture_output=True, text=True, env=ENV)
    return float(output.stdout.split()[0])


def forget():
    shutil.rmtree(CACHE, ignore_errors=True)


def row(title, kind, folder, against, goal, before=lambda: None):
    folder = os.path.abspath(folder)
    times = {"scan": [], "program": [], "tool": []}
    for _ in range(ROUNDS + 1):  # the first warms up
        times["tool"].append(wall(against))
        before()
        times["scan"].append(inner(kind, folder))
        before()
        times["program"].append(wall([ORVEX, kind, folder, "--json"]))
    scan, program, tool = (statistics.median(values[1:]) for values in times.values())
    print(f"{title:38} scan {scan:8.1f} ms  program {program:8.1f} ms  {against[0]:4} {tool:8.1f} ms  "
          f"ratio {scan / tool:5.2f} (program {program / tool:5.2f}), goal {goal}")


def lists(count):
    rounds = [[float(value) for value in
               subprocess.run([BENCH, "lists", str(count)], check=True, capture_output=True, text=True,
                              env=ENV).stdout.split()] for _ in range(ROUNDS)]
    bytewise, sort, fold, search = (statistics.median(values) for values in zip(*rounds))
    print(f"sort {count} names{'':18} localized {sort:7.1f} ms  byte-wise {bytewise:7.1f} ms  "
          f"ratio {sort / bytewise:5.2f}, goal 3")
    print(f"search {count} items{'':16} slowest keystroke {search:5.2f} ms, goal 4 (folding them once "
          f"{fold:.1f} ms)")


def main():
    factors = (1, 10) if "--growth" in sys.argv[1:] else (10,)
    for factor in factors:
        luts = os.path.join(DATA, f"luts-{100 * factor}")
        motion = os.path.join(DATA, f"motion-{10_000 * factor}")
        fxplug = os.path.join(DATA, f"fxplug-{10_000 * factor}")
        make_luts(luts, 100 * factor)
        make_motion(motion, 10_000 * factor)
        make_fxplug(fxplug, 10_000 * factor)
        # Files that have just been made are not trusted not to change again.
        time.sleep(3)
        row(f"LUT library, first scan, {100 * factor}", "luts", luts, ["cat", *files_of(luts)], 0.5, forget)
        wall([ORVEX, "luts", luts])
        row(f"LUT library, rescan, {100 * factor}", "luts", luts,
            ["find", luts, "-name", "*.cube", "-size", "+0"], 2)
        row(f"Motion, {10_000 * factor} entries", "motion", motion,
            ["find", motion, "-name", "*.mo[et]?"], 1.5)
        row(f"FxPlug, {10_000 * factor} entries", "fxplug", fxplug, ["find", fxplug, "-name", "*.fxplug"], 1.5)
        lists(5_000 * factor)


if __name__ == "__main__":
    main()
