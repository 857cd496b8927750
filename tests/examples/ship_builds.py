#!/usr/bin/env python3
"""Builds the README's example game, examples/ship, the three ways a game
programmer takes the engine: installed and found with find_package, installed
and found with pkg-config, and from a checkout with add_subdirectory. Each ship
runs in the X server named by DISPLAY until Q is sent, and must end cleanly
with the engine's stop line last in its log. The README must show the
example's files as they are, and the installed headers must all compile
alone, with no header of the engine's own workings among them.

    ship_builds.py SOURCE_DIR BUILD_DIR OUTPUT_DIR SANITIZED(0|1)
"""

import glob
import os
import shutil
import subprocess
import sys
import time

SANITIZER_FLAGS = "-fsanitize=address,undefined -fno-omit-frame-pointer"
SYSTEM_FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf"
# A few of the engine's own workings, which a game never includes.
PRIVATE_HEADERS = ["CellBatch.h", "WindowPainter.h", "sockets.h", "InputSource.h"]


class Failure(Exception):
    pass


def run(command, **options):
    done = subprocess.run(command, capture_output=True, text=True, **options)
    if done.returncode != 0:
        raise Failure("%s failed:\n%s%s" % (" ".join(command), done.stdout[-3000:],
                                              done.stderr[-3000:]))
    return done.stdout


def check_readme(source):
    readme = open(os.path.join(source, "README.md")).read()
    for name in ("main.cpp", "CMakeLists.txt"):
        if open(os.path.join(source, "examples", "ship", name)).read() not in readme:
            raise Failure("the README does not show examples/ship/%s as it is" % name)


def check_headers(prefix, output, flags):
    headers = sorted(glob.glob(os.path.join(prefix, "include", "morvane", "*.h")))
    found = [h for h in PRIVATE_HEADERS if os.path.exists(os.path.join(prefix, "include",
                                                                       "morvane", h))]
    if found or not headers:
        raise Failure("installed headers: %d, of the engine's own workings: %s"
                      % (len(headers), found))
    for header in headers:
        unit = os.path.join(output, "header.cpp")
        with open(unit, "w") as f:
            f.write('#include "%s"\n' % os.path.basename(header))
        run(["g++", "-fsyntax-only", unit] + flags)


def check_package(build, output):
    """The Debian package of this build: its name, what it needs, and what it holds."""
    run(["cpack", "-G", "DEB", "-B", os.path.join(output, "package")], cwd=build)
    debs = glob.glob(os.path.join(output, "package", "libmorvane-dev_*.deb"))
    if not debs:
        raise Failure("cpack made no libmorvane-dev package")
    control = run(["dpkg-deb", "-I", debs[0]])
    files = run(["dpkg-deb", "-c", debs[0]])
    wanted = ["libsfml-dev", "fonts-dejavu-core"]
    held = ["libmorvane.a", "MorvaneConfig.cmake", "MorvaneConfigVersion.cmake", "morvane.pc",
            "share/morvane/mv-font.ttf", "include/morvane/GameManager.h"]
    missing = [w for w in wanted if w not in control] + [h for h in held if h not in files]
    if missing:
        raise Failure("the package lacks " + ", ".join(missing))


