#!/usr/bin/env python3
"""What a reader may see, and what he may not, while others write."""

import unittest

from history import History, Register


class Seen:
    def __init__(self, began, ended, shared, *entries):
        self.began = began
        self.ended = ended
        self.shared = shared
        self.entries = entries
        self.findings = []


class Visible(unittest.TestCase):
    def setUp(self):
        self.register = Register("first")
        self.register.note("second", 10, 20)
        self.register.note("third", 30, 40)

    def test_before_anybody_began(self):
        self.assertEqual(self.register.visible(1, 2), {"first"})

    def test_while_it_is_written(self):
        self.assertEqual(self.register.visible(12, 15), {"first", "second"})

    def test_told_and_not_replaced(self):
        self.assertEqual(self.register.visible(25, 28), {"second"})

    def test_a_long_reading(self):
        self.assertEqual(self.register.visible(25, 35), {"second", "third"})

    def test_nothing_that_was_replaced(self):
        self.assertEqual(self.register.visible(50, 60), {"third"})

    def test_of_two_at_once_either_may_be_the_last(self):
        self.register.note("fourth", 35, 45)
        self.assertEqual(self.register.visible(50, 60), {"third", "fourth"})


class Readings(unittest.TestCase):
    def setUp(self):
        self.history = History("shared")
        self.entry = Register()
        self.history.own.update({"a": self.entry, "b": self.entry})
        self.entry.note(("a", 1), 10, 20)
        self.entry.note(("b", 2), 30, 40)

    def wrong(self, *reading):
        return self.history.wrong_in(Seen(*reading))

    def test_what_was_told_is_there(self):
        self.assertEqual(self.wrong(25, 28, "shared", ("a", 1)), [])
        self.assertEqual(self.wrong(50, 60, "shared", ("b", 2)), [])

    def test_what_was_told_is_missing(self):
        self.assertEqual(len(self.wrong(25, 28, "shared")), 1)

    def test_another_amount(self):
        self.assertEqual(len(self.wrong(25, 28, "shared", ("a", 2))), 1)

    def test_what_was_replaced(self):
        self.assertEqual(len(self.wrong(50, 60, "shared", ("a", 1))), 1)

    def test_old_and_new_side_by_side(self):
        self.assertEqual(len(self.wrong(32, 38, "shared", ("a", 1), ("b", 2))), 1)

    def test_what_nobody_wrote(self):
        self.assertEqual(len(self.wrong(25, 28, "shared", ("a", 1), ("c", 1))), 1)

    def test_a_shared_entry_that_nobody_wrote(self):
        self.assertEqual(len(self.wrong(25, 28, "other", ("a", 1))), 1)


if __name__ == "__main__":
    unittest.main()
