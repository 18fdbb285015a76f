#!/usr/bin/env python3
"""Ties accounts to trial balances that are made here, and has the sheet to be signed written.

  check_tie_out.py PROGRAM

What an account comes to is told by sums of Python's own, exact ones.
"""

import fnmatch
import json
import random
import shutil
import sys
import unittest
from collections import defaultdict
from decimal import Decimal
from pathlib import Path

import openpyxl

from account_files import AccountsCase, entry, execute, query, text, table_of
from program_files import run

MAP_TITLES = ["科目", "项目编号", "要素", "责任中心"]
TRIAL_TITLES = ["科目编码", "科目名称", "余额"]
# X01 and X02 belong to T01, X03 to T02.
ENTRIES = """
delete from PM_ItemQC; delete from PM_ItemQCsub;
insert into PM_ItemQC values
    (1, '2004-06-01 00:00:00.000', 'T01', 'X01', '一标段', '', 'E01', 'a', '100.1000'),
    (2, '2004-06-01 00:00:00.000', 'T01', 'X01', '一标段', '', 'E02', 'b', '80.0000'),
    (3, '2004-06-01 00:00:00.000', 'T01', 'X02', '一标段', '', 'E01', 'c', '-0.0001'),
    (4, '2004-06-01 00:00:00.000', 'T02', 'X03', '一标段', '', 'E01', 'd', '5.0000');
"""
ROUNDS = 6
MOST = Decimal("922337203685477.5807")


def fixed(amount):
    return f"{Decimal(amount):.4f}"


def covers(line, codes):
    """Whether a line of a mapping covers an entry of these codes, of which each is a set of spellings."""
    return all(any(fnmatch.fnmatchcase(code.lower(), (pattern or "*").lower()) for code in spellings)
               for pattern, spellings in zip(line[1:], codes))


class TieOuts(AccountsCase):
    def table(self, titles, rows, extension="xlsx", change=None):
        """Texts stay texts; of a csv all of them are. `change`: what is done to the workbook's sheet."""
        path = self.path(extension)
        if extension == "csv":
            return text(path, [titles, *rows])
        book = openpyxl.Workbook()
        for row in [titles, *rows]:
            book.active.append(row)
        if change:
            change(book.active)
        book.save(path)
        return path

    def summary(self, account, *arguments, status=None):
        """Never changes a byte of the account."""
        before = Path(account).read_bytes()
        done = self.accounts.run("summary", account, *arguments)
        self.assertEqual(Path(account).read_bytes(), before)
        if status is not None:
            self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return done

    def tie(self, account, trial, mapping, status):
        done = self.summary(account, "--against", trial, "--map", mapping, "--json", status=status)
        told = json.loads(done.stdout)
        self.assertEqual(told["agrees"], status == 0)
        return told

    @staticmethod
    def figures(told):
        return [[row[key] for key in ("account", "ledger", "count", "entries", "difference", "candidates")]
                for row in told["rows"]]


