# SPDX-License-Identifier: MIT
"""Every window of the program, one after the other, each in a state worth looking at.

`take_all(program, visit)` calls `visit(name, window)` at each stop; `window` is the accessible that is then in front.
"""
import os
import re
import shutil

from driver.accessible import Table
from driver.tray import Tray, listed_windows
from driver.waiting import expect, wait_for

MODEL = "KVRT207D"
OUTPUTS, CHANNELS, REGULATION, TIMERS, MEASUREMENTS = 1, 2, 3, 4, 5
VALUE, REMARK = 1, 2
WRONG_REGISTER = 251
TRAFFIC = "".join('{"kind":"exchange","time_us":%d,"duration_us":20000,"unit":1,"function":3,"first":100,"address":100,'
                  '"count":1,"values":[7],"good":true,"result":"good","sent":"01 03 00 64 00 01 C5 D5",'
                  '"received":"01 03 02 00 07 F9 86"}\n' % (second * 1000000) for second in (1, 2))


def with_controller(program, *options, name="controller", **port):
    """A simulated controller with the example's values, on the port that the program will use."""
    controller = program.simulator(MODEL, "--config", os.path.join(program.folder, "EXAMPLE." + MODEL), *options,
                                   name=name)
    program.use_port(controller, **port)
    return controller


def opened(program, width=820, height=560):
    """The program with the example document, at a size at which its first fields need no scrolling."""
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    wait_for("the main window to be active again", lambda: "active" in program.window.states)
    wait_for("the focus in a grid", lambda: any("focused" in grid.table.states
                                                 for grid in (program.fields, program.settings)))
    resize(program, width, height)
    return path


def resize(program, width, height, window=None):
    program.hands.place_window(60, 60, width, height)
    wait_for("the window's new size", lambda: (window or program.window).rectangle[2:] == (width, height))


def _names_only(dialog):
    """Without the columns of sizes and dates, which differ from run to run."""
    dialog.part.find(role="push button", name="List View").press()


def _enter_folder(program, dialog, folder):
    """Goes to a folder by typing it, as if it were a file."""
    field = dialog.part.find(role="text")
    program.hands.chord(["alt"], "n")
    expect("the focus on the file's name", lambda: "focused" in field.states, True)
    program.hands.write(folder)
    program.hands.keys("Return")
    # The list that offers files while one types would lie over the types.
    program.hands.keys("ctrl+a", "BackSpace")
    wait_for("the folder's file", lambda: dialog.part.find(role="list item", name="site7.kvrt207d"))


def finish(program):
    """Ends the program without a word to it, for the next run."""
    program.kill()
    for folder in ("XDG_CONFIG_HOME", "XDG_DATA_HOME"):
        shutil.rmtree(os.path.join(program.desktop.environment[folder], "Zorvane"), ignore_errors=True)


