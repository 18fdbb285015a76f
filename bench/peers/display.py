"""A display whose picture is read from its memory, so that all programs are watched in the same way and
none is asked."""
import array
import mmap
import os
import struct
import subprocess
import time
from pathlib import Path

WIDTH, HEIGHT = 1280, 900
# Where any of the programs shows rows and nothing else: lines and columns of the picture.
TOP, BOTTOM, LEFT, RIGHT = 320, 720, 100, 900
# A cursor that blinks and a row that is marked change fewer lines than that; a page changes more.
SAME = 0.9
# A table has so many rows of letters in that part of the picture.
ROWS = 8
# A line of the picture with more colours than that has letters in it.
COLOURS = 12

EVERY_WINDOW_FILLS_THE_SCREEN = """<openbox_config xmlns="http://openbox.org/3.4/rc"><applications>
<application class="*"><decor>no</decor><maximized>yes</maximized><focus>yes</focus></application>
</applications></openbox_config>"""


class NothingSeen(Exception):
    pass


def alike(one, other):
    return sum(a == b for a, b in zip(one, other)) >= SAME * len(other)


def picture_of(lines):
    return [hash(line) for line in lines]


def shows_rows(lines):
    lettered = [len(set(array.array("I", line))) > COLOURS for line in lines]
    return sum(b and not a for a, b in zip(lettered, lettered[1:])) >= ROWS


def settled_at(frames):
    """When the picture became what it is at the end of `frames`, pairs of a time and a picture, and
    stayed so."""
    last = frames[-1][1]
    since = frames[-1][0]
    for when, picture in reversed(frames):
        if not alike(picture, last):
            break
        since = when
    return since


class Display:
    def __init__(self, folder):
        folder = Path(folder)
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-fbdir", folder,
             "-nolisten", "tcp", "-noreset"], pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as told:
            self.name = f":{int(told.readline())}"
        self.environment = {**os.environ, "DISPLAY": self.name}
        rules = folder / "openbox.xml"
        rules.write_text(EVERY_WINDOW_FILLS_THE_SCREEN, encoding="utf-8")
        self.manager = subprocess.Popen(["openbox", "--config-file", rules], env=self.environment,
                                        stderr=subprocess.DEVNULL)
        self._await_manager()
        self.hand = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE, text=True,
                                     env=self.environment)
        with open(folder / "Xvfb_screen0", "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ)
        header = struct.unpack(">25I", self.memory[:100])
        self.pixels, self.stride = header[0] + header[19] * 12, header[12]

    def _await_manager(self):
        """A window that comes before who manages windows may stay empty."""
        while "window id" not in subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], check=True,
                                                env=self.environment, capture_output=True, text=True).stdout:
            time.sleep(0.05)

    def close(self):
        self.hand.stdin.close()
        for process in (self.hand, self.manager, self.server):
            process.terminate()
            process.wait()

    def do(self, command):
        """Moves and presses, as xdotool knows them."""
        print(command, file=self.hand.stdin, flush=True)

    def _lines(self):
        starts = (self.pixels + line * self.stride for line in range(TOP, BOTTOM))
        return [self.memory[start + 4 * LEFT:start + 4 * RIGHT] for start in starts]

    def picture(self):
        return picture_of(self._lines())

    def await_rows(self, start, quiet, longest, is_running):
        """Seconds from `start` until rows could be seen that stayed for `quiet` seconds."""
        return self._await(start, quiet, longest, is_running, shows_rows)

    def await_change(self, start, quiet, longest, is_running, before):
        """Seconds from `start` until the picture was no longer `before` and stayed so."""
        return self._await(start, quiet, longest, is_running,
                           lambda lines: not alike(picture_of(lines), before))

    def _await(self, start, quiet, longest, is_running, is_reached):
        frames = []
        while True:
            lines = self._lines()
            now = time.perf_counter()
            picture = picture_of(lines)
            if not frames or picture != frames[-1][1]:
                frames.append((now, picture))
            if now - settled_at(frames) > quiet and is_reached(lines):
                return settled_at(frames) - start
            if not is_running():
                raise NothingSeen("it ended")
            if now - start > longest:
                raise NothingSeen(f"nothing in {longest} s")
            time.sleep(0.002)

    def save(self, file):
        subprocess.run(["import", "-window", "root", file], env=self.environment, check=True)
