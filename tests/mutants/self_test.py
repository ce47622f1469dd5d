#!/usr/bin/env python3
"""Tests of scripts/mutants' own parts, and of the whole of it with a program of two lines: self_test.py."""

import contextlib
import io
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
import unittest.mock
from collections import Counter
from dataclasses import replace
from pathlib import Path

import mutants
import mutations
import suites
from outcomes import Outcomes
from runner import Runner, ordered
from suites import Suite
from together import Together


def forms(line, before=""):
    return [form.strip() for form in mutations.of_line(line, before)]


class Changes(unittest.TestCase):
    def test_comparisons(self):
        self.assertEqual(["if (a <= b)", "if (a > b)", "if (!(a < b))"], forms("if (a < b)"))
        self.assertEqual(["if (a != b)"], forms("if (a == b)"))

    def test_templates_are_no_comparisons(self):
        self.assertEqual([], forms("std::vector<int> words;"))
        self.assertEqual([], forms("std::string&& words;"))

    def test_both_and_either(self):
        self.assertEqual(["bool is = a || b;"], forms("bool is = a && b;"))

    def test_numbers(self):
        self.assertEqual(["x = y[2];", "x = y[0];", ";"], forms("x = y[1];"))
        self.assertEqual(["char32_t x = 0x10;", "char32_t x = 0xE;"], forms("char32_t x = 0xF;"))
        self.assertEqual(["double x = 1.5;"], forms("double x = 0.5;"))
        self.assertEqual([], forms("auto utf8 = x2;"))

    def test_neither_comments_nor_texts(self):
        self.assertEqual([], forms("// a < b"))
        self.assertEqual([], forms('auto text = "a < 1";'))
        self.assertEqual([], forms("char c = '<';"))
        self.assertEqual([], list(mutations.of_text("/* At most\n   8 + 1 */\n")))

    def test_statements_are_removed_where_one_begins(self):
        self.assertEqual([";"], forms("words.clear();", before="{"))
        self.assertEqual([], forms("words.clear();", before="x ="))
        self.assertEqual([], forms("Word word(text);"))
        self.assertEqual([], forms("Word(Text text);"))

    def test_the_last_break_of_a_switch_is_needed_as_little_as_a_last_return(self):
        text = ("switch (a) {\ncase 1:\n    f();\n    break;\ncase 2: {\n    break;\n}\ndefault:\n    g();\n    break;\n}\n"
                "while (a) {\n    if (b)\n        break;\n}\n")
        self.assertEqual([4, 6, 14], [number for number, _, form in mutations.of_text(text) if form.strip() == ";" and
                                      "break" in text.split("\n")[number - 1]])

    def test_returns(self):
        self.assertEqual(["return {};"], forms("return words;"))
        self.assertEqual(["return true;"], forms("return false;"))
        self.assertEqual([], forms("return {};"))
        self.assertEqual([], forms("return Part::none;"))
        self.assertEqual([], forms("return VANOKA_OK;"))

    def test_arguments(self):
        self.assertEqual(["auto x = f(b, a);"], forms("auto x = f(a, b);"))
        self.assertEqual([], forms("auto x = f(a, a);"))
        self.assertEqual([], forms("auto x = equalKeys(a, b);"))
        self.assertEqual(["auto x = std::min<int>(a, b);"], forms("auto x = std::max<int>(a, b);"))

    def test_what_a_size_is_asked_of_is_not_looked_at(self):
        self.assertEqual(["return count / sizeof(a[0]);", "return {};"], forms("return count * sizeof(a[0]);"))

    def test_what_is_asserted_while_compiling_is_left(self):
        self.assertEqual([], list(mutations.of_text("static_assert(a <\n              1 + 2);\n")))
        self.assertEqual([], list(mutations.of_text("#if X > 1\nusing Y = Z<1>;\nwords.reserve(2);\n"
                                                    "makeRoom(all.words, 2);\n")))


class Sampling(unittest.TestCase):
    def test_no_file_is_left_out(self):
        by_file = {path: [mutants.Mutant(path, at, "", str(at)) for at in range(10)] for path in "abc"}
        chosen = mutants.sample(by_file, 4, seed=1)
        self.assertEqual(4, len(chosen))
        self.assertEqual(set("abc"), {each.path for each in chosen})
        self.assertEqual(chosen, mutants.sample(by_file, 4, seed=1))
        self.assertEqual(30, len(mutants.sample(by_file, 100, seed=1)))