def at_rest(program, visit):
    """The main window and every dialog that needs no line."""
    program.start()
    wait_for("the fields", lambda: program.fields.row_count)
    visit("start", program.window)
    program.choose("File", "Open...")
    dialog = program.dialog("CommonDialog")
    dialog.choose_type("KVRT207D Configuration (*.KVRT207D)")
    resize(program, 620, 360, dialog.part)
    _names_only(dialog)
    _enter_folder(program, dialog, os.path.dirname(program.document()))
    visit("open", dialog.part)
    dialog.answer("Cancel")
    finish(program)

    opened(program)
    program.select_field(REGULATION)
    program.settle_on(0, VALUE)
    visit("document", program.window)
    program.choose("File", "Save As...")
    dialog = program.dialog("CommonDialog")
    resize(program, 620, 340, dialog.part)
    _names_only(dialog)
    program.hands.chord(["alt"], "n")
    program.hands.write("site8")
    visit("save_as", dialog.part)
    dialog.answer("Cancel")
    for name, entry, given_name, button in (
            ("page_setup", ("File", "Page Setup..."), "PageSetup", "Cancel"),
            ("font", ("View", "Font size..."), "FontDialog", "Cancel"),
            ("about", ("Help", "About"), "Acercade", "Close"),
            ("recover_empty", ("File", "Recover..."), "FrmRecover", "Cancel"),
            ("find", ("Communication", "Find Controllers..."), "FindControllers", "Close"),
            ("listen", ("Communication", "Listen..."), "Listen", "Close"),
            ("port", ("Communication", "Port Settings..."), "PortSettings", "Cancel")):
        program.choose(*entry)
        dialog = program.dialog(given_name)
        visit(name, dialog.part)
        dialog.answer(button)
    program.choose("Communication", "Compare...")
    compare = program.dialog("FrmCompare")
    resize(program, 900, 480, compare.part)
    program.hands.chord(["alt"], "g")
    program.hands.keys("Home", "Down", "Down")
    wait_for("rows", lambda: Table(compare.part.named("TBL_Comparison")).row_count)
    compare.press("Tick differences")
    program.hands.click(Table(compare.part.named("TBL_Comparison")).cell(1, 1))
    visit("compare", compare.part)
    compare.answer("Close")
    program.choose("Help", "About")
    about = program.dialog("Acercade")
    program.hands.keys("F12")
    box = program.dialog("Msgb")
    visit("credits", box.part)
    box.answer("Ok")
    about.answer("Close")
    program.expect_focus_in_settings()
    program.hands.chord(["ctrl", "shift", "alt"], "Home")
    debug = program.dialog("FrmDebug")
    visit("debug", debug.part)
    program.hands.keys("alt+F4")
    debug.wait_until_gone()

    program.begin_edit(0, VALUE)
    program.hands.keys("ctrl+a")
    program.hands.write("1401")
    visit("editing", program.window)
    program.hands.keys("Return")
    box = program.dialog("Msgb")
    visit("refused", box.part)
    box.answer("Ok")
    program.select_field(OUTPUTS)
    program.open_list(0, VALUE)
    visit("list", program.window)
    program.hands.keys("Escape")
    program.enter(0, REMARK, "Breaker Q7; 110 kV")
    program.expect_title("* site7.kvrt207d - Zorvane")
    wait_for("the message bar", lambda: program.shows("BAR_1"))
    visit("message_bar", program.window)
    program.hands.click(program.window.named("BAR_1_Button1"))
    expect("the line of the comma is shown", lambda: program.shows("BAR_2"), False)
    program.choose("File", "Close")
    box = program.dialog("Msgb")
    visit("question", box.part)
    box.answer("Cancel")

    program.choose("File", "Print...", "Print All...")
    window = program.preview("Preview Print All Pages")
    resize(program, 900, 700, window)
    visit("preview", window)
    window.find(role="push button", name="Export...").press()
    dialog = program.dialog("CommonDialog")
    resize(program, 620, 340, dialog.part)
    _names_only(dialog)
    program.hands.chord(["alt"], "n")
    program.hands.write("site7")
    visit("export", dialog.part)
    dialog.answer("Cancel")
    program.hands.keys("Escape")
    finish(program)


def recovering(program, visit):
    opened(program)
    program.select_field(OUTPUTS)
    program.enter(0, REMARK, "Breaker Q7")
    program.expect_title("* site7.kvrt207d - Zorvane")
    program.kill_with_a_copy()
    program.start()
    program.choose("File", "Recover...")
    form = program.dialog("FrmRecover")
    expect("the number of copies", lambda: Table(form.part.named("LST_Copies")).row_count, 1)
    visit("recover", form.part)
    form.press("Delete")
    box = program.dialog("Msgb")
    visit("recover_question", box.part)
    box.answer("No")
    form.answer("Cancel")
    finish(program)


