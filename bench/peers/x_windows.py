# SPDX-License-Identifier: MIT
"""Tells when a program's window comes on an X screen, by the server's own events."""
import ctypes

SUBSTRUCTURE_NOTIFY = 1 << 19
MAP_NOTIFY = 19
EVENT_BYTES = 192


class Map_Event(ctypes.Structure):
    """XMapEvent of Xlib.h."""
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("event", ctypes.c_ulong), ("window", ctypes.c_ulong),
                ("override_redirect", ctypes.c_int)]


class Screen_Watch:
    """Hears of every window that becomes visible as a child of the root, where there is no window manager."""

    def __init__(self, display):
        self._x = ctypes.CDLL("libX11.so.6")
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        self._x.XDefaultRootWindow.restype = ctypes.c_ulong
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(display.encode()))
        assert self._display, f"no display {display}"
        root = ctypes.c_ulong(self._x.XDefaultRootWindow(self._display))
        self._x.XSelectInput(self._display, root, ctypes.c_long(SUBSTRUCTURE_NOTIFY))
        self._x.XSync(self._display, 0)

    def forget(self):
        """Drops what was heard so far."""
        self._x.XSync(self._display, 1)

    def wait_for_window(self):
        """Blocks until a window is shown that isn't a menu or a tip."""
        memory = ctypes.create_string_buffer(EVENT_BYTES)
        while True:
            self._x.XNextEvent(self._display, memory)
            event = Map_Event.from_buffer(memory)
            if event.type == MAP_NOTIFY and not event.override_redirect:
                return
