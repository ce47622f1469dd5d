#!/usr/bin/python3
"""The model's own test: model_test.py FOLDER, in which everything was built."""

import sys
import unittest

from endings import CLICKED, OTHER_CASE, OVERTAKEN, Ending
from model import Model
from reading import Reading

AMMA = "\u0d85\u0db8\u0dca\u0db8"
KA, MA = "\u0d9a", "\u0db8"
KRA = "\u0d9a\u0dca\u200d\u0dbb"
TYPED, HOUSE, TO_HOUSE = "\u0d9c\u0dd9\u0da9\u0dca\u200d\u0dbb\u0dca", "\u0d9c\u0dd9\u0daf\u0dbb", "\u0d9c\u0dd9\u0daf\u0dbb\u0da7"


class ModelTest(unittest.TestCase):
    def setUp(self):
        self.model = Model(READ, [{"Return": "\n"}, {"BackSpace": "\x7f"}])

    def press(self, *keys):
        for key in keys:
            self.model.press(key)

    def texts(self, field=0):
        return [each.text for each in self.model.allowed[field]]

    def reasons(self):
        return [each.reason for each in self.model.allowed[0]]

    def test_a_word_is_put_in_with_the_key_that_ends_it(self):
        self.press(*"amma", "space", *"ka", "comma", *"kra", "1")
        self.assertEqual(self.texts(), [AMMA + " " + KA + "," + KRA + "1"])

    def test_marked_text_is_not_in_the_field(self):
        self.press(*"amma")
        self.assertEqual((self.model.marked(), self.texts()), (AMMA, [""]))

    def test_escape_keeps_the_letters(self):
        self.press(*"amma", "Escape", "1")
        self.assertEqual(self.texts(), ["amma1"])

    def test_backspace_takes_a_visible_part_back(self):
        for keys, left in (("amma", "\u0d85\u0db8\u0dca"), ("kra", KA + "\u0dca"), ("kaa", KA), ("ka", "")):
            self.model = Model(READ, [{}])
            self.press(*keys, "BackSpace")
            self.assertEqual(self.model.marked(), left, keys)

    def test_backspace_after_a_word_is_the_programs(self):
        self.press(*"ka", "space", "BackSpace", "period")
        self.assertEqual(self.texts(), [KA + "."])

    def test_a_terminal_gets_backspace_as_a_character(self):
        self.model.go(1)
        self.press(*"ka", "space", "BackSpace")
        self.assertEqual(self.texts(1), [KA + " \x7f"])

    def test_return_puts_the_word_in_and_is_the_programs(self):
        self.press(*"ka", "Return", *"ma", "Return")
        self.assertEqual(self.texts(), [KA + "\n" + MA + "\n"])

    def test_a_row_that_is_highlighted_goes_in(self):
        self.model.is_suggesting = True
        self.press(*"gedr")
        self.assertEqual(self.model.marked(), TYPED)
        self.press("Down", "Tab")
        self.assertEqual(self.model.marked(), TO_HOUSE)
        self.press("Up", "space", *"gedr", "Up", "period")
        self.assertEqual(self.texts(), [HOUSE + " " + TO_HOUSE + "."])

    def test_a_row_is_left_by_escape_and_by_a_letter(self):
        self.model.is_suggesting = True
        self.press(*"gedr", "Down", "Escape")
        self.assertEqual(self.model.marked(), TYPED)
        self.press("Down", "a")
        self.assertEqual(self.model.marked(), READ("gedra"))

    def test_a_field_that_is_left_keeps_its_word(self):
        self.press(*"ka")
        self.model.go(1)
        self.press(*"ma", "period")
        self.assertEqual((self.texts(), self.texts(1)), ([KA], [MA + "."]))

    def test_what_was_not_composed_of_a_word_that_is_taken_back_is_the_programs(self):
        for keys, left in (("aa", ["\x7f", "a\x7f"]), ("kam", [KA + MA, "k\u0d85" + MA]), ("ka", ["", "k"])):
            self.setUp()
            self.model.go(1, astray="why")
            self.press(*keys, *["BackSpace"] * (2 if keys == "aa" else 1), *"ma", "space")
            self.assertEqual(self.texts(1), [text + MA + " " for text in left], keys)

    def test_a_held_word_goes_where_a_click_puts_the_caret(self):
        self.press(*"ma", "space", *"ka")
        self.model.go(1, held="why")
        self.model.see([MA + " ", ""])
        self.model.go(0, is_click=True)
        for text, is_allowed in ((MA + " " + KA, True), (MA + KA + " ", True), (KA + MA + " ", True), (MA + KA, False)):
            self.assertEqual(self.model.allows([text, ""]), is_allowed, text)
        self.assertEqual(self.model.see([MA + KA + " ", ""]), ([], [CLICKED]))

    def test_texts_lack_something_where_nothing_else_is_wrong(self):
        self.press(*"ma", "space", *"ka", "space")
        for text, is_lacking in ((MA + " ", True), (KA + " ", True), (KA + " " + MA + " ", False), (MA + MA + " ", False)):
            self.assertEqual(self.model.lacks([text, ""]), is_lacking, text)
        self.assertFalse(self.model.lacks(["", KA]))

    def test_a_word_that_is_left_may_be_lost_for_a_reason(self):
        self.press(*"ma", "space", *"ka")
        self.model.go(1, lost="why")
        self.press(*"ma", "space")
        self.assertEqual(self.model.see([MA + " ", MA + " "]), ([], ["why"]))
        self.model.go(0)
        self.press("1")
        self.assertEqual(self.texts(), [MA + " 1"])

    def test_a_word_that_may_be_lost_is_allowed_to_be_with_its_reason(self):
        self.press(*"ka")
        self.model.choose(False, lost="why")
        self.press("x")
        self.assertEqual((self.texts(), self.reasons()), ([KA + "x", "x"], ["", "why"]))

    def test_nothing_may_be_lost_where_nothing_was_composed(self):
        self.press(*"ka", "space")
        self.model.choose(False, lost="why")
        self.model.kill()
        self.assertEqual(self.texts(), [KA + " "])

    def test_a_kill_takes_the_word_that_is_composed_at_most(self):
        self.press(*"ma", "space", *"ka")
        self.model.kill()
        self.press("x")
        self.assertEqual(self.texts(), [MA + " " + text + "x" for text in (KA, "", KA + "a", "a" + KA, "a")])

    def test_keys_that_came_after_a_kill_come_as_they_are(self):
        self.press(*"kaa")
        self.model.kill(typed_late=1)
        self.assertEqual(set(self.texts()), {KA + "\u0dcf", "", KA + "a", "a", "a" + KA, KA + "\u0dcfa", "a" + KA + "\u0dcf",
                                             KA + "aa", "aa" + KA, "aa"})

    def test_a_field_may_be_deaf_until_the_engine_is_chosen_again(self):
        self.press(*"ma", "space")
        self.model.kill(deaf="why")
        self.press("x", "y", "z")
        for text, is_allowed in (("xyz", True), ("xz", True), ("", True), ("zx", False), ("xxyz", False)):
            self.assertEqual(self.model.allows([MA + " " + text, ""]), is_allowed, text)
        self.assertEqual(self.model.see([MA + " z", ""]), ([], ["why"]))
        self.model.choose(True)
        self.press("1")
        self.assertEqual(self.texts(), [MA + " z1"])

    def test_keys_that_come_back_may_have_lost_their_shift(self):
        self.model.choose(False)
        self.press("A", "space", "b")
        self.assertEqual(self.model.see(["a b", ""]), ([], [OTHER_CASE]))
        self.model.choose(True)
        self.press("A", "Escape")
        self.assertFalse(self.model.allows(["a ba", ""]))

    def test_the_first_key_in_another_field_may_go_astray(self):
        self.model.go(1, astray="why")
        self.press(*"kama", "space", *"ka", "space")
        self.assertEqual([(each.text, each.reason) for each in self.model.allowed[1]],
                         [(KA + MA + " " + KA + " ", ""), ("k" + READ("ama") + " " + KA + " ", "why")])

    def test_a_key_of_the_program_may_break_the_word_after_it(self):
        self.press(*"ka", "space", "BackSpace", *"ama", "period")
        self.assertEqual(set(self.texts()), {KA + word + "." for word in (
            READ("ama"), READ("ma"), READ("a"), READ("a") + READ("ma"), READ("am") + READ("a"))})
        self.assertTrue(self.model.allows([KA + READ("ama") + ".", ""]))
        self.model.see([KA + READ("ma") + ".", ""])
        self.press("BackSpace", *"ok")
        self.assertEqual(self.model.marks(), {READ("ok"), READ("k")})
        self.press("Escape")
        self.assertEqual(set(self.texts()), {KA + READ("ma") + word for word in ("ok", "k")} |
                         {KA + READ("ma") + READ("o") + "k"})

    def test_a_word_may_come_twice(self):
        self.press(*"amma")
        self.model.go(1, twice="why")
        word = READ("amma")
        self.assertEqual(self.model.see([word, word]), ([], ["why"]))

    def test_a_word_that_is_held_comes_when_the_field_has_the_focus_again(self):
        self.press(*"ka")
        self.model.go(1, held="why")
        self.assertEqual((self.texts(), self.reasons()), ([KA, ""], ["", "why"]))
        self.assertEqual(self.model.see(["", ""]), ([], ["why"]))
        self.assertTrue(self.model.holds(0))
        self.model.go(0)
        self.assertTrue(self.model.allows(["", ""]))
        self.press("1")
        self.assertEqual((self.texts(), self.reasons()), ([KA + "1"], [""]))

    def test_a_word_that_is_held_may_come_before_the_focus_does(self):
        self.press(*"ka")
        self.model.go(1, held="why")
        self.model.see(["", ""])
        self.assertEqual(self.model.see([KA, ""]), ([], []))
        self.assertFalse(self.model.holds(0))

    def test_a_word_that_is_held_comes_once(self):
        self.press(*"ka")
        self.model.go(1, held="why")
        self.model.see([KA, ""])
        self.model.go(0)
        self.assertFalse(self.model.allows([KA + KA, ""]))

    def test_a_word_that_is_held_goes_with_the_engine(self):
        self.press(*"ka")
        self.model.go(1, held="why")
        self.model.see(["", ""])
        self.model.kill()
        self.model.see(["", ""])
        self.model.choose(True)
        self.model.go(0)
        self.press("1")
        self.assertEqual(self.texts(), [KA + "1", "1"])

    def test_keys_of_the_program_may_be_overtaken_and_nothing_else(self):
        self.press(*"ka", "space", "2", *"ma", "space")
        self.assertFalse(self.model.allows([MA + " " + KA + " 2", ""]))
        self.assertFalse(self.model.allows([KA + " " + MA + " ", ""]))
        self.assertEqual(self.model.see([KA + " " + MA + "2 ", ""]), ([], [OVERTAKEN]))

    def test_seeing_tells_what_is_wrong_and_goes_on_from_there(self):
        self.press(*"ka", "space")
        self.assertTrue(self.model.allows([KA + " ", ""]))
        self.assertFalse(self.model.allows([KA, ""]))
        self.assertEqual(self.model.see([KA, ""]), ([(0, [Ending(KA + " ")], KA)], []))
        self.assertEqual(self.model.see([KA, ""]), ([], []))


if __name__ == "__main__":
    READ = Reading(sys.argv.pop())
    try:
        unittest.main()
    finally:
        READ.close()
