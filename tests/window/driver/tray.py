# SPDX-License-Identifier: MIT
"""A tray for icons on a desktop of a test, and the program's icon in it."""
import ctypes

from .waiting import wait_for

LARGEST_ICON = 64  # pixels
SELECTION = b"_NET_SYSTEM_TRAY_S0"


class Tray:
    def __init__(self, desktop):
        """Starts the host; its window is on the screen only once it holds an icon."""
        self._desktop = desktop
        desktop.start(["trayer", "--edge", "bottom", "--align", "left", "--widthtype", "request", "--height", "24"],
                      "tray")
        wait_for("the tray's host", self._owner)

    def icon(self):
        """The program's icon, or None."""
        return next((window for window, size in shown_windows(self._desktop) if max(size) <= LARGEST_ICON), None)

    def click(self, button=1, times=1):
        """On the icon."""
        # xdotool waits long for a pointer to arrive where it is already, so it comes from somewhere else.
        self._desktop.run("xdotool", "mousemove", "640", "900")
        self._desktop.run("xdotool", "mousemove", "--sync", "--window", wait_for("the icon", self.icon), "8", "8")
        self._desktop.run("xdotool", "click", "--repeat", str(times), "--delay", "60", str(button))

    def open_menu(self):
        """Right after a window went away the desktop still moves the focus, and a menu that pops up then is closed at
        once; so the user clicks again when it doesn't stay."""
        for _ in range(5):
            self.click(button=3)
            try:
                return wait_for("the icon's menu", self._menu, deadline=3)
            except AssertionError:
                pass
        return wait_for("the icon's menu", self._menu)

    def _menu(self):
        return any(max(size) > LARGEST_ICON for _, size in shown_windows(self._desktop))

    def _owner(self):
        x = ctypes.CDLL("libX11.so.6")
        x.XOpenDisplay.restype = ctypes.c_void_p
        display = ctypes.c_void_p(x.XOpenDisplay(self._desktop.environment["DISPLAY"].encode()))
        try:
            return x.XGetSelectionOwner(display, x.XInternAtom(display, SELECTION, False))
        finally:
            x.XCloseDisplay(display)


def shown_windows(desktop):
    """All windows of the program on the screen with their width and height; an icon and a menu are windows, too."""
    return [(window, _size(desktop, window)) for window in _search(desktop, "--onlyvisible")]


def listed_windows(desktop):
    """The program's windows that the window manager knows, shown or minimized; a hidden one isn't among them."""
    known = desktop.run("xprop", "-root", "_NET_CLIENT_LIST").decode().partition("#")[2]
    numbers = {int(number, 16) for number in known.replace(",", " ").split()}
    return [window for window in _search(desktop) if int(window) in numbers]


def _search(desktop, *options):
    return desktop.windows(*options, "--class", "zorvane")


def _size(desktop, window):
    answer = desktop.run("sh", "-c", f"xdotool getwindowgeometry --shell {window} || true").decode()
    lines = dict(line.split("=") for line in answer.split())
    return int(lines.get("WIDTH", 0)), int(lines.get("HEIGHT", 0))