class Listing(unittest.TestCase):
    BY_FILE = {"c/Library.cpp": [mutants.Mutant("c/Library.cpp", 7, "  return 1;", "  return 2;")]}

    def test_one_is_found_by_its_text(self):
        listed = mutants.Equivalents("# said once\n\nc/Library.cpp\n- return 1;\n+ return 2;\nBoth are\nthe same.\n")
        mutant = self.BY_FILE["c/Library.cpp"][0]
        self.assertEqual(["Both are the same."], list(listed.reasons.values()))
        self.assertTrue(listed.hold(mutant))
        self.assertFalse(listed.hold(replace(mutant, form="  return 0;")))
        self.assertEqual([], listed.stale(self.BY_FILE))

    def test_one_is_found_by_the_lines_after_it_too(self):
        here = mutants.Mutant("c/Library.cpp", 7, "f();", ";", after=("g();", "}"))
        elsewhere = replace(here, number=9, after=("g();", "h();"))
        for after, is_both in {"- g();\n": True, "- g();\n- }\n": False}.items():
            listed = mutants.Equivalents(f"c/Library.cpp\n- f();\n{after}+ ;\nNobody reads it there.\n")
            self.assertTrue(listed.hold(here))
            self.assertEqual(is_both, listed.hold(elsewhere))
            self.assertEqual([], listed.stale({"c/Library.cpp": [here]}))
        self.assertEqual(1, len(listed.stale({"c/Library.cpp": [elsewhere]})))

    def test_the_lines_after_it_are_those_that_are_not_empty(self):
        top = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, top)
        (top / "sum.cpp").write_text("f();\n\n}\n\n// namespace\ng();\n")
        with unittest.mock.patch.object(mutants, "TOP", top):
            self.assertEqual(("}", "// namespace"), mutants.mutants_of("sum.cpp")[0].after)

    def test_where_a_line_stands_several_times_it_is_said_which_is_meant(self):
        here = mutants.Mutant("c/Library.cpp", 7, "f();", ";", after=("g();",))
        twice = {"c/Library.cpp": [here, replace(here, number=9, after=("h();",))]}
        once = {"c/Library.cpp": [here]}
        for known, ambiguous in {"- f();": [1, 0], "- f();\n- g();": [0, 0], "-- f();": [0, 1]}.items():
            listed = mutants.Equivalents(f"c/Library.cpp\n{known}\n+ ;\nNobody reads it.\n")
            self.assertTrue(listed.hold(here))
            self.assertEqual(ambiguous, [len(listed.ambiguous(twice)), len(listed.ambiguous(once))], known)

    def test_several_of_a_line_for_one_reason(self):
        listed = mutants.Equivalents("c/Library.cpp\n- return 1;\n+ return 2;\n+ return 0;\nAll the same.\n")
        self.assertEqual({"All the same."}, set(listed.reasons.values()))
        self.assertEqual(["return 2;", "return 0;"], [became for _, _, became, _ in listed.reasons])

    def test_one_that_matches_nothing_is_stale(self):
        listed = mutants.Equivalents("c/Library.cpp\n- return 3;\n+ return 2;\nReason.\n\n"
                                     "c/Gone.cpp\n- return 3;\n+ return 2;\nReason.\n")
        self.assertEqual([("c/Library.cpp", "return 3;", "return 2;", ())], listed.stale(self.BY_FILE))
        self.assertEqual([("c/Gone.cpp", "return 3;", "return 2;", ())], listed.of_no_file())

    def test_a_reason_is_asked_for(self):
        with self.assertRaises(SystemExit):
            mutants.Equivalents("c/Library.cpp\n- return 1;\n+ return 2;\n")

    def test_what_is_listed_fits(self):
        listed = mutants.Equivalents(mutants.EQUIVALENT.read_text(encoding="utf-8"))
        by_file = {path: mutants.mutants_of(path) for path, *_ in listed.reasons}
        self.assertEqual([], listed.of_no_file())
        self.assertEqual([], listed.stale(by_file))
        self.assertEqual([], listed.ambiguous(by_file))


