"""Drives the real program as a person does: with keys and clicks, on a display and with a home of its own.

A case is a file in cases/ with a class that derives from DesktopTest:

    class OpenAndSave(DesktopTest):
        def test_something(self):
            self.write("a.csv", b"1,2\\n")
            self.start("a.csv")
            self.expect_window("a.csv - Gridwright")
            self.press("ctrl+s")
            self.expect_file("a.csv", b"1,2\\n")

Nothing sleeps for a fixed time: every expectation polls until it holds, or fails when its patience is over. The last
picture of each test is kept in the folder that GRIDWRIGHT_SCREENSHOTS names.
"""

import os
import pathlib
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

HERE = pathlib.Path(__file__).resolve().parent
PROGRAM = os.environ["GRIDWRIGHT_PROGRAM"]
VERSION = os.environ["GRIDWRIGHT_VERSION"]
SCREENSHOTS = pathlib.Path(os.environ["GRIDWRIGHT_SCREENSHOTS"])
PATIENCE = 30.0  # seconds that an expectation waits; a loaded machine under sanitizers is slow
POLL = 0.03


class DesktopTest(unittest.TestCase):
    """A test with a display, a window manager, a fresh home and an empty working folder, `self.folder`."""

    # True shows the program as on its very first start. Else it finds preferences that keep it from the tutorial, the
    # change log and the network.
    first_run = False

    def setUp(self):
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="gridwright-e2e-"))
        self.addCleanup(shutil.rmtree, self.root, ignore_errors=True)
        self.folder = self._make_folder("work")
        self.preferences = self.root / "data" / "Gridwright"
        self.programs = []
        self.environment = self._make_environment()
        if not self.first_run:
            self._write_preferences()
        self._start_display()
        self._start_window_manager()

    def tearDown(self):
        self.screenshot(self.id())
        self._show_output()
        crashed = [program.returncode for program in self.programs if program.poll() not in (None, 0)]
        self.assertEqual(crashed, [], "the program ended with an error")

    # What a person does.

    def start(self, *arguments, **options):
        """Starts the program in the working folder. A second call is a second start on the same desktop. The options
        are those of subprocess.Popen."""
        log = open(self.root / f"output-{len(self.programs)}.txt", "wb")
        self.addCleanup(log.close)
        program = self._spawn([PROGRAM, *map(str, arguments)], cwd=self.folder, stdout=log, stderr=log,
                              **options)
        self.programs.append(program)
        return program

    def press(self, *keys):
        """Presses keys one after the other in the window that has the focus, such as press("ctrl+s", "Return")."""
        self._xdotool("key", "--clearmodifiers", *keys, check=True)

    def type(self, text):
        self._xdotool("type", "--clearmodifiers", "--", text, check=True)

    def click(self, x, y, button=1, count=1):
        """Clicks at pixels from the top left of the window that has the focus."""
        self._xdotool("getactivewindow", "mousemove", "--window", "%1", str(x), str(y),
                      "click", "--repeat", str(count), str(button), check=True)

    def drag(self, start, *points):
        """Presses the left button at a point of the window that has the focus, moves over points and lets it go."""
        window = self._xdotool("getactivewindow")
        move = lambda point: ["mousemove", "--window", window, str(point[0]), str(point[1])]
        self._xdotool(*move(start), "mousedown", "1", check=True)
        for point in points:
            self._xdotool(*move(point), check=True)
        self._xdotool("mouseup", "1", check=True)

    # Files in the working folder.

    def write(self, name, content):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
        return path

    def read(self, name):
        """The bytes of a file, None if there is no such file."""
        path = self.folder / name
        return path.read_bytes() if path.exists() else None

    def set(self, setting, value):
        """Adds a setting to the settings file, before the program starts."""
        with open(self.preferences / "Settings (User).csv", "a", encoding="utf-8") as file:
            file.write(f"{setting},{value}\n")

    # What a person sees.

    def active_window(self):
        """The title of the window with the focus, empty if there is none."""
        return self._xdotool("getactivewindow", "getwindowname")

    def windows(self):
        """The titles of all windows on the screen."""
        return self._xdotool("search", "--onlyvisible", "--name", ".", "getwindowname", "%@").splitlines()

    def expect_window(self, title):
        """Waits until the window of this title has the focus."""

        def shown():
            if all(program.poll() is not None for program in self.programs):
                self.fail(f"the program ended before it showed {title!r}")
            return self.active_window() == title

        self.wait_for(shown, lambda: f"not {title!r} but {self.active_window()!r} has the focus, of {self.windows()}")

    def expect_no_window(self, title):
        self.wait_for(lambda: title not in self.windows(), lambda: f"the window {title!r} stays")

    def expect_file(self, name, content):
        """Waits until a file holds exactly these bytes."""
        self.wait_for(lambda: self.read(name) == content,
                      lambda: f"{name} is\n    {self.read(name)!r}\nand not\n    {content!r}")

    def expect_end(self, program, code=0):
        """Waits until a started program has ended by itself."""
        self.wait_for(lambda: program.poll() is not None, lambda: "the program goes on")
        self.assertEqual(program.returncode, code)

    def wait_for(self, condition, complaint):
        """Polls until condition() holds. Fails with complaint() when patience is over or a program has crashed."""
        deadline = time.monotonic() + PATIENCE
        while not condition():
            if any(program.poll() not in (None, 0) for program in self.programs):
                self.fail(f"the program crashed while waiting: {complaint()}")
            if time.monotonic() > deadline:
                self.fail(complaint())
            time.sleep(POLL)

    def screenshot(self, name):
        """Keeps a picture of the whole screen."""
        SCREENSHOTS.mkdir(parents=True, exist_ok=True)
        subprocess.run(["import", "-window", "root", str(SCREENSHOTS / f"{name}.png")], env=self.environment,
                       timeout=PATIENCE, check=False)

    def screen(self):
        """All that the screen shows, as bytes that can be compared."""
        return subprocess.run(["import", "-window", "root", "rgb:-"], env=self.environment, timeout=PATIENCE,
                              stdout=subprocess.PIPE, check=True).stdout

    def press_and_see(self, *keys):
        """Presses keys one after the other and waits each time until the screen looks different."""
        for key in keys:
            before = self.screen()
            self.press(key)
            self.wait_for(lambda: self.screen() != before, lambda: f"nothing happens on {key}")

    # The desktop.

    def _make_folder(self, name):
        path = self.root / name
        path.mkdir(mode=0o700)
        return path

    def _make_environment(self):
        environment = {name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")}
        environment |= {
            "PATH": os.environ["PATH"],
            "LANG": "C.UTF-8",
            "QT_QPA_PLATFORM": "xcb",
            "HOME": str(self._make_folder("home")),
            "TMPDIR": str(self._make_folder("tmp")),
            "XDG_DATA_HOME": str(self._make_folder("data")),
            "XDG_CONFIG_HOME": str(self._make_folder("config")),
            "XDG_CACHE_HOME": str(self._make_folder("cache")),
            "XDG_RUNTIME_DIR": str(self._make_folder("runtime")),
            # No session bus, and none started on demand.
            "DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.root}/no-bus",
            # Part of the name under which a second start finds the first: tests that run side by side stay apart.
            "APPIMAGE": str(self.root / "program"),
        }
        # What Qt and the font libraries keep until the end is no leak of the program's.
        environment.setdefault("ASAN_OPTIONS", "detect_leaks=0")
        return environment

    def _write_preferences(self):
        self.preferences.mkdir(parents=True)
        for name, content in {
            "Gridwright.ini": f"[main]\npreference_file_version={VERSION}\n",
            "Settings (User).csv": "Setting,User Value\nEnable Check for Updates,false\n",
            "Tutorial (Fake Data).csv": "",
        }.items():
            (self.preferences / name).write_text(content, encoding="utf-8")

    def _start_display(self):
        read_end, write_end = os.pipe()
        log = open(self.root / "display.txt", "w+b")
        self.addCleanup(log.close)
        self._spawn(["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1280x800x24", "-nolisten", "tcp",
                     "-noreset"], pass_fds=[write_end], stdout=log, stderr=log)
        os.close(write_end)
        number = b""
        while not number.endswith(b"\n"):
            ready, _, _ = select.select([read_end], [], [], PATIENCE)
            piece = os.read(read_end, 16) if ready else b""
            if not piece:
                log.seek(0)
                self.fail(f"no display: {log.read().decode()}")
            number += piece
        os.close(read_end)
        self.environment["DISPLAY"] = f":{number.decode().strip()}"

    def _start_window_manager(self):
        self._spawn(["openbox", "--config-file", str(HERE / "openbox.xml")],
                    stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.wait_for(lambda: self._xdotool("get_num_desktops") == "1", lambda: "no window manager")

    def _spawn(self, command, **options):
        process = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL, start_new_session=True,
                                   **options)
        self.addCleanup(self._end, process)
        return process

    @staticmethod
    def _end(process):
        """Ends what is left of a process that this test started."""
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(timeout=5)
            except subprocess.TimeoutExpired:
                process.send_signal(signal.SIGKILL)
                process.wait()

    def _show_output(self):
        for log in sorted(self.root.glob("output-*.txt")):
            text = log.read_text(errors="replace")
            if text:
                print(f"--- {log.name}\n{text}", file=sys.stderr)

    def _xdotool(self, *arguments, check=False):
        done = subprocess.run(["xdotool", *arguments], env=self.environment, timeout=PATIENCE, check=check,
                              stdout=subprocess.PIPE, stderr=None if check else subprocess.DEVNULL)
        return done.stdout.decode(errors="replace").rstrip("\n")
