#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Which places of a source tools/mutate breaks, and how a seed takes them."""

import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools" / "mutation"))
import mutants  # noqa: E402


def changes(text):
    """What each change of a source makes of its line, without the line's outer blanks."""
    return [place.after for place in mutants.find_places("x.cpp", text)]


class Places(unittest.TestCase):
    def test_a_comparison_takes_or_gives_back_its_limit(self):
        self.assertEqual(changes("int f(int a) { return a < limit ? a : limit; }"),
                         ["int f(int a) { return a <= limit ? a : limit; }"])
        self.assertEqual(changes("int f(int a) { return a >= limit ? a : limit; }"),
                         ["int f(int a) { return a > limit ? a : limit; }"])

    def test_the_bracket_of_a_template_is_no_comparison(self):
        self.assertEqual(changes("std::vector<std::vector<char>> rows;"), [])
        self.assertEqual(changes("template <class T, int Lower = 0> class Array;"), [])

    def test_a_number_changes_by_one_both_ways_and_zero_only_upwards(self):
        self.assertEqual(changes("constexpr int limit = 20;"),
                         ["constexpr int limit = (20 + 1);", "constexpr int limit = (20 - 1);"])
        self.assertEqual(changes("constexpr int none = 0;"), ["constexpr int none = (0 + 1);"])

    def test_the_size_of_a_table_and_of_a_buffer_stays(self):
        self.assertEqual(changes("constexpr std::array<int, 6> table = {};"), [])
        self.assertEqual(changes("void f() { char digits[12]; }"), [])

    def test_a_pure_virtual_function_stays(self):
        self.assertEqual(changes("struct Grid { virtual int Rows() const = 0; };"), [])

    def test_the_ends_of_a_text_in_memory_stay(self):
        self.assertEqual(changes("const char* end(Text text) { return text.data() + text.size(); }"), [])

    def test_a_condition_and_the_answer_of_a_bool_function_are_negated(self):
        self.assertEqual(changes("void f() { if (ready) start(); }"),
                         ["void f() { if (!(ready)) start(); }", "void f() { if (ready) ; }"])
        self.assertEqual(changes("bool f() { return ready; }"), ["bool f() { return !(ready); }"])
        self.assertEqual(changes("int f() { return ready; }"), [])

    def test_of_a_condition_with_an_initialiser_the_condition_is_negated(self):
        self.assertEqual(changes("int f() { if (int a = g(); a) return a; }"),
                         ["int f() { if (int a = g(); !(a)) return a; }"])

    def test_a_statement_is_dropped_and_a_declaration_is_not(self):
        self.assertEqual(changes("void f() { show(text); }"), ["void f() { ; }"])
        self.assertEqual(changes("void f() { const Block block = take(); }"), [])
        self.assertEqual(changes("void f() { Block block(place); }"), [])

    def test_break_and_continue_are_dropped_unless_the_switch_ends_there(self):
        self.assertEqual(changes("void f() { for (;;) { break; } }"), ["void f() { for (;;) { ; } }"])
        self.assertEqual(changes("void f() { switch (a) { case b: break; } }"), [])

    def test_texts_comments_directives_and_assertions_stay(self):
        self.assertEqual(changes('#if A < 1\n#endif\n// a < 1\nconst char* text = "a < 1";'), [])
        self.assertEqual(changes("static_assert(sizeof(int) == 4);"), [])
        self.assertEqual(changes("void f() { rows.reserve(10); }"), [])

    def test_a_place_knows_its_function_and_its_line(self):
        place = mutants.find_places("x.cpp", "\nvoid Scan::show(int index) {\n    index_ = index;\n}\n")[0]
        self.assertEqual((place.function, place.line, place.before, place.after),
                         ("Scan::show", 3, "index_ = index;", ";"))


class Choice(unittest.TestCase):
    def test_the_changes_are_spread_by_weight_and_every_file_has_one(self):
        self.assertEqual(mutants.shares({"a": 80, "b": 15, "c": 5, "empty": 0}, 10), {"a": 8, "b": 1, "c": 1})
        self.assertEqual(mutants.shares({"a": 99, "b": 1}, 5), {"a": 4, "b": 1})

    def test_a_seed_takes_all_places_always_in_the_same_order_a_line_at_a_time(self):
        places = mutants.find_places("x.cpp", "int a = 1;\nint b = 2;\nint c = 3;\n")
        first = mutants.queue_of(7, "x.cpp", places)
        self.assertEqual(first, mutants.queue_of(7, "x.cpp", places))
        self.assertEqual(sorted(place.line for place in first[:3]), [1, 2, 3])
        self.assertCountEqual(first, places)
        self.assertNotEqual(first, mutants.queue_of(8, "x.cpp", places))


if __name__ == "__main__":
    unittest.main()