class Figures(TieOuts):
    def test_first_line_wins(self):
        account = self.accounts.new(ENTRIES)
        lines = [["1", "X01", "人工费", "*"], ["2", "X*", "", "T01"], ["3", "", "E01", ""]]
        trial = [["3", "丙", "5"], ["1", "甲", "100.1"], ["2", "乙", "79.9999"]]
        for kind in ("csv", "xlsx"):
            with self.subTest(kind=kind):
                told = self.tie(account, self.table(TRIAL_TITLES, trial, kind),
                                self.table(MAP_TITLES, lines, kind), 0)
                self.assertEqual(self.figures(told),
                                 [["3", "5.0000", 1, "5.0000", "0.0000", []],
                                  ["1", "100.1000", 1, "100.1000", "0.0000", []],
                                  ["2", "79.9999", 2, "79.9999", "0.0000", []]])
                self.assertEqual([row["name"] for row in told["rows"]], ["丙", "甲", "乙"])
        # In another order other lines are the first.
        mapping = self.table(MAP_TITLES, [*lines[1:], lines[0], ["4", "x*", "", "t01"], ["5", "X0*", "", "T01"]])
        told = self.tie(account, self.table(TRIAL_TITLES, trial), mapping, 3)
        self.assertEqual([row["count"] for row in told["rows"]], [1, 0, 3, 0, 0])
        self.assertEqual([(note["place"], note["text"]) for note in told["notes"]], [
            ("Sheet!A5", "与第 2 行的条件相同，以在前的一行（科目2）为准"),
            ("Sheet!A6", "用不到：第 2 行（科目2）已经包括了这一行的所有期初")])

    def test_layouts_of_amounts(self):
        account = self.accounts.new(ENTRIES)
        mapping = self.table(MAP_TITLES, [["1", "X01", "", ""], ["2", "X02", "", ""], ["3", "X03", "", ""]])
        cases = [(["余额"], [["180.1"], ["-0.0001"], ["5"]]),
                 (["期初余额"], [[Decimal("180.1")], [Decimal("-0.0001")], [5]]),
                 (["金额"], [["1,80.1"], ["-0.0001"], ["5"]]),
                 (["借方", "贷方"], [["180.10", ""], ["", "0.0001"], ["6", "1"]]),
                 (["期初借方", "期初贷方", "期末借方"], [[180.1, None, 7], [None, 0.0001, 7], [6, 1, 7]]),
                 (["借方余额", "贷方余额"], [["180.1", "0"], ["0", "0.0001"], ["5.0", "0"]]),
                 (["方向", "余额"], [["借", "180.1"], ["贷", "0.0001"], ["借", "5"]]),
                 (["方向", "期初余额", "借方", "贷方", "期末余额"],
                  [["借", 180.1, 1, 1, 9], ["贷", 0.0001, 2, 2, 9], ["借", 5, 3, 3, 9]])]
        for titles, amounts in cases:
            rows = [[code, *cells] for code, cells in zip("123", amounts)]
            trial = self.table(["科目代码", *titles], rows)
            with self.subTest(titles=titles):
                if titles == ["金额"]:
                    done = self.summary(account, "--against", trial, "--map", mapping, status=3)
                    self.assertEqual(done.stdout, "Sheet!B2: amount.number: 请输入数字\n")
                    continue
                self.assertEqual([row["difference"] for row in self.tie(account, trial, mapping, 0)["rows"]],
                                 ["0.0000"] * 3)

    def test_stored_values_of_formulas(self):
        account = self.accounts.new(ENTRIES)
        mapping = self.table(MAP_TITLES, [["1", "*", "", ""]])
        trial = self.table(TRIAL_TITLES, [["1", "", "=100+85.0999"]])
        done = self.summary(account, "--against", trial, "--map", mapping, status=3)
        self.assertIn("Sheet!C2: cell.formula: ", done.stdout)

    def test_what_is_not_covered(self):
        account = self.accounts.new(ENTRIES)
        told = self.tie(account, self.table(TRIAL_TITLES, [["1", "甲", "180.10"], ["1001", "现金", "7"],
                                                           ["1002", "银行", "0"]]),
                        self.table(MAP_TITLES, [["1", "X01", "", ""], ["9", "Z*", "", ""]]), 3)
        self.assertEqual(self.figures(told), [["1", "180.1000", 2, "180.1000", "0.0000", []],
                                              ["9", None, 0, "0.0000", "0.0000", []]])
        self.assertEqual([(each["identity"], each["item"], each["element"], each["center"], each["amount"])
                          for each in told["unmapped"]],
                         [(3, "X02", "人工费", "T01", "-0.0001"), (4, "X03", "人工费", "T02", "5.0000")])
        self.assertEqual(told["unmappedSum"], "4.9999")
        self.assertEqual(told["unmappedAccounts"], [{"account": "1001", "name": "现金", "ledger": "7.0000"}])

    def test_hints(self):
        """Of the row's own entries and of those that nothing covers, not of another row's."""
        account = self.accounts.new(ENTRIES)
        told = self.tie(account, self.table(TRIAL_TITLES, [["1", "", "100.1"], ["2", "", "4.9999"]]),
                        self.table(MAP_TITLES, [["1", "X01", "", ""], ["2", "X02", "", ""]]), 3)
        self.assertEqual(self.figures(told), [["1", "100.1000", 2, "180.1000", "-80.0000", [2]],
                                              ["2", "4.9999", 1, "-0.0001", "5.0000", [4]]])

    def test_text(self):
        account = self.accounts.new(ENTRIES)
        trial = self.table(TRIAL_TITLES, [["1", "甲", "180.10"], ["1001", "现金", "7"]])
        mapping = self.table(MAP_TITLES, [["1", "X01", "", ""], ["2", "X03", "", ""]])
        done = self.summary(account, "--against", trial, "--map", mapping, status=3)
        self.assertEqual([line.split() for line in done.stdout.splitlines()], [
            ["科目", "科目名称", "结果", "可能的期初编号", "总账余额", "期初笔数", "期初合计", "差额"],
            ["1", "甲", "相符", "180.10", "2", "180.10", "0.00"],
            ["2", "总账没有此科目", "4", "1", "5.00", "-5.00"],
            ["项目", "X02，要素", "人工费，责任中心", "T01", "未对应期初", "3", "1", "-0.0001"],
            ["1001", "现金", "未对应科目", "7.00"],
            "accounts 2: agreeing 1, differing 1, uncovered entries 1, uncovered accounts 1".split()])

    def test_files(self):
        account = self.accounts.new(ENTRIES)
        trial = self.table(TRIAL_TITLES, [["1", "甲", "180.10"], ["2", "乙", "0.01"]])
        mapping = self.table(MAP_TITLES, [["1", "X01", "", ""], ["2", "*", "", ""]])
        paths = {kind: self.path(kind) for kind in ("xlsx", "csv", "pdf")}
        for path in paths.values():
            self.summary(account, "--against", trial, "--map", mapping, "--to", path, status=3)
        sheet = openpyxl.load_workbook(paths["xlsx"]).active
        cells = [list(row) for row in sheet.iter_rows(values_only=True)]
        self.assertEqual(cells[1:], [["1", "甲", "相符", None, 180.1, 2, 180.1, 0],
                                     ["2", "乙", "不符", None, 0.01, 2, 4.9999, -4.9899]])
        self.assertIn("-4.9899", paths["csv"].read_text("utf-8-sig"))
        self.assertIn("-4.9899", run("pdftotext", "-layout", paths["pdf"], "-"))
        kept = mapping.read_bytes()
        done = self.summary(account, "--against", trial, "--map", mapping, "--to", mapping, status=1)
        self.assertIn("cannot be written", done.stderr)
        self.assertEqual(mapping.read_bytes(), kept)


