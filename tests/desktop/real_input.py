#!/usr/bin/env python3
"""Works the program's own windows as a person does, and compares what is then in the account.

Keys and mouse clicks are real events of the display (xdotool); run it under scripts/with-display.
What it waits for is what a person waits for: a window that appears or goes, a row that is saved.
"""

import argparse
import os
import sqlite3
import subprocess
import sys
import tempfile
import time
import unittest
from contextlib import closing
from pathlib import Path

PATIENCE_SECONDS = 60
GLANCE_SECONDS = 0.05
BLINK_SECONDS = 0.3
HELD_SECONDS = 2.0  # long enough for a key to repeat
SCENARIOS = Path(__file__).resolve().parent.parent / "scenario"
DATA = [SCENARIOS / "small.sql", SCENARIOS / "small_details.sql"]
LIST = "项目期初录入"
DETAILS = "期初余额"
MESSAGE = "提示信息"
HINT = "项目管理"
SCALE = int(os.environ.get("GDK_SCALE", "1"))
program = None


def xdotool(*arguments):
    done = subprocess.run(["xdotool", *map(str, arguments)], capture_output=True,
                          encoding="utf-8", check=False)
    return done.stdout.strip()


class Window:
    """One shown window of the program, by its title."""

    def __init__(self, title):
        self.title = title

    @staticmethod
    def shown():
        """The identities of the program's shown windows by their titles."""
        titles = {}
        for identity in xdotool("search", "--onlyvisible", "--class", "kelvane").split():
            titles[xdotool("getwindowname", identity)] = identity
        return titles

    def place(self):
        """Screen position and size in pixels."""
        lines = xdotool("getwindowgeometry", "--shell", self.shown()[self.title]).splitlines()
        values = dict(line.split("=") for line in lines)
        return [int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT")]


class Person(unittest.TestCase):
    """Somebody in front of the program's windows, with an account of his own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kelvane-desktop-")
        self.addCleanup(folder.cleanup)
        self.account = Path(folder.name) / "account.kelvane"
        self.environment = dict(os.environ, HOME=folder.name, XDG_CONFIG_HOME=folder.name,
                                KELVANE_SETTINGS=str(Path(folder.name) / "settings.ini"))
        subprocess.run([program, "init", "--keywords", "1", self.account], check=True,
                       env=self.environment, capture_output=True)
        with closing(sqlite3.connect(self.account)) as database:
            for data in DATA:
                database.executescript(data.read_text(encoding="utf-8"))
            # A file keeps amounts as texts with four decimals.
            database.execute("update PM_ItemQC set mQC = printf('%.4f', mQC)")
            database.execute("update PM_ItemQCsub set iUprice = printf('%.4f', iUprice),"
                             " mQC = printf('%.4f', mQC)")
            database.commit()
        self.process = None
        self.addCleanup(self.end)

    def open(self):
        self.process = subprocess.Popen([program, "open", self.account], env=self.environment)
        self.see(LIST)

    def end(self):
        if self.process is not None and self.process.poll() is None:
            self.process.kill()
        if self.process is not None:
            self.process.wait()

    def rows(self, query):
        with closing(sqlite3.connect(self.account)) as database:
            return database.execute(query).fetchall()

    def wait(self, what, condition):
        end = time.monotonic() + PATIENCE_SECONDS
        while time.monotonic() < end:
            if condition():
                return
            time.sleep(GLANCE_SECONDS)
        self.fail("never seen: " + what)

    def see(self, title):
        """Waits for a window and puts the keyboard on it: without a window manager the keyboard
        follows the mouse."""
        self.wait("window " + title, lambda: title in Window.shown())
        left, top, _, _ = Window(title).place()
        xdotool("mousemove", left + 3, top + 3)
        time.sleep(BLINK_SECONDS)

    def gone(self, title):
        self.wait("window closed: " + title, lambda: title not in Window.shown())
        time.sleep(BLINK_SECONDS)

    def keys(self, *names):
        xdotool("key", "--delay", 40, *names)

    def type(self, text):
        """Letters that the usual keyboard lacks are in keyboard.xkb."""
        xdotool("type", "--delay", 40, text)

    def click(self, title, right, down):
        """Clicks in a window, at pixels as 100 % scaling counts them."""
        left, top, _, _ = Window(title).place()
        xdotool("mousemove", left + right * SCALE, top + down * SCALE, "click", 1)
        time.sleep(BLINK_SECONDS)

    def answer(self, *keys, title=MESSAGE):
        self.see(title)
        self.keys(*keys)
        self.gone(title)

    def close(self):
        self.keys("alt+F4")
        self.answer("Return")
        self.assertEqual(self.process.wait(PATIENCE_SECONDS), 0)


class RealInput(Person):
    def test_an_entry_is_added_by_keyboard_and_found_again(self):
        self.open()
        self.keys("ctrl+i", "ctrl+End")
        self.answer("Return", title=HINT)  # the last cell, the amount, asks for the element first
        self.see(LIST)
        self.keys("Home", "Right")
        self.type("D02")
        self.keys("Tab", "F2")
        time.sleep(BLINK_SECONDS)
        self.keys("F2")  # in the open cell: its list
        self.wait("pick list", lambda: len(Window.shown()) == 2)
        time.sleep(BLINK_SECONDS)
        pick = next(title for title in Window.shown() if title != LIST)
        self.see(pick)
        self.type("p02")
        self.keys("Return")
        self.gone(pick)
        self.see(LIST)
        self.keys("Tab")
        self.type("人工费")
        self.keys("Tab")
        self.type("二月 人工")
        self.keys("Tab")
        self.type("2000.5")
        self.keys("Return")
        self.wait("saved row", lambda: len(self.rows("select * from PM_ItemQC")) == 6)
        saved = self.rows("select cCenterCode, cItemCode, cKeyCode1, cElementCode, cDigest, mQC "
                          "from PM_ItemQC where iEleVid = 6")
        self.assertEqual(saved, [("D02", "P02", "一标段", "E01", "二月 人工", "2000.5000")])
        self.close()

        self.open()
        self.close()
        self.assertEqual(len(self.rows("select * from PM_ItemQC")), 6)

    def test_a_cell_is_changed_by_mouse_and_saved_on_leaving_its_row(self):
        self.open()
        first_row = 42 + 28 + 27 + 10
        digest = (1300 + 1200 + 1200 + 2500 + 1500 + 1500) // 15 + 40
        left, top, _, _ = Window(LIST).place()
        xdotool("mousemove", left + digest * SCALE, top + first_row * SCALE,
                "click", "--repeat", 2, "--delay", 80, 1)
        time.sleep(BLINK_SECONDS)
        self.keys("End")
        self.type("x9")
        self.click(LIST, digest, first_row + 20)
        self.wait("saved digest", lambda: self.rows(
            "select count(*) from PM_ItemQC where cDigest like '%x9'") == [(1,)])
        self.close()

    def test_a_refused_entry_is_not_saved(self):
        self.open()
        before = self.rows("select * from PM_ItemQC order by iEleVid")
        self.keys("ctrl+Home", "Right")
        self.type("D99")
        self.keys("Down")
        self.answer("Return")
        self.see(LIST)
        self.keys("Escape", "Down")
        self.close()
        self.assertEqual(self.rows("select * from PM_ItemQC order by iEleVid"), before)

    def digests(self):
        return self.rows("select iEleVid, cDigest, mQC from PM_ItemQC where iEleVid in (1, 2)"
                         " order by iEleVid")

    def test_a_refused_text_is_typed_over(self):
        self.open()
        self.keys("ctrl+Home")
        self.type("2004.02.30")
        self.keys("Down")
        self.answer("Return")
        self.see(LIST)
        self.type("2004.06.05")
        self.keys("Down")
        self.wait("saved date", lambda: self.rows(
            "select count(*) from PM_ItemQC where iEleVid = 1 and dDate like '2004-06-05%'")
            == [(1,)])
        self.close()

    def test_changes_are_taken_back_one_by_one(self):
        self.open()
        self.keys("ctrl+Home", "End", "Left")
        self.type("x9")
        self.keys("Return")
        self.type("5")
        self.keys("Return")  # saved, in the next row
        self.wait("saved", lambda: self.digests()[0] == (1, "x9", "5.0000"))
        self.keys("Up", "End", "Left")
        self.type("y8")
        self.keys("Return")
        self.type("6")
        # Into the item's column, where other keys do nothing, and there once back.
        self.keys("shift+Tab", "Home", "Right", "Right", "ctrl+z", "Down")
        self.wait("saved", lambda: self.digests()[0] == (1, "y8", "5.0000"))
        self.close()

    def test_a_row_goes_back_with_escape(self):
        self.open()
        before = self.digests()
        self.keys("ctrl+Home", "End", "Left")
        self.type("x9")
        self.keys("Return")
        self.type("5")
        self.keys("Left", "Escape", "Escape", "Down", "End", "Left")
        self.type("z7")
        self.keys("Down")
        self.wait("saved", lambda: self.digests()[1][1] == "z7")
        self.assertEqual(self.digests()[0], before[0])
        self.close()

    def test_nobody_is_caught_in_a_row(self):
        with closing(sqlite3.connect(self.account)) as database:
            database.execute("update PM_ItemQC set cCenterCode = 'D09' where iEleVid = 1")
            database.commit()
        self.open()
        self.keys("ctrl+Home", "Down")
        self.answer("Return")
        self.see(LIST)
        self.keys("Escape", "Down", "End", "Left")
        self.type("z7")
        self.keys("Down")
        self.wait("saved", lambda: self.digests()[1][1] == "z7")
        self.close()
        self.assertEqual(self.rows("select cCenterCode from PM_ItemQC where iEleVid = 1"),
                         [("D09",)])

    def open_details(self):
        """Opens the lines of the second entry, an amount of inventory lines, by keyboard."""
        self.open()
        self.keys("ctrl+Home", "Down", "End", "F2")
        time.sleep(BLINK_SECONDS)
        self.keys("F2")
        self.see(DETAILS)

    def lines(self):
        return self.rows("select cCodeMx, iUprice, iNum, mQC from PM_ItemQCsub"
                         " where iEleVid = 2 order by rowid")

    def leave_details(self):
        self.gone(DETAILS)
        self.see(LIST)

    def test_detail_lines_are_entered_by_keyboard_and_saved_with_their_row(self):
        self.open_details()
        self.keys("F5")
        self.type("M03")
        self.keys("Return", "Return", "Return")
        self.type("2.5")
        self.keys("Return", "F6")
        self.leave_details()
        before = self.lines()
        self.assertEqual(before, [("M01", "10.0000", 20.0, "200.0000"),
                                  ("M02", "5.0000", 30.0, "150.0000")])
        self.keys("Up")
        self.wait("saved lines", lambda: len(self.lines()) == 3)
        self.assertEqual(self.lines(), before + [("M03", "20.0000", 2.5, "50.0000")])
        self.assertEqual(self.rows("select mQC from PM_ItemQC where iEleVid = 2"),
                         [("400.0000",)])
        self.close()

    def test_a_line_is_picked_and_another_deleted_by_mouse(self):
        self.open()
        row = 42 + 28 + 27 + 20 + 10
        amount = (1300 + 1200 + 1200 + 2500 + 1500 + 1500 + 1500) // 15
        self.click(LIST, amount + 80, row)
        self.keys("Home", "End", "F2")
        time.sleep(BLINK_SECONDS)
        self.keys("F2")
        self.see(DETAILS)
        self.click(DETAILS, 40, 42 + 60 + 27 + 10)
        self.click(DETAILS, 70, 42 + 60 + 27 + 10)  # the code's reference button
        self.wait("pick list", lambda: len(Window.shown()) == 3)
        time.sleep(BLINK_SECONDS)
        pick = next(title for title in Window.shown() if title not in (LIST, DETAILS))
        self.see(pick)
        self.type("M03")
        self.keys("Return")
        self.gone(pick)
        self.see(DETAILS)
        self.click(DETAILS, 40, 42 + 60 + 27 + 30)
        self.click(DETAILS, 330, 20)  # the toolbar's button
        self.answer("Return", title=HINT)
        self.see(DETAILS)
        self.click(DETAILS, 410, 20)
        self.leave_details()
        self.keys("Down")
        self.wait("saved lines", lambda: len(self.lines()) == 1)
        self.assertEqual(self.lines(), [("M03", "20.0000", 20.0, "400.0000")])
        self.close()

    def test_the_key_for_lists_opens_no_items_and_no_locked_lines(self):
        self.open()
        self.keys("ctrl+Home", "Right", "Right", "alt+Down")
        time.sleep(BLINK_SECONDS)
        self.assertEqual(list(Window.shown()), [LIST])
        self.keys("F2")
        time.sleep(BLINK_SECONDS)
        self.keys("F2")
        self.wait("pick list", lambda: len(Window.shown()) == 2)
        time.sleep(BLINK_SECONDS)
        pick = next(title for title in Window.shown() if title != LIST)
        self.see(pick)
        self.keys("Down", "Return")
        self.gone(pick)
        self.see(LIST)
        self.keys("Tab", "ctrl+End", "Up", "alt+Down")  # the lines of a settled item
        time.sleep(BLINK_SECONDS)
        self.assertEqual(list(Window.shown()), [LIST])
        self.keys("ctrl+Return")
        self.see(DETAILS)
        self.keys("ctrl+F4")
        self.leave_details()
        self.close()

    def test_quitting_details_leaves_the_list_open(self):
        self.open()
        self.keys("ctrl+End", "Up", "ctrl+Return")  # the lines of a settled item
        self.see(DETAILS)
        # A slow finger: the list sees the key repeated and released.
        xdotool("keydown", "ctrl", "keydown", "F4")
        self.leave_details()
        time.sleep(HELD_SECONDS)
        xdotool("keyup", "F4", "keyup", "ctrl")
        time.sleep(BLINK_SECONDS)
        self.assertEqual(list(Window.shown()), [LIST])
        self.close()

    def test_changed_lines_are_not_quit_without_asking(self):
        self.open_details()
        self.keys("Down", "End", "Left")
        self.type("7")
        self.keys("alt+F4")
        self.answer("Escape", title=HINT)
        time.sleep(BLINK_SECONDS)
        self.see(DETAILS)
        self.keys("ctrl+F4")
        self.answer("Return", title=HINT)
        self.leave_details()
        self.keys("Escape", "Up")
        self.close()
        self.assertEqual(len(self.lines()), 2)

    def entry(self, identity, field="cDigest"):
        return self.rows(f"select {field} from PM_ItemQC where iEleVid = {identity}")

    def test_a_list_sorted_by_a_click_is_changed_in_the_right_entry(self):
        self.open()
        title = 42 + 28 + 13
        row = 42 + 28 + 27 + 10
        amount = (1300 + 1200 + 1200 + 2500 + 1500 + 1500 + 1500) // 15 + 40
        self.click(LIST, amount, title)  # ascending: the fourth entry, of 0.00, comes first
        self.click(LIST, amount - 100, row)
        self.type("first")
        self.keys("Return")
        self.click(LIST, amount, title)  # descending: it comes last, still the current one
        self.wait("saved digest", lambda: self.entry(4) == [("first",)])
        self.keys("ctrl+Home", "End", "Left")
        self.type("largest")
        self.keys("Return", "Down")
        self.wait("saved digest", lambda: self.entry(1) == [("largest",)])
        # The stored order again, in which the second entry's item is the second.
        self.keys("Escape", "ctrl+Home", "Down", "End", "Left")
        self.type("stored")
        self.keys("Return", "Up")
        self.wait("saved digest", lambda: self.entry(2) == [("stored",)])
        self.close()

    def test_a_search_is_typed_and_goes_to_its_hit(self):
        self.open()
        self.keys("ctrl+f")
        self.type("shl")  # the initials of two items, of which the second one's entry is not settled
        self.keys("Return", "Return", "Escape", "End", "Left")
        self.type("found")
        self.keys("Return", "Up")
        self.wait("saved digest", lambda: self.entry(5) == [("found",)])
        # What was only looked at is not gone to: the row is the one from before.
        self.keys("ctrl+Home", "ctrl+f")
        self.type("p03")
        self.keys("Escape", "End", "Left")
        self.type("kept")
        self.keys("Return", "Down")
        self.wait("saved digest", lambda: self.entry(1) == [("kept",)])
        self.close()

    def test_a_value_is_chosen_to_filter_by(self):
        self.open()
        self.keys("ctrl+Home", "Right", "ctrl+shift+l")
        values = "筛选：责任中心"
        self.see(values)
        self.type("d02")
        self.keys("Return")
        self.gone(values)
        self.see(LIST)
        self.keys("ctrl+Home", "End", "Left")
        self.type("alone")
        self.keys("Return")
        # The other rows come back, and the row is left for the one above it.
        title = 42 + 28 + 13
        self.click(LIST, 40, title)
        self.wait("saved digest", lambda: self.entry(4) == [("alone",)])
        self.keys("Escape", "Up", "End", "Left")
        self.type("above")
        self.keys("Return", "Up")
        self.wait("saved digest", lambda: self.entry(2) == [("above",)])
        self.close()

    def test_a_cell_and_an_entry_are_entered_again_by_keyboard(self):
        self.open()
        digest = ["ctrl+Home", "Down", "End", "Left"]
        self.keys(*digest, "ctrl+apostrophe", "Up")
        self.wait("saved digest", lambda: self.rows(
            "select cDigest from PM_ItemQC where iEleVid = 2") == [("一月人工",)])
        self.keys("ctrl+e", "Up")
        self.wait("saved entry", lambda: len(self.rows("select * from PM_ItemQC")) == 6)
        columns = "cCenterCode, cItemCode, cKeyCode1, cElementCode, cDigest, mQC"
        self.assertEqual(self.rows(f"select {columns} from PM_ItemQC where iEleVid = 6"),
                         self.rows(f"select {columns} from PM_ItemQC where iEleVid = 1"))
        self.close()

    def test_windows_open_as_they_were_left(self):
        kept = Path(self.environment["XDG_CONFIG_HOME"]) / "kelvane" / "windows.txt"
        self.open()
        self.keys("ctrl+plus")
        edge = (1300 + 1200) // 15 * 11 // 10
        left, top, _, _ = Window(LIST).place()
        header = top + (42 + 28 + 13) * SCALE
        xdotool("mousemove", left + edge * SCALE, header, "mousedown", 1,
                "mousemove", left + (edge + 44) * SCALE, header, "mouseup", 1)
        time.sleep(BLINK_SECONDS)
        self.close()
        account, operator, window, layout = kept.read_text(encoding="utf-8").rstrip().split("\t")
        self.assertEqual((account, window), (str(self.account.resolve()), "frmPeriodItem"))
        self.assertTrue(operator)
        self.assertRegex(layout, r"^zoom 110 column 2 1[78]\d\d$")
        self.assertEqual(kept.stat().st_mode & 0o777, 0o600)

        # The second time the column is there with its width, which goes on being kept.
        self.open()
        self.keys("ctrl+0")
        self.close()
        self.assertEqual(kept.read_text(encoding="utf-8").rstrip().split("\t")[3],
                         layout.removeprefix("zoom 110 "))


def main():
    global program
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True, help="the program kelvane")
    arguments, rest = parser.parse_known_args()
    program = str(Path(arguments.program).resolve())
    unittest.main(argv=[sys.argv[0], *rest], verbosity=2)


if __name__ == "__main__":
    main()
