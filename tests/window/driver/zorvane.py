# SPDX-License-Identifier: MIT
"""The window program as its user meets it: menus, two grids, panels, dialogs."""
import configparser
import json
import os
import shutil

from .accessible import Focus_Watch, Table
from .desktop import end
from .hands import Hands
from .picture import Picture
from .programs import Simulator, Terminal
from .waiting import DEADLINE, Vanished, expect, wait_for

SETTINGS_FILE = "Zorvane/Zorvane.conf"
SAVED_FOLDER = "Saved"  # files as they were before a save
SIMULATOR = "zorvane-sim"
MODEL_ENDINGS = (".ZTP", ".KVRT", ".KVRT100", ".KVRT207D", ".R7702-16")


class Zorvane:
    """One program on a desktop. `folder` holds its executable and the templates: a copy that a test may change, or
    the folder `programs` itself of an installed program, which is then started by its name."""

    def __init__(self, desktop, programs, executable="zorvane", installed=False):
        self.desktop = desktop
        self.programs = programs
        self.folder = programs if installed else self._copied(executable)
        self._executable = executable if installed else os.path.join(self.folder, executable)
        self.terminal = Terminal(programs, desktop)
        self.hands = Hands(desktop)
        self.focus = Focus_Watch(desktop.accessibility)
        self.process = None

    def _copied(self, executable):
        folder = self.desktop.path("program", "")
        for file in os.listdir(self.programs):
            if file in (executable, SIMULATOR) or file.upper().endswith(MODEL_ENDINGS):
                shutil.copy2(os.path.join(self.programs, file), folder)
        return folder

    def without_leak_check(self):
        """For a program that a key ends: Qt keeps a copy of each key until the registry of accessible programs has
        answered, and loses the last one at the end. Only a build with sanitizers would tell."""
        self.desktop.environment["ASAN_OPTIONS"] = "detect_leaks=0"

    def start(self, shown=True):
        self.process = self.desktop.start([self._executable], "program")
        self.root = self.desktop.program(self.process)
        if shown:
            wait_for("the main window to be active", lambda: "active" in self.window.states)
        return self

    def wait_for_end(self):
        """The exit code, once the program has ended."""
        wait_for("the end of the program", lambda: self.process.poll() is not None)
        return self.process.returncode

    def stop(self):
        """Ends the program from outside, as a system that shuts down does."""
        end(self.process)

    def kill(self):
        """Ends the program with no chance to do anything about it."""
        self.process.kill()
        self.process.wait()

    # Files and other programs.

    def recovery_copies(self):
        """The copies of unsaved changes in the user's data, those left out that are still being written."""
        return [os.path.basename(path) for path in self._copies()]

    def copy_with(self, text):
        """Whether a copy of unsaved changes holds these bytes."""
        for path in self._copies():
            try:
                with open(path, "rb") as file:
                    if text in file.read():
                        return True
            except FileNotFoundError:
                continue  # a save dropped it meanwhile
        return False

    def _copies(self):
        return [os.path.join(folder, name) for folder, _, names in os.walk(self.desktop.environment["XDG_DATA_HOME"])
                for name in names if not name.endswith(".unfinished") and os.path.basename(folder) != SAVED_FOLDER]

    def kill_with_a_copy(self):
        """Kills the program once a copy of its unsaved changes is kept."""
        wait_for("a recovery copy", self.recovery_copies)
        self.kill()

    def stored(self, section, key):
        """A value of the settings store, or None."""
        return self._settings_file().get(section, key, fallback=None)

    def store(self, section, **values):
        """Puts values into the settings store, while the program doesn't run."""
        settings = self._settings_file()
        if not settings.has_section(section):
            settings.add_section(section)
        for key, text in values.items():
            settings.set(section, key, text)
        with open(self._settings_path(), "w", encoding="utf-8") as file:
            settings.write(file, space_around_delimiters=False)

    def _settings_file(self):
        settings = configparser.RawConfigParser()
        settings.optionxform = str
        settings.read(self._settings_path(), encoding="utf-8")
        return settings

    def _settings_path(self):
        return self.desktop.path("config", SETTINGS_FILE)

    def template(self, model):
        """The template of a model, whatever the case of its name."""
        return next(os.path.join(self.folder, file) for file in os.listdir(self.folder)
                    if file.upper() == model.upper() + ".ZTP")

    def document(self, model="KVRT207D", name=None):
        """A copy of a model's example document in a folder that holds nothing else yet."""
        path = self.desktop.path("documents", name or "site7." + model.lower())
        shutil.copy2(os.path.join(self.folder, "EXAMPLE." + model), path)
        return path

    def simulator(self, model="KVRT207D", *options, name="controller"):
        return Simulator(self.desktop, self.programs, self.template(model), *options, name=name)

    def registers(self, simulator):
        """What a simulated controller holds, read by the terminal program; the window isn't online meanwhile."""
        file = self.desktop.path("registers.json")
        document = self.desktop.path("nothing.kvrt207d")
        open(document, "wb").close()
        self.terminal.ask("upload", self.template("KVRT207D"), document, "--port", simulator.port, "--settings",
                          "115200,n,8,1", "--registers", file)
        with open(file, encoding="ascii") as registers:
            return {int(address): value for address, value in json.load(registers).items()}

    @property
    def window(self):
        return next_of((child for child in self.root.children if child.description == "KVRT_Principal"),
                       "the main window")

    # What is to be seen.

    @property
    def title(self):
        return self.window.name

    def panel(self, number):
        return self.window.find(role="label", description=f"StatusBar1_{number}").name

    @property
    def fields(self):
        """The upper grid."""
        return Table(self.window.named("FLX_Configuration"))

    @property
    def settings(self):
        """The lower grid."""
        return Table(self.window.named("FLX_Settings"))

    def shows(self, given_name):
        try:
            return self.window.named(given_name).is_shown
        except Vanished:
            return False

    def expect_title(self, wanted):
        expect("the window's title", lambda: self.title, wanted)

    def expect_panel(self, number, wanted):
        expect(f"the text of status panel {number}", lambda: self.panel(number), wanted)

    def expect_cell(self, row, column, wanted):
        expect(f"the text of the lower grid's cell {row}, {column}",
               lambda: self.settings.cell(row, column).name, wanted)

    # Menus.

    def entry(self, *captions):
        """A menu entry by the captions on the way to it: "File", "Open..."."""
        found = self.window.find(role="menu bar")
        for caption in captions:
            found = found.find(role="menu item", name=caption, shown=False)
        return found

    def is_enabled(self, *captions):
        return self.entry(*captions).is_enabled

    def choose(self, *captions):
        entry = self.entry(*captions)
        assert entry.is_enabled, f"the menu entry {' > '.join(captions)} is disabled"
        entry.press()

    def choose_by_mouse(self, menu, caption):
        """The same by clicks."""
        self.hands.click(self.entry(menu))
        wait_for(f"the menu {menu}", lambda: self.entry(menu, caption).is_shown)
        self.hands.click(self.entry(menu, caption))

    def pull_down(self, caption, letter=None):
        """Alt and the menu's letter, pressed once more where the menu doesn't stay open, as a person would: Qt sends
        each key to the registry of accessible programs and takes it up again when that has answered, but opens the
        menu at once; on a busy machine the Alt comes back to an open menu, and closes it as any Alt does."""
        wait_for("the main window", lambda: "active" in self.window.states)
        wait_for("menus that answer", lambda: self.is_enabled(caption))
        menu = self.entry(caption)
        for patience in (5, 5, DEADLINE):
            self.hands.chord(["alt"], letter or caption[0].lower())
            try:
                return wait_for(f"the menu {caption}", lambda: menu.children[0].is_shown, patience)
            except AssertionError:
                if patience == DEADLINE:
                    raise

    def type_into(self, key, text):
        """Goes to a field of a dialog by Alt and its key, and types over what it holds. The text is waited for: the
        next field's key would overtake its last letters on their way by the registry of accessible programs."""
        self.hands.chord(["alt"], key)
        self.hands.keys("ctrl+a")
        self.hands.write(text)
        wait_for(f"the typed text {text}", lambda: self._has_field_with(text))

    def _has_field_with(self, text):
        """Whether a field of the window with the keyboard holds that text. The owner of the focus isn't asked: the
        one of a list that can be typed into is replaced while it is typed into."""
        window = next_of((child for child in self.root.children if "active" in child.states), "a window")
        fields = (part for part in window.walk() if part.role in ("text", "spin box") and part.is_shown)
        return any(field.text.removesuffix(" ms") == text for field in fields)

    # Dialogs.

    def windows_on_screen(self):
        """The numbers of all windows that the screen shows of the program, lists that have popped up among them."""
        return set(self.desktop.windows("--onlyvisible", "--pid", str(self.process.pid)))

    def state_on_the_desktop(self, number):
        """"Normal", "Iconic" or "Withdrawn", as the window manager has it for a window of that number."""
        told = self.desktop.run("xprop", "-id", number, "WM_STATE").decode()
        return told.partition("window state: ")[2].split("\n")[0]

    def notice(self, given_name):
        """A window that is shown and needn't have the keyboard."""
        return wait_for(given_name, lambda: next_of(
            (child for child in self.root.children if child.description == given_name and child.is_shown), given_name))

    def dialog(self, given_name):
        """The dialog of that given name, once it is shown and has the keyboard."""
        def look():
            found = next_of((child for child in self.root.children if child.description == given_name), given_name)
            return found if "active" in found.states else None
        return Dialog(self, given_name, wait_for(f"the dialog {given_name}", look))

    def has_dialog(self, given_name):
        return any(child.description == given_name and child.is_shown for child in self.root.children)

    def message(self, text, title="Zorvane"):
        """The message box that is shown now, which must say that."""
        box = self.dialog("Msgb")
        expect("the message's text", box.text, text)
        expect("the message's title", lambda: box.part.name, title)
        return box

    def preview(self, title):
        """The preview of that title, once it has the keyboard and its pages."""
        def look():
            for child in self.root.children:
                if child.description == "Preview" and child.name == title and "active" in child.states:
                    return child
            raise Vanished(f"the preview {title}")
        window = wait_for(f"the preview {title}", look)
        wait_for("the pages", lambda: window.named("PageCount").name != "of 0")
        return window

    def use_port(self, simulator, **settings):
        """Chooses a simulated controller's line, before the start."""
        self.store("ModbusPort", **{"Port": simulator.port, "Slave": "1", "Settings": '"115200,n,8,1"',
                                    "Retries": "1", "TimeOut": "300", **settings})

    def go_online(self):
        """An upload, and the wait for the polling after it."""
        self.choose("Communication", "Upload to PC")
        self.expect_panel(2, "Online")
        expect("the progress form is shown", lambda: self.has_dialog("Porcentaje"), False)

    def open(self, path, read_only=False):
        self.choose("File", "Open...")
        self.dialog("CommonDialog").choose_file(path, "Open", read_only)

    def type_file(self, path):
        """Names a file in the dialog that is open, by keys alone."""
        dialog = self.dialog("CommonDialog")
        self.hands.write(path)
        expect("the typed name", lambda: dialog.part.find(role="text").text, path)
        self.hands.keys("Return")
        dialog.wait_until_gone()

    def save_as(self, path):
        self.choose("File", "Save As...")
        self.dialog("CommonDialog").choose_file(path, "Save")

    # Grids.

    def selected_field(self):
        """The number of the selected row of the upper grid, from 1."""
        grid = self.fields
        return next_of((row + 1 for row in range(grid.row_count) if "selected" in grid.cell(row, 1).states),
                       "a selected row")

    def expect_field(self, number):
        expect("the selected field", self.selected_field, number)

    def select_field(self, number):
        """Goes to a row of the upper grid with the keyboard; fields count from 1."""
        table = self.fields.table
        if "focused" not in table.states:
            self.expect_focus_in_settings()
            self.hands.keys("ctrl+Home", "shift+Tab")
        expect("the upper grid has the focus", lambda: "focused" in table.states, True)
        way = number - wait_for("a selected field", self.selected_field)
        if way:
            self.hands.keys(*["Down" if way > 0 else "Up"] * abs(way))
        self.expect_field(number)

    def click_field(self, number):
        """Goes to a row of the upper grid with the mouse; the row must be on the screen."""
        self.hands.click(self.fields.cell(number - 1, 1))
        self.expect_field(number)

    def expect_state(self, row, column, wanted):
        """What a screen reader is told of a cell's state."""
        expect(f"the description of the lower grid's cell {row}, {column}",
               lambda: self.settings.cell(row, column).description, wanted)

    def expect_colours(self, row, column, back, fore):
        """The colours on the screen: the background, and that of some of the text's pixels."""
        def look():
            rectangle = self.settings.cell(row, column).rectangle
            picture = Picture(self.desktop)
            return picture.back_colour(rectangle), picture.has_text_colour(rectangle, fore)
        expect(f"background and text {fore} of the lower grid's cell {row}, {column}", look, (back, True))

    def enlarge(self):
        """Makes the window so large that no grid scrolls."""
        self.hands.place_window(40, 40, 1100, 900)
        wait_for("the window's new size", lambda: self.window.rectangle[2:] == (1100, 900))

    def expect_focus_in_settings(self):
        """The lower grid itself has the keyboard, and no editor."""
        expect("the lower grid has the focus", lambda: "focused" in self.settings.table.states, True)

    def settle_on(self, row, column):
        """A click on a cell of the lower grid, which is the current one then; rows and columns count from 0."""
        cell = self.settings.cell(row, column)
        self.hands.click(cell)
        expect(f"the focus on cell {row}, {column}", lambda: self.focus.owner, cell)

    def begin_edit(self, row, column):
        """Opens the editor of a cell, and gives it."""
        self.settle_on(row, column)
        self.hands.keys("F2")
        expect("the focus in the cell's editor", lambda: self.focus.owner.description, "FLX_Settings_Editor")
        return self.focus.owner

    def enter(self, row, column, text):
        """Types a text into a cell, over what it holds, and ends with Enter."""
        editor = self.begin_edit(row, column)
        self.hands.keys("ctrl+a")
        self.hands.write(text)
        expect("the text in the editor", lambda: editor.text, text)
        self.hands.keys("Return")

    def open_list(self, row, column):
        """Opens the list of a cell; its entries have the focus one after the other."""
        self.settle_on(row, column)
        self.hands.keys("F2")
        wait_for("the open list", lambda: self.focus.owner.role in ("list", "list item"))

    def choose_entry(self, row, column, text):
        """Chooses an entry of a list cell by typing its text. A busy machine may serve two of the letters so far apart
        that the search starts again with the second: then they are typed once more."""
        self.open_list(row, column)
        for last in (False, False, True):
            self.hands.write(text)
            try:
                expect("the entry with the focus", lambda: self.focus.owner.name, text, deadline=3)
                break
            except AssertionError:
                if last:
                    raise
        self.hands.keys("Return")


