# SPDX-License-Identifier: MIT
"""A desktop of its own for one test: a screen, a session bus, an accessibility bus and a window manager.

All of it ends with the `with` block, and also when the test's process is killed.
"""
import contextlib
import ctypes
import os
import shutil
import signal
import subprocess
import tempfile

from .accessible import Accessibility_Bus
from .waiting import Vanished, wait_for

LAUNCHERS = ("/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher")
SCREEN = (1280, 1024)
FOREIGN = ("DISPLAY", "WAYLAND_DISPLAY", "DBUS_", "QT_", "GTK_", "XDG_", "AT_SPI_", "SESSION_MANAGER")
ENDING_S = 10
PR_SET_PDEATHSIG = 1

# The grounds of KDE's Breeze Dark: those of fields and tables, windows and buttons differ.
DARK_GROUNDS = {"View": ("27,30,32", "35,38,41"), "Window": ("42,46,50", "49,54,59"), "Button": ("49,54,59", "42,46,50"),
                "Tooltip": ("49,54,59", "42,46,50"), "Selection": ("61,174,233", "61,174,233")}
DARK_TEXT = "252,252,252"

# No panel and no menu: nothing but frames round windows, and the usual key that closes one.
WINDOW_MANAGER_SETTINGS = """<?xml version="1.0"?>
<JWM>
  <FocusModel>click</FocusModel>
  <MoveMode>opaque</MoveMode>
  <Key mask="A" key="F4">close</Key>
  <Desktops width="1" height="1"/>
</JWM>
"""


def _die_with_parent():
    """Signals are as a desktop leaves them, whatever the tests were started with."""
    for number in (signal.SIGHUP, signal.SIGINT):
        signal.signal(number, signal.SIG_DFL)
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


