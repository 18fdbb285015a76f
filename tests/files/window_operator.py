"""An operator who types entries into the window, row by row, and tells what the window said of each.

The windows are driven by a script that is written as it goes, so that what is typed next can depend on
what was shown.
"""

import re
import subprocess
import threading
from collections import namedtuple

from account_files import TIMEOUT_SECONDS, execute, query

# The columns of the list in which a text is typed, by title.
TYPED = {"日期": 1, "责任中心": 2, "要素": 7, "摘要": 8}
ITEM, AMOUNT = 3, 9
EQUIPMENT_DETAIL = 2

# What became of a row. `message`: of the box that refused it; `notice`: what the window's lower edge
# said when it was refused without one. A row without either was saved.
Outcome = namedtuple("Outcome", "message notice")
SAVED = Outcome(None, None)


def message_of(shown):
    """The first message box, questions left out."""
    for said in shown:
        box = re.fullmatch(r"\[[^|\]]+\|information\] (.*)", said)
        if box:
            return box[1]
    return None


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


class Operator:
    def __init__(self, accounts, account, user):
        self.account = account
        self.process = subprocess.Popen(
            [accounts.program, "drive", str(account)], encoding="utf-8", env=accounts.environment,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        # A window that never answers ends the test instead of holding it up.
        self.limit = threading.Timer(TIMEOUT_SECONDS, self.process.kill)
        self.limit.start()
        self.elements = dict(query(account,
                                   "select cElementName, iElementDetail from PM_ItemElement"))
        self.say(f"init user={user}", "show")
        self.rows = len([said for said in self.say("print grid") if said[0].isdigit()]) - 1

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.limit.cancel()
        self.process.stdin.close()
        self.process.stdout.close()
        self.process.wait()

    def say(self, *commands):
        """Does the commands; returns what they caused, without their echoes."""
        end = "skip sql"
        self.process.stdin.write("\n".join([*commands, end]) + "\n")
        self.process.stdin.flush()
        shown = []
        for said in self.process.stdout:
            said = said.rstrip("\n")
            if said == f"> {end}":
                return shown
            if said.startswith("error"):
                break
            if not said.startswith("> "):
                shown.append(said)
        raise AssertionError(f"the script failed behind {commands}: {said}")

    def enter(self, row, lines):
        """Types a row of entries and its lines, all of them texts by title. Stops where the window
        refuses something, and takes the row back."""
        self.row = self.rows + 1
        self.say("click Add")
        outcome = self.type_row(row, lines) or self.leave()
        if outcome == SAVED:
            self.rows += 1
        else:
            self.give_up()
        return outcome

    def give_up(self):
        """The first key may give up the cell alone."""
        self.say("answer yes")
        shown = []
        for _ in range(3):
            shown += self.say("key Escape")
            if any(said.startswith("[删除确认|") for said in shown):
                return
        raise AssertionError(f"the new row stays: {shown}")

    def type_row(self, row, lines):
        """An Outcome when a cell is refused; None when nothing more is to be typed."""
        for title in ("日期", "责任中心", "项目编号", "要素", "摘要"):
            # The date is there already. What is left empty shows when the row is left.
            if not row[title].strip() and title != "日期":
                return None
            if title == "项目编号":
                message = self.pick_item(row)
            else:
                message = message_of(self.say(f"go {self.row} {TYPED[title]}",
                                              f"edit {quoted(row[title])}"))
            if message:
                return Outcome(message, None)
        if self.elements.get(row["要素"].strip()):
            return self.type_lines(lines, self.elements[row["要素"].strip()]) if lines else None
        if row["未结转期初"]:
            self.say(f"go {self.row} {AMOUNT}", f"edit {quoted(row['未结转期初'])}")
        return None

    def pick_item(self, row):
        """Items are not typed. One that the centre does not have is picked while it does."""
        center, item, keyword = (row[title].strip() for title in
                                 ("责任中心", "项目编号", "标段 (关键字)"))
        missing = (item, keyword) not in self.items(center)
        if missing:
            execute(self.account, f"insert into PM_DutycenterSub values ('{center}', '{item}',"
                                  f" '{keyword}', null)")
        shown = self.say(f"go {self.row} {ITEM}",
                         f"pick {self.items(center).index((item, keyword)) + 1}", "ref")
        if missing:
            execute(self.account, "delete from PM_DutycenterSub where rowid ="
                                  " (select max(rowid) from PM_DutycenterSub)")
        return message_of(shown)

    def items(self, center):
        return query(self.account, "select cItemCode, cKeyWord1 from PM_DutycenterSub where"
                                   " cCenterCode = ? order by cItemCode, rowid", center)

    def type_lines(self, lines, detail):
        """A line is checked when another one is added; the last one is taken back."""
        price = 3 if detail == EQUIPMENT_DETAIL else 4
        cells = [("编码", 0), ("单价", price), ("数量", price + 1)]
        commands = [f"go {self.row} {AMOUNT}", "ref", "click Addnew"]
        for number, line in enumerate(lines, 1):
            for title, column in cells:
                if line[title]:
                    commands += [f"go {number} {column}", f"edit {quoted(line[title])}"]
                message = message_of(self.say(*commands))
                if message:
                    return self.quit_lines(message)
                commands = []
            message = message_of(self.say("click Addnew"))
            if message:
                return self.quit_lines(message)
        message = message_of(self.say("answer yes", "key Escape", "click Save"))
        return self.quit_lines(message) if message else None

    def quit_lines(self, message):
        self.say("key Escape", "answer yes", "click Quit")
        return Outcome(message, None)

    def leave(self):
        shown = self.say("go 1 1")
        if not any(said.startswith("refused") for said in shown):
            return SAVED
        notice = next(said for said in self.say("print window") if said.startswith("notice "))
        return Outcome(message_of(shown), notice.removeprefix("notice ").strip('"'))

    def close(self):
        """Closes the list."""
        self.say("close")