class Dialog:
    def __init__(self, program, given_name, part):
        self._program = program
        self._given_name = given_name
        self.part = part

    @property
    def title(self):
        return self.part.name

    def buttons(self):
        return [part.name for part in self.part.walk() if part.role == "push button" and part.is_shown]

    def text(self):
        """A message box's text."""
        return self.part.named("txt_mensaje").name

    def press(self, caption):
        self.part.find(role="push button", name=caption).press()

    def answer(self, caption):
        """Presses a button that closes the dialog, and sees it go."""
        self.press(caption)
        self.wait_until_gone()

    def wait_until_gone(self):
        expect(f"the dialog {self._given_name} is shown", self._is_there, False)

    def _is_there(self):
        try:
            return self.part.is_shown
        except Vanished:
            return False

    # A file dialog.

    def types(self):
        """The list of file types."""
        return [part for part in self.part.walk() if part.role == "combo box"][-1]

    def file_type(self):
        return self.types().name

    def file_types(self):
        return [part.name for part in self.types().walk() if part.role == "list item"]

    def choose_type(self, wanted):
        hands, focus = self._program.hands, self._program.focus
        hands.click(self.types())
        wait_for("the open list of file types", lambda: focus.owner.role in ("list", "list item"))
        hands.keys("Home", *["Down"] * self.file_types().index(wanted), "Return")
        expect("the chosen file type", self.file_type, wanted)

    def choose_file(self, path, button, read_only=False):
        field = self.part.find(role="text")
        field.write(path)
        wait_for("the name in the file dialog", lambda: field.text and path.endswith(field.text))
        if read_only:
            box = self.part.named("CHK_ReadOnly")
            box.toggle()
            expect("the read-only box is ticked", lambda: box.is_checked, True)
        self.answer(button)


def next_of(things, what):
    for thing in things:
        return thing
    raise Vanished(f"{what} isn't shown")