class RandomAccounts(TieOuts):
    def test_sums(self):
        """Amounts of any size, patterns of any kind, a trial balance with errors and rows that cancel out."""
        for seed in range(ROUNDS):
            with self.subTest(seed=seed):
                self.try_account(random.Random(seed))

    def try_account(self, chance):
        account = self.accounts.new("delete from PM_ItemQC; delete from PM_ItemQCsub;")
        items = [f"{chance.choice('XYx')}{number:02}" for number in range(12)]
        elements = query(account, "select cElementCode, cElementName from PM_ItemElement")
        entries = []
        for identity in range(1, 301):
            scale = chance.choice([1, 10 ** 4, 10 ** 9, 10 ** 18])
            units = chance.choice([-1, 1]) * min(chance.randrange(9 * scale), int(MOST * 10000))
            entries.append((identity, chance.choice(["T01", "T02", "0101"]), chance.choice(items),
                            chance.choice(elements), Decimal(units).scaleb(-4)))
        execute(account, "".join(
            f"insert into PM_ItemQC values ({identity}, '2004-06-01 00:00:00.000', '{center}', '{item}', '',"
            f" '', '{element[0]}', 'a', '{fixed(amount)}');\n"
            for identity, center, item, element, amount in entries))

        def pattern(codes):
            code = chance.choice(codes)
            return chance.choice([code, code, code[:chance.randrange(len(code) + 1)] + "*", "*", ""])
        names = [name for pair in elements for name in pair]
        mapping = [[str(1600 + chance.randrange(8)), pattern(items), pattern(names),
                    pattern(["T01", "T02", "0101"])] for _ in range(chance.randrange(1, 15))]
        owned, left = defaultdict(list), []
        for each in entries:
            identity, center, item, element, amount = each
            line = next((line for line in mapping if covers(line, [{item}, set(element), {center}])), None)
            (owned[line[0]] if line else left).append(each)
        trial, balances = [], {}
        for code in chance.sample(range(1598, 1610), 9):
            code = str(code)
            balance = sum((each[4] for each in owned[code]), Decimal(0))
            spare = [each[4] for each in owned[code] + left]
            balance += chance.choice([Decimal(0), Decimal("0.0001"), chance.choice(spare or [Decimal(1)])])
            # A balance is within what one amount can be.
            while abs(balance) > MOST:
                balance /= 16
            balance = balance.quantize(Decimal("0.0001"))
            balances[code] = balance
            trial.append([code, "", f"{balance:,f}" if chance.random() < 0.5 else fixed(balance)])
        kind = chance.choice(["csv", "xlsx"])

        expected = []
        mapped = dict.fromkeys(line[0] for line in mapping)
        for code in [*(row[0] for row in trial if row[0] in mapped),
                     *(code for code in mapped if code not in balances)]:
            total = sum((each[4] for each in owned[code]), Decimal(0))
            difference = balances.get(code, Decimal(0)) - total
            hints = sorted(each[0] for each in owned[code] + left
                           if difference and abs(each[4]) == abs(difference))
            expected.append([code, fixed(balances[code]) if code in balances else None, len(owned[code]),
                             fixed(total), fixed(difference), hints])
        spare = [[row[0], fixed(balances[row[0]])] for row in trial
                 if row[0] not in mapped and balances[row[0]]]
        agrees = not left and not spare and all(Decimal(row[4]) == 0 for row in expected)
        told = self.tie(account, self.table(TRIAL_TITLES, trial, kind), self.table(MAP_TITLES, mapping, kind),
                        0 if agrees else 3)
        self.assertEqual(self.figures(told), expected)
        self.assertEqual([each["identity"] for each in told["unmapped"]], [each[0] for each in left])
        self.assertEqual(told["unmappedSum"], fixed(sum((each[4] for each in left), Decimal(0))))
        self.assertEqual([[each["account"], each["ledger"]] for each in told["unmappedAccounts"]], spare)


