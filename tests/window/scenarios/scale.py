# SPDX-License-Identifier: MIT
"""At 200 % a screen of 1280 x 1024 has room for 640 x 512: no part of a window may be outside it."""
import work_tour
from driver.desktop import SCREEN
from driver.tree_check import outside

FACTOR = 2


def _expect_all_inside(program, part, stops):
    program.desktop.enlarge(FACTOR)
    width, height = (length // FACTOR for length in SCREEN)
    seen, faults = [], []

    def visit(name, window):
        seen.append(name)
        faults.extend(f"{name}: {fault}" for fault in outside(window, width, height))
    part(program, visit)
    assert faults == [], "\n" + "\n".join(faults)
    assert seen == stops, seen


def windows_of_comparing_fit(program):
    _expect_all_inside(program, work_tour.comparing,
                       ["compare_nothing", "compare_reading", "compare", "compare_three_sides"])


def windows_of_sending_fit(program):
    _expect_all_inside(program, work_tour.sending, ["send", "send_end", "record", "send_restore"])


def the_question_of_the_model_fits(program):
    _expect_all_inside(program, work_tour.sending_to_another_model, ["send_model"])


def windows_of_an_interrupted_send_fit(program):
    _expect_all_inside(program, work_tour.sending_that_was_interrupted,
                       ["send_progress", "send_interrupted", "send_resume"])


def windows_of_the_line_fit(program):
    _expect_all_inside(program, work_tour.on_the_line, ["find_controllers", "listen"])


def the_test_of_the_port_fits(program):
    _expect_all_inside(program, work_tour.testing_the_port, ["link_doctor"])


def windows_of_the_grids_fit(program):
    _expect_all_inside(program, work_tour.in_the_grids, ["find", "menu_edit", "import", "paste"])
