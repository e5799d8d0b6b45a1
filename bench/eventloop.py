"""How long the panel's event loop stands still while something is done to it.

Each row is a panel of its own in a window that no screen shows (800 x 780, software back end). Downloads come from `orvex cloud serve` through a line that lets the first
megabyte of a connection pass and then nothing, or a byte every 10 ms. The player is a real one that
shows frames as fast as it can. Needs a message bus.
"""

import os
import socket
import subprocess
import sys
import tempfile
import threading
import time

import packs

BENCH = os.path.join(packs.BIN, "orvex-bench-event-loop")
PASSED = 1_000_000
CLIP = "av://lavfi:testsrc2=size=16x16:rate=1000:duration=600"


def pump(source, target, rest):
    """Passes what comes on, after the first megabyte a byte each `rest` seconds, or nothing more."""
    passed = 0
    try:
        while data := source.recv(65536 if passed < PASSED else 1):
            target.sendall(data)
            passed += len(data)
            if passed >= PASSED:
                time.sleep(rest)
    except OSError:
        pass
    target.close()


def line(front, back, rest):
    """Stands in front of the service at port `back`."""

    def accept():
        while True:
            client, _ = front.accept()
            service = socket.create_connection(("127.0.0.1", back))
            threading.Thread(target=pump, args=(client, service, 0), daemon=True).start()
            threading.Thread(target=pump, args=(service, client, rest), daemon=True).start()

    threading.Thread(target=accept, daemon=True).start()


def row(what, env, beside=None):
    """One panel in a home of its own; `beside` is a command that runs meanwhile, given that home."""
    with tempfile.TemporaryDirectory() as home:
        env = dict(env, QT_QPA_PLATFORM="offscreen", QT_QUICK_BACKEND="software", HOME=home)
        for name in ("DATA", "CONFIG", "CACHE", "STATE"):
            env[f"XDG_{name}_HOME"] = os.path.join(home, name.lower())
        other = beside and subprocess.Popen(beside, env=env, stderr=subprocess.DEVNULL)
        try:
            with open(os.path.join(home, "log"), "w") as log:
                code = subprocess.run([BENCH, what], env=env, stderr=log).returncode
            if code:
                with open(log.name) as log:
                    sys.exit(f"{what} ended with {code}: " + log.read()[-2000:])
        finally:
            if other:
                other.terminate()
                other.wait()


def main():
    packs.make_packs()
    packs.fresh_target()
    plain = dict(os.environ, ORVEX_HOST="builtin")
    row("still", plain)
    for what, rest in (("hang", 3600), ("hang", 0.01), ("close", 3600)):
        back = packs.free_port()
        with socket.create_server(("127.0.0.1", 0)) as front:
            port = front.getsockname()[1]
            line(front, back, rest)
            server, env = packs.serve(back, port)
            try:
                row(what, dict(env, ORVEX_HOST="builtin", ORVEX_SERVICE=f"https://127.0.0.1:{port}"))
            finally:
                server.terminate()
                server.wait()
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "mpv.sock")
        row("player", dict(os.environ, ORVEX_HOST=f"mpv:{path}"),
            ["mpv", "--no-config", "--really-quiet", "--vo=null", "--ao=null", "--untimed",
             "--loop-file=inf", f"--input-ipc-server={path}", CLIP])
    row("sizes", plain, [BENCH, "send", "30"])
    row("callbacks", plain)
    row("toasts", plain)


if __name__ == "__main__":
    main()