def play(ship, source, output, name, font):
    """Runs a ship in a folder of its own, sends Q, and checks its log, which
    must say that the font was taken from `font`."""
    folder = os.path.join(output, "run-" + name)
    os.makedirs(folder, exist_ok=True)
    for data in ("ship-spr.txt", "mv-config.txt"):
        shutil.copy(os.path.join(source, "examples", "ship", data), folder)
    env = dict(os.environ, ALSOFT_DRIVERS="null", ASAN_OPTIONS="detect_leaks=0")
    env = {k: v for k, v in env.items() if not k.startswith("MORVANE_")}
    program = subprocess.Popen([ship], cwd=folder, env=env, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    try:
        deadline = time.time() + 30
        window = []
        while not window and time.time() < deadline and program.poll() is None:
            window = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Ship$"],
                                    capture_output=True, text=True).stdout.split()
            time.sleep(0.2)
        if not window:
            raise Failure("the %s ship opened no window" % name)
        run(["xdotool", "windowfocus", "--sync", window[0], "keydown", "q"])
        time.sleep(0.3)
        run(["xdotool", "keyup", "q"])
        if program.wait(timeout=30) != 0:
            raise Failure("the %s ship ended with %d" % (name, program.returncode))
    finally:
        if program.poll() is None:
            program.kill()
    log = open(os.path.join(folder, "morvane.log")).read().splitlines()
    taken = "Font 'mv-font.ttf' is not in the working directory; taking '%s'." % font
    if not log[-1].endswith("** Game engine stopped **") or not any(taken in l for l in log):
        raise Failure("the %s ship's log:\n%s" % (name, "\n".join(log)))


def main():
    source, build, output, sanitized = sys.argv[1:5]
    shutil.rmtree(output, ignore_errors=True)
    os.makedirs(output)
    sanitize = sanitized == "1"
    extra = SANITIZER_FLAGS.split() if sanitize else []
    try:
        check_readme(source)
        prefix = os.path.join(output, "prefix")
        run(["cmake", "--install", build, "--prefix", prefix])
        found = glob.glob(os.path.join(prefix, "**", "morvane.pc"), recursive=True)
        env = dict(os.environ, PKG_CONFIG_PATH=os.path.dirname(found[0]) if found else "")
        pkg = run(["pkg-config", "--cflags", "--libs", "morvane"], env=env).split()
        check_headers(prefix, output, [f for f in pkg if f.startswith("-I") or f.startswith("-std")])
        check_package(build, output)

        ships = {}
        package = os.path.join(output, "by-package")
        run(["cmake", "-S", os.path.join(source, "examples", "ship"), "-B", package,
             "-DCMAKE_PREFIX_PATH=" + prefix, "-DCMAKE_CXX_FLAGS=" + " ".join(extra)])
        run(["cmake", "--build", package])
        ships["find_package"] = os.path.join(package, "ship")

        ships["pkg-config"] = os.path.join(output, "pkg-config", "ship")
        os.makedirs(os.path.dirname(ships["pkg-config"]))
        run(["g++", "-std=c++17", os.path.join(source, "examples", "ship", "main.cpp"), "-o",
             ships["pkg-config"]] + extra + pkg)
        # This one has a font of its own beside it, which goes before the system's.
        beside = os.path.join(output, "pkg-config", "mv-font.ttf")
        shutil.copy(os.path.join(prefix, "share", "morvane", "mv-font.ttf"), beside)

        checkout = os.path.join(output, "from-checkout")
        os.makedirs(checkout)
        with open(os.path.join(checkout, "CMakeLists.txt"), "w") as f:
            f.write("cmake_minimum_required(VERSION 3.25)\nproject(mygame CXX)\n"
                    "add_subdirectory(%s morvane)\nadd_executable(ship %s)\n"
                    "target_link_libraries(ship PRIVATE morvane)\n"
                    % (source, os.path.join(source, "examples", "ship", "main.cpp")))
        run(["cmake", "-S", checkout, "-B", os.path.join(checkout, "build"),
             "-DCMAKE_CXX_FLAGS=" + " ".join(extra)])
        run(["cmake", "--build", os.path.join(checkout, "build"), "--parallel",
             str(os.cpu_count() or 2)])
        ships["add_subdirectory"] = os.path.join(checkout, "build", "ship")

        for name, ship in ships.items():
            play(ship, source, output, name, beside if name == "pkg-config" else SYSTEM_FONT)
    except (Failure, subprocess.SubprocessError) as failure:
        print("FAILED:", failure)
        return 1
    print("the ship was built and played with find_package, pkg-config and add_subdirectory")
    return 0


if __name__ == "__main__":
    sys.exit(main())
