"""Start-up, memory and processor time of the panel beside an empty Qt Quick window.

The panel has been granted libraries of 10,000 LUTs, 10,000 Motion templates and a plug-in folder of
10,000 entries, which it scans at each start; their data is made below build/bench once. Both run on the display of the caller. The first frame is the one the scene graph's own timing log
reports first, so neither program carries code for being measured.
"""

import os
import statistics
import subprocess
import sys
import tempfile
import time

import engines

BIN = os.path.join("build", "release", "bin")
PANEL = [os.path.join(BIN, "orvex-panel")]
EMPTY = [os.path.join(BIN, "orvex-bench-empty-window")]
SAMPLES = os.path.join(BIN, "orvex-samples")
ITEMS = 10000
ROUNDS = 9
SETTLE_SECONDS = 3.0
CPU_SECONDS = 10.0
TICKS = os.sysconf("SC_CLK_TCK")


def environment(home, **extra):
    env = dict(os.environ, QT_LOGGING_RULES="qt.scenegraph.time.renderloop=true", QT_LOGGING_TO_CONSOLE="1",
               QT_QPA_PLATFORM="xcb", QT_QUICK_BACKEND="software", ORVEX_HOST="builtin")
    for name in ("DATA", "CONFIG", "CACHE", "STATE"):
        env[f"XDG_{name}_HOME"] = os.path.join(home, name.lower())
    env.update(extra)
    return env


class Program:
    """A started program whose frames are counted as its log reports them."""

    def __init__(self, command, env):
        self.start = time.monotonic()
        self.process = subprocess.Popen(command, env=env, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.PIPE)
        while True:
            line = self.process.stderr.readline()
            if not line:
                sys.exit(f"{command[0]} ended before its first frame")
            if b"rame" in line and b"render" in line:
                break
        self.first_frame = time.monotonic() - self.start
        os.set_blocking(self.process.stderr.fileno(), False)

    def frames(self):
        """Frames since the last call."""
        return (self.process.stderr.read() or b"").count(b"rame rendered")

    def cpu(self):
        with open(f"/proc/{self.process.pid}/stat") as stat:
            fields = stat.read().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / TICKS

    def wakeups(self):
        total = 0
        for task in os.listdir(f"/proc/{self.process.pid}/task"):
            with open(f"/proc/{self.process.pid}/task/{task}/status") as status:
                total += sum(int(line.split()[1]) for line in status
                             if line.startswith("voluntary_ctxt_switches"))
        return total

    def mib(self, *kinds):
        """What the process holds of these kinds, as the system names them."""
        with open(f"/proc/{self.process.pid}/smaps_rollup") as rollup:
            return sum(int(line.split()[1]) for line in rollup if line.startswith(kinds)) / 1024

    def stop(self):
        self.process.terminate()
        self.process.wait()


def grant_libraries(home, items):
    """Gives the panel whose files are in `home` libraries of so many items."""
    folder = os.path.join(engines.DATA, f"granted-{items}")
    engines.make_luts(os.path.join(folder, "LUT"), items, size=2)
    engines.make_motion(os.path.join(folder, "Motion Templates"), 6 * items)
    engines.make_fxplug(os.path.join(folder, "FxPlug"), items)
    subprocess.run([SAMPLES, "grant", folder], env=environment(home), check=True)


def start_rows(home, title):
    times = {"panel": [], "empty": []}
    private = {"panel": [], "empty": []}
    resident = {"panel": [], "empty": []}
    commands = {"panel": PANEL, "empty": EMPTY}
    for command in commands.values():  # warm the disk cache
        Program(command, environment(home)).stop()
    for _ in range(ROUNDS):
        for name, command in commands.items():
            program = Program(command, environment(home))
            times[name].append(program.first_frame * 1000)
            time.sleep(SETTLE_SECONDS)
            private[name].append(program.mib("Private_Clean", "Private_Dirty"))
            resident[name].append(program.mib("Rss"))
            program.stop()
    for what, unit, values in (("first frame", "ms", times), ("private memory", "MiB", private),
                               ("resident memory", "MiB", resident)):
        panel, empty = statistics.median(values["panel"]), statistics.median(values["empty"])
        print(f"{what + ', ' + title:42} panel {panel:7.1f} {unit:4} empty window {empty:7.1f} {unit:4} "
              f"ratio {panel / empty:.2f}")


def cpu_row(title, home, hide=False, page="home", **extra):
    program = Program([*PANEL, "--page", page], environment(home, **extra))
    time.sleep(SETTLE_SECONDS)
    if hide:
        window = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(program.process.pid)],
                                check=True, capture_output=True, text=True).stdout.split()[0]
        subprocess.run(["xdotool", "windowunmap", window], check=True)
        time.sleep(1)
    program.frames()
    cpu, wakeups = program.cpu(), program.wakeups()
    time.sleep(CPU_SECONDS)
    cpu, wakeups, frames = program.cpu() - cpu, program.wakeups() - wakeups, program.frames()
    program.stop()
    print(f"{title:34} {100 * cpu / CPU_SECONDS:5.1f} % of a core, {frames / CPU_SECONDS:5.1f} frames/s, "
          f"{wakeups / CPU_SECONDS:6.1f} wake-ups/s")


def main():
    sizes = [0, ITEMS // 100, ITEMS // 10, ITEMS] if "--growth" in sys.argv else [ITEMS]
    for items in sizes:
        with tempfile.TemporaryDirectory() as home:
            if items:
                grant_libraries(home, items)
            start_rows(home, f"{items} items each" if items else "no libraries")
    with tempfile.TemporaryDirectory() as home:
        grant_libraries(home, ITEMS)
        for backend, extra in (("software", {}),
                               ("OpenGL (llvmpipe)", {"QT_QUICK_BACKEND": "", "QSG_RHI_BACKEND": "opengl",
                                                      "LIBGL_ALWAYS_SOFTWARE": "1",
                                                      "QSG_RENDER_LOOP": "basic"})):
            cpu_row(f"backdrop, {backend}", home, **extra)
            cpu_row(f"hidden, {backend}", home, hide=True, **extra)
            cpu_row(f"reduced motion, {backend}", home, ORVEX_REDUCED_MOTION="1", **extra)
            cpu_row(f"Speed Lab, {backend}", home, page="speed", **extra)
            cpu_row(f"Speed Lab hidden, {backend}", home, hide=True, page="speed", **extra)


if __name__ == "__main__":
    main()
