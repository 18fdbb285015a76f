"""Accounts and tables of entries for the tests of files.

An account is the program's own sample, made anew and changed with sqlite3: beside the sample's master
data it has a small company whose codes, keywords and budgets a test knows.
"""

import csv
import io
import os
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import unittest
from contextlib import closing
from pathlib import Path

import openpyxl

SAMPLE_ENTRIES = 40
TIMEOUT_SECONDS = 120

TITLES = ["日期", "责任中心", "项目编号", "项目名称", "标段 (关键字)", "要素", "摘要", "未结转期初"]
LINE_TITLES = ["行号", "编码", "单价", "数量"]

# The operator zhang may use all centres but T02. X01 has two keywords, X03 belongs to T02, X04 was
# settled before the module's start, X05 and X06 have budgets. 0007, 08 and 008 look like numbers.
COMPANY = """
insert into PM_DutyCenter values ('T01', '试验一部'), ('T02', '试验二部'), ('0101', '数字中心');
insert or ignore into PM_UserAuth
    select 'zhang', cCenterCode from PM_DutyCenter where cCenterCode <> 'T02';
insert into fitemss97 values ('X01', '试验楼'), ('X02', '样板楼'), ('X03', '外部楼'), ('X04', '旧楼'),
    ('X05', '预算楼'), ('X06', '明细楼'), ('0007', '七号楼'), ('08', '八号楼'), ('008', '零八号楼');
insert into fitemss97sub (citemcode, iclose, denddate, 标段) values
    ('X01', 0, null, '一标段'), ('X01', 0, null, '二标段'), ('X02', 0, null, '一标段'),
    ('X03', 0, null, '一标段'), ('X04', 1, '2003-12-20 00:00:00.000', '一标段'),
    ('X05', 0, null, '一标段'), ('X06', 0, null, '一标段'), ('0007', 0, null, '一标段'),
    ('08', 0, null, '一标段'), ('008', 0, null, '一标段');
insert into PM_DutycenterSub values
    ('T01', 'X01', '一标段', null), ('T01', 'X01', '二标段', null), ('T01', 'X02', '一标段', null),
    ('T02', 'X03', '一标段', null), ('T01', 'X04', '一标段', null), ('T01', 'X05', '一标段', null),
    ('T01', 'X06', '一标段', null), ('0101', '0007', '一标段', null), ('0101', '08', '一标段', null),
    ('0101', '008', '一标段', null);
insert into pm_budget values (2, 'X05', 'E01', '1000.0000', '1000.0000'),
    (2, 'X06', 'E21', '3000000.0000', '3000000.0000');
insert into pm_budgetsub values (2, 'X06', 'E21', '0202', '5000.0000', '5000.0000', 10.0),
    (2, 'X06', 'E21', '0201', '99999.0000', '99999.0000', 10.0);
"""


def entry(**changes):
    """A row of entries that every rule accepts, by title; a change to None leaves its column out."""
    row = {"日期": "2004-06-01", "责任中心": "T01", "项目编号": "X01", "项目名称": "试验楼",
           "标段 (关键字)": "一标段", "要素": "人工费", "摘要": "六月人工", "未结转期初": 1234.5}
    row.update(changes)
    return {title: cell for title, cell in row.items() if cell is not None}


def line(number, code, price, quantity, **more):
    return {"行号": number, "编码": code, "单价": price, "数量": quantity, **more}


def titles_of(rows, usual):
    """The usual titles and behind them those that the rows have besides."""
    further = {title: None for row in rows for title in row if title not in usual}
    return [*usual, *further]


def table_of(rows, usual=TITLES):
    titles = titles_of(rows, usual)
    return [titles, *([row.get(title) for title in titles] for row in rows)]


def workbook(path, rows, lines=None, totals=None):
    """`rows`, `lines`: of entry() and line(); `totals`: the cells below 行数 and 未结转期初."""
    book = openpyxl.Workbook()
    book.active.title = "期初"
    sheets = [(book.active, table_of(list(rows)))]
    if lines is not None:
        sheets.append((book.create_sheet("明细"), table_of(lines, LINE_TITLES)))
    if totals is not None:
        sheets.append((book.create_sheet("合计"), [["行数", "未结转期初"], totals]))
    for sheet, table in sheets:
        for row in table:
            sheet.append(row)
    book.save(path)
    return path


def text(path, table, separator=",", encoding="utf-8"):
    """A csv file of a table as table_of() makes it."""
    content = io.StringIO()
    csv.writer(content, delimiter=separator, lineterminator="\r\n").writerows(table)
    path.write_bytes(content.getvalue().encode(encoding))
    return path


class Accounts:
    """The accounts of a test, in a folder of their own. Without keyword fields there is the sample
    alone."""

    def __init__(self, program, folder, keywords=1):
        self.program = program
        self.folder = Path(folder)
        self.environment = dict(os.environ, HOME=str(folder), XDG_DATA_HOME=str(folder),
                                XDG_CONFIG_HOME=str(folder))
        self.model = self.folder / "model.kelvane"
        self.number = 0
        self.run("init", self.model, "--sample", "--entries", SAMPLE_ENTRIES, "--keywords", keywords,
                 check=True)
        if keywords:
            execute(self.model, COMPANY)
        # Opening the list brings the sample's amounts up to their lines.
        self.run("drive", self.model, input="init\nshow\nclose\n", check=True)

    def run(self, *arguments, **options):
        return subprocess.run([self.program, *map(str, arguments)], capture_output=True,
                              encoding="utf-8", env=self.environment, timeout=TIMEOUT_SECONDS,
                              **options)

    def new(self, changes=""):
        """Another account like the model, with statements run on it."""
        self.number += 1
        account = self.folder / f"a{self.number}.kelvane"
        shutil.copy(self.model, account)
        if changes:
            execute(account, changes)
        return account


def execute(account, statements):
    with closing(sqlite3.connect(account)) as database:
        database.executescript(statements)


def query(account, statement, *values):
    with closing(sqlite3.connect(account)) as database:
        return database.execute(statement, values).fetchall()


def dump(account):
    """All that is in the account, table by table."""
    with closing(sqlite3.connect(account)) as database:
        return list(database.iterdump())


def counter(account):
    return int(query(account,
                     "select cValue from PM_SettingInf where cName = 'NumMax_EleQc'")[0][0])


def new_entries(account):
    """The entries beyond the sample's, as they are stored, with their lines by identity."""
    entries = query(account, "select * from PM_ItemQC where iEleVid > ? order by iEleVid",
                    SAMPLE_ENTRIES)
    lines = query(account, "select * from PM_ItemQCsub where iEleVid > ? order by iEleVid, rowid",
                  SAMPLE_ENTRIES)
    return entries, lines


class AccountsCase(unittest.TestCase):
    """Tests in a folder of their own, with accounts by the program that the command line names first."""

    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp(prefix="kelvane-accounts-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.accounts = Accounts(str(Path(sys.argv[1]).resolve()), cls.folder)
        cls.number = 0

    def path(self, extension):
        type(self).number += 1
        return self.folder / f"table{self.number}.{extension}"
