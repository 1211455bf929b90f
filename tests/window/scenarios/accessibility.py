# SPDX-License-Identifier: MIT
"""What a screen reader is told of every window: names, roles, headings, and the state of a cell."""
import tour
from driver.accessible import Table
from driver.tree_check import grid_faults, shared_keys, window_faults
from driver.waiting import expect

VALUE = 1
# Both captions are fixed; the first one in the order of Tab has the key first, a second press goes on.
KNOWN_SHARED_KEYS = {"status": {"Alt+C": ["Connect", "Cancel"]}}


class Listener:
    """Looks at each window of a tour and keeps what is wrong."""

    def __init__(self, program):
        self._program = program
        self.seen = []
        self.faults = []

    def __call__(self, name, window):
        self.seen.append(name)
        self.faults += [f"{name}: {fault}" for fault in window_faults(window)]
        shared = shared_keys(window)
        if shared != KNOWN_SHARED_KEYS.get(name, {}):
            self.faults.append(f"{name}: keys that two controls share: {shared}")
        if window.description == "KVRT_Principal":
            self._look_at_grids(name)

    def _look_at_grids(self, name):
        program = self._program
        self.faults += grid_faults(f"{name}, upper grid", program.fields.table)
        if name == "failed":
            expect("the failed cell", lambda: program.settings.cell(1, VALUE).description, "Write failed")
        elif name == "lost":
            expect("a lost cell", lambda: program.settings.cell(0, VALUE).description, "Link lost")
        elif name in ("document", "start", "editing"):
            self.faults += grid_faults(f"{name}, lower grid", program.settings.table,
                                       lambda column: "Modifiable" if column > 0 else "Fixed")


def _tell_all(program, part, stops):
    listener = Listener(program)
    part(program, listener)
    assert listener.faults == [], "\n" + "\n".join(listener.faults)
    assert listener.seen == stops, listener.seen


def windows_at_rest(program):
    _tell_all(program, tour.at_rest,
              ["start", "open", "document", "save_as", "page_setup", "font", "about", "recover_empty", "find",
               "listen", "port", "compare", "credits", "debug", "editing", "refused", "list", "message_bar",
               "question", "preview", "export"])


def windows_of_recovery(program):
    _tell_all(program, tour.recovering, ["recover", "recover_question"])


def windows_of_sending(program):
    _tell_all(program, tour.sending, ["send", "send_end", "record", "send_model"])


def windows_of_editing(program):
    _tell_all(program, tour.editing, ["commands", "find_setting", "paste", "import"])


def windows_of_a_survey(program):
    _tell_all(program, tour.surveying, ["found", "doctor", "network_port", "traffic_file"])


def windows_of_the_line(program):
    _tell_all(program, tour.on_the_line,
              ["progress", "abort", "online", "monitor", "port_test", "written", "failed", "lost_notice", "lost"])


def windows_of_a_transfer_with_records(program):
    _tell_all(program, tour.with_records, ["log_button", "status"])


def windows_of_a_transfer_without_an_answer(program):
    _tell_all(program, tour.without_answer, ["no_answer"])


def a_read_only_cell_says_so(program):
    path = program.document()
    program.start()
    program.open(path, read_only=True)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.expect_state(0, VALUE, "Read only")
    program.expect_state(0, 0, "Fixed")


def an_unreachable_cell_tells_its_text_too(program):
    """The dump of a grid names each cell by what it shows."""
    path = program.document()
    program.start()
    program.open(path)
    template = program.template("KVRT207D")
    program.select_field(3)
    expect("the grid's texts", lambda: Table(program.settings.table).texts(),
           program.terminal.settings(template, path, 3))
    assert Table(program.settings.table).headings() == program.terminal.headings(template, path, 3)


def menus_and_the_busy_form(program):
    _tell_all(program, tour.menus, ["menu_file", "menu_edit", "menu_communication", "menu_view", "menu_windows",
                                   "menu_help"])
    listener = Listener(program)
    tour.long_report(program, listener)
    assert listener.faults == [], listener.faults
