#!/usr/bin/env python3
"""Plays Rustline end to end, as a person would, in a real window of the X
server named by DISPLAY: waits for the start screen, presses P, holds D,
aims at the nearest robot and fires with the left button held until one is
destroyed, presses Escape, sees the end screen and then the start screen
again, and presses Q. The program must exit 0 with no "Error!" line in its log.
With --signal it instead sends SIGTERM on the start screen, as a desktop that
logs out does: the program must exit 0 with its log whole.

The screen is read back with the X server's own screenshot (xwd), and things
are told apart by the colour their sprite files give them. A screenshot of
each stage is kept in the output folder, and one of the whole screen in play.

    rustline_plays.py [--signal] RUSTLINE PLAY_FOLDER OUTPUT_FOLDER
"""

import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

# The engine's eight colours, as the window shows them.
RGB = {
    "black": (0, 0, 0), "red": (255, 0, 0), "green": (0, 255, 0),
    "yellow": (255, 255, 0), "blue": (0, 0, 255), "magenta": (255, 0, 255),
    "cyan": (0, 255, 255), "white": (255, 255, 255),
}
ENEMIES = ["chair", "gunrobot", "wrenchrobot", "furnace", "furnace-active"]
# The start and end screens fill the middle of the window: many cells of
# their colour, where shots of the same colour make only a few.
CENTRE = dict(columns=range(50, 107), rows=range(14, 34), at_least=60)


class Failure(Exception):
    pass


def color_code(rgb):
    """One number per pure colour: red 4, green 2 and blue 1 added up."""
    return (4 if rgb[0] else 0) + (2 if rgb[1] else 0) + (1 if rgb[2] else 0)


