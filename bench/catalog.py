"""Reading a catalog of content packs beside `python3 -m json.tool` over the same file.

Makes its data below build/bench once. Each row is the median of interleaved rounds with the file in the
disk cache: the reading within a process that runs, the whole process, and the tool.
"""

import hashlib
import json
import os
import statistics
import subprocess
import sys
import time

BENCH = os.path.join("build", "release", "bin", "orvex-bench-catalog")
DATA = os.path.join("build", "bench")
FILES = 20
ROUNDS = 5


def digest(text):
    return hashlib.sha256(text.encode()).hexdigest()


def asset(pack, index):
    return {"file": f"Look {index}.cube", "sha256": digest(f"{pack} {index}"), "bytes": 1_000_000 + index,
            "url": f"https://orvex.vantrelo.example/downloads/orvex/packs/files/pack-{pack}/1.2.3/Look%20{index}.cube"}


def make_catalog(path, count):
    if os.path.exists(path):
        return
    packs = []
    for pack in range(count):
        assets = [asset(pack, index) for index in range(FILES)]
        packs.append({"schemaVersion": 1, "id": f"pack-{pack}", "name": f"Film Paketi {pack}", "version": "1.2.3",
                      "targets": ["final-cut", "premiere"], "sharedAssets": assets[:15],
                      "variants": {"final-cut": assets[15:]}, "rollback": {"previousVersion": "1.2.2"},
                      "manifestSHA256": digest(str(pack))})
    os.makedirs(DATA, exist_ok=True)
    with open(path + ".part", "w") as file:
        json.dump({"schemaVersion": 1, "revision": "2026-01-01", "packs": packs}, file)
    os.rename(path + ".part", path)


def wall(command):
    start = time.perf_counter()
    output = subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE if command[0] == BENCH
                            else subprocess.DEVNULL).stdout
    return (time.perf_counter() - start) * 1000, output


def row(count):
    path = os.path.join(DATA, f"catalog-{count}.json")
    make_catalog(path, count)
    inner, program, tool, memory = [], [], [], 0
    for _ in range(ROUNDS + 1):  # the first warms up
        spent, _ = wall([sys.executable, "-m", "json.tool", path])
        tool.append(spent)
        spent, output = wall([BENCH, path])
        program.append(spent)
        inner.append(float(output.split()[0]))
        memory = int(output.split()[2])
    inner, program, tool = (statistics.median(values[1:]) for values in (inner, program, tool))
    print(f"catalog, {count} packs of {FILES} files".ljust(38) + f" read {inner:8.1f} ms  process {program:8.1f} ms ({memory} MiB)  "
          f"json.tool {tool:8.1f} ms  ratio {inner / tool:5.2f} (process {program / tool:5.2f}), goal 0.2")


def main():
    for factor in ((1, 10, 100) if "--growth" in sys.argv[1:] else (100,)):
        row(100 * factor)


if __name__ == "__main__":
    main()
