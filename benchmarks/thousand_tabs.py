#!/usr/bin/env python3
"""From the launch of a program to a loaded tab in front, with many unloaded tabs beside it.

The page in front reports its load event to a loopback server, so that the same clock measures every program. Measures
wall time, the CPU time of the program's main process until then, and its memory (PSS) at rest. The programs and
the numbers of tabs take turns, each run with a fresh profile.

With --falkon, also measures Falkon, after opening the pages in it once to make its sessions; it must be set to load
restored tabs when they are selected.

Needs a screen:  xvfb-run -a benchmarks/thousand_tabs.py --build build/release --runs 7
"""

import argparse
import atexit
import http.server
import os
import shutil
import signal
import statistics
import subprocess
import tempfile
import threading
import time

PAGE = "<title>Page %s</title><p>A page.<script>onload = () => fetch('/loaded' + location.pathname)</script>"
SPAWN = "<title>Start</title><script>let i = 0; setInterval(() => { if (i < %d) open('/page-' + i++) }, 80)</script>"
TICKS = os.sysconf("SC_CLK_TCK")
DEADLINE = 120  # [s]

FALKON_SETTINGS = """[Web-URL-Settings]
afterLaunch=3
homepage=about:blank
newTabUrl=about:blank
[Browser-Tabs-Settings]
LoadTabsOnActivation=true
[Web-Browser-Settings]
CheckDefaultBrowser=false
allowJavaScriptOpenWindow=true
"""


class Server(http.server.ThreadingHTTPServer):
    """Serves the pages and notes which of them have loaded."""

    daemon_threads = True

    def __init__(self):
        super().__init__(("127.0.0.1", 0), Handler)
        self.changed = threading.Condition()
        self.loaded = []
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def handle_error(self, *_):
        pass  # a killed program drops its connections

    def url(self, path):
        return "http://127.0.0.1:%d%s" % (self.server_port, path)

    def note(self, path):
        with self.changed:
            self.loaded.append((path, time.monotonic()))
            self.changed.notify_all()

    def forget(self):
        with self.changed:
            self.loaded.clear()

    def wait(self, count, page=""):
        """The time when this many pages, or this page this many times, had loaded; None after the deadline."""
        def hits():
            return [moment for path, moment in self.loaded if page in ("", path)]

        with self.changed:
            if self.changed.wait_for(lambda: len(hits()) >= count, DEADLINE):
                return hits()[count - 1]
            return None


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def do_GET(self):
        body = ""
        if self.path.startswith("/loaded"):
            self.server.note(self.path)
        elif self.path.startswith("/page"):
            body = PAGE % self.path
        elif self.path.startswith("/spawn-"):
            body = SPAWN % int(self.path.split("-")[1])
        self.send_response(200)
        self.send_header("Content-Type", "text/html")
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body.encode())

    def log_message(self, *_):
        pass


def cpu_seconds(pid):
    with open("/proc/%d/stat" % pid) as file:
        fields = file.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


def pss_kib(pid):
    with open("/proc/%d/smaps_rollup" % pid) as file:
        for line in file:
            if line.startswith("Pss:"):
                return int(line.split()[1])
    return 0


def come_to_rest(pid):
    """Waits until the process uses less than 2 % of the processor for a second."""
    before = cpu_seconds(pid)
    for _ in range(30):
        time.sleep(1)
        now = cpu_seconds(pid)
        if now - before < 0.02:
            return
        before = now


def end(process):
    process.send_signal(signal.SIGTERM)
    try:
        process.wait(20)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


def run(server, command, environment, memory, page=""):
    """One launch; `page` is the page in front, or the first to load if empty. None if it does not load by the deadline."""
    server.forget()
    start = time.monotonic()
    process = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        at = server.wait(1, page)
        if at is None:
            return None
        cpu = cpu_seconds(process.pid)
        if memory:
            come_to_rest(process.pid)
        return {"wall": at - start, "cpu": cpu, "pss": pss_kib(process.pid) if memory else 0}
    finally:
        end(process)


class Window:
    """The client's own window (browser library), without log-in and gateway."""

    name = "client"

    def __init__(self, build):
        self.program = os.path.join(build, "benchmarks", "UnloadedTabsWindow")

    def prepare(self, server, count, folder):
        pass

    def launch(self, server, count, folder, memory):
        with tempfile.TemporaryDirectory(dir=folder) as profile:
            command = [self.program, profile, str(count), server.url("/page")]
            return run(server, command, os.environ, memory)