class Choices(unittest.TestCase):
    """What many mutants make of a text in which one can be chosen."""

    def chosen(self, text):
        together = Together(text, [mutants.Mutant("c/Sum.cpp", *each) for each in mutations.of_text(text)])
        return together, {mutant.form.strip() for mutant in together.numbers.values()}

    def test_statements_conditions_and_what_variables_begin_with(self):
        text = "int sum(int a) {\n  int b = 1;\n  if (a < b)\n    a += b;\n  return a;\n}"
        self.assertEqual({"int b = 0;", "int b = 2;", "if (a <= b)", "if (a > b)", "if (!(a < b))", "a -= b;", ";",
                          "return {};"}, self.chosen(text)[1])

    def test_each_part_of_a_loop(self):
        text = "void f() {\n  for (int i = 0; i < 9; ++i) {\n  }\n}"
        self.assertEqual(6, len(self.chosen(text)[1]))

    def test_neither_tables_nor_constants(self):
        for text in ("constexpr int most = 1;", "const int all[] = {\n    {1, 2},\n};", "int a = 1, b = 2;"):
            self.assertEqual(set(), self.chosen(text)[1])

    def test_a_statement_of_several_lines(self):
        text = "bool f(int a) {\n  return a < 1 &&\n         a > 0;\n}"
        together, forms = self.chosen(text)
        self.assertIn("a >= 0;", forms)
        self.assertIn("return a < 1 &&\n         a >= 0;\n", str(together))

    def test_a_comment_is_kept(self):
        together, forms = self.chosen("int f(int a) {\n  return a + 1; // one more\n}")
        self.assertIn("return a + 2; // one more", forms)

    def test_what_the_compiler_refuses_is_left_and_else_what_stands_around_it(self):
        text = "int f(int a) {\n  a = a + 1;\n  return a + 1;\n}"
        together, _ = self.chosen(text)
        lines = str(together).split("\n")
        at = {mutant.form: (number, lines.index(mutant.form) + 1) for number, mutant in together.numbers.items()}
        own = lines.index("  return a + 1;") + 1
        around = {number for form, (number, _) in at.items() if "return" in form}
        for number, line in at.values():
            self.assertEqual({number}, together.to_leave([1, own, line]))
        self.assertEqual(around, together.to_leave([1, own]))
        self.assertTrue(0 < len(around) < len(at))
        self.assertEqual(set(), together.to_leave([1]))

    def test_what_could_be_worked_out_while_compiling_is_uncertain(self):
        for text, certain in {
            "int f(int a) {\n  return a;\n}": True,
            "constexpr int f(int a) {\n  return a;\n}": False,
            "int f() {\n  const int a = 1;\n}": False,
        }.items():
            together, _ = self.chosen(text)
            self.assertEqual(certain, together.is_certain(together.numbers[1]), text)

    def test_what_is_left_out(self):
        together, _ = self.chosen("int f(int a) {\n  return a + 1;\n}")
        together.leave([1])
        self.assertNotIn(1, together.numbers)
        self.assertNotIn("chosen() == 1)", str(together))


class Nearness(unittest.TestCase):
    LONG = Suite("words_tests", "Words", 9, {"core/text/Utf8.cpp": {6, 7}})
    SHORT = Suite("words_tests", "Rows", 1, {"core/text/Utf8.cpp": {7}})
    NAMED = Suite("core_tests", "Utf8DeathTest", 9)
    AWAY = Suite("core_tests", "Colours", 0, {"core/text/Utf8.h": {7}})

    def order(self, number, *suites, kills=()):
        mutant = mutants.Mutant("core/text/Utf8.cpp", number, "", "")
        return ordered(mutant, suites, Counter(kills))

    def test_those_that_come_past_the_line(self):
        self.assertEqual([self.SHORT, self.LONG], self.order(7, self.LONG, self.SHORT, self.AWAY))
        self.assertEqual([self.LONG], self.order(6, self.LONG, self.SHORT, self.AWAY))

    def test_where_none_does_the_file_counts(self):
        self.assertEqual([self.SHORT, self.LONG], self.order(1, self.LONG, self.SHORT, self.AWAY))
        self.assertEqual([self.AWAY], self.order(1, self.AWAY))

    def test_what_killed_before_and_what_is_named_comes_first(self):
        self.assertEqual([self.NAMED, self.SHORT], self.order(7, self.SHORT, self.NAMED))
        self.assertEqual([self.LONG, self.NAMED], self.order(7, self.NAMED, self.LONG, kills=[self.LONG] * 2))


