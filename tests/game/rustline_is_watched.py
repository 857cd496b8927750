#!/usr/bin/env python3
"""Plays Rustline in one X server and watches it from another, as two real
programs: `rustline --host PORT` and `rustline --watch 127.0.0.1:PORT`. The
host is played with keys and the mouse (P, moving, firing); then, with the
host held still, the two windows must match: at most 0.1 % of their pixels
may differ. When the host ends, the watcher must say so and leave by itself.
Pictures of both windows, and of the two side by side, stay in the output
folder.

    rustline_is_watched.py RUSTLINE PLAY_FOLDER OUTPUT_FOLDER
"""

import os
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from rustline_plays import Failure, Screen, output_of  # noqa: E402

MOST_DIFFERING = 0.001
TRIES = 10


class XServer:
    """A virtual X server of its own, 1920 by 1080, on a display it picks."""

    def __init__(self):
        read, write = os.pipe()
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1920x1080x24", "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as answer:
            self.display = ":" + answer.readline().strip()

    def env(self):
        env = {k: v for k, v in os.environ.items() if not k.startswith("MORVANE_")}
        env.update(DISPLAY=self.display, ALSOFT_DRIVERS="null")
        env.pop("XAUTHORITY", None)
        return env

    def run(self, *command):
        return subprocess.run(list(command), env=self.env(), check=True, capture_output=True,
                              text=True).stdout

    def window(self, name, program):
        deadline = time.time() + 30
        while time.time() < deadline:
            found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", name],
                                   env=self.env(), capture_output=True, text=True).stdout.split()
            if found:
                return found[0]
            if program.poll() is not None:
                raise Failure("%s ended before its window opened" % name)
            time.sleep(0.2)
        raise Failure("no window %s within 30 seconds" % name)

    def picture(self, window):
        """The window's pixels as a binary PPM."""
        xwd = subprocess.run(["xwd", "-silent", "-id", window], env=self.env(), check=True,
                             capture_output=True).stdout
        return output_of(["xwdtopnm"], xwd)

    def stop(self):
        self.process.kill()


def free_port():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


def pixels(ppm):
    """The width, height and RGB bytes of a binary PPM."""
    _, width, height, rgb = Screen.parse(ppm)
    return width, height, rgb


def differing(one, other):
    w1, h1, a = pixels(one)
    w2, h2, b = pixels(other)
    if (w1, h1) != (w2, h2):
        raise Failure("the windows differ in size: %dx%d and %dx%d" % (w1, h1, w2, h2))
    count = sum(1 for i in range(0, len(a), 3) if a[i:i + 3] != b[i:i + 3])
    return count / (w1 * h1)


def play_a_little(host, window):
    def xdotool(*arguments):
        host.run("xdotool", *arguments)
    xdotool("windowfocus", "--sync", window)
    xdotool("keydown", "p")
    time.sleep(0.5)
    xdotool("keyup", "p")
    time.sleep(1.5)
    xdotool("keydown", "d")
    time.sleep(0.4)
    xdotool("keyup", "d")
    xdotool("mousemove", "--window", window, "1000", "480")
    xdotool("mousedown", "1")
    time.sleep(2)
    xdotool("mouseup", "1")


def save_pictures(output, shown, watched):
    """The host's window, the watcher's, and the two side by side."""
    height = pixels(shown)[1]
    gap = output_of(["ppmmake", "white", "24", str(height)])
    paths = []
    for name, ppm in (("host", shown), ("gap", gap), ("watcher", watched)):
        paths.append(os.path.join(output, name + ".ppm"))
        with open(paths[-1], "wb") as f:
            f.write(ppm)
    with open(os.path.join(output, "host-and-watcher.png"), "wb") as f:
        f.write(output_of(["pnmtopng"], output_of(["pnmcat", "-lr"] + paths)))


def compare_held_still(host, host_game, host_window, watcher, watcher_window, output):
    """Holds the host still until the watcher has caught up, and compares."""
    best = 1.0
    for _ in range(TRIES):
        os.kill(host_game.pid, signal.SIGSTOP)
        time.sleep(0.5)
        shown, watched = host.picture(host_window), watcher.picture(watcher_window)
        os.kill(host_game.pid, signal.SIGCONT)
        share = differing(shown, watched)
        if share < best:
            best = share
            save_pictures(output, shown, watched)
        if best <= MOST_DIFFERING:
            break
        time.sleep(0.3)
    if best > MOST_DIFFERING:
        raise Failure("the watcher's window differs from the host's in %.3f %% of its pixels"
                      % (best * 100))
    return best


def main():
    rustline, play_folder, output = sys.argv[1:4]
    os.makedirs(output, exist_ok=True)
    scratch = tempfile.mkdtemp()
    source = os.path.dirname(os.path.abspath(play_folder))
    shutil.copytree(play_folder, os.path.join(scratch, "play"))
    for data in ("Sprites", "Sounds"):
        os.symlink(os.path.join(source, data), os.path.join(scratch, data))
    workdir = os.path.join(scratch, "play")
    host, watcher = XServer(), XServer()
    programs = []
    try:
        port = str(free_port())
        host_game = subprocess.Popen([rustline, "--host", port], cwd=workdir, env=host.env(),
                                     stdout=subprocess.DEVNULL)
        programs.append(host_game)
        host_window = host.window("^Rustline$", host_game)
        watching = subprocess.Popen([rustline, "--watch", "127.0.0.1:" + port], cwd=workdir,
                                    env=watcher.env())
        programs.append(watching)
        watcher_window = watcher.window("^Watching Rustline at 127.0.0.1:" + port + "$", watching)
        play_a_little(host, host_window)
        share = compare_held_still(host, host_game, host_window, watcher, watcher_window, output)

        host_game.send_signal(signal.SIGTERM)
        if host_game.wait(timeout=30) != 0:
            raise Failure("the host did not end cleanly")
        if watching.wait(timeout=30) != 0:
            raise Failure("the watcher did not end cleanly after its host")
        log = open(os.path.join(workdir, "morvane-watch.log")).read()
        if "WatchView::step(): The host has ended the game." not in log:
            raise Failure("the watcher never said that the host ended:\n" + log)
    except (Failure, subprocess.SubprocessError) as failure:
        print("FAILED:", failure)
        return 1
    finally:
        for program in programs:
            if program.poll() is None:
                program.kill()
        host.stop()
        watcher.stop()
        shutil.rmtree(scratch, ignore_errors=True)
    print("the watcher showed the host's game, %.3f %% of pixels apart, and left after it"
          % (share * 100))
    return 0


if __name__ == "__main__":
    sys.exit(main())
