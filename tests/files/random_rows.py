"""Random rows of entries and their lines, every second one with a fault; the faults come by turns. The
same seed gives the same rows. The codes are those of the company in account_files.
"""

import random

from account_files import entry

ROWS = 60

ITEMS = {"T01": [("X01", "一标段"), ("X01", "二标段"), ("X02", "一标段"), ("X05", "一标段"),
                 ("X06", "一标段")],
         "0101": [("0007", "一标段"), ("08", "一标段"), ("008", "一标段")]}
PLAIN_ELEMENTS = ["人工费", "人工费", "现场管理费", "临时设施费"]
CODES = {"机械使用费": ["0101", "0201", "0202", "0303"],
         "钢材费": ["010101", "010102", "010103"],
         "主要材料费": ["010101", "010201", "010301", "010501"],
         "其他材料费": ["030101", "020101", "010101"]}
DIGESTS = ["六月人工", "  两端有空白 ", '带"引号"和,逗号', "＝全角", "+49", "一😀二", "-7", "007", "a;b", "工" * 127,
           "一 二"]
WRONG_CODES = {"机械使用费": "02", "钢材费": "010201", "主要材料费": "020101", "其他材料费": "9999"}


class Rows:
    """Rows of entries as texts by title, and the lines of each."""

    def __init__(self, seed, faults):
        self.chance = random.Random(seed)
        self.rows = []
        self.lines = []
        for number in range(ROWS):
            row, lines = self.good()
            # Half of the rows are good; the faults come by turns.
            if number % 2:
                faults[number // 2 % len(faults)](self, row, lines)
            self.rows.append(row)
            self.lines.append(lines)

    def good(self):
        chance = self.chance
        center = chance.choice(["T01", "T01", "T01", "t01", "0101"])
        item, keyword = chance.choice(ITEMS[center.upper()])
        element = chance.choice(PLAIN_ELEMENTS if chance.random() < 0.6 else list(CODES))
        lines = self.some_lines(element) if element in CODES else []
        row = entry(**{"日期": self.date(), "责任中心": center, "项目编号": item, "项目名称": None,
                       "标段 (关键字)": keyword, "要素": chance.choice(["", " "]) + element,
                       "摘要": chance.choice(DIGESTS), "未结转期初": "" if lines else self.amount()})
        # Amounts that are recorded below zero cannot be checked against a budget.
        if item == "X05":
            row["未结转期初"] = row["未结转期初"].lstrip("-")
        return row, lines

    def date(self):
        chance = self.chance
        year = chance.choice([1900, 1995, 2003, 2004])
        month, day = chance.randint(1, 6), chance.randint(1, 28)
        return chance.choice([f"{year}-{month:02}-{day:02}", f"{year}.{month}.{day}",
                              f"{year}/{month}/{day:02}", f"04.{month}.{day}", f"95-{month}-{day}"])

    def amount(self):
        chance = self.chance
        return chance.choice([f"{chance.randint(1, 450)}", f"{chance.uniform(1, 500):.2f}",
                              f"{chance.uniform(1, 300):.5f}", f"{chance.randint(1000, 999999):,}",
                              "1,234.50", "0", "-0.5", ".5", "10.005"])

    def some_lines(self, element):
        chance = self.chance
        codes = chance.sample(CODES[element], chance.randint(1, 3))
        return [{"编码": code, "单价": f"{chance.uniform(0.01, 900):.{chance.randint(0, 5)}f}",
                 "数量": f"{chance.uniform(1, 9):.{chance.randint(0, 5)}f}"} for code in codes]

    def with_lines(self, row, lines):
        """Lines for a row that is to have a wrong one; which of them that is."""
        element = self.chance.choice(list(CODES))
        row["要素"] = element
        row["未结转期初"] = ""
        lines[:] = self.some_lines(element)
        return element, self.chance.choice(lines)

    def no_date(self, row, _):
        row["日期"] = ""

    def wrong_date(self, row, _):
        row["日期"] = self.chance.choice(["2004-02-30", "2004.13.1", "20040601", "六月", "2004-6",
                                          "2004-06.01", "2004.0.1"])

    def late_date(self, row, _):
        row["日期"] = self.chance.choice(["2004-07-01", "2005-1-1", "3001.1.1"])

    def early_date(self, row, _):
        row["日期"] = self.chance.choice(["1899-12-31", "1000.1.1"])

    def no_center(self, row, _):
        row["责任中心"] = ""

    def wrong_center(self, row, _):
        row["责任中心"] = self.chance.choice(["T02", "T99", "试验一部"])

    def no_item(self, row, _):
        row["项目编号"] = ""

    def item_of_another_center(self, row, _):
        row.update({"责任中心": "T01", "项目编号": "X03", "标段 (关键字)": "一标段"})

    def settled_item(self, row, _):
        row.update({"责任中心": "T01", "项目编号": "X04", "标段 (关键字)": "一标段"})

    def no_element(self, row, lines):
        row["要素"] = ""
        lines.clear()

    def wrong_element(self, row, lines):
        row["要素"] = self.chance.choice(["没有的费", "E01"])
        lines.clear()

    def no_digest(self, row, _):
        row["摘要"] = self.chance.choice(["", "   "])

    def no_amount(self, row, lines):
        row["未结转期初"] = ""
        lines.clear()

    def greatest_amount(self, row, lines):
        row.update({"责任中心": "T01", "项目编号": "X01", "标段 (关键字)": "一标段", "要素": "人工费",
                    "未结转期初": self.chance.choice(["922,337,203,685,477.58", "-922337203685477.58"])})
        lines.clear()

    def wrong_amount(self, row, lines):
        row.update({"要素": "人工费", "未结转期初": self.chance.choice(["abc", "12-", "1.2.3", "一百"])})
        lines.clear()

    def budgeted_amount(self, row, lines):
        row.update({"责任中心": "T01", "项目编号": "X05", "标段 (关键字)": "一标段", "要素": "人工费",
                    "未结转期初": self.chance.choice(["300", "400.005", "1000.01", "250"])})
        lines.clear()

    def no_code(self, row, lines):
        self.with_lines(row, lines)[1]["编码"] = ""

    def wrong_code(self, row, lines):
        element, wrong = self.with_lines(row, lines)
        wrong["编码"] = WRONG_CODES[element]

    def code_twice(self, row, lines):
        lines.append(dict(self.with_lines(row, lines)[1]))

    def no_price(self, row, lines):
        self.with_lines(row, lines)[1]["单价"] = self.chance.choice(["0", "0.001"])

    def no_quantity(self, row, lines):
        self.with_lines(row, lines)[1]["数量"] = self.chance.choice(["", "0"])

    def wrong_number(self, row, lines):
        self.with_lines(row, lines)[1][self.chance.choice(["单价", "数量"])] = \
            self.chance.choice(["-1", "1..5", "五"])

    def budgeted_lines(self, row, lines):
        row.update({"责任中心": "T01", "项目编号": "X06", "标段 (关键字)": "一标段", "要素": "机械使用费",
                    "未结转期初": ""})
        lines[:] = [{"编码": "0202", "单价": self.chance.choice(["500", "2000"]),
                     "数量": self.chance.choice(["2", "4", "11"])},
                    {"编码": "0101", "单价": "1000000", "数量": self.chance.choice(["1", "2"])}]

    def quoted_digest(self, row, _):
        row["摘要"] = "工人's"

    def long_digest(self, row, _):
        row["摘要"] = "工" * 128

    def great_amount(self, row, lines):
        row.update({"项目编号": "X01", "责任中心": "T01", "标段 (关键字)": "一标段", "要素": "人工费",
                    "未结转期初": "99999999999999999999"})
        lines.clear()


FAULTS = [Rows.no_date, Rows.wrong_date, Rows.late_date, Rows.early_date, Rows.no_center,
          Rows.wrong_center, Rows.no_item, Rows.item_of_another_center, Rows.settled_item,
          Rows.no_element, Rows.wrong_element, Rows.no_digest, Rows.no_amount,
          Rows.greatest_amount, Rows.wrong_amount, Rows.budgeted_amount, Rows.no_code,
          Rows.wrong_code, Rows.code_twice, Rows.no_price, Rows.no_quantity, Rows.wrong_number,
          Rows.budgeted_lines]
# In the window these use up a number for the entry, though they are not saved.
FAULTS_WITHOUT_BOX = [Rows.quoted_digest, Rows.long_digest, Rows.great_amount]