class Sharing(unittest.TestCase):
    def each(self, by_file, action):
        folders = mutants.Folders.__new__(mutants.Folders) # nothing is built
        folders.runners = ["here", "there"]
        folders.each(by_file, action)

    def test_what_is_of_one_file_stays_in_one_folder(self):
        seen = []
        self.each([[1, 2], [3], [4, 5]], lambda runner, each: seen.append((runner, each)))
        self.assertEqual([[1, 2], [3], [4, 5]], sorted(each for _, each in seen))
        self.assertLessEqual({runner for runner, _ in seen}, {"here", "there"})

    def test_a_failure_ends_the_run(self):
        def fail(runner, each):
            raise RuntimeError(f"{each}")
        with self.assertRaisesRegex(RuntimeError, "1"):
            self.each([1, 2, 3], fail)


class Keeping(unittest.TestCase):
    MUTANT = mutants.Mutant("core/sum.cpp", 3, "return 1;", "return 2;")

    def setUp(self):
        self.top = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.top)
        self.write("core/sum.cpp", "return 1;")
        self.write("tests/SumTest.cpp", "TEST(Sum, OfTwo) {}")
        self.write("tests/OtherTest.cpp", "TEST(Other, Thing) {}")

    def write(self, path, text):
        (self.top / path).parent.mkdir(exist_ok=True)
        (self.top / path).write_text(text)

    def outcomes(self):
        return Outcomes(self.top / "outcomes", self.top)

    def test_what_is_known(self):
        self.assertIsNone(self.outcomes().known(self.MUTANT))
        self.outcomes().add(self.MUTANT, "alive", "")
        self.outcomes().add(self.MUTANT, "killed", "Sum")
        self.assertEqual("killed", self.outcomes().known(self.MUTANT))
        self.write("core/sum.cpp", "return 1 + 1;")
        self.assertIsNone(self.outcomes().known(self.MUTANT))

    def test_what_is_told_while_the_file_is_changed_is_of_the_file_as_it_was(self):
        outcomes = self.outcomes()
        self.assertIsNone(outcomes.known(self.MUTANT))
        self.write("core/sum.cpp", "return 2;")
        outcomes.add(self.MUTANT, "alive", "")
        self.write("core/sum.cpp", "return 1;")
        self.assertEqual("alive", self.outcomes().known(self.MUTANT))

    def test_one_killed_is_tried_again_when_the_suite_changes(self):
        self.outcomes().add(self.MUTANT, "killed", "Every/Sum/0")
        self.write("tests/OtherTest.cpp", "TEST(Other, Two) {}")
        self.assertEqual("killed", self.outcomes().known(self.MUTANT))
        self.write("tests/SumTest.cpp", "TEST(Sum, OfThree) {}")
        self.assertIsNone(self.outcomes().known(self.MUTANT))

    def test_one_that_was_refused_has_nothing_to_do_with_tests(self):
        self.outcomes().add(self.MUTANT, "refused", "")
        self.write("tests/OtherTest.cpp", "TEST(Other, Two) {}")
        self.assertEqual("refused", self.outcomes().known(self.MUTANT))

    def test_one_alive_is_tried_again_when_any_test_changes(self):
        self.outcomes().add(self.MUTANT, "alive", "")
        self.assertEqual("alive", self.outcomes().known(self.MUTANT))
        self.write("tests/OtherTest.cpp", "TEST(Other, Two) {}")
        self.assertIsNone(self.outcomes().known(self.MUTANT))


