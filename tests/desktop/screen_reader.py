#!/usr/bin/env python3
"""Works the program's windows by keyboard as somebody who cannot see them, and compares what a screen
reader is told meanwhile.

Keys are real events of the display; run it under scripts/with-display, and there under
scripts/with-session-bus. What it waits for are the events that a reader gets.
"""

import argparse
import os
import sqlite3
import subprocess
import sys
import time
import unittest
from contextlib import closing
from pathlib import Path

import gi
import real_input

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

EVENTS = ("object:active-descendant-changed", "object:state-changed:focused",
          "object:state-changed:showing", "object:property-change:accessible-name",
          "window:activate")


class Said:
    """What a reader is told by one event: of whom, and what there is to say of it then."""

    def __init__(self, event):
        self.event = event.type
        about = event.any_data if isinstance(event.any_data, Atspi.Accessible) else event.source
        self.gained = event.detail1
        self.role = about.get_role_name()
        self.name = about.get_name()
        self.description = about.get_description()
        self.states = about.get_state_set()
        self.title = self.title_of(about)

    @staticmethod
    def title_of(about):
        isCell = "TableCell" in about.get_interfaces()
        titles = Atspi.TableCell.get_column_header_cells(about) if isCell else []
        return titles[0].get_name() if titles else ""

    def __str__(self):
        return (f"{self.event} {self.gained}: {self.role} '{self.name}' under '{self.title}',"
                f" '{self.description}'")


