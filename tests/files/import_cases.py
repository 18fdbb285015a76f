"""What an import refuses, case by case: the rows of a workbook, and each line that is told of them.

Rows of entries stand from row 2 of the sheet 期初 on, in the columns A 日期, B 责任中心, C 项目编号,
D 项目名称, E 标段, F 要素, G 摘要, H 未结转期初, I 行号; lines on the sheet 明细 in A 行号, B 编码,
C 单价, D 数量, E 余额.
"""

import datetime
from collections import namedtuple

from account_files import entry, line

# `findings`: the lines in their order; `refused`: how many of the rows; `changes`: statements that are
# run on the account before.
Case = namedtuple("Case", "name rows lines findings refused changes user",
                  defaults=(None, [], 1, "", "demo"))

BOUND = "期初录入时间应在本年度帐套启用期间第一天(2004-07-01)之前"
NO_CENTER = "此责任中心不存在或操作员没有权限，须重新输入！"
BEYOND = "金额超出项目预算中的项目期初发生额"
NUMERIC = {"责任中心": "0101", "项目名称": None}
TWO_VERSIONS = ("Subquery returned more than 1 value. This is not permitted when the subquery follows =,"
                " !=, <, <=, >, >= or when the subquery is used as an expression.")
SPOILED = "编码 {} 已被电子表格改写，原来的编码无法得知"
MACHINES = {"要素": "机械使用费", "未结转期初": None, "行号": "1"}
STEEL = {"要素": "钢材费", "未结转期初": None, "行号": "1"}
BUDGETED = {**MACHINES, "项目编号": "X06", "项目名称": "明细楼"}
BUDGETED_PLAIN = {"项目编号": "X05", "项目名称": "预算楼"}
BELOW_ZERO = """
insert into PM_ItemQC values (41, '2004-06-01 00:00:00.000', 'T01', 'X05', '一标段', '', 'E01', '红字',
    '-5.0000');
update PM_SettingInf set cValue = '41' where cName = 'NumMax_EleQc';
"""


def one(name, place, rule, text, user="demo", changes="", **cells):
    """One row in which one thing is wrong."""
    return Case(name, [entry(**cells)], None, [f"期初!{place}: {rule}: {text}"], changes=changes,
                user=user)


def of_lines(name, cells, lines, *findings):
    return Case(name, [entry(**cells)], lines, list(findings))