def on_the_line(program, visit):
    """Transfers, live values, live writes, a lost link."""
    controller = with_controller(program, "--pace", "4800", "--fault", f"wrong-echo@{WRONG_REGISTER}")
    opened(program)
    program.choose("Communication", "Upload to PC")
    progress = program.dialog("Porcentaje")
    visit("progress", progress.part)
    progress.press("Cancel")
    box = program.dialog("Msgb")
    visit("abort", box.part)
    box.answer("No")
    progress.wait_until_gone()
    program.expect_panel(2, "Online")
    program.select_field(MEASUREMENTS)
    visit("online", program.window)
    program.choose("Communication", "Modbus Monitor")
    monitor = program.dialog("ModbusMonitor").part
    table = Table(monitor.find(role="table"))
    wait_for("rows in the monitor", lambda: table.row_count >= 12)
    resize(program, 1000, 420, monitor)
    monitor.named("BOT_Pause").toggle()
    program.hands.keys("Home", "Down")
    wait_for("the bytes of a row", lambda: monitor.named("TXT_Bytes").text)
    visit("monitor", monitor)
    program.hands.keys("alt+F4")
    wait_for("the main window", lambda: "active" in program.window.states)
    program.choose("Communication", "Port Settings...")
    dialog = program.dialog("PortSettings")
    dialog.press("Test")
    wait_for("the end of the test", lambda: dialog.part.named("TXT_Verdict").text not in ("", "Testing..."))
    visit("port_test", dialog.part)
    dialog.answer("Cancel")
    program.select_field(REGULATION)
    program.enter(0, VALUE, "1200")
    program.expect_panel(4, "Write: 1200 @250 ...Completed")
    visit("written", program.window)
    program.enter(1, VALUE, "42")
    program.expect_panel(4, "Write: 42 @251 ...Failed")
    program.expect_state(1, VALUE, "Write failed")
    visit("failed", program.window)
    program.select_field(OUTPUTS)
    controller.stop()
    program.expect_state(0, VALUE, "Link lost")
    notice = program.dialog("LostCom")
    visit("lost_notice", notice.part)
    notice.answer("OK")
    visit("lost", program.window)
    finish(program)


def with_records(program, visit):
    """A transfer that lost a request, and its log."""
    with_controller(program, "--fault", "exception=4:1@220")
    opened(program)
    program.choose("Communication", "Upload to PC")
    wait_for("the button for the log", lambda: program.shows("BOT_Log"))
    visit("log_button", program.window)
    program.window.named("BOT_Log").press()
    form = program.dialog("FrmStatus")
    visit("status", form.part)
    form.answer("Cancel")
    finish(program)


def without_answer(program, visit):
    with_controller(program, "--fault", "silent")
    opened(program)
    program.choose("Communication", "Upload to PC")
    progress = program.dialog("Porcentaje")
    expect("the progress form's words", lambda: progress.part.named("Label1").name,
           "Error. The controller does not respond.")
    visit("no_answer", progress.part)
    progress.answer("Ok")
    finish(program)


def in_the_tray(program, visit):
    """A right click on the icon of a window that is away."""
    tray = Tray(program.desktop)
    opened(program)
    program.choose("Windows", "Minimize to tray")
    wait_for("the icon", tray.icon)
    program.choose("Windows", "Minimize")
    expect("windows that the window manager knows", lambda: listed_windows(program.desktop), [])
    tray.open_menu()
    visit("tray", None)
    program.hands.keys("Escape")
    finish(program)


def menus(program, visit):
    """Each menu of an open document, pulled down."""
    opened(program)
    for letter, caption in (("f", "File"), ("e", "Edit"), ("c", "Communication"), ("v", "View"), ("w", "Windows"),
                            ("h", "Help")):
        entry = program.window.find(role="menu bar").find(role="menu item", name=caption)
        program.pull_down(caption, letter)
        visit("menu_" + caption.lower(), entry.children[0])
        program.hands.keys("Escape", "Escape")
    finish(program)


def long_report(program, visit):
    """Tables so long that their report takes far longer than anybody looks at the busy form."""
    template = program.template(MODEL)
    with open(template, "rb") as file:
        text = file.read()
    with open(template, "wb") as file:
        file.write(re.sub(rb"(FIELD_\d_RC)=\d+", rb"\1=30000", text))
        file.write(b"[CONFIGURATION_FIELDS]\r\n")
        for number in range(6, 41):
            file.write(b"FIELD_%d_DESC=Field %d\r\nFIELD_%d_RC=30000,2\r\n" % (number, number, number))
    opened(program)
    program.expect_field(TIMERS)
    program.choose("File", "Print...", "Print All...")
    wait_for("the busy form", lambda: program.has_dialog("Mensaje"))
    form = next(child for child in program.root.children if child.description == "Mensaje")
    visit("busy", form)
    form.find(role="push button").press()
    finish(program)
    with open(template, "wb") as file:
        file.write(text)