class ScreenReader(real_input.Person):
    def setUp(self):
        super().setUp()
        self.said = []
        self.listener = Atspi.EventListener.new(self.hear)
        for event in EVENTS:
            self.listener.register(event)
        self.addCleanup(self.stop_hearing)

    def stop_hearing(self):
        for event in EVENTS:
            self.listener.deregister(event)

    def hear(self, event):
        try:
            self.said.append(Said(event))
        except GLib.Error:
            pass  # gone before anybody could ask for it

    def wait(self, what, condition):
        """Waits while events come in."""
        end = time.monotonic() + real_input.PATIENCE_SECONDS
        while time.monotonic() < end:
            while GLib.MainContext.default().iteration(False):
                pass
            if condition():
                return
            time.sleep(real_input.GLANCE_SECONDS)
        heard = "\n  ".join(map(str, self.said))
        self.fail(f"never: {what}; heard since:\n  {heard}")

    def told(self, what, condition):
        """Waits for an event and forgets those before it; returns what it told."""
        found = []

        def look():
            found[:] = [at for at, said in enumerate(self.said) if condition(said)]
            return bool(found)

        self.wait(what, look)
        said = self.said[found[0]]
        del self.said[:found[0] + 1]
        return said

    def on_cell(self, text, title, description):
        """Waits until the cell is the one that a reader follows."""
        said = self.told(f"cell '{text}' under '{title}', {description}", lambda said: (
            said.event.startswith("object:active-descendant-changed") and said.name == text and
            said.title == title and said.description == description))
        self.assertTrue(said.states.contains(Atspi.StateType.FOCUSED))
        self.assertEqual(said.states.contains(Atspi.StateType.READ_ONLY), "锁定" in description)
        self.assertNotEqual(said.states.contains(Atspi.StateType.EDITABLE), "锁定" in description)

    def on_field(self, name):
        return self.told(f"field '{name}'", lambda said: (
            said.event == "object:state-changed:focused" and said.gained == 1 and
            said.role == "text" and said.name == name))

    def on_button(self, name):
        return self.told(f"button '{name}'", lambda said: (
            said.event == "object:state-changed:focused" and said.gained == 1 and
            said.role == "push button" and said.name == name))

    def announced(self, text):
        self.told(f"announcement '{text}'", lambda said: (
            said.event == "object:state-changed:showing" and said.gained == 1 and
            said.role == "notification" and said.name == text))

    def window(self, title):
        """The window that a reader finds under its title."""
        desktop = Atspi.get_desktop(0)
        for place in range(desktop.get_child_count()):
            program = desktop.get_child_at_index(place)
            for inner in range(program.get_child_count()):
                if program.get_child_at_index(inner).get_name() == title:
                    return program.get_child_at_index(inner)
        self.fail("no window " + title)
        return None

    def below(self, whole):
        """Everything shown in an object, but no cells."""
        found = []
        for place in range(whole.get_child_count()):
            part = whole.get_child_at_index(place)
            if not part.get_state_set().contains(Atspi.StateType.SHOWING):
                continue
            found.append(part)
            if part.get_role_name() != "table":
                found += self.below(part)
        return found

    def names(self, title, role):
        return [part.get_name() for part in self.below(self.window(title))
                if part.get_role_name() == role]

    def table(self, title):
        tables = [part for part in self.below(self.window(title))
                  if part.get_role_name() == "table"]
        self.assertEqual(len(tables), 1)
        return tables[0]

    def test_windows_are_read_from_their_tree(self):
        self.open()
        self.assertEqual(self.names(real_input.LIST, "push button"),
                         ["打印", "预览", "输出", "增加", "删除", "定位", "帮助", "退出"])
        self.assertEqual(self.names(real_input.LIST, "label"), [real_input.LIST])
        whole = self.table(real_input.LIST)
        self.assertEqual(whole.get_name(), real_input.LIST)
        self.assertTrue(whole.get_state_set().contains(Atspi.StateType.MANAGES_DESCENDANTS))
        self.assertEqual(Atspi.Table.get_n_rows(whole), 5)
        titles = [Atspi.Table.get_column_header(whole, column).get_name()
                  for column in range(Atspi.Table.get_n_columns(whole))]
        self.assertEqual(titles[:3], ["日期", "责任中心", "项目编号"])
        center = Atspi.Table.get_accessible_at(whole, 2, titles.index("责任中心"))
        self.assertEqual(center.get_name(), "D02")
        self.assertEqual(whole.get_child_at_index(center.get_index_in_parent()).get_name(), "D02")
        self.assertEqual(Atspi.Table.get_row_at_index(whole, center.get_index_in_parent()), 2)
        self.assertIsNone(Atspi.Table.get_accessible_at(whole, 5, 0))
        place = Atspi.Component.get_extents(center, Atspi.CoordType.SCREEN)
        found = Atspi.Component.get_accessible_at_point(
            whole, place.x + place.width // 2, place.y + place.height // 2,
            Atspi.CoordType.SCREEN)
        self.assertEqual(found.get_name(), "D02")
        self.assertEqual(found.get_description(), center.get_description())
        self.close()

    def test_fields_have_their_labels_and_buttons_can_be_pressed(self):
        self.open()
        find = next(part for part in self.below(self.window(real_input.LIST))
                    if part.get_name() == "定位")
        self.assertTrue(Atspi.Action.do_action(find, 0))
        self.see("定位")
        self.on_field("项目编号")
        self.assertEqual(self.names("定位", "text")[:2], ["项目编号", "标段"])
        self.assertEqual(self.names("定位", "push button"), ["参照", "确定", "取消"])
        self.keys("Escape")
        self.gone("定位")
        self.see(real_input.LIST)
        self.close()

    def choose(self, caption):
        """Opens the context menu by keyboard and chooses an entry of it."""
        self.keys("shift+F10")
        found = []

        def look():
            desktop = Atspi.get_desktop(0)
            for place in range(desktop.get_child_count()):
                program = desktop.get_child_at_index(place)
                for inner in range(program.get_child_count()):
                    found.extend(part for part in self.below(program.get_child_at_index(inner))
                                 if part.get_name() == caption and
                                 part.get_role_name() == "menu item")
            return bool(found)

        self.wait("menu entry " + caption, look)
        self.assertTrue(Atspi.Action.do_action(found[0], 0))

    def test_a_finding_is_read_and_gone_to(self):
        with closing(sqlite3.connect(self.account)) as database:
            database.execute("update PM_ItemQC set cCenterCode = 'D77' where iEleVid = 5")
            database.commit()
        self.open()
        self.keys("ctrl+Home")
        self.on_cell("2004-06-01", "日期", "第 1 行，第 1 列")
        self.choose("检查")
        self.see("检查期初")
        self.on_cell("3", "编号", "锁定，第 1 行，第 1 列")
        self.assertEqual(self.table("检查期初").get_name(), "检查结果")
        self.assertEqual(self.names("检查期初", "push button"),
                         ["只看错误", "重新检查", "到该行期初", "关闭"])
        self.keys("ctrl+End")
        self.on_cell("责任中心“D77”不存在", "说明", "锁定，第 3 行，第 5 列")
        self.keys("Return")
        self.gone("检查期初")
        self.see(real_input.LIST)
        self.on_cell("2004-05-16", "日期", "第 5 行，第 1 列")
        self.close()

    def test_a_sum_is_read_and_followed_to_its_entries(self):
        self.open()
        self.keys("ctrl+Home")
        self.on_cell("2004-06-01", "日期", "第 1 行，第 1 列")
        self.choose("汇总")
        self.see("期初汇总")
        self.on_cell("P01", "项目编号", "锁定，第 1 行，第 1 列")
        self.assertEqual(self.table("期初汇总").get_name(), "汇总结果")
        self.assertEqual(self.names("期初汇总", "text"),
                         ["汇总依据一", "汇总依据二", "汇总依据三", "汇总依据四", "汇总依据五"])
        self.keys("ctrl+End")
        self.keys("Home")
        self.on_cell("合计", "项目编号", "锁定，第 11 行，第 1 列")
        self.keys("Return")
        self.see("期初：全部")
        self.on_cell("2004-06-01", "日期", "锁定，第 1 行，第 1 列")
        self.keys("Down", "Down")
        self.on_cell("2003-11-30", "日期", "锁定，第 3 行，第 1 列")
        self.keys("Return")
        self.gone("期初汇总")
        self.see(real_input.LIST)
        self.on_cell("2003-11-30", "日期", "锁定，第 4 行，第 1 列")
        self.close()

    def test_the_toolbar_is_read_as_the_keyboard_walks_through_it(self):
        self.open()
        self.keys("ctrl+Home")
        self.on_cell("2004-06-01", "日期", "第 1 行，第 1 列")
        self.keys("F10")
        self.on_button("打印")
        self.keys("Right")
        self.on_button("预览")
        self.keys("Escape")
        self.on_cell("2004-06-01", "日期", "第 1 行，第 1 列")
        self.close()

    def test_an_entry_is_entered_by_ear(self):
        self.open()
        self.keys("ctrl+i", "ctrl+End")
        self.see(real_input.HINT)
        self.told("message", lambda said: said.event == "window:activate" and
                  said.role == "alert" and said.name == real_input.HINT)
        self.assertEqual(self.names(real_input.HINT, "label"), ["请先填充要素"])
        self.on_button("确定")
        self.answer("Return", title=real_input.HINT)
        self.see(real_input.LIST)
        self.keys("Home", "Right")
        self.on_cell("", "责任中心", "第 6 行，第 2 列")
        self.type("D02")
        self.on_field("责任中心")
        self.keys("Tab")
        self.on_cell("", "项目编号", "第 6 行，第 3 列")
        self.keys("F2")
        self.on_field("项目编号")
        self.keys("F2")
        self.wait("pick list", lambda: len(real_input.Window.shown()) == 2)
        pick = next(title for title in real_input.Window.shown() if title != real_input.LIST)
        self.see(pick)
        self.on_field("查找")
        self.type("zzz")
        self.announced("没有符合的内容")
        self.keys("BackSpace", "BackSpace", "BackSpace")
        self.type("p02")
        self.told("row of the item", lambda said: said.role == "table cell" and
                  said.name == "P02" and said.description == "第 1 行")
        self.keys("Return")
        self.gone(pick)
        self.see(real_input.LIST)
        self.on_cell("P02", "项目编号", "第 6 行，第 3 列")
        self.keys("Tab")
        self.on_cell("", "要素", "第 6 行，第 6 列")
        self.type("人工费")
        self.keys("Tab")
        self.on_cell("", "摘要", "第 6 行，第 7 列")
        self.type("二月 人工")
        self.keys("Tab")
        self.on_cell("", "未结转期初", "第 6 行，第 8 列")
        self.type("2000.5")
        self.on_field("未结转期初")
        self.keys("Return")
        self.on_cell("2,000.50", "未结转期初", "第 6 行，第 8 列")
        self.wait("saved row", lambda: self.rows(
            "select mQC from PM_ItemQC where iEleVid = 6") == [("2000.5000",)])
        self.close()

    def test_a_locked_row_says_so(self):
        self.open()
        self.keys("ctrl+End", "Up")
        self.told("settled entry", lambda said: said.event.startswith(
            "object:active-descendant-changed") and said.name == "80.00")
        self.keys("Left")
        self.on_cell("吊车", "摘要", "锁定，第 4 行，第 7 列")
        self.keys("ctrl+Home")
        self.on_cell("2004-06-01", "日期", "第 1 行，第 1 列")
        self.close()

    def test_detail_lines_are_read(self):
        self.open()
        self.keys("ctrl+Home", "Down", "End", "F2")
        self.on_field("未结转期初")
        self.keys("F2")
        self.see(real_input.DETAILS)
        self.assertEqual(self.names(real_input.DETAILS, "label"), [
            "项目期初存货明细", "项目要素:", "材料费", "项目:", "P011", "责任中心:", "D01"])
        self.keys("ctrl+Home")
        self.on_cell("M01", "存货编码", "第 1 行，第 1 列")
        self.keys("ctrl+F4")
        self.gone(real_input.DETAILS)
        self.see(real_input.LIST)
        self.keys("Escape", "Up")
        self.on_cell("1,234.50", "未结转期初", "第 1 行，第 8 列")
        self.close()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True, help="the program kelvane")
    arguments, rest = parser.parse_known_args()
    real_input.program = str(Path(arguments.program).resolve())
    Atspi.init()
    unittest.main(argv=[sys.argv[0], *rest], verbosity=2)


if __name__ == "__main__":
    main()