class Client:
    """The whole client after a kill: start, log-in at a gateway, the question about the tabs, "Yes"."""

    name = "whole"

    def __init__(self, build):
        self.build = os.path.abspath(build)

    def command(self, profile, trace):
        return [os.path.join(self.build, "bin", "tl-client"), "--gateway", self.address, "--profile", profile,
                "--modules", os.path.join(self.build, "modules"), "--pin", "demo",
                "--password-file", self.password, "--trace", trace]

    def start_gateway(self, server, folder):
        program = os.path.join(self.build, "bin", "tl-gateway")
        database = "sqlite:" + os.path.join(folder, "gateway.sqlite")
        self.gateway = subprocess.Popen([program, "serve", "--database", database, "--listen", "127.0.0.1:0"],
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        atexit.register(end, self.gateway)
        self.address = self.gateway.stdout.readline().split()[-1]
        subprocess.run([program, "demo", "--database", database, "--pages", server.url("")], check=True,
                       stdout=subprocess.DEVNULL)
        self.password = os.path.join(folder, "password")
        with open(self.password, "w") as file:
            file.write("demo\n")
        os.chmod(self.password, 0o600)
        atexit.register(end, subprocess.Popen(["openbox", "--sm-disable"], stderr=subprocess.DEVNULL))

    def profile(self, folder, count):
        return os.path.join(folder, "whole-%d" % count)

    def prepare(self, server, count, folder):
        if not hasattr(self, "gateway"):
            self.start_gateway(server, folder)
        profile = self.profile(folder, count)
        trace = profile + ".trace"
        process = subprocess.Popen(self.command(profile, trace), stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        wait_for_event(trace, "ready")
        time.sleep(3)  # the client writes its tabs to disk within a second
        process.kill()
        process.wait()
        subprocess.run([os.path.join(self.build, "benchmarks", "ManyTabsProfile"),
                        os.path.join(profile, "settings.sqlite"), "demo", str(count), server.url("/page-")],
                       check=True)

    def launch(self, server, count, folder, memory):
        with tempfile.TemporaryDirectory(dir=folder) as place:
            profile = os.path.join(place, "profile")
            trace = os.path.join(place, "trace")
            shutil.copytree(self.profile(folder, count), profile)
            answer = threading.Thread(target=self.say_yes, args=(trace,), daemon=True)
            answer.start()
            return run(server, self.command(profile, trace), os.environ, memory, "/loaded/page-%d" % (count - 1))

    def say_yes(self, trace):
        if not wait_for_event(trace, "question.asked"):
            return
        # Press it again if nothing happens: the question may not have had the focus yet.
        for _ in range(500):
            subprocess.run(["xdotool", "key", "Return"], check=False)
            if wait_for_event(trace, "question", 0.03):
                return


def wait_for_event(trace, event, patience=DEADLINE):
    """Whether the client writes the event to its trace by then [s]."""
    until = time.monotonic() + patience
    while time.monotonic() < until:
        try:
            with open(trace) as file:
                if '"event":"%s"' % event in file.read():
                    return True
        except FileNotFoundError:
            pass
        time.sleep(0.005)
    return False


class Falkon:
    name = "falkon"

    def home(self, folder, count):
        return os.path.join(folder, "falkon-%d" % count)

    def profile(self, home):
        return os.path.join(home, ".config", "falkon", "profiles", "default")

    def write_settings(self, home):
        with open(os.path.join(self.profile(home), "settings.ini"), "w") as file:
            file.write(FALKON_SETTINGS)

    def prepare(self, server, count, folder):
        """Makes a session of a start page and `count` pages, the last one in front."""
        home = self.home(folder, count)
        os.makedirs(self.profile(home))
        self.write_settings(home)
        server.forget()
        process = subprocess.Popen(["falkon", server.url("/spawn-%d" % count)],
                                   env=dict(os.environ, HOME=home),
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if server.wait(count) is None:
            raise SystemExit("Falkon did not open %d pages" % count)
        come_to_rest(process.pid)
        time.sleep(10)  # it saves its session from time to time
        end(process)
        self.write_settings(home)  # without its note that it was killed

    def launch(self, server, count, folder, memory):
        with tempfile.TemporaryDirectory(dir=folder) as home:
            shutil.copytree(self.home(folder, count), home, dirs_exist_ok=True)
            return run(server, ["falkon"], dict(os.environ, HOME=home), memory)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/release")
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--counts", default="1,10,50,100,1000", help="unloaded tabs; the first is compared with")
    parser.add_argument("--whole", action="store_true", help="the whole client instead of its window")
    parser.add_argument("--falkon", action="store_true")
    parser.add_argument("--falkon-counts", default="1,10,50,100")
    arguments = parser.parse_args()
    kind = Client if arguments.whole else Window
    plans = [(kind(arguments.build), [int(count) for count in arguments.counts.split(",")])]
    if arguments.falkon:
        plans.append((Falkon(), [int(count) for count in arguments.falkon_counts.split(",")]))

    server = Server()
    with tempfile.TemporaryDirectory() as folder:
        results = {}
        for kind, counts in plans:
            for count in counts:
                kind.prepare(server, count, folder)
        for turn in range(arguments.runs):
            for kind, counts in plans:
                for count in counts:
                    # Memory in the first three runs only, because coming to rest takes a while.
                    result = kind.launch(server, count, folder, turn < 3)
                    if result:
                        results.setdefault((kind.name, count), []).append(result)
                    print("%-7s %5d unloaded: %s" % (kind.name, count, result or "not loaded in time"), flush=True)

        def median(kind, count, key):
            values = [result[key] for result in results.get((kind, count), []) if result[key]]
            return statistics.median(values) if values else float("nan")

        print("\nmedians of %d runs; ratios to %d unloaded" % (arguments.runs, plans[0][1][0]))
        for kind, counts in plans:
            first = counts[0]
            for count in counts:
                wall, cpu, pss = (median(kind.name, count, key) for key in ("wall", "cpu", "pss"))
                each = (pss - median(kind.name, first, "pss")) / max(count - first, 1)
                print("%-7s %5d: %6.0f ms (%.2f)  %6.0f ms CPU (%.2f)  %7.0f KiB, %5.1f KiB for each further tab"
                      % (kind.name, count, 1000 * wall, wall / median(kind.name, first, "wall"), 1000 * cpu,
                         cpu / median(kind.name, first, "cpu"), pss, each))


if __name__ == "__main__":
    main()