def sending(program, visit):
    """Send Changes: its question, its rows, its end and the head of the record."""
    registers = program.desktop.path("sending_registers.json")
    with open(registers, "w", encoding="ascii") as file:
        file.write('{"112": 100, "205": 0, "226": 5, "250": 1200}')
    with_controller(program, "--registers", registers, "--quirk", "not-above=114@112", "--quirk", "forgets:1@205",
                    name="differing")
    opened(program)
    dialog = _send_window(program)
    wait_for("the rows", lambda: dialog.part.named("LBL_Sum").name)
    visit("send", dialog.part)
    dialog.press("Send")
    wait_for("the end", lambda: " of " in dialog.part.named("LBL_Sum").name)
    visit("send_end", dialog.part)
    dialog.press("Record...")
    record = program.dialog("FrmRecord")
    visit("record", record.part)
    record.answer("Cancel")
    dialog.answer("Close")
    finish(program)

    other = program.simulator("KVRT100", name="other")
    program.use_port(other)
    opened(program)
    dialog = _send_window(program)
    wait_for("the question", lambda: "type the name" in dialog.part.named("LBL_Headline").name)
    visit("send_model", dialog.part)
    dialog.answer("Close")
    finish(program)


def _send_window(program):
    program.choose("Communication", "Send Changes...")
    dialog = program.dialog("FrmSend")
    resize(program, 820, 420, dialog.part)
    return dialog


def editing(program, visit):
    """What the menu Edit and the files of values ask: the command by name, Find, a block and a table that fit in part."""
    opened(program)
    program.select_field(REGULATION)
    program.hands.keys("ctrl+k")
    commands = program.dialog("CommandList")
    visit("commands", commands.part)
    program.hands.keys("Escape")
    commands.wait_until_gone()
    program.hands.keys("ctrl+f")
    dialog = program.dialog("FrmFind")
    program.hands.write("pulse")
    expect("what was found", lambda: dialog.part.named("LBL_Position").name, "7 found")
    program.hands.keys("Return")
    expect("where it stands", lambda: dialog.part.named("LBL_Position").name, "1 of 7")
    visit("find_setting", dialog.part)
    dialog.answer("Close")
    program.select_field(REGULATION)
    program.hands.copy("1100\n99999\n")
    program.settle_on(0, VALUE)
    program.hands.keys("ctrl+shift+v")
    question = program.dialog("FrmFit")
    visit("paste", question.part)
    question.answer("Nothing")
    table = program.desktop.path("documents", "table.csv")
    with open(table, "w", encoding="ascii") as file:
        file.write("field;row;column;value\n3;1;2;1,234\n3;2;2;77\n")
    program.choose("File", "Import values...")
    program.type_file(table)
    question = program.dialog("FrmFit")
    visit("import", question.part)
    question.answer("Nothing")
    finish(program)


def surveying(program, visit):
    """The line looked at: a controller found, a test that goes on, a port on a network, a file of traffic."""
    with_controller(program, "--slave", "2")
    opened(program)
    program.choose("Communication", "Find Controllers...")
    dialog = program.dialog("FindControllers")
    program.type_into("n", "1-3")
    program.hands.keys("Return")
    wait_for("the end of the search", lambda: " requests in " in dialog.part.named("LBL_Tried").name)
    visit("found", dialog.part)
    dialog.answer("Close")
    program.choose("Communication", "Port Settings...")
    dialog = program.dialog("PortSettings")
    dialog.press("Test")
    wait_for("the sentence", lambda: "doesn't answer, but unit" in dialog.part.named("TXT_Diagnosis").text, 60)
    visit("doctor", dialog.part)
    dialog.press("Network...")
    form = program.dialog("NetworkPort")
    visit("network_port", form.part)
    form.answer("Cancel")
    dialog.answer("Cancel")
    path = program.desktop.path("documents", "line.jsonl")
    with open(path, "w", encoding="ascii") as file:
        file.write(TRAFFIC)
    program.choose("Communication", "Modbus Monitor")
    monitor = program.dialog("ModbusMonitor")
    program.hands.keys("alt+o")
    program.type_file(path)
    again = program.dialog("TrafficFile")
    expect("the rows", lambda: again.part.named("LBL_Count").name, "2 rows")
    visit("traffic_file", again.part)
    program.hands.keys("Escape")
    again.wait_until_gone()
    program.hands.keys("alt+F4")
    monitor.wait_until_gone()
    finish(program)


PARTS = (at_rest, menus, long_report, recovering, on_the_line, with_records, without_answer, sending)


def take_all(program, visit):
    for part in PARTS:
        part(program, visit)
