#!/usr/bin/python3
"""Takes pictures of the window in each state of a cell, for people to look at: pictures.py PROGRAMS FOLDER"""
import os
import sys

from driver.desktop import Desktop
from driver.picture import save
from driver.waiting import expect
from driver.zorvane import Zorvane

OUTPUTS, REGULATION = 1, 3
VALUE = 1


def take_all(program, take):
    controller = program.simulator("KVRT207D", "--config", os.path.join(program.folder, "EXAMPLE.KVRT207D"),
                                   "--fault", "wrong-echo@251")
    program.use_port(controller)
    program.start()
    take("start")
    program.open(program.document())
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    program.go_online()
    program.select_field(REGULATION)
    program.expect_state(0, VALUE, "Modifiable")
    take("modifiable")
    program.begin_edit(0, VALUE)
    program.hands.keys("ctrl+a")
    program.hands.write("1200")
    take("editing")
    program.hands.keys("Return")
    program.expect_state(0, VALUE, "Writing")
    take("writing")
    program.expect_panel(4, "Write: 1200 @250 ...Completed")
    program.enter(1, VALUE, "42")
    program.expect_panel(4, "Write: 42 @251 ...Failed")
    program.expect_state(1, VALUE, "Write failed")
    take("failed")
    program.select_field(OUTPUTS)
    program.open_list(0, VALUE)
    take("list")
    program.hands.keys("Escape")
    controller.stop()
    program.expect_state(0, VALUE, "Link lost")
    expect("the notice of a lost link is shown", lambda: program.has_dialog("LostCom"), True)
    take("lost")


def main(programs, folder):
    os.makedirs(folder, exist_ok=True)
    with Desktop() as desktop:
        take_all(Zorvane(desktop, os.path.abspath(programs)),
                 lambda name: save(desktop, os.path.join(os.path.abspath(folder), name + ".png")))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
