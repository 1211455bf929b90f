# SPDX-License-Identifier: MIT
"""What the message bar tells of transfers, polling and live writes: the window against slaves that aren't ours."""
import os

from driver.programs import Peer, Pymodbus_Slave
from driver.waiting import Vanished, expect, wait_for

MODEL = "BARTEST"
REGULATION, RELAYS = 1, 2
VALUE = 1
SET_POINT, LIMIT, RELAY = 300, 310, 4660
REFUSED = "Illegal data address (exception 2)"


def _opened(program, port):
    """A model of two whole registers, of which the first is polled, and a half, that no block of a download names
    whole; the values 5, 7 and 9 go to them."""
    with open(os.path.join(program.folder, MODEL + ".ZTP"), "w", encoding="ascii", newline="") as file:
        file.write("\r\n".join(_template()) + "\r\n")
    path = program.desktop.path("documents", "site7." + MODEL.lower())
    open(path, "wb").close()
    program.store("ModbusPort", Port=port, Slave="1", Settings='"115200,n,8,1"', Retries="0", TimeOut="300")
    program.start()
    program.open(path)
    program.expect_title("site7.bartest - Zorvane")
    program.enlarge()


def _template():
    yield from ["[HARDWARE]", f"CONTROLLER={MODEL}", "[PORT_CONFIGURATION]", "COMMUNICATIONS_1_REQUEST=0",
                "COMMUNICATIONS_1_OUT=0", "COMMUNICATIONS_1_SIZE=64", "HOLDINGREGISTERS=5000",
                f"HOLDINGREGISTERSBLOCK_1={SET_POINT}-{SET_POINT}", f"HOLDINGREGISTERSBLOCK_2={LIMIT}-{LIMIT}",
                f"HOLDINGREGISTERSBLOCK_3={RELAY}-{RELAY}", "HOLDINGREQUESTBLOCK_1=ALWAYS",
                "[CONFIGURATION_COLUMNS]", "NUMERIC_ROWS=YES", "CONFIGURATION_NC=2", "COL_1_DESC=No.",
                "COL_1_WIDTH=450", "COL_1_TYPE=NUMERIC", "COL_2_DESC=Field", "COL_2_WIDTH=1600", "COL_2_TYPE=ASCII",
                "[CONFIGURATION_FIELDS]", "FIELD_1_DESC=Regulation", "FIELD_1_RC=2,2", "FIELD_2_DESC=Relays",
                "FIELD_2_RC=1,2"]
    for field in (REGULATION, RELAYS):
        yield from [f"[FIELD_{field}_COLUMNS]", "COL_1_DESC=Setting", "COL_1_WIDTH=1600", "COL_1_TYPE=ASCII",
                    "COL_1_MODIFIABLE=NO", "COL_2_DESC=Value", "COL_2_WIDTH=1100", "COL_2_TYPE=NUMERIC",
                    "COL_2_MODIFIABLE=YES", "COL_2_MDBUSREQUEST=ALWAYS"]
    yield from ["[FIELD_1_CONFIGURATION]", f"ROWADDRESS_1=,{SET_POINT}", f"ROWADDRESS_2=,{LIMIT}",
                "[FIELD_2_CONFIGURATION]", f"ROWADDRESS_1=,{RELAY}/HI", "[CONFIGURATION_DEFAULT]",
                "FIELD_1=,Regulation", "FIELD_2=,Relays", "[FIELD_1_DEFAULT]", "ROW_1=Set point,5", "ROW_2=Limit,7",
                "[FIELD_2_DEFAULT]", "ROW_1=Relay,9"]


def _lines(program):
    """What a screen reader is told of the bar's lines, the newest first."""
    lines = []
    try:
        while True:
            line = program.window.named(f"BAR_{len(lines) + 1}")
            if not line.is_shown:
                return lines
            lines.append(line.name)
    except Vanished:
        return lines


def _expect_lines(program, *wanted):
    expect("the lines of the message bar", lambda: _lines(program), list(wanted))


def _press(program, caption, line=1):
    button = wait_for(f"the button {caption}", lambda: program.window.named(f"BAR_{line}_Button1"))
    expect("the button's caption", lambda: button.name, caption)
    button.press()


def _download(program):
    program.choose("Communication", "Download to Device")
    program.expect_panel(4, "Ready")
    expect("Download is enabled", lambda: program.is_enabled("Communication", "Download to Device"), True)


def _connect(program):
    """Goes online in spite of what the upload couldn't read."""
    wait_for("the button for the log", lambda: program.shows("BOT_Log"))
    program.window.named("BOT_Log").press()
    program.dialog("FrmStatus").press("Connect")
    program.expect_panel(2, "Online")


BECOMES_0 = ("Warning: This download is built from registers that were not read since the port was opened. In 4660 the "
             "half, or the part of a time, that no cell sets becomes 0.")
