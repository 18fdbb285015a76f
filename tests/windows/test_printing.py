#!/usr/bin/env python3
"""Preview, print settings and files of the entry list in a host's process, looked at afterwards by
programs that nobody here wrote.

  scripts/with-postgres scripts/with-wine tests/windows/test_printing.py PACKAGE ADO PROGRAM

PACKAGE is the folder that scripts/build-windows makes, ADO the tests' own data-access objects, and
PROGRAM the program of this system, which creates the account.
"""

import csv
import datetime
import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

import openpyxl

import wine_session

PACKAGE, ADO, PROGRAM = (Path(argument) for argument in sys.argv[1:4])
del sys.argv[1:4]
SHOW_SECONDS = 240
# Letters of two alphabets that no one code page of Windows has together.
FOLDER_NAME = "期初 Łódź"
ENTRIES = 25
DONE = "[输出成功信息|information] 成功输出到文件。"
FAILED = "[输出失败信息|information] 输出到文件失败！"


def run(*command):
    return subprocess.run([str(part) for part in command], check=True, capture_output=True,
                          encoding="utf-8", timeout=120).stdout


class PrintingTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        wine_session.register_all(ADO, PACKAGE / "Kelvane.dll")
        connection = os.environ["KELVANE_TEST_POSTGRES"]
        subprocess.run([PROGRAM, "init", "--sample", "--force", "--database", connection],
                       check=True, capture_output=True, timeout=120)
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = Path(cls.temporary.name, FOLDER_NAME)
        cls.folder.mkdir()
        # What a killed program left behind, and a file that nobody may write.
        Path(cls.folder, ".kelvane-1234.tmp").touch()
        Path(cls.folder, "fixed.csv").write_text("old", encoding="utf-8")
        Path(cls.folder, "fixed.csv").chmod(0o444)
        windows_folder = wine_session.windows_path(cls.folder)
        script = Path(wine_session.HERE, "scripts", "print_list.script").read_text(encoding="utf-8")
        cls.report, cls.transcript = cls.show(
            connection, windows_folder, script.replace("FOLDER", windows_folder), "settings.png")
        cls.show(connection, windows_folder, "click PreView\nclick ZoomIn\n", "preview.png")

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    @classmethod
    def show(cls, connection, host_folder, script, picture):
        """Shows the list in a host once; the host's report and the script's transcript."""
        return wine_session.run_driven(
            PACKAGE / "samples" / "trial.vbs", connection, host_folder, "2004", "init", "show",
            operator_script=script, seconds=SHOW_SECONDS, picture="printing-" + picture)

    def said_after(self, command, occurrence=0):
        """What followed a command's line in the transcript, up to the next command."""
        places = [at for at, line in enumerate(self.transcript) if line == "> " + command]
        lines = []
        for line in self.transcript[places[occurrence] + 1:]:
            if line.startswith("> "):
                break
            lines.append(line)
        return lines

    def test_the_whole_script_was_done(self):
        self.assertEqual(self.report, ["create: done", "Init gives Boolean -1", "init: done",
                                       "show: done", "end of script"])
        self.assertEqual([line for line in self.transcript if line.startswith("error")], [])

    def test_preview_shows_the_list(self):
        page = self.said_after("print page")
        self.assertRegex(page[0], r"^年度：2004\|单位：[^|]+\|制表人：[^|]+$")
        self.assertEqual(page[1], "项目期初录入")
        self.assertRegex(page[2], r"^打印日期：\d{4}\.\d{2}\.\d{2}$")
        self.assertEqual(page[3].split("|")[0], "日期")
        self.assertTrue(any("机场滑行道加固" in line for line in page))
        self.assertTrue(any("110,000.00" in line for line in page))
        self.assertRegex(page[-1], "^第 1 页 共 [12] 页$")
        pages = [re.search("共 (.*) 页", self.said_after("print page", turn)[-1])[1]
                 for turn in (0, 1)]
        self.assertLess(int(pages[0]), int(pages[1]), "smaller paper takes no more pages")

    def test_saved_settings_are_in_the_style_file_and_are_found_again(self):
        self.assertEqual(self.said_after("click SaveSettings"),
                         ["[保存提示|question] 确定要保存现有的打印设置？ -> yes",
                          "[提示|information] 格式保存成功！"])
        root = ElementTree.parse(
            self.folder / "printStyle" / "PeriodItemStyle.xml").getroot()
        self.assertEqual((root.tag, root.attrib), ("格式", {}))
        self.assertEqual([child.tag for child in root], ["页面设置", "版式"])
        settings = root.find("页面设置").attrib
        self.assertEqual(settings, {
            "纸张": "B5", "方向": "纵向", "每页表头": "是", "适合纸宽": "是", "左边距": "150", "上边距": "200",
            "右边距": "150", "下边距": "150", "标题字号": "198", "表头字号": "90",
            "正文字号": "90"})
        layout = root.find("版式")
        self.assertEqual(layout.attrib, {"名称": "Default"})
        self.assertEqual(layout.find("标题").attrib, {"位置": "0,200"})
        self.assertEqual(layout.find("列区").attrib, {"位置": "0,260"})
        columns = [column.get("名称") for column in layout.findall("列组/列")]
        self.assertIn("日期", columns)
        shown = "\n".join(self.said_after("print window"))
        self.assertRegex(shown, 'control cboPaper combo visible enabled .*"B5"')
        self.assertRegex(shown, 'control txtTop edit visible enabled .*"20"')

    def test_spreadsheet(self):
        for turn in (0, 1):
            name = f"file {wine_session.windows_path(self.folder)}\\列表.xlsx"
            self.assertEqual(self.said_after(name, turn), [])
        book = openpyxl.load_workbook(self.folder / "列表.xlsx")
        self.assertEqual(book.sheetnames, ["项目期初录入"])
        rows = list(book.active.iter_rows(values_only=True))
        self.assertEqual(len(rows), 1 + ENTRIES)
        titles = list(rows[0])
        self.assertEqual(titles[0], "日期")
        last = dict(zip(titles, rows[-1]))
        self.assertEqual(last["日期"], datetime.datetime(2003, 2, 16))
        self.assertEqual(last["项目名称"], "机场滑行道加固")
        self.assertEqual(last["未结转期初"], 110000)
        amount = book.active.cell(1 + ENTRIES, 1 + titles.index("未结转期初"))
        self.assertEqual(amount.number_format, "#,##0.00")
        self.assertEqual(book.active.freeze_panes, "A2")

    def test_comma_separated_values(self):
        content = (self.folder / "列表.csv").read_bytes()
        self.assertTrue(content.startswith(b"\xef\xbb\xbf"))
        self.assertEqual(content.count(b"\n"), content.count(b"\r\n"))
        rows = list(csv.DictReader(content.decode("utf-8-sig").splitlines()))
        self.assertEqual(len(rows), ENTRIES)
        self.assertEqual(rows[-1]["日期"], "2003-02-16")
        self.assertEqual(rows[-1]["项目名称"], "机场滑行道加固")
        self.assertEqual(rows[-1]["未结转期初"], "110000.00")

    def test_xml(self):
        root = ElementTree.parse(self.folder / "列表.xml").getroot()
        self.assertEqual((root.tag, root.attrib), ("表", {"标题": "项目期初录入"}))
        self.assertEqual(len(root.findall("行")), ENTRIES)

    def test_pdf(self):
        """The file that was asked for, and what a script prints."""
        texts = []
        for name in ("列表.pdf", "打印.pdf"):
            path = self.folder / name
            fonts = run("pdffonts", path).splitlines()[2:]
            self.assertTrue(fonts)
            for font in fonts:
                self.assertRegex(font, r"^[A-Z]{6}\+.* yes +yes +yes ")
            texts.append(run("pdftotext", "-layout", path, "-"))
            # The paper that was chosen, of 176 by 250 mm.
            self.assertRegex(run("pdfinfo", path), r"Page size: +498\.\d+ x 708\.\d+ pts")
        self.assertEqual(*texts)
        words = texts[0].split()
        for word in ("项目期初录入", "机场滑行道加固", "110,000.00"):
            self.assertIn(word, words)

    def test_what_is_written_is_said(self):
        outcomes = []
        for at, line in enumerate(self.transcript):
            if line == "> click DataOut":
                outcomes.append(self.transcript[at + 1])
        self.assertEqual(outcomes, [DONE] * 6 + [FAILED, FAILED])
        self.assertEqual(self.said_after("click Print"), [])

    def test_nothing_else_is_left_in_the_folder(self):
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()),
                         ["fixed.csv", "printStyle", "列表.csv", "列表.pdf", "列表.xlsx", "列表.xml",
                          "打印.pdf"])
        self.assertEqual((self.folder / "fixed.csv").read_text(encoding="utf-8"), "old")


if __name__ == "__main__":
    unittest.main(verbosity=2)
