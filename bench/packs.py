"""Installing a pack beside fetching the same files with curl and checking them with sha256sum.

Publishes packs of random bytes below build/bench/cloud once and serves them with `orvex cloud serve`
on the loopback address. Rounds are interleaved; every install goes into a store of its own, every
fetch into a folder of its own, all on the same file system. The install makes what it wrote durable,
curl does not. Times are those of the install within a process that runs and of the whole command-line
program; memory is the most that the former's process ever had.
"""

import json
import os
import re
import shutil
import socket
import statistics
import subprocess
import time

BIN = os.path.abspath(os.path.join("build", "release", "bin"))
ORVEX = os.path.join(BIN, "orvex")
BENCH = os.path.join(BIN, "orvex-bench-packs")
DATA = os.path.abspath(os.path.join("build", "bench", "cloud"))
TARGET = os.path.join(DATA, "target")
FILES = 20
# Packs by the size of all their files together.
PACKS = {"small": 2_000_000, "medium": 20_000_000, "large": 200_000_000}
ROUNDS = 7


def make_packs():
    for name, size in PACKS.items():
        pack = os.path.join(DATA, "packs", name)
        if os.path.exists(os.path.join(pack, "pack.json")):
            continue
        os.makedirs(os.path.join(pack, "shared"), exist_ok=True)
        for i in range(FILES):
            with open(os.path.join(pack, "shared", f"{i:02}.bin"), "wb") as file:
                file.write(os.urandom(size // FILES))
        with open(os.path.join(pack, "pack.json"), "w") as file:
            json.dump({"name": name, "version": "1", "targets": ["final-cut"]}, file)


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def serve(port=None, front=None):
    """Starts the service; returns its process and the environment to find it with. Where what is
    given to clients leads to another port, that is `front`."""
    port = str(port or free_port())
    subprocess.run([ORVEX, "cloud", "build", DATA, "--base-url", f"https://127.0.0.1:{front or port}"],
                   check=True, stdout=subprocess.DEVNULL)
    server = subprocess.Popen([ORVEX, "cloud", "serve", DATA, "--port", port],
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    found = dict(re.findall(r"export (\w+)='?([^'\n]*)", server.stdout.readline() + server.stdout.readline()))
    return server, dict(os.environ, XDG_DATA_HOME=TARGET, **found)


def wall(command, env):
    """Seconds, and what the command wrote."""
    start = time.perf_counter()
    output = subprocess.run(command, env=env, cwd=TARGET, check=True, text=True, stdout=subprocess.PIPE).stdout
    return time.perf_counter() - start, output


def fresh_target():
    shutil.rmtree(TARGET, ignore_errors=True)
    os.makedirs(TARGET)
    os.sync()


def install(name, env):
    """Milliseconds within the process, and its peak of memory in bytes."""
    fresh_target()
    _, output = wall([BENCH, env["ORVEX_SERVICE"] + "/downloads/orvex/packs/manifest.json",
                      env["ORVEX_CA_FILE"], TARGET, name], env)
    spent, peak, _ = output.split()
    return float(spent), int(peak) * 1024


def install_with_program(name, env):
    fresh_target()
    return wall([ORVEX, "packs", "install", name], env)[0] * 1000


def fetch(assets, env):
    fresh_target()
    with open(os.path.join(TARGET, "sums"), "w") as sums:
        sums.writelines(f"{asset['sha256']}  {asset['file']}\n" for asset in assets)
    command = ["curl", "-sSf", "--cacert", env["ORVEX_CA_FILE"]]
    for asset in assets:
        command += ["-o", asset["file"], asset["url"]]
    fetched, _ = wall(command, env)
    checked, _ = wall(["sha256sum", "-c", "--quiet", "sums"], env)
    return (fetched + checked) * 1000


def main():
    make_packs()
    server, env = serve()
    try:
        with open(os.path.join(DATA, "public/downloads/orvex/packs/manifest.json")) as file:
            packs = {pack["id"]: pack for pack in json.load(file)["packs"]}
        times = {name: {"install": [], "program": [], "tools": [], "memory": []} for name in PACKS}
        for _ in range(ROUNDS):
            for name in PACKS:
                times[name]["tools"].append(fetch(packs[name]["sharedAssets"], env))
                times[name]["program"].append(install_with_program(name, env))
                spent, peak = install(name, env)
                times[name]["install"].append(spent)
                times[name]["memory"].append(peak / 2**20)
        for name, size in PACKS.items():
            ours, program, theirs, peak = (statistics.median(values) for values in times[name].values())
            print(f"pack install, {size // 1_000_000:3} MB in {FILES} files: install {ours:.0f} ms ({peak:.1f} MiB), "
                  f"program {program:.0f} ms, curl + sha256sum {theirs:.0f} ms, "
                  f"ratio {ours / theirs:.2f} ({program / theirs:.2f})")
    finally:
        server.terminate()
        server.wait()
        shutil.rmtree(TARGET, ignore_errors=True)


if __name__ == "__main__":
    main()
