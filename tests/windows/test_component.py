#!/usr/bin/env python3
"""The component as Windows programs see it: registered, created, initialised and shown by hosts in
VBScript and JScript, its real windows driven in the host's process, its account on PostgreSQL.

  scripts/with-postgres scripts/with-wine tests/windows/test_component.py PACKAGE ADO PROGRAM

PACKAGE is the folder that scripts/build-windows makes, ADO the tests' own data-access objects, and
PROGRAM the program of this system, which creates the account.
"""

import os
import re
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

import wine_session

PACKAGE, ADO, PROGRAM = (Path(argument) for argument in sys.argv[1:4])
del sys.argv[1:4]
TRIAL = PACKAGE / "samples" / "trial.vbs"
SCRIPTS = wine_session.HERE / "scripts"
ROOT = Path(__file__).resolve().parents[2]
YEAR = "2004"
SHOW_SECONDS = 600
ANSWER_SECONDS = 15
NO_SERVER = "Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=1;Database=none;UID=none;PWD=secret"
# The columns that nobody edits, at the least: less than a tenth of what they take.
LOCKED_PIXELS = 10000
# What the script engine's own heap may grow by in a hundred rounds.
ROUND_GROWTH_KILOBYTES = 2048


def connection_string():
    return os.environ["KELVANE_TEST_POSTGRES"]


def query(statement):
    """The rows of a query as PostgreSQL's own client prints them."""
    parts = dict(part.split("=", 1) for part in connection_string().split(";") if "=" in part)
    result = subprocess.run(
        ["psql", "-h", parts["Server"], "-p", parts["Port"], "-U", parts["UID"], "-At",
         parts["Database"], "-c", statement],
        env={**os.environ, "PGPASSWORD": parts["PWD"], "PGCLIENTENCODING": "UTF8"},
        capture_output=True, check=True, encoding="utf-8", timeout=120)
    return result.stdout.splitlines()


def is_shown(title):
    """Whether a window with the title is to be seen."""
    return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], check=False,
                          capture_output=True, timeout=120).returncode == 0


def wait_for(condition, seconds):
    """Waits until the condition holds; whether it did."""
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.2)
    return True


