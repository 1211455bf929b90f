"""A screen of its own with a window manager, and on it the program, driven by keys and mouse."""
import contextlib
import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
import time

DEADLINE = 30.0  # seconds
PAUSE = 0.05
FOREIGN = ("DISPLAY", "WAYLAND_DISPLAY", "DBUS_", "QT_", "GTK_", "XDG_", "AT_SPI_", "SESSION_MANAGER")
MODEL_ENDINGS = (".ZTP", ".KVRT", ".KVRT100", ".KVRT207D", ".R7702-16")
WINDOW_MANAGER_SETTINGS = '<?xml version="1.0"?><JWM><FocusModel>click</FocusModel></JWM>'
PR_SET_PDEATHSIG = 1
LARGEST_ICON = 64  # pixels


def wait_for(what, probe):
    """The first true answer of `probe`."""
    end = time.monotonic() + DEADLINE
    while time.monotonic() < end:
        answer = probe()
        if answer:
            return answer
        time.sleep(PAUSE)
    raise AssertionError(f"waited {DEADLINE:g} s for {what}")


def _die_with_parent():
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


class Desktop:
    def __init__(self, programs):
        self._programs = programs

    def __enter__(self):
        with contextlib.ExitStack() as stack:
            self.folder = tempfile.mkdtemp(prefix="zorvane-tray-")
            stack.callback(shutil.rmtree, self.folder, ignore_errors=True)
            self._stack = stack
            self._environment = self._own_environment()
            self._start_screen()
            self._start_window_manager()
            self._stack = stack.pop_all()
        return self

    def __exit__(self, *failure):
        self._stack.close()

    def start(self, *command, **options):
        with open(os.path.join(self.folder, "log.txt"), "ab") as log:
            process = subprocess.Popen(command, env=self._environment, stdin=subprocess.DEVNULL, stdout=log,
                                       stderr=log, cwd=self.folder, preexec_fn=_die_with_parent, **options)
        self._stack.callback(_end, process)
        return process

    def start_program(self):
        """The program in a folder of its own, shown."""
        folder = os.path.join(self.folder, "program")
        os.mkdir(folder)
        for file in os.listdir(self._programs):
            if file == "zorvane" or file.upper().endswith(MODEL_ENDINGS):
                shutil.copy2(os.path.join(self._programs, file), folder)
        self.program = self.start(os.path.join(folder, "zorvane"))
        self.window = wait_for("the main window", lambda: next(iter(self.windows()), None))
        self.tool("windowactivate", "--sync", self.window)
        return self.program

    def start_tray(self):
        """A host for icons; its window is there only once it holds one."""
        self.start("trayer", "--edge", "bottom", "--align", "left", "--widthtype", "request", "--height", "24")
        wait_for("the tray's host", self._tray_owner)

    def windows(self):
        """The program's windows on the screen, by their numbers; a menu and a dialog are windows, an icon isn't."""
        return [window for window, size in self._shown() if max(size) > LARGEST_ICON]

    def icon(self):
        """The icon in the tray, or None."""
        return next((window for window, size in self._shown() if max(size) <= LARGEST_ICON and min(size) > 8), None)

    def is_listed(self):
        """The window manager knows the main window, be it shown or minimized; a hidden one it doesn't."""
        known = self._run("xprop", "-root", "_NET_CLIENT_LIST").partition("#")[2]
        return int(self.window) in [int(number, 16) for number in known.replace(",", " ").split()]

    def is_shown(self):
        return self.window in self.windows()

    def keys(self, *names):
        self.tool("key", "--delay", "40", *names)

    def click(self, window, button, times=1):
        """In the middle of a window."""
        self.tool("mousemove", "--window", window, "8", "8")
        self.tool("click", "--repeat", str(times), "--delay", "60", str(button))

    def tool(self, *arguments):
        return self._run("xdotool", *arguments)

    def picture(self, path):
        self._run("import", "-window", "root", path)

    def _run(self, *command):
        return subprocess.run(command, env=self._environment, capture_output=True, text=True, timeout=60).stdout

    def _shown(self):
        found = self.tool("search", "--onlyvisible", "--class", "zorvane").split()
        return [(window, self._size(window)) for window in found]

    def _size(self, window):
        lines = dict(line.split("=") for line in self.tool("getwindowgeometry", "--shell", window).split())
        return int(lines.get("WIDTH", 0)), int(lines.get("HEIGHT", 0))

    def _tray_owner(self):
        x = ctypes.CDLL("libX11.so.6")
        x.XOpenDisplay.restype = ctypes.c_void_p
        display = ctypes.c_void_p(x.XOpenDisplay(self._environment["DISPLAY"].encode()))
        try:
            return x.XGetSelectionOwner(display, x.XInternAtom(display, b"_NET_SYSTEM_TRAY_S0", False))
        finally:
            x.XCloseDisplay(display)

    def _own_environment(self):
        environment = {name: value for name, value in os.environ.items() if not name.startswith(FOREIGN)}
        for variable in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"):
            environment[variable] = os.path.join(self.folder, variable.lower())
            os.mkdir(environment[variable], 0o700)
        environment.update(LANG="C.UTF-8", LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb", QT_SCALE_FACTOR="1",
                           QT_FONT_DPI="96", QT_STYLE_OVERRIDE="Fusion", QT_XCB_GL_INTEGRATION="none",
                           DBUS_SESSION_BUS_ADDRESS="disabled:")
        return environment

    def _start_screen(self):
        reader, writer = os.pipe()
        self.start("Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x1024x24", "-dpi", "96", "-nolisten", "tcp",
                   "-noreset", pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as answer:
            number = answer.readline().strip()
        assert number, "Xvfb did not start"
        self._environment["DISPLAY"] = ":" + number

    def _start_window_manager(self):
        settings = os.path.join(self.folder, "jwmrc")
        with open(settings, "w", encoding="ascii") as file:
            file.write(WINDOW_MANAGER_SETTINGS)
        self.start("jwm", "-f", settings)
        wait_for("the window manager", lambda: self.tool("get_desktop").strip())


def _end(process):
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(10)
        except subprocess.TimeoutExpired:
            process.kill()
    process.wait()
