# SPDX-License-Identifier: MIT
"""What is missing in an accessibility tree for somebody who doesn't see the window."""
from .accessible import Table
from .waiting import Vanished

# What takes no entry and no key of its own: frames round others, bars of scrolling areas, handles.
CONTAINERS = {"filler", "panel", "frame", "split pane", "splitter", "grip", "layered pane", "separator", "scroll bar",
              "popup menu", "menu bar", "root pane", "unknown"}
CONTROLS = {"push button", "check box", "radio button", "combo box", "text", "spin box", "list", "table", "tree",
            "tree table", "menu item", "check menu item", "progress bar", "slider", "page tab", "status bar",
            "tool bar", "document", "graphic", "dialog", "alert", "alert message"}
WINDOWS = {"frame", "dialog", "alert", "alert message"}
LABELLED_BY = 2


def name_of(control):
    """The name that a screen reader says: its own, or that of its label."""
    name = control.name.strip()
    if name:
        return name
    for kind, targets in control.ask("org.a11y.atspi.Accessible", "GetRelationSet")[0]:
        if kind == LABELLED_BY:
            return " ".join(control._object(target).name for target in targets).strip()
    return ""


def window_faults(window):
    """What is wrong in a window, a line each."""
    if window.role == "popup menu":
        return [fault for entry in window.children for fault in part_faults(entry)]
    faults = []
    if window.role not in WINDOWS:
        faults.append(f"the window has the role {window.role!r}")
    if not window.name.strip():
        faults.append("the window has no title")
    if not window.description.strip():
        faults.append("the window has no given name")
    for part in window.walk():
        try:
            faults += part_faults(part)
        except Vanished:
            continue
    return faults


def part_faults(part):
    if not part.is_shown and part.role != "menu item":
        return
    role = part.role
    if role in CONTAINERS:
        if "focused" in part.states and not part.name.strip() and not is_inside_a_control(part):
            yield f"{part!r} has the keyboard and is a mere {role}"
        return
    if role == "label":
        return  # its name is its text, and a panel of the status bar may be empty
    if role not in CONTROLS and role not in ITEMS:
        yield f"{part!r} has a role that nobody thought of"
    elif role in CONTROLS and not name_of(part):
        yield f"{part!r} has no name"


ITEMS = {"list item", "cell", "tree item", "column header", "row header", "table column header",
         "table row header"}


def is_inside_a_control(part):
    """The viewport of a text or a list has the keyboard together with it."""
    parent = part._object(part.read("Parent"))
    return parent.role in CONTROLS


def grid_faults(name, grid, state_of=None):
    """A grid tells of each cell: its role and its column's heading; `state_of(column)` is what it has to say beside."""
    table = Table(grid)
    headings = table.headings()
    faults = [f"{name}: column {column} has no heading" for column, heading in enumerate(headings) if not heading]
    for row in range(table.row_count):
        for column in range(table.column_count):
            cell = table.cell(row, column)
            where = f"{name}, cell {row}, {column}"
            if cell.role != "cell":
                faults.append(f"{where}: the role is {cell.role!r}")
            wanted = state_of(column) if state_of else ""
            if cell.description != wanted:
                faults.append(f"{where}: the description is {cell.description!r}, not {wanted!r}")
    return faults


def shared_keys(window):
    """Keys that two shown buttons of a window answer to, as the bus tells them: {key: names}."""
    owners = {}
    for part in window.walk():
        if part.role not in ("push button", "check box", "radio button") or not part.is_shown:
            continue
        actions = part.ask("org.a11y.atspi.Action", "GetActions")[0]
        for key in {key for _, _, key in actions if key.startswith("Alt+")}:
            owners.setdefault(key, []).append(part.name)
    return {key: names for key, names in owners.items() if len(names) > 1}


def outside(window, width, height):
    """The parts of a window that reach over its edge or over that of a screen of this size, a line each."""
    left, top, right, bottom = _edges(window)
    edges = max(left, 0), max(top, 0), min(right, width), min(bottom, height)
    faults = []
    for part in window.walk():
        try:
            if not part.is_shown or part.role in ITEMS:
                continue
            inside = _edges(part)
            name = repr(part)
        except Vanished:
            continue
        if inside[0] < edges[0] or inside[1] < edges[1] or inside[2] > edges[2] or inside[3] > edges[3]:
            faults.append(f"{name} is at {inside}, and there is room in {edges}")
    return faults


def _edges(part):
    left, top, width, height = part.rectangle
    return left, top, left + width, top + height