class Tables(TieOuts):
    def tied(self, trial, mapping, status=3):
        return self.summary(self.accounts.new(ENTRIES), "--against", trial, "--map", mapping, status=status)

    def test_numbers_for_codes(self):
        mapping = self.table(MAP_TITLES, [["1604", "0007", "", ""]])
        done = self.tied(self.table(TRIAL_TITLES, [[1604, "", 1]]), mapping)
        self.assertEqual(done.stdout, "Sheet!A2: cell.code.number: 编码应为文本，此处是数字，可能是编码 1604\n")
        done = self.tied(self.table(TRIAL_TITLES, [["1604", "", 1]]),
                         self.table(MAP_TITLES, [[1604, 7, "", 101]]))
        self.assertEqual(done.stdout.splitlines(), [
            "Sheet!A2: cell.code.number: 编码应为文本，此处是数字，可能是编码 1604",
            "Sheet!B2: cell.code.number: 编码应为文本，此处是数字，可能是编码 0007",
            "Sheet!D2: cell.code.number: 编码应为文本，此处是数字，可能是编码 0101"])

    def test_hidden_rows_count_and_are_told(self):
        def hide(sheet):
            sheet.row_dimensions[2].hidden = True
        done = self.tied(self.table(TRIAL_TITLES, [["1", "", "100.0999"], ["1", "", 85]], change=hide),
                         self.table(MAP_TITLES, [["1", "*", "", ""]]), status=0)
        self.assertIn("读入了隐藏的 1 行", done.stderr)
        self.assertIn("科目“1”不止一行，余额相加", done.stderr)

    def test_titles(self):
        preface = [["某某公司"], [None, "2004 年"], TRIAL_TITLES, ["1", "", 185.0999], ["合计", "", 1]]
        done = self.tied(self.table(["科目余额表"], preface), self.table(MAP_TITLES, [["1", "", "", ""]]),
                         status=0)
        self.assertIn("没有读入标题以上的", done.stderr)
        self.assertIn("没有读入合计或没有科目的 1 行", done.stderr)
        mapping = self.table(MAP_TITLES, [["1", "", "", ""]])
        for titles, reason in ((["科目", "期末余额"], "前 20 行中没有标题行（须有“科目编码”和“余额”）"),
                               (["科目", "借方"], "缺少列“贷方”"),
                               (["科目", "金额", "借方", "贷方"], "不知道余额是“金额”还是“借方”，只能留一个")):
            done = self.tied(self.table(titles, [["1", 1, 1, 1]]), mapping)
            self.assertIn(f": file.column: {reason}\n", done.stdout)
        done = self.tied(self.table(TRIAL_TITLES, [["1", "", 1]]),
                         self.table(MAP_TITLES, [["1", "X*1", "", ""], ["", "X", "", ""]]))
        self.assertEqual(done.stdout.splitlines(), [
            "Sheet!B2: file.column: “*”只能单独写，或写在编码的末尾，此处是“X*1”",
            "Sheet!A3: file.column: 没有科目"])
        refused = json.loads(self.summary(
            self.accounts.new(ENTRIES), "--against", self.table(TRIAL_TITLES, [["1", "", "x"]]), "--map",
            mapping, "--json", status=3).stdout)
        self.assertEqual((refused["agrees"], refused["rows"]), (False, []))
        self.assertEqual([each["rule"] for each in refused["findings"]], ["amount.number"])

    def test_the_mapping_beside_the_account(self):
        account = self.accounts.new(ENTRIES)
        trial = self.table(TRIAL_TITLES, [["1", "", "185.0999"]])
        done = self.summary(account, "--against", trial, status=1)
        self.assertIn(f"there is no mapping {account}.map.xlsx", done.stderr)
        text(Path(f"{account}.map.csv"), [MAP_TITLES, ["1", "", "", ""]])
        self.summary(account, "--against", trial, status=0)
        shutil.copy(self.table(MAP_TITLES, [["2", "", "", ""]]), f"{account}.map.xlsx")
        self.summary(account, "--against", trial, status=3)
        link = self.path("kelvane")
        link.symlink_to(account)
        self.assertIn(f"{account}.map.xlsx",
                      self.summary(link, "--against", trial, "--json", status=3).stdout)

    def test_what_cannot_be_read(self):
        account = self.accounts.new(ENTRIES)
        mapping = self.table(MAP_TITLES, [["1", "", "", ""]])
        self.summary(account, "--against", self.path("xlsx"), "--map", mapping, status=1)
        self.summary(account, "--against", mapping, "--map", self.path("xlsx"), status=1)
        self.summary(account, "--map", mapping, status=2)
        broken = self.path("xlsx")
        broken.write_bytes(b"PK\x03\x04 no workbook")
        self.summary(account, "--against", broken, "--map", mapping, status=1)
        execute(account, "update PM_ItemQC set mQC = 'abc' where iEleVid = 2")
        done = self.summary(account, "--against", self.table(TRIAL_TITLES, [["1", "", 1]]), "--map", mapping,
                            status=1)
        self.assertIn("无法识别", done.stderr)