class Desktop:
    """`environment` is what a program on it must be started with; `folder` is the test's own, and empty."""

    def __init__(self, folder=None):
        """With a folder given, which must not be there yet, paths are the same in each run."""
        self._wanted_folder = folder

    def __enter__(self):
        with contextlib.ExitStack() as stack:
            self.folder = self._wanted_folder or tempfile.mkdtemp(prefix="zorvane-window-")
            if self._wanted_folder:
                os.mkdir(self.folder, 0o700)
            stack.callback(shutil.rmtree, self.folder, ignore_errors=True)
            self._stack = stack
            self.environment = self._own_environment()
            self._start_screen()
            self._start_session_bus()
            self._start_accessibility_bus()
            self._start_window_manager()
            self._stack = stack.pop_all()
        return self

    def __exit__(self, *failure):
        self._stack.close()

    def path(self, *parts):
        """A path in the test's own folder, whose folders exist then."""
        path = os.path.join(self.folder, *parts)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        return path

    def start(self, command, name, **options):
        """A program that is ended with the desktop; what it prints goes to a file of that name."""
        with open(self.path("logs", name + ".txt"), "ab") as log:
            output = {"stdout": log, "stderr": log, **options}
            process = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL, cwd=self.folder,
                                       preexec_fn=_die_with_parent, **output)
        self._stack.callback(end, process)
        return process

    def run(self, *command):
        """What a short command prints, as bytes."""
        done = subprocess.run(command, env=self.environment, capture_output=True, timeout=60)
        assert done.returncode == 0, f"{' '.join(command)}: {done.stderr.decode(errors='replace').strip()}"
        return done.stdout

    def windows(self, *options):
        """The numbers of the windows that xdotool's search finds, in its order."""
        def look():
            command = ["xdotool", "search", *options]
            done = subprocess.run(command, env=self.environment, capture_output=True, timeout=60)
            failure = done.stderr.decode(errors="replace").strip()
            if "BadWindow" in failure:
                raise Vanished  # a window went away while the search walked by: it looks again
            assert done.returncode == 0 or not failure, f"{' '.join(command)}: {failure}"
            return (done.stdout.decode().split(),)  # it ends with 1 where it finds none
        return wait_for("the windows on the screen", look)[0]

    def program(self, process):
        """The root of a program's accessibility tree, once it has one."""
        def look():
            if process.poll() is not None:
                raise AssertionError(f"the program ended with exit code {process.returncode}")
            return next((root for root in self.accessibility.programs() if self._owner(root) == process.pid), None)
        return wait_for("the program on the accessibility bus", look)

    def _owner(self, root):
        from gi.repository import GLib
        bus = ("org.freedesktop.DBus", "/org/freedesktop/DBus")
        return self.accessibility.call(bus, "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                                       GLib.Variant("(s)", (root.place[0],)))[0]

    def _own_environment(self):
        environment = {name: value for name, value in os.environ.items() if not name.startswith(FOREIGN)}
        for variable, folder in (("HOME", "home"), ("XDG_CONFIG_HOME", "config"), ("XDG_DATA_HOME", "data"),
                                 ("XDG_CACHE_HOME", "cache"), ("XDG_RUNTIME_DIR", "runtime")):
            environment[variable] = os.path.join(self.folder, folder)
            os.mkdir(environment[variable], 0o700)
        environment.update(LANG="C.UTF-8", LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb", QT_ACCESSIBILITY="1",
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_SCALE_FACTOR="1", QT_FONT_DPI="96",
                           QT_STYLE_OVERRIDE="Fusion", QT_XCB_GL_INTEGRATION="none")
        return environment

    def _start_screen(self):
        reader, writer = os.pipe()
        geometry = f"{SCREEN[0]}x{SCREEN[1]}x24"
        self.start(["Xvfb", "-displayfd", str(writer), "-screen", "0", geometry, "-dpi", "96", "-nolisten", "tcp",
                    "-noreset"], "screen", pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as answer:
            number = answer.readline().strip()
        assert number, "Xvfb did not start"
        self.environment["DISPLAY"] = ":" + number

    def _start_session_bus(self):
        bus = self.start(["dbus-daemon", "--session", "--nofork", "--print-address"], "session-bus",
                         stdout=subprocess.PIPE)
        address = bus.stdout.readline().decode().strip()
        assert address, "dbus-daemon did not start"
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address

    def _start_accessibility_bus(self):
        launcher = next(path for path in LAUNCHERS if os.path.exists(path))
        self.start([launcher, "--launch-immediately"], "accessibility-bus")

        def connect():
            from gi.repository import GLib
            try:
                return Accessibility_Bus(self.environment["DBUS_SESSION_BUS_ADDRESS"])
            except GLib.Error as error:
                raise Vanished(error.message) from error
        self.accessibility = wait_for("the accessibility bus", connect)
        self._stack.callback(self.accessibility.close)
        wait_for("the registry of accessible programs", lambda: self.accessibility.programs() is not None)

    def _start_window_manager(self):
        with open(self.path("jwmrc"), "w", encoding="ascii") as settings:
            settings.write(WINDOW_MANAGER_SETTINGS)
        self._window_manager = self.start(["jwm", "-f", self.path("jwmrc")], "window-manager")
        ask = ["xdotool", "get_desktop"]
        wait_for("the window manager",
                 lambda: subprocess.run(ask, env=self.environment, capture_output=True, timeout=60).returncode == 0)

    def enlarge(self, factor):
        """Each pixel of a program becomes `factor` pixels of the screen, 1.5 too; to be called before it starts."""
        self.environment["QT_SCALE_FACTOR"] = str(factor)

    def darken(self):
        """Dark colours, as Plasma tells programs of them; to be called before the program starts."""
        with open(self.path("config", "kdeglobals"), "w", encoding="ascii") as settings:
            for part, (ground, alternate) in DARK_GROUNDS.items():
                settings.write(f"[Colors:{part}]\nBackgroundNormal={ground}\nBackgroundAlternate={alternate}\n"
                               f"ForegroundNormal={DARK_TEXT}\n")
        self.environment.update(XDG_CURRENT_DESKTOP="KDE", KDE_FULL_SESSION="true", KDE_SESSION_VERSION="5")

    def use_icewm(self):
        """Another window manager in place of the first; to be called before the program starts."""
        end(self._window_manager)
        self.environment["ICEWM_PRIVCFG"] = self.path("icewm", "")
        self._window_manager = self.start(["icewm"], "icewm")
        wait_for("the other window manager", lambda: b"IceWM" in self._window_manager_s_name())

    def _window_manager_s_name(self):
        number = self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK").split()[-1].decode()
        if not number.startswith("0x"):
            return b""
        asked = ["xprop", "-id", number, "_NET_WM_NAME"]
        return subprocess.run(asked, env=self.environment, capture_output=True, timeout=60).stdout


def end(process):
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(ENDING_S)
        except subprocess.TimeoutExpired:
            process.kill()
    process.wait()
    if process.stdout is not None:
        process.stdout.close()