def pixel_codes(pixels):
    """The colour code of each pixel of an RGB picture, and 64 or more for a
    pixel too faint to tell (the soft edge of a glyph). A glyph's ink is its
    colour times its coverage, so a channel at half or more counts as lit:
    small glyphs have few pixels at full colour. Worked out on whole channels
    at once, as big numbers, which keeps it fast in Python."""
    def channel(offset, value):
        table = bytes(value if v >= 128 else 0 if v == 0 else 64 for v in range(256))
        return int.from_bytes(pixels[offset::3].translate(table), "big")
    total = channel(0, 4) + channel(1, 2) + channel(2, 1)
    return total.to_bytes(len(pixels) // 3, "big")


def sprite_color(sprites, name):
    """The colour named in a sprite file of either format."""
    with open(os.path.join(sprites, name + "-spr.txt")) as f:
        lines = [line.strip() for line in f]
    if lines[0] == "<HEADER>":
        for line in lines:
            if line.startswith("color"):
                return RGB[line.split()[1]]
        return RGB["white"]
    return RGB[lines[4]]


# The smallest cells in which this test tells sprites apart by their colour:
# those of a screen of 1366 by 768 or 1280 by 1024.
SMALLEST_CELL = (7, 14)


def output_of(command, given=None):
    return subprocess.run(command, input=given, check=True, capture_output=True).stdout


def save_whole_screen(path):
    """The whole X screen as a player sees it, window and all, as a PNG file."""
    picture = output_of(["xwdtopnm"], output_of(["xwd", "-silent", "-root"]))
    with open(path, "wb") as f:
        f.write(output_of(["pnmtopng"], picture))


class Screen:
    """One screenshot of the game's window, with its cell grid."""

    def __init__(self, window, columns, rows):
        self.ppm = output_of(["xwdtopnm"], output_of(["xwd", "-silent", "-id", window]))
        header, self.width, self.height, pixels = self.parse(self.ppm)
        self.codes = pixel_codes(pixels)
        self.cell_width = self.width / columns
        self.cell_height = self.height / rows

    @staticmethod
    def parse(ppm):
        fields, at = [], 0
        while len(fields) < 4:
            while ppm[at:at + 1].isspace():
                at += 1
            start = at
            while not ppm[at:at + 1].isspace():
                at += 1
            fields.append(ppm[start:at])
        if fields[0] != b"P6" or fields[3] != b"255":
            raise Failure("xwdtopnm gave no 8-bit colour picture")
        return fields[0], int(fields[1]), int(fields[2]), ppm[at + 1:]

    def cells_of(self, rgb, columns=None, rows=None):
        """The cells, as (column, row), that hold at least a few pixels of `rgb`."""
        columns = columns or range(0, int(self.width / self.cell_width))
        rows = rows or range(0, int(self.height / self.cell_height))
        code = bytes([color_code(rgb)])
        found = []
        for row in rows:
            y0, y1 = int(row * self.cell_height), int((row + 1) * self.cell_height)
            for column in columns:
                x0, x1 = int(column * self.cell_width), int((column + 1) * self.cell_width)
                count = sum(self.codes[y * self.width + x0:y * self.width + x1].count(code)
                            for y in range(y0, y1))
                if count >= 4:
                    found.append((column, row))
        return found

    def save(self, path):
        with open(path, "wb") as f:
            f.write(output_of(["pnmtopng"], self.ppm))


class Game:
    def __init__(self, rustline, play, output):
        self.scratch = tempfile.mkdtemp()
        self.output = output
        os.makedirs(output, exist_ok=True)
        source = os.path.dirname(os.path.abspath(play))
        shutil.copytree(play, os.path.join(self.scratch, "play"))
        for data in ("Sprites", "Sounds"):
            os.symlink(os.path.join(source, data), os.path.join(self.scratch, data))
        self.sprites = os.path.join(source, "Sprites")
        self.workdir = os.path.join(self.scratch, "play")
        self.columns, self.rows = self.grid_size()
        env = {k: v for k, v in os.environ.items() if not k.startswith("MORVANE_")}
        env["ALSOFT_DRIVERS"] = "null"
        self.process = subprocess.Popen([rustline], cwd=self.workdir, env=env)
        self.window = None

    def grid_size(self):
        settings = open(os.path.join(self.workdir, "mv-config.txt")).read().replace("\n", "")
        entries = dict(e.split(":", 1) for e in settings.split(",") if ":" in e
                       and not e.startswith("#"))
        return int(entries["window_horizontal_chars"]), int(entries["window_vertical_chars"])

    def find_window(self):
        deadline = time.time() + 30
        while time.time() < deadline:
            found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Rustline$"],
                                   capture_output=True, text=True).stdout.split()
            if found:
                self.check_screen(found[0])
                subprocess.run(["xdotool", "windowfocus", "--sync", found[0]], check=True)
                return found[0]
            if self.process.poll() is not None:
                raise Failure("rustline ended before its window opened")
            time.sleep(0.2)
        raise Failure("no Rustline window within 30 seconds")

    def check_screen(self, window):
        """Fails at once, saying why, when the X screen cannot show the whole
        window with cells large enough for this test to read."""
        screen = [int(n) for n in subprocess.run(
            ["xdotool", "getdisplaygeometry"], check=True, capture_output=True,
            text=True).stdout.split()]
        shape = dict(line.split("=", 1) for line in subprocess.run(
            ["xdotool", "getwindowgeometry", "--shell", window], check=True,
            capture_output=True, text=True).stdout.split())
        x, y, width, height = (int(shape[k]) for k in ("X", "Y", "WIDTH", "HEIGHT"))
        cell = (width / self.columns, height / self.rows)
        on_screen = x >= 0 and y >= 0 and x + width <= screen[0] and y + height <= screen[1]
        if not on_screen or cell[0] < SMALLEST_CELL[0] or cell[1] < SMALLEST_CELL[1]:
            raise Failure(
                "the X screen of %d by %d pixels cannot show the whole window so that this test "
                "can read it: the window is %d by %d pixels at (%d, %d), cells of %.1f by %.1f; "
                "the test needs it all on the screen with cells of at least %d by %d"
                % (screen[0], screen[1], width, height, x, y, cell[0], cell[1],
                   SMALLEST_CELL[0], SMALLEST_CELL[1]))

    def screen(self):
        return Screen(self.window, self.columns, self.rows)

    def wait_for(self, what, test, seconds=30):
        deadline = time.time() + seconds
        while time.time() < deadline:
            shot = self.screen()
            if test(shot):
                return shot
            if self.process.poll() is not None:
                raise Failure("rustline ended while waiting for " + what)
            time.sleep(0.25)
        raise Failure("waited %d seconds for %s" % (seconds, what))

    def xdotool(self, *arguments):
        subprocess.run(["xdotool"] + list(arguments), check=True)

    def press(self, key):
        """Holds the key long enough for a few frames to see it held down."""
        self.xdotool("keydown", key)
        time.sleep(0.3)
        self.xdotool("keyup", key)

    def mouse_to(self, column, row, shot):
        x = int((column + 0.5) * shot.cell_width)
        y = int((row + 0.5) * shot.cell_height)
        self.xdotool("mousemove", "--window", self.window, str(x), str(y))

    def shows(self, sprite, shot, at_least=3, **region):
        return len(shot.cells_of(sprite_color(self.sprites, sprite), **region)) >= at_least

    def enemy_cells(self, shot):
        interior = dict(columns=range(1, 156), rows=range(8, 40))
        colors = {sprite_color(self.sprites, name) for name in ENEMIES}
        return [cell for color in colors for cell in shot.cells_of(color, **interior)]

    def points_cells(self, shot):
        return len(shot.cells_of(RGB["yellow"], columns=range(105, 157), rows=range(0, 3)))


GAMES_TO_TRY = 3


