#!/usr/bin/env python3
"""The program on a server: making an account, refusing, replacing, exporting, and its passwords."""

import json
import os
import pty
import re
import sqlite3
import subprocess
import sys
import tempfile
import unittest
from contextlib import closing
from pathlib import Path

program, tool = sys.argv[1:3]


class ServerAccount(unittest.TestCase):
    def setUp(self):
        self.place = subprocess.Popen([tool], encoding="utf-8", stdin=subprocess.PIPE,
                                      stdout=subprocess.PIPE)
        self.addCleanup(self.leave)
        lines = []
        while not lines or lines[-1] != "done":
            lines.append(self.place.stdout.readline().rstrip("\n"))
            self.assertFalse(lines[-1].startswith("error"), lines[-1])
        self.database = lines[2].removeprefix("word ")
        self.password = re.search("PWD=([^;]*)", self.database).group(1)
        self.without_password = self.database.replace(";PWD=" + self.password, "")
        name = re.search("Database=([^;]*)", self.database).group(1)
        self.name = f"{name} on 127.0.0.1"

    def leave(self):
        self.place.stdin.close()
        self.place.wait()
        self.place.stdout.close()

    def run_program(self, *arguments, database=None, script="", **variables):
        ended = subprocess.run([program, *arguments, "--database", database or self.database],
                               input=script, encoding="utf-8", capture_output=True, check=False,
                               env=os.environ | variables)
        self.assertNotIn(self.password, ended.stdout + ended.stderr)
        return ended

    def test_an_account_is_made_and_not_overwritten(self):
        made = self.run_program("init", "--sample", "--entries", "5")
        self.assertEqual((made.stdout, made.stderr),
                         (f"{self.name}: sample account with 5 entries\n", ""))
        again = self.run_program("init")
        self.assertEqual(again.returncode, 1)
        self.assertEqual(again.stderr, f"kelvane: {self.name}: there is a table Host_Unit already;"
                                       " --force replaces the account's tables\n")
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "list.csv"
            exported = self.run_program("export", "--to", str(file))
            self.assertEqual(exported.returncode, 0, exported.stderr)
            self.assertEqual(len(file.read_text(encoding="utf-8").splitlines()), 6)
        replaced = self.run_program("init", "--force", "--keywords", "2")
        self.assertEqual(replaced.stdout, f"{self.name}: empty account\n")
        driven = self.run_program("drive", script="init\nshow\nprint grid\nclose\n")
        self.assertEqual(driven.returncode, 0, driven.stdout)
        self.assertIn("> print grid\n0 0 ", driven.stdout)

    def test_a_check_finds_what_it_finds_in_a_file(self):
        sample = ["--sample", "--entries", "60", "--keywords", "2"]
        self.assertEqual(self.run_program("init", *sample).returncode, 0)
        damage = [
            "update PM_ItemQC set cItemCode = ' P001', mQC = null where iEleVid = 1",
            "update PM_ItemQC set cCenterCode = 'd01  ', dDate = '2004-07-01' where iEleVid = 2",
            "update PM_ItemQC set cKeyCode1 = 'X', cElementCode = 'E99' where iEleVid = 3",
            "insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(12,'0999',2,3,5)",
            "insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(99,'0201',2,0.5,1)",
            "update pm_budget set iBudget = 1, iMoneysum = 0.01",
            "update PM_SettingInf set cValue = '59' where cName = 'NumMax_EleQc'",
        ]
        for statement in damage:
            self.place.stdin.write(f"run {statement}\n")
            self.place.stdin.flush()
            self.assertEqual(self.place.stdout.readline(), "done\n", statement)
        checked = self.run_program("check")
        with tempfile.TemporaryDirectory() as folder:
            file = str(Path(folder) / "a.kelvane")
            subprocess.run([program, "init", file, *sample], check=True, capture_output=True)
            with closing(sqlite3.connect(file)) as account:
                for statement in damage:
                    account.execute(statement)
                account.commit()
            same = subprocess.run([program, "check", file], encoding="utf-8", capture_output=True,
                                  check=False)
        self.assertEqual((checked.returncode, checked.stdout), (3, same.stdout), checked.stderr)
        rules = {line.split(": ")[1] for line in checked.stdout.splitlines()}
        self.assertGreaterEqual(rules, {
            "check.item", "check.element", "check.code", "check.lines.sum", "check.lines.orphan",
            "check.lines.product", "check.counter", "check.value", "check.budget", "check.date",
            "check.settled", "check.zero", "check.blank"})

    def test_it_is_tied_to_a_ledger_as_a_file_is(self):
        made = self.run_program("init", "--sample", "--entries", "60")
        self.assertEqual(made.returncode, 0, made.stderr)
        with tempfile.TemporaryDirectory() as folder:
            folder = Path(folder)
            trial = folder / "trial.csv"
            trial.write_text("科目,余额\n1604,5\n1605,7.0001\n1001,3\n", encoding="utf-8")
            tie = ["summary", "--against", str(trial), "--json"]
            lacking = self.run_program(*tie, XDG_DATA_HOME=str(folder))
            self.assertEqual(lacking.returncode, 1)
            place = Path(re.search("there is no mapping (.*)\\.xlsx: ", lacking.stderr).group(1) + ".csv")
            self.assertEqual(place.parent, folder / "kelvane" / "maps")
            place.parent.mkdir(parents=True)
            place.write_text("科目,项目编号,要素\n1604,P00*,\n1605,,人工费\n", encoding="utf-8")
            sheet = folder / "sheet.pdf"
            there = self.run_program(*tie, "--sign-off", str(sheet), XDG_DATA_HOME=str(folder))
            self.assertEqual(there.returncode, 3, there.stderr)
            self.assertTrue(sheet.read_bytes().startswith(b"%PDF"))
            account = folder / "a.kelvane"
            subprocess.run([program, "init", account, "--sample", "--entries", "60"], check=True,
                           capture_output=True)
            here = subprocess.run([program, *tie, "--map", place, account], encoding="utf-8",
                                  capture_output=True, check=False)
            figures = []
            for told in (there, here):
                figures.append(json.loads(told.stdout))
                figures[-1].pop("account")
            self.assertEqual(*figures)
            self.assertEqual(sum(row["count"] for row in figures[0]["rows"])
                             + len(figures[0]["unmapped"]), 60)
            self.assertTrue(figures[0]["unmapped"])

    def test_a_failure_leaves_nothing(self):
        self.place.stdin.write("run create table PM_TranControl(a int null)\n")
        self.place.stdin.flush()
        self.assertEqual(self.place.stdout.readline(), "done\n")
        refused = self.run_program("init")
        self.assertEqual(refused.returncode, 1)
        self.place.stdin.write("rows select count(*) from Host_Unit\n")
        self.place.stdin.flush()
        self.assertTrue(self.place.stdout.readline().startswith("error "))

    def test_a_lock_is_waited_for_as_long_as_told(self):
        self.assertEqual(self.run_program("init").returncode, 0)
        self.place.stdin.write("begin\nrun update PM_SettingInf set cValue = cValue\n")
        self.place.stdin.flush()
        self.assertEqual([self.place.stdout.readline() for _ in range(2)], ["done\n", "done\n"])
        # Who may wait longer still waits when the other one has given up, and gets the lock then.
        patient = subprocess.Popen([program, "init", "--force", "--lock-timeout", "300",
                                    "--database", self.database], stdout=subprocess.DEVNULL)
        self.addCleanup(patient.wait)
        self.addCleanup(patient.kill)
        self.assertEqual(self.run_program("init", "--force").returncode, 1)
        self.assertIsNone(patient.poll())
        self.place.stdin.write("commit\n")
        self.place.stdin.flush()
        self.assertEqual(self.place.stdout.readline(), "done\n")
        self.assertEqual(patient.wait(), 0)

    def test_a_time_that_is_none_is_refused(self):
        for option in ("--connect-timeout", "--query-timeout", "--lock-timeout"):
            refused = self.run_program("init", option, "0")
            self.assertEqual(refused.returncode, 2)
            self.assertIn(option, refused.stderr)

    def test_the_password_comes_from_the_environment(self):
        made = self.run_program("init", database=self.without_password,
                                KELVANE_DATABASE_PASSWORD=self.password)
        self.assertEqual(made.returncode, 0, made.stderr)
        wrong = self.run_program("drive", database=self.without_password, script="init\n",
                                 KELVANE_DATABASE_PASSWORD="none")
        self.assertEqual(wrong.returncode, 1)

    def test_the_password_is_asked_for_at_a_terminal(self):
        process, terminal = pty.fork()
        if process == 0:
            os.execv(program, [program, "init", "--database", self.without_password])
        shown = b""
        while b"password: " not in shown:
            shown += os.read(terminal, 1000)
        os.write(terminal, (self.password + "\n").encode())
        try:
            while more := os.read(terminal, 1000):
                shown += more
        except OSError:
            pass  # the program has ended
        _, status = os.waitpid(process, 0)
        os.close(terminal)
        self.assertEqual(status, 0)
        self.assertEqual(shown.decode(), f"{self.name} password: \r\n"
                                         f"{self.name}: empty account\r\n")

    def test_the_list_of_processes_does_not_show_the_password(self):
        with subprocess.Popen([program, "drive", "--database", self.database], encoding="utf-8",
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE) as process:
            process.stdin.write("answer yes\n")
            process.stdin.flush()
            self.assertEqual(process.stdout.readline(), "> answer yes\n")
            seen = Path(f"/proc/{process.pid}/cmdline").read_bytes()
            self.assertNotIn(self.password.encode(), seen)
            self.assertIn(b"--database", seen)
            process.stdin.close()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