class SignOff(TieOuts):
    def sheet(self, account, *arguments, status):
        path = self.path("pdf")
        self.summary(account, *arguments, "--sign-off", path, status=status)
        for font in run("pdffonts", path).splitlines()[2:]:
            self.assertRegex(font, r"^[A-Z]{6}\+.* yes +yes +yes ")
        pages = run("pdftotext", "-layout", path, "-").split("\f")[:-1]
        for number, page in enumerate(pages, 1):
            self.assertIn(f"第{number}页共{len(pages)}页", page.replace(" ", ""))
        return ["".join(page.split()) for page in pages]

    def test_all_of_it(self):
        account = self.accounts.new(ENTRIES)
        table = text(self.path("csv"), table_of([entry()]))
        self.assertEqual(self.accounts.run("import", account, table).returncode, 0)
        self.assertEqual(self.accounts.run("undo", account, "1").returncode, 0)
        trial = self.table(TRIAL_TITLES, [["1", "甲", "180.10"], ["2", "乙", "0.01"], ["1001", "现金", "7"]])
        mapping = self.table(MAP_TITLES, [["1", "X01", "", ""], ["2", "X02", "", ""]])
        execute(account, "update PM_ItemQC set cItemCode = 'X99' where iEleVid = 4")
        pages = self.sheet(account, "--against", trial, "--map", mapping, status=3)
        self.assertEqual(len(pages), 1)
        sheet = pages[0]
        batches = json.loads(self.accounts.run("batches", account, "--json").stdout)["batches"]
        checked = self.accounts.run("check", account).stdout.splitlines()
        errors, warnings = checked[-1].split("errors ")[1].split(", warnings ")
        for part in ("期初核对签字表", "单位华远建设集团有限公司", "年度2004", "操作员演示用户", "期初笔数4",
                     "未结转期初合计185.0999", batches[0]["hash"], "已写入", "撤销批次1", table.name,
                     f"（余额表{trial.name}，科目2个，不符1个，未对应期初1笔，未对应科目1个）",
                     "2乙不符0.011-0.00010.0101", "1001现金未对应科目7.00", "未对应期初415.00",
                     f"检查结果：错误{errors}，警告{warnings}", "check.item错误", "“X99”", "编制", "复核",
                     "批准"):
            self.assertIn(part, sheet)
        self.assertNotIn("1甲相符", sheet)

    def test_without_a_ledger(self):
        account = self.accounts.new(ENTRIES)
        sheet = "".join(self.sheet(account, status=0))
        for part in ("导入批次：没有", "与总账的未结差异：没有与总账核对", "期初笔数4"):
            self.assertIn(part, sheet)

    def test_long_lists_flow_over_pages(self):
        rows = ",".join(f"({number}, '2004-06-01 00:00:00.000', 'T01', 'X01', '一标段', '', 'E01', 'a',"
                        f" '{number}.0000')" for number in range(5, 205))
        account = self.accounts.new(ENTRIES + f"insert into PM_ItemQC values {rows};")
        pages = self.sheet(account, "--against", self.table(TRIAL_TITLES, [["1", "", "1"]]), "--map",
                           self.table(MAP_TITLES, [["1", "Z", "", ""]]), status=3)
        self.assertGreater(len(pages), 3)
        together = "".join(pages)
        for number in range(5, 205):
            self.assertIn(f"未对应期初{number}1{number}.00", together)
        for page in pages[1:-1]:
            self.assertIn("可能的期初编号", page)

    def test_only_a_pdf(self):
        account = self.accounts.new(ENTRIES)
        self.summary(account, "--sign-off", self.path("xlsx"), status=2)
        self.summary(account, "--sign-off", self.folder / "none" / "a.pdf", status=1)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