def press(key, condition):
    """Presses a key until the condition holds: a window takes the keyboard some time after it is
    seen, and until then a key is lost."""
    for _ in range(SHOW_SECONDS // ANSWER_SECONDS):
        subprocess.run(["xdotool", "key", key], check=True, timeout=120)
        if wait_for(condition, ANSWER_SECONDS):
            return
    raise AssertionError(f"nothing came of the key {key}")


def wait_for_pixels(colour):
    """How many pixels of the screen have the colour, once it has painted enough of them."""
    end = time.monotonic() + SHOW_SECONDS
    with tempfile.TemporaryDirectory() as folder:
        picture = Path(folder, "screen.png")
        while True:
            subprocess.run(["import", "-window", "root", picture], check=True, timeout=120)
            raw = subprocess.run(["convert", picture, "-depth", "8", "rgb:-"], check=True,
                                 capture_output=True, timeout=120).stdout
            count = sum(raw[at:at + 3] == colour for at in range(0, len(raw), 3))
            if count > LOCKED_PIXELS or time.monotonic() > end:
                wine_session.keep(picture, "screen.png")
                return count
            time.sleep(0.5)


class Host:
    """One run of a host, with the operator script that works its windows."""

    def __init__(self, script, operator_script, *steps):
        self.report, self.transcript = wine_session.run_driven(
            script, connection_string(), wine_session.windows_path(PACKAGE), YEAR, *steps,
            operator_script=operator_script, seconds=SHOW_SECONDS)


class ComponentTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        wine_session.register_all(ADO, PACKAGE / "Kelvane.dll")

    def setUp(self):
        subprocess.run([PROGRAM, "init", "--sample", "--force", "--database", connection_string()],
                       check=True, capture_output=True, timeout=120)

    def host(self, *steps, operator_script="close\n", script=TRIAL):
        return Host(script, operator_script, *steps)

    def test_saves_an_entry_with_its_lines(self):
        script = Path(SCRIPTS, "save_entry.script").read_text(encoding="utf-8")
        host = self.host("init", "show", operator_script=script)
        self.assertEqual(host.report, ["create: done", "Init gives Boolean -1", "init: done",
                                       "show: done", "end of script"])
        self.assertIn("1 0 0101|履带式挖掘机|#PC200|1,240.00|2.000|#2,480.00", host.transcript)
        self.assertEqual(host.transcript[-1], "close frmPeriodItem")
        self.assertEqual(
            query('select "iEleVid", "dDate", "cCenterCode", "cItemCode", "cElementCode",'
                  ' "cDigest", "mQC" from "PM_ItemQC" where "iEleVid" = 26'),
            ["26|2004-06-05 00:00:00|D01|P001|E21|塔吊进场|2480.0000"])
        self.assertEqual(
            query('select "cCodeMx", "iUprice", "iNum", "mQC" from "PM_ItemQCsub"'
                  ' where "iEleVid" = 26'),
            ["0101|1240.0000|2|2480.0000"])
        self.assertEqual(
            query("""select "cValue" from "PM_SettingInf" where "cName" = 'NumMax_EleQc'"""),
            ["26"])

    def test_imports_pasted_rows(self):
        script = Path(SCRIPTS, "import_rows.script").read_text(encoding="utf-8")
        host = self.host("init", "show", operator_script=script)
        self.assertEqual(host.report, ["create: done", "Init gives Boolean -1", "init: done",
                                       "show: done", "end of script"])
        self.assertIn("2 1 !3|2003-12-06|D01|!P999||一标段||检验试验费|取样|20.50||",
                      host.transcript)
        self.assertIn('hint "已导入期初：新增 2 行（批次 1）。"', host.transcript)
        self.assertEqual(host.transcript[-1], "close frmPeriodItem")
        self.assertEqual(
            query('select "iEleVid", "dDate", "cItemCode", "cElementCode", "cDigest", "mQC"'
                  ' from "PM_ItemQC" where "iEleVid" > 25 order by 1'),
            ["26|2003-12-05 00:00:00|P001|E01|塔吊|1000.0000",
             "27|2003-12-06 00:00:00|P001|E06|取样|20.5000"])

    def test_host_in_jscript(self):
        host = self.host(script=SCRIPTS / "host.js", operator_script="print grid\nclose\n")
        self.assertEqual(host.report, ["Init gives true", "Show returned", "end of script"])
        self.assertIn("25 16 |2003-02-16|D08|P030|#机场滑行道加固|#二标段|#|检验试验费|"
                      "截至启用前累计发生|110,000.00", host.transcript)

    def test_show_twice_and_another_login(self):
        host = self.host("init", "show", "show", "string=Provider=SQLOLEDB.1;" +
                         connection_string(), "init", "show")
        self.assertEqual(host.report, ["create: done", "Init gives Boolean -1", "init: done",
                                       "show: done", "show: done", "Init gives Boolean -1",
                                       "init: done", "show: done", "end of script"])
        self.assertEqual(host.transcript.count("open frmPeriodItem"), 3)
        self.assertEqual(host.transcript.count("close frmPeriodItem"), 3)

    def test_show_before_init(self):
        report = self.host("show").report
        self.assertEqual(report[1].split()[:2], ["show:", "80040206"])
        self.assertEqual(report[2:], ["end of script"])

    def test_version(self):
        version = re.search(r"project\(Kelvane VERSION ([0-9.]+)",
                            (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")).group(1)
        self.assertEqual(self.host("version").report,
                         ["create: done", f"Version {version}", "version: done", "end of script"])

    def test_a_year_that_is_no_number(self):
        report = self.host("year=this one", "init").report
        self.assertRegex(report[1], "^init: 80040201 .+: objLogin.Year：.")
        self.assertEqual(report[2:], ["end of script"])

    def test_no_data_access(self):
        report = self.host("no-data", "init").report
        self.assertRegex(report[1], "^init: 80040201 .+: objEnv.DataAccess：.")
        self.assertEqual(report[2:], ["end of script"])

    def test_host_object_without_a_member(self):
        report = self.host("unnamed").report
        self.assertRegex(report[1], "^unnamed: 80040201 .+ / A host object did not give what it was"
                                    " asked for: objLogin.ConnectionString：.")
        self.assertEqual(report[2:], ["end of script"])

    def test_connection_that_fails_and_the_next_one(self):
        host = self.host("string=" + NO_SERVER, "init", "string=" + connection_string(), "init",
                         "show")
        self.assertRegex(host.report[1], "^init: 8004020[24] .")
        self.assertNotIn("secret", "".join(host.report))
        # What the driver said may take several lines.
        self.assertEqual(host.report[-4:], ["Init gives Boolean -1", "init: done", "show: done",
                                            "end of script"])

    def test_person_at_screen_and_keyboard(self):
        with tempfile.TemporaryDirectory() as folder:
            report = Path(folder, "report.txt")
            host = self.start_host(report, "init", "show")
            try:
                self.assertTrue(wait_for(lambda: is_shown("项目期初录入"), SHOW_SECONDS))
                locked = wait_for_pixels(bytes((205, 208, 215)))
                press("ctrl+F4", lambda: is_shown("提示信息"))
                press("Return", lambda: host.poll() is not None)
            finally:
                host.kill()
                host.wait()
            lines = report.read_bytes().decode("utf-16").splitlines()
        self.assertGreater(locked, LOCKED_PIXELS, "the locked cells are not to be seen")
        self.assertEqual(lines, ["create: done", "Init gives Boolean -1", "init: done",
                                 "show: done", "end of script"])

    def test_many_rounds_take_no_more_memory(self):
        few, many = (self.peak_memory(rounds) for rounds in (20, 120))
        self.assertLess(many - few, ROUND_GROWTH_KILOBYTES,
                        f"{few} kB with 20 rounds, {many} kB with 120")

    @staticmethod
    def start_host(report, *steps):
        """A host in VBScript that runs on its own; nothing but a person works its windows."""
        return subprocess.Popen(
            ["wine", wine_session.SYSTEM + "cscript.exe", "//nologo",
             wine_session.windows_path(TRIAL),
             wine_session.windows_path(report), connection_string(),
             wine_session.windows_path(PACKAGE), YEAR, *steps],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def peak_memory(self, rounds):
        """The most memory that a host held which created, initialised and released so often."""
        with tempfile.TemporaryDirectory() as folder:
            report = Path(folder, "report.txt")
            host = self.start_host(report, f"rounds={rounds}")
            _, status, usage = os.wait4(host.pid, 0)
            host.returncode = os.waitstatus_to_exitcode(status)
            lines = report.read_bytes().decode("utf-16").splitlines()
        self.assertEqual(lines, ["create: done", f"{rounds} rounds", f"rounds={rounds}: done",
                                 "end of script"])
        return usage.ru_maxrss


if __name__ == "__main__":
    unittest.main(verbosity=2)
