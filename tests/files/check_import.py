#!/usr/bin/env python3
"""Imports tables that are good, however they are written, and looks at what is in the account.

  check_import.py PROGRAM
"""

import datetime
import subprocess
import sys
import unittest
import zipfile
from decimal import Decimal

import openpyxl

from account_files import (Accounts, dump, entry, line, new_entries, query, table_of, text, LINE_TITLES,
                           TITLES)
from import_test import FIRST, Imports, count_line, stored


class GoodTables(Imports):
    def test_a_workbook(self):
        rows = [entry(日期=datetime.date(2004, 6, 1)),
                entry(**{"项目编号": "X02", "项目名称": None, "要素": "现场管理费", "未结转期初": 0}),
                entry(**{"责任中心": "0101", "项目编号": "0007", "项目名称": "七号楼",
                         "未结转期初": Decimal("-0.005")})]
        self.assert_written(self.accounts.new(), self.book(rows), rows=[
            stored(FIRST), stored(FIRST + 1, item="X02", element="E02", amount="0.0000"),
            stored(FIRST + 2, center="0101", item="0007", amount="-0.0100")])

    def test_texts(self):
        rows = [entry(摘要='带"引号"，和,逗号;\t分号'), entry(未结转期初="1,234.50")]
        expected = [stored(FIRST, digest='带"引号"，和,逗号;\t分号'), stored(FIRST + 1)]
        for separator in ",;\t":
            for encoding in ("utf-8", "utf-8-sig", "gb18030"):
                with self.subTest(separator=separator, encoding=encoding):
                    path = self.csv(rows, separator=separator, encoding=encoding)
                    self.assert_written(self.accounts.new(), path, rows=expected)

    def test_an_encoding_that_is_named(self):
        path = self.csv([entry()], encoding="gb18030")
        self.assert_written(self.accounts.new(), path, "--encoding", "gb18030", rows=[stored(FIRST)])
        self.assert_not_done(self.accounts.new(), path, "--encoding", "utf-8", reason=str(path))
        self.assert_not_done(self.accounts.new(), path, "--encoding", "latin-7", reason="latin-7",
                             status=2)

    def test_dates_as_they_are_written(self):
        forms = ["2004-06-01", "2004-6-1", "2004.6.1", "2004/6/1", "04-6-1", "04.06.01", "04/6/1",
                 "２００４－０６－０１", datetime.date(2004, 6, 1), datetime.datetime(2004, 6, 1)]
        expected = [stored(FIRST + at) for at in range(len(forms))]
        self.assert_written(self.accounts.new(), self.book([entry(日期=form) for form in forms]),
                            rows=expected)
        years = ["29.1.1", "30.1.1", "95-1-1", "99/1/1", "00.1.1"]
        account = self.accounts.new()
        done = self.run_import(account, self.csv([entry(日期=form) for form in years]))
        self.assertEqual(done.stdout.splitlines()[0].split(": ")[1], "date.bound")
        self.assert_written(account, self.csv([entry(日期=form) for form in years[1:]]), rows=[
            stored(FIRST + at, date=date) for at, date in
            enumerate(["1930-01-01", "1995-01-01", "1999-01-01", "2000-01-01"])])

    def test_amounts_as_they_are_written(self):
        forms = {"1,234.50": "1234.5000", "¥1234.5": "1234.5000", "￥1,234.5": "1234.5000",
                 "１，２３４．５０": "1234.5000", " 1234.5 ": "1234.5000", "-1,234.50": "-1234.5000",
                 ".5": "0.5000", "0": "0.0000", "+7": "7.0000", "1234.565": "1234.5700", " ": "0.0000"}
        expected = [stored(FIRST + at, amount=amount) for at, amount in enumerate(forms.values())]
        for make in (self.book, self.csv):
            rows = [entry(未结转期初=form) for form in forms]
            self.assert_written(self.accounts.new(), make(rows), rows=expected)

    def test_numbers_are_what_the_file_says(self):
        """Also those with more digits than a binary number keeps."""
        written = [("人工费", "0.30000000000000004", "E01", "0.3000"), ("人工费", "1.005", "E01", "1.0100"),
                   ("人工费", "1E3", "E01", "1000.0000"), ("人工费", "1.2345E-1", "E01", "0.1200"),
                   ("现场管理费", "922337203685477.58", "E02", "922337203685477.5800"),
                   ("临时设施费", "-922337203685477.57", "E03", "-922337203685477.5700")]
        placeholders = [111111111 + at for at in range(len(written))]
        model = self.book([entry(要素=element, 未结转期初=placeholder)
                           for placeholder, (element, *_) in zip(placeholders, written)])
        path = self.path("xlsx")
        with zipfile.ZipFile(model) as book, zipfile.ZipFile(path, "w") as copy:
            for part in book.namelist():
                content = book.read(part)
                for placeholder, (_, number, *_) in zip(placeholders, written):
                    content = content.replace(f"<v>{placeholder}</v>".encode(),
                                              f"<v>{number}</v>".encode())
                copy.writestr(part, content)
        self.assert_written(self.accounts.new(), path, rows=[
            stored(FIRST + at, element=element, amount=amount)
            for at, (_, _, element, amount) in enumerate(written)])

    def test_amounts_that_come_to_more_than_an_amount_can_be(self):
        """No budget controls them, so nobody adds them up."""
        great = "900,000,000,000,000.00"
        self.assert_written(self.accounts.new(), self.book([entry(未结转期初=great)] * 3), rows=[
            stored(FIRST + at, amount="900000000000000.0000") for at in range(3)])

    def test_any_order_and_other_columns(self):
        book = openpyxl.Workbook()
        sheet = book.active
        sheet.title = "别的名字"
        sheet.append(["某公司期初余额表"])
        sheet.append(["单位：元", None, "制表：张三"])
        sheet.append([])
        titles = [*reversed(TITLES), "备注", "经办"]
        titles[titles.index("标段 (关键字)")] = " 标段"
        titles[titles.index("未结转期初")] = "未结转\n期初"
        sheet.append(titles)
        row = entry()
        cells = [row[title] for title in reversed(TITLES)]
        sheet.append([*cells, "不读", None])
        sheet.append([])
        sheet.append([None, None, "  "])
        sheet.append([*cells, None, "不读"])
        path = self.path("xlsx")
        book.save(path)
        done = self.assert_written(self.accounts.new(), path, rows=[stored(FIRST), stored(FIRST + 1)])
        self.assertIn("别的名字!I4: 没有读入列“备注”", done.stderr)
        self.assertIn("别的名字!J4: 没有读入列“经办”", done.stderr)
        self.assertIn("别的名字!A1: 没有读入标题以上的 2 行", done.stderr)

    def test_columns_that_are_called_like_those_of_lines(self):
        rows = [entry(行号=1, 数量=3, 单价=411.5), entry(行号=2, 数量=1, 单价=1234.5)]
        self.assert_written(self.accounts.new(), self.book(rows), rows=[stored(FIRST), stored(FIRST + 1)])

    def test_the_sheet_that_is_named(self):
        path = self.book([entry(摘要="第一张")])
        book = openpyxl.load_workbook(path)
        other = book.create_sheet("二月")
        for cells in table_of([entry(摘要="第二张")]):
            other.append(cells)
        book.save(path)
        self.assert_written(self.accounts.new(), path, rows=[stored(FIRST, digest="第一张")])
        self.assert_written(self.accounts.new(), path, "--sheet", "二月",
                            rows=[stored(FIRST, digest="第二张")])
        self.assert_not_done(self.accounts.new(), path, "--sheet", "三月",
                             reason="没有名为“三月”的工作表")

    def test_hidden_rows(self):
        path = self.book([entry(摘要="可见"), entry(摘要="隐藏"), entry(摘要="末行")])
        book = openpyxl.load_workbook(path)
        book["期初"].row_dimensions[3].hidden = True
        book.save(path)
        refused = self.run_import(self.accounts.new(), path)
        self.assertEqual(refused.returncode, 3)
        self.assertEqual(refused.stdout.splitlines()[0], "期初!A3: file.hidden: 有 1 个隐藏行，须指明略过"
                         "（--hidden skip）还是读入（--hidden take）")
        for how, digests in (("skip", ["可见", "末行"]), ("take", ["可见", "隐藏", "末行"])):
            self.assert_written(self.accounts.new(), path, "--hidden", how, rows=[
                stored(FIRST + at, digest=digest) for at, digest in enumerate(digests)])

    def test_detail_lines(self):
        machines = {"要素": "机械使用费", "未结转期初": None, "行号": "甲"}
        steel = {"要素": "钢材费", "未结转期初": "3,500", "行号": 2}
        rows = [entry(**machines), entry(**steel), entry(行号=None)]
        lines = [line("甲", "0201", "12.345", "1.2345"), line(2, "010101", Decimal("3500"), 1),
                 line("甲", "0202", 1000, 2, 名称="汽车起重机", 余额="2,000.00")]
        written = [stored(FIRST, element="E21", amount="2015.2500"),
                   stored(FIRST + 1, element="E12", amount="3500.0000"), stored(FIRST + 2)]
        # As the editor keeps them: two decimals of a price, three of a quantity.
        line_rows = [(FIRST, "0201", "12.3500", 1.235, "15.2500"),
                     (FIRST, "0202", "1000.0000", 2.0, "2000.0000"),
                     (FIRST + 1, "010101", "3500.0000", 1.0, "3500.0000")]
        account = self.accounts.new()
        self.assert_written(account, self.book(rows, lines), rows=written)
        self.assertEqual(new_entries(account)[1], line_rows)
        for title in ("编码", "设备编码", "存货编码"):
            account = self.accounts.new()
            table = table_of(lines, LINE_TITLES)
            table[0][1] = title
            self.assert_written(account, self.csv(rows), "--lines", text(self.path("csv"), table),
                                rows=written)
            self.assertEqual(new_entries(account)[1], line_rows)

    def accounts_of_class(self, keywords):
        folder = self.folder / f"keywords{keywords}"
        folder.mkdir()
        return Accounts(self.accounts.program, folder, keywords)

    def test_two_keywords(self):
        account = self.accounts_of_class(2).new(
            "update PM_DutycenterSub set cKeyWord2 = '1' where cItemCode = 'X01';"
            "update fitemss97sub set 期次 = 1 where citemcode = 'X01';")
        # The second one is a number in this class.
        rows = [entry(**{"期次 (关键字)": "1"}), entry(**{"期次 (关键字)": 1})]
        self.assert_written(account, self.book(rows), rows=[
            (*stored(identity)[:5], "1", *stored(identity)[6:]) for identity in (FIRST, FIRST + 1)])

    def test_no_keywords(self):
        account = self.accounts_of_class(0).new()
        center, item = query(account, "select cCenterCode, cItemCode from PM_DutycenterSub where cItemCode"
                                      " = 'P001'")[0]
        table = table_of([entry(责任中心=center, 项目编号=item, 项目名称="")])
        del table[0][4], table[1][4]
        self.assert_written(account, text(self.path("csv"), table),
                            rows=[stored(FIRST, center=center, item=item, key="")])

    def test_the_title_of_the_name(self):
        account = self.accounts.new("update fitemstructure set ctext = '工程名称' where cfield_name ="
                                    " 'citemname';")
        for title in ("工程名称", "项目名称"):
            table = table_of([entry(项目名称="样板楼")])
            table[0][3] = title
            path = text(self.path("csv"), table)
            self.assert_refused(account, path, count=count_line(1, refused=1), findings=[
                f"{path}:2:{title}: item.name: 项目名称与项目编号不符，该编号的项目是“试验楼”"])

    def test_no_rows(self):
        account = self.accounts.new()
        before = dump(account)
        done = self.run_import(account, self.book([]))
        self.assertEqual((done.returncode, done.stdout), (0, count_line(0) + "\n"), done.stderr)
        self.assert_nothing_written(account, before)

    def test_saved_by_a_spreadsheet_program(self):
        path = self.book([entry(日期=datetime.date(2004, 6, 1), 未结转期初="=1000+234.5"),
                          entry(**{"要素": "机械使用费", "未结转期初": None, "行号": 1})],
                         [line(1, "0201", 5, 3)])
        folder = self.folder / "office"
        subprocess.run(["soffice", f"-env:UserInstallation=file://{self.folder}/profile", "--headless",
                        "--convert-to", "xlsx", "--outdir", folder, path], check=True,
                       capture_output=True, timeout=300)
        self.assert_written(self.accounts.new(), folder / path.name, rows=[
            stored(FIRST), stored(FIRST + 1, element="E21", amount="15.0000")])

    def test_lines_of_a_workbook_from_another(self):
        rows = [entry(**{"要素": "机械使用费", "未结转期初": None, "行号": 1})]
        lines = [line(1, "0201", 5, 3)]
        account = self.accounts.new()
        self.assert_written(account, self.book(rows), "--lines", self.book([], lines),
                            rows=[stored(FIRST, element="E21", amount="15.0000")])
        self.assertEqual(new_entries(account)[1], [(FIRST, "0201", "5.0000", 3.0, "15.0000")])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