ENTRY_CASES = [
    one("no date", "A2", "date.empty", "日期不能为空", 日期=""),
    one("a day that no month has", "A2", "date.invalid", "日期非法", 日期="2004-02-30"),
    one("no separators", "A2", "date.invalid", "日期非法", 日期="20040601"),
    one("the first day of the period", "A2", "date.bound", BOUND, 日期=datetime.date(2004, 7, 1)),
    one("too early", "A2", "date.range", "期初录入时间录入有误！", 日期="1899-12-31"),
    one("a bare number for a date", "A2", "cell.date", "38139 不是日期", 日期=38139),
    one("a time of day", "A2", "cell.date", "2004-06-01 12:30:00 不是日期",
        日期=datetime.datetime(2004, 6, 1, 12, 30)),
    one("no centre", "B2", "center.empty", "责任中心不能为空", 责任中心=""),
    one("unknown centre", "B2", "center.unknown", NO_CENTER, 责任中心="T99"),
    one("a quote in the centre", "B2", "center.unknown", NO_CENTER, 责任中心="T'01"),
    one("no authority", "B2", "center.unknown", NO_CENTER, user="zhang", 责任中心="T02", 项目编号="X03",
        项目名称="外部楼"),
    one("a number for a centre", "B2", "cell.code.number", "编码应为文本，此处是数字，可能是编码 0101",
        **{"责任中心": 101, "项目编号": "0007", "项目名称": None}),
    one("no item", "C2", "item.empty", "项目编号不能为空", 项目编号=""),
    one("an item of another centre", "C2", "item.center", "该责任中心下不包括此项目，须重新输入！",
        项目编号="X03", 项目名称="外部楼"),
    one("letter case of an item", "C2", "item.center", "该责任中心下不包括此项目，须重新输入！",
        项目编号="x01"),
    one("a settled item", "C2", "item.settled", "项目已经完工结算，不能在启用后对该项目录入期初！",
        项目编号="X04", 项目名称="旧楼"),
    one("a number for an item", "C2", "cell.code.number", "编码应为文本，此处是数字，可能是编码 0007",
        **NUMERIC, 项目编号=7),
    one("a number for one of two items", "C2", "cell.code.number",
        "编码应为文本，此处是数字 8，可能缺少前面的 0", **NUMERIC, 项目编号=8),
    one("a number for no item", "C2", "cell.code.number",
        "编码应为文本，此处是数字 12345，可能缺少前面的 0", **NUMERIC, 项目编号=12345),
    one("an exponent", "C2", "cell.code.number", SPOILED.format("1.23457E+11"), **NUMERIC,
        项目编号="1.23457E+11"),
    # Nothing can be said of the name of an item that is not known to be one.
    one("a name beside an unknown centre", "B2", "center.unknown", NO_CENTER, 责任中心="T99",
        项目编号="X99"),
    one("another item's name", "D2", "item.name", "项目名称与项目编号不符，该编号的项目是“试验楼”",
        项目名称="样板楼"),
    one("keywords of nobody", "E2", "key.mismatch", "该责任中心下此项目没有这样的关键字",
        **{"标段 (关键字)": "九标段"}),
    one("another item's keywords", "E2", "key.mismatch", "该责任中心下此项目没有这样的关键字",
        **{"标段 (关键字)": "二标段", "项目编号": "X02", "项目名称": "样板楼"}),
    one("no element", "F2", "element.empty", "项目要素不能为空", 要素=""),
    one("unknown element", "F2", "element.unknown", "输入的项目要素不存在，须重新输入！", 要素="没有的费"),
    one("an element's code", "F2", "element.unknown", "输入的项目要素不存在，须重新输入！", 要素="E01"),
    one("no digest", "G2", "digest.empty", "摘要不能为空", 摘要="   "),
    one("a quote in the digest", "G2", "text.quote", "不能含有单引号（'）", 摘要="工人's"),
    one("a long digest", "G2", "text.length", "太长，最多 255 个字节（一个汉字为两个字节）", 摘要="工" * 128),
    one("no amount", "H2", "amount.empty", "期初不能为空", 未结转期初=""),
    one("no number", "H2", "amount.number", "请输入数字", 未结转期初="一百"),
    one("a comma for the point", "H2", "amount.number", "请输入数字", 未结转期初="1.234,50"),
    one("two digits in a group", "H2", "amount.number", "请输入数字", 未结转期初="12,34"),
    one("a great amount", "H2", "amount.range",
        "金额超出范围（-922,337,203,685,477.58 至 922,337,203,685,477.58）", 未结转期初="1" + "0" * 15),
    one("beyond the budget", "H2", "budget.exceeded", BEYOND, 项目编号="X05", 项目名称="预算楼",
        未结转期初=1000.01),
    one("two versions in control", "H2", "budget.failed", TWO_VERSIONS,
        changes="update pm_BudgetVer set bControl = 1;"),
    one("a formula without a result", "H2", "cell.formula", "公式没有保存计算结果，须重新计算后保存",
        未结转期初="=1+1"),
    one("an error", "H2", "cell.error", "单元格是错误值 #DIV/0!", 未结转期初="#DIV/0!"),
    one("no counter", "A2", "counter.missing", "出现冲突，请稍后再试！",
        changes="delete from PM_SettingInf where cName = 'NumMax_EleQc';"),
    one("numbers that are too small", "A2", "identity.exhausted",
        "期初编号小于 -32768，不能使用，当前行没有保存，没有写入数据库。",
        changes="update PM_SettingInf set cValue = '-40000' where cName = 'NumMax_EleQc';"),
    Case("the last number", [entry(), entry()], None,
         ["期初!A3: identity.exhausted: 期初编号已经用完（最大 32767），当前行没有保存，没有写入数据库。"],
         changes="update PM_SettingInf set cValue = '32766' where cName = 'NumMax_EleQc';"),
    Case("a row in which much is wrong",
         [entry(日期="", 责任中心="T99", 要素="没有的费", 摘要="", 未结转期初="abc"), entry()], None,
         ["期初!A2: date.empty: 日期不能为空", f"期初!B2: center.unknown: {NO_CENTER}",
          "期初!F2: element.unknown: 输入的项目要素不存在，须重新输入！", "期初!G2: digest.empty: 摘要不能为空",
          "期初!H2: amount.number: 请输入数字"]),
    Case("two rows that use up a budget",
         [entry(项目编号="X05", 项目名称="预算楼", 未结转期初=600), entry(摘要=""),
          entry(项目编号="X05", 项目名称="预算楼", 未结转期初=400.01),
          entry(项目编号="X05", 项目名称="预算楼", 未结转期初=400)], None,
         ["期初!G3: digest.empty: 摘要不能为空", f"期初!H4: budget.exceeded: {BEYOND}"], 2),
    Case("a budget that a refused row does not use up",
         [entry(项目编号="X05", 项目名称="预算楼", 未结转期初=600, 摘要=""),
          entry(项目编号="X05", 项目名称="预算楼", 未结转期初=1000)], None,
         ["期初!G2: digest.empty: 摘要不能为空"]),
]