ALL_TAKEN = 'Download of 3 values: 3 taken, 0 refused, 0 not answered. "Ready" stands there for all of it.'
NOBODY = (" No answer of a controller was seen on this opening of the port: nothing was read, and what came back repeats "
          "the requests, as an adapter that echoes does. Nothing proves that the values arrived; an upload tells.")


def a_download_names_the_registers_that_become_zero(program):
    slave = Pymodbus_Slave(program.desktop, {SET_POINT: 1, LIMIT: 2, RELAY: 0x1234})
    _opened(program, slave.port)
    _download(program)
    _expect_lines(program, "Warning: " + ALL_TAKEN + NOBODY, BECOMES_0)
    assert slave.registers() == {SET_POINT: 5, LIMIT: 7, RELAY: 0x0900}, "the download isn't as it always was"


def upload_first_uploads_and_takes_the_line_back(program):
    slave = Pymodbus_Slave(program.desktop, {SET_POINT: 1, LIMIT: 2, RELAY: 0x1234})
    _opened(program, slave.port)
    _download(program)
    _press(program, "Upload first", line=2)
    program.expect_panel(2, "Online")
    assert BECOMES_0 not in _lines(program), _lines(program)


def a_download_counts_what_was_refused(program):
    slave = Pymodbus_Slave(program.desktop, {SET_POINT: 1, RELAY: 0x1234})
    _opened(program, slave.port)
    _download(program)
    _expect_lines(program, 'Warning: Download of 3 values: 2 taken, 1 refused, 0 not answered. Not taken for certain: '
                           '@310. "Ready" stands there for all of it.', BECOMES_0)
    _press(program, "Log...")
    report = program.dialog("FrmStatus")
    wait_for("the refusal in the report", lambda: REFUSED in report.part.named("RtbStatus").text)


def an_echo_with_nobody_behind_it_proves_nothing(program):
    line = Peer(program.desktop, "echo_line.py")
    _opened(program, line.port)
    _download(program)
    _expect_lines(program, "Warning: " + ALL_TAKEN + NOBODY, BECOMES_0)


def an_upload_names_the_pages_of_a_block_that_it_could_not_read(program):
    slave = Pymodbus_Slave(program.desktop, {SET_POINT: 1, LIMIT: 2})
    _opened(program, slave.port)
    program.choose("Communication", "Upload to PC")
    program.expect_panel(4, "Ready")
    _expect_lines(program, f"Warning: The upload could not read registers 4660-4660 ({REFUSED}). 0 is shown in place of "
                           "values on: Relays.")


def polled_blocks_that_are_refused_are_told_with_the_time(program):
    slave = Pymodbus_Slave(program.desktop, {LIMIT: 2, RELAY: 0x1234})
    _opened(program, slave.port)
    program.choose("Communication", "Upload to PC")
    program.expect_panel(4, "Ready")
    _connect(program)
    line = wait_for("the line of the polled block",
                    lambda: next((text for text in _lines(program) if text.startswith("Warning: Polled")), None))
    before, after = line.split(" since ")
    assert before == "Warning: Polled registers 300-300 are refused", line
    assert after[8:] == f" ({REFUSED}): the values shown of them are older than that.", line


def a_live_write_after_a_failed_one_is_told_rightly(program):
    slave = Pymodbus_Slave(program.desktop, {SET_POINT: 1, RELAY: 0x1234})
    _opened(program, slave.port)
    program.choose("Communication", "Upload to PC")
    program.expect_panel(4, "Ready")
    _connect(program)
    program.select_field(REGULATION)
    program.settle_on(0, VALUE)  # the last cell is the current one as yet
    program.enter(1, VALUE, "70")
    program.expect_panel(4, "Write: 70 @310 ...Failed")
    program.enter(0, VALUE, "50")
    program.expect_panel(4, "Write: 50 @300 ...Failed")
    told = ("Warning: Regulation, Set point @300: the controller took the value, whatever the status line and the cell "
            "say. An earlier write had failed, and that stands until the next download.")
    expect("the newest line", lambda: _lines(program)[:1], [told])
    program.select_field(RELAYS)
    _press(program, "Show")
    program.expect_field(REGULATION)
    assert slave.registers()[SET_POINT] == 50


def a_zero_in_place_of_letters_is_told_and_undone(program):
    _opened(program, "/dev/null")
    program.select_field(REGULATION)
    program.enter(0, VALUE, "abc")
    program.expect_cell(0, VALUE, "0")
    _expect_lines(program, 'Warning: Regulation, Set point: "abc" is no number. "5" was there, "0" is there, and the '
                           "document is not marked as changed.")
    _press(program, "Undo")
    program.expect_cell(0, VALUE, "5")
    _expect_lines(program)
    program.expect_title("site7.bartest - Zorvane")