def shoot_a_robot(game):
    """Starts a game, fires at the nearest robot until one falls, and answers
    the screen that shows its points; None if the hero fell first."""
    game.xdotool("keydown", "p")
    room = game.wait_for("the walls of the first room",
                         lambda s: game.shows("wall-horizontal", s, rows=[7, 40]) and
                         game.enemy_cells(s))
    game.xdotool("keyup", "p")
    room = game.wait_for("both pieces of scenery", lambda s: game.shows("cactus", s, rows=[43, 44, 45])
                         and game.shows("tnt", s, rows=[2, 3, 4]))
    room.save(os.path.join(game.output, "room.png"))
    save_whole_screen(os.path.join(game.output, "room-on-screen.png"))
    points_before = game.points_cells(room)

    game.xdotool("keydown", "d")
    time.sleep(0.4)
    game.xdotool("keyup", "d")

    game.xdotool("mousedown", "1")
    aim = (100, 24)
    fired = False
    deadline = time.time() + 40
    while True:
        shot = game.screen()
        if game.points_cells(shot) > points_before:
            break
        if game.shows("gameover", shot, **CENTRE):
            shot.save(os.path.join(game.output, "hero-fell.png"))
            game.xdotool("mouseup", "1")
            return None
        if time.time() > deadline:
            shot.save(os.path.join(game.output, "no-kill.png"))
            raise Failure("no robot destroyed in 40 seconds: the Points display never grew")
        if not fired and shot.cells_of(sprite_color(game.sprites, "bullet-small"),
                                       columns=range(12, 156), rows=range(8, 40)):
            fired = True
            shot.save(os.path.join(game.output, "firing.png"))
        # The reticle is as white as a wrench robot: what lies under the mouse is no target.
        enemies = [(c, r) for c, r in game.enemy_cells(shot)
                   if abs(c - aim[0]) > 3 or abs(r - aim[1]) > 2]
        if enemies:
            hero = shot.cells_of(sprite_color(game.sprites, "hero"), rows=range(8, 40))
            hx, hy = hero[0] if hero else (7, 24)
            column, row = min(enemies, key=lambda c: (c[0] - hx) ** 2 + (c[1] - hy) ** 2)
            game.mouse_to(column, row, shot)
            aim = (column, row)
        time.sleep(0.2)
    game.xdotool("mouseup", "1")
    return shot


def play(game):
    start = game.wait_for("the start screen", lambda s: game.shows("gamestart", s, **CENTRE), 60)
    start.save(os.path.join(game.output, "start-screen.png"))

    # Rooms are drawn at random, and a room of gun robots can bring the hero
    # down before he hits one: as a person would, the test then plays again.
    for attempt in range(1, GAMES_TO_TRY + 1):
        shot = shoot_a_robot(game)
        if shot is not None:
            break
        if attempt == GAMES_TO_TRY:
            raise Failure("no robot destroyed in %d games: the Points display never grew"
                          % GAMES_TO_TRY)
        game.wait_for("the start screen after a fall",
                      lambda s: game.shows("gamestart", s, **CENTRE) and
                      not game.shows("wall-horizontal", s, rows=[7, 40]))
    shot.save(os.path.join(game.output, "robot-destroyed.png"))

    game.press("Escape")
    end = game.wait_for("the end screen", lambda s: game.shows("gameover", s, **CENTRE))
    end.save(os.path.join(game.output, "end-screen.png"))
    game.wait_for("the start screen again",
                  lambda s: game.shows("gamestart", s, **CENTRE) and
                  not game.shows("wall-horizontal", s, rows=[7, 40]))

    game.press("q")
    check_exit(game, "Q")


def stop_by_signal(game):
    game.wait_for("the start screen", lambda s: game.shows("gamestart", s, **CENTRE), 60)
    game.process.send_signal(signal.SIGTERM)
    check_exit(game, "SIGTERM")


def check_exit(game, ended_by):
    code = game.process.wait(timeout=30)
    if code != 0:
        raise Failure("rustline exited with %d after %s" % (code, ended_by))
    log = open(os.path.join(game.workdir, "morvane.log")).read().splitlines()
    errors = [line for line in log if "Error!" in line]
    if errors:
        raise Failure("the log holds errors:\n" + "\n".join(errors))
    if not log or not log[-1].endswith("** Game engine stopped **"):
        raise Failure("after %s the log ends before the engine's stop line" % ended_by)


def main():
    arguments = sys.argv[1:]
    by_signal = arguments[:1] == ["--signal"]
    rustline, play_folder, output = arguments[1:4] if by_signal else arguments[0:3]
    game = Game(rustline, play_folder, output)
    try:
        game.window = game.find_window()
        stop_by_signal(game) if by_signal else play(game)
    except (Failure, subprocess.SubprocessError) as failure:
        print("FAILED:", failure)
        log = os.path.join(game.workdir, "morvane.log")
        if os.path.exists(log):
            print(open(log).read())
        return 1
    finally:
        if game.process.poll() is None:
            game.process.kill()
        shutil.rmtree(game.scratch, ignore_errors=True)
    print("rustline stopped on SIGTERM with its log whole" if by_signal else
          "rustline played from the start screen through a room and the end screen, and left")
    return 0


if __name__ == "__main__":
    sys.exit(main())