LINE_CASES = [
    of_lines("no code", MACHINES, [line("1", "", 5, 1)], "明细!B2: line.code.empty: 编码不能为空"),
    of_lines("unknown equipment", MACHINES, [line("1", "9999", 5, 1)],
             "明细!B2: line.code.unknown: 设备编码不存在或不是末级"),
    of_lines("equipment that is a class", MACHINES, [line("1", "02", 5, 1)],
             "明细!B2: line.code.unknown: 设备编码不存在或不是末级"),
    of_lines("inventory of another class", STEEL, [line("1", "010201", 5, 1)],
             "明细!B2: line.code.unknown: 存货编码不存在或所属分类不正确"),
    of_lines("a code twice", MACHINES,
             [line("1", "0201", 5, 1), line("1", "0202", 5, 1), line("1", "0201", 6, 1)],
             "明细!B4: line.code.duplicate: 编码不能重复"),
    of_lines("no price", MACHINES, [line("1", "0201", 0, 1)], "明细!C2: line.price.zero: 单价不能为空或0"),
    of_lines("no quantity", MACHINES, [line("1", "0201", 5, None)],
             "明细!D2: line.quantity.zero: 数量不能为空或0"),
    of_lines("a sign", MACHINES, [line("1", "0201", -5, 1)], "明细!C2: line.number: 非法金额数量"),
    of_lines("no number", MACHINES, [line("1", "0201", 5, "五")], "明细!D2: line.number: 非法金额数量"),
    of_lines("beyond the line's amount", BUDGETED, [line("1", "0202", 5000.01, 1, 余额=5000.01)],
             f"明细!E2: line.budget.amount: {BEYOND}"),
    of_lines("beyond the line's quantity", BUDGETED, [line("1", "0202", 5, 10.5)],
             "明细!D2: line.budget.quantity: 数量超出项目预算中的项目期初数量"),
    of_lines("lines beyond the budget", BUDGETED, [line("1", "0101", 3000000.01, 1)],
             f"期初!H2: budget.exceeded: {BEYOND}"),
    of_lines("a line's amount that differs", MACHINES, [line("1", "0201", 5, 3, 余额=15.01)],
             "明细!E2: amount.lines: 余额与单价、数量不符，应为 15.00"),
    of_lines("an amount that differs", {**MACHINES, "未结转期初": 100},
             [line("1", "0201", 5, 3), line("1", "0202", 10, 1)],
             "期初!H2: amount.lines: 期初与明细不符，明细合计为 25.00"),
    of_lines("an amount without lines", {**MACHINES, "未结转期初": 100}, [],
             "期初!H2: amount.lines: 期初与明细不符，明细合计为 0.00"),
    of_lines("neither amount nor lines", MACHINES, [], "期初!H2: amount.empty: 期初不能为空"),
    Case("lines of nobody", [entry(**MACHINES)], [line("1", "0201", 5, 1), line("9", "0201", 5, 1)],
         ["明细!A3: line.entry: 没有行号为“9”的期初"], 0),
    of_lines("an element without lines", {"行号": "1"}, [line("1", "0201", 5, 1)],
             "明细!A2: line.entry: 要素“人工费”没有明细"),
    of_lines("a number for equipment", MACHINES, [line("1", 201, 5, 1)],
             "明细!B2: cell.code.number: 编码应为文本，此处是数字，可能是编码 0201"),
    of_lines("a number for inventory", STEEL, [line("1", 10101, 5, 1)],
             "明细!B2: cell.code.number: 编码应为文本，此处是数字，可能是编码 010101"),
    Case("two entries of one line's budget",
         [entry(**BUDGETED), entry(**{**BUDGETED, "行号": "2"})],
         [line("1", "0202", 300, 6), line("2", "0202", 300, 5)],
         ["明细!D3: line.budget.quantity: 数量超出项目预算中的项目期初数量"]),
    Case("a row number twice", [entry(**MACHINES), entry(**MACHINES)], [line("1", "0201", 5, 1)],
         ["期初!I2: entry.duplicate: 行号 1 不止一次：另见第 3 行",
          "期初!I3: entry.duplicate: 行号 1 不止一次：另见第 2 行"], 2),
    Case("entries before lines", [entry(**MACHINES), entry(摘要="")], [line("1", "0201", 0, 1)],
         ["期初!G3: digest.empty: 摘要不能为空", "明细!C2: line.price.zero: 单价不能为空或0"], 2),
]

LOCKS = [
    ("启用期间已经结账，不能再录入期初。", "update Gl_mend set bflag_PM = 1 where iperiod = 8;"),
    ("2004 年度已经结转，不能再录入期初。", "insert into PM_TranControl values (2004);"),
    ("启用年度不是登录年度（2004），不能录入期初。",
     "update AccInformation set cValue = '2003-07-01' where cName = 'dPMStartDatePeriod';"),
]