class Telling(unittest.TestCase):
    """What is known of three mutants, one of which is listed."""

    def setUp(self):
        self.top = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.top)
        for path, text in {"core/sum.cpp": "return 1;\n", "tests/SumTest.cpp": "TEST(Sum, OfTwo) {}",
                           "equivalent.txt": "core/sum.cpp\n- return 1;\n+ return 2;\nNobody reads it.\n"}.items():
            (self.top / path).parent.mkdir(exist_ok=True)
            (self.top / path).write_text(text)

    def told(self, *options, **outcomes):
        (self.top / "outcomes").unlink(missing_ok=True)
        kept = Outcomes(self.top / "outcomes", self.top)
        for result, outcome in outcomes.items():
            form = {"one": "return 2;", "none": "return 0;", "empty": "return {};"}[result]
            kept.add(mutants.Mutant("core/sum.cpp", 1, "return 1;", form), outcome, "Sum")
        printed = io.StringIO()
        with unittest.mock.patch.multiple(mutants, TOP=self.top, EQUIVALENT=self.top / "equivalent.txt"), \
                unittest.mock.patch.object(sys, "argv", ["mutants", "--known", "--in", str(self.top), *options, "core"]), \
                contextlib.redirect_stdout(printed):
            return mutants.main(), printed.getvalue()

    def test_one_that_is_listed_is_not_tried(self):
        status, printed = self.told(one="killed", none="killed", empty="refused")
        self.assertEqual(0, status)
        self.assertIn("3 mutants: 1 killed, 0 endless, 1 refused, 1 listed, 0 alive\n", printed)

    def test_one_alive(self):
        status, printed = self.told(none="alive", empty="refused")
        self.assertEqual(1, status)
        self.assertIn("alive: core/sum.cpp:1\n  - return 1;\n  + return 0;\n", printed)

    def test_those_of_which_nothing_is_known(self):
        for options in ([], ["--listed"]):
            status, printed = self.told(*options)
            self.assertEqual(1, status)
            self.assertIn("not run", printed)

    def test_one_that_is_listed_and_noticed(self):
        for outcome in ("killed", "endless", "refused"):
            status, printed = self.told("--listed", one=outcome, none="alive")
            self.assertEqual(1, status)
            self.assertIn(f"{outcome}: core/sum.cpp:1\n  - return 1;\n  + return 2;\n", printed)
            self.assertNotIn("return 0;", printed)

    def test_those_that_are_listed_and_that_nobody_notices(self):
        status, printed = self.told("--listed", one="alive", none="alive")
        self.assertEqual(0, status)
        self.assertIn("1 mutants: 0 killed, 0 endless, 0 refused, 1 listed, 0 alive\n", printed)
        self.assertNotIn("alive:", printed)


class Waiting(unittest.TestCase):
    def waited_for(self, command):
        run = subprocess.Popen(command, start_new_session=True, preexec_fn=suites.limits(1))
        self.addCleanup(run.wait)
        self.addCleanup(run.kill)
        return suites.waited_for(run, 0.2)

    def test_one_that_only_waits_is_not_waited_for(self):
        self.assertIsNone(self.waited_for(["sleep", "60"]))

    def test_one_that_works_is_waited_for_until_its_own_time_is_over(self):
        self.assertEqual(-signal.SIGXCPU, self.waited_for(["sh", "-c", "while :; do :; done"]))


LINES = """\
int sum(int a, int b) {
    const int always = 0;
    return a + b - always;
}
"""
TEST = """\
int sum(int a, int b);
int main() {
    for (int left = 5; left > 0; left -= sum(0, 1)) {
    }
    return sum(2, 3) == 5 ? 0 : 1;
}
"""
PROJECT = """\
cmake_minimum_required(VERSION 3.25)
project(Sum LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
add_executable(sum_test core/sum.cpp test.cpp)
"""


class Whole(unittest.TestCase):
    """A program whose test notices one change and not another."""

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.top = self.folder / "tree"
        self.addCleanup(shutil.rmtree, self.folder)
        for path, text in {"core/sum.cpp": LINES, "test.cpp": TEST, "CMakeLists.txt": PROJECT}.items():
            (self.top / path).parent.mkdir(parents=True, exist_ok=True)
            (self.top / path).write_text(text)
        subprocess.run(["cmake", "-G", "Ninja", "-S", self.top, "-B", self.folder / "build"], check=True,
                       stdout=subprocess.DEVNULL)

    def test_outcomes(self):
        changes = {
            ("    return a + b - always;", "    return a + b + 1;"): "killed",
            ("    return a + b - always;", "    return 5 * a;"): "endless",
            ("    return a + b - always;", "    return a + b + always;"): "alive",
            ("    return a + b - always;", "    return a + c - always;"): "refused",
        }
        runner = Runner(self.folder, ["sum_test"])
        suites = [Suite("sum_test", "", lines={"core/sum.cpp": {3}})]
        self.assertEqual([""], [suite.name for suite in runner.programs.suites("sum_test")])
        tried = {mutants.Mutant("core/sum.cpp", 3, line, form): outcome for (line, form), outcome in changes.items()}
        self.assertEqual(tried, {mutant: outcome for mutant, outcome, _ in runner.outcomes(list(tried), suites)})
        self.assertEqual(LINES, (self.top / "core/sum.cpp").read_text())

    def test_what_fails_already_is_no_test(self):
        (self.top / "test.cpp").write_text("int main() { return 1; }\n")
        runner = Runner(self.folder, ["sum_test"])
        with self.assertRaisesRegex(SystemExit, "fails already"):
            runner.programs.suites("sum_test")


if __name__ == "__main__":
    sys.exit(unittest.main())
