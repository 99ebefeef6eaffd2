"""Drives the real program as a person does: with keys and clicks, on a display and with a home of its own.

A case is a file in cases/ with a class that derives from DesktopTest:

    class OpenAndSave(DesktopTest):
        def test_something(self):
            self.write("a.csv", b"1,2\n")
            self.start("a.csv")
            self.expect_window("a.csv - Gridwright")
            self.click(self.cell(0, 1))
            self.type("3")
            self.press("Return", "ctrl+s")
            self.expect_file("a.csv", b"1,3\n")

Where something is on the screen and what the window is doing is asked of the program itself, which is linked with a
probe for that (probe/): no case knows a font, a pixel or how long something takes. Nothing sleeps for a fixed time:
every expectation polls until it holds, or fails when its patience is over. The last picture of a test that fails is kept
in the folder that GRIDWRIGHT_FAILURES names; all pictures that the cases offer are, if GRIDWRIGHT_SCREENSHOTS names one.
"""

import contextlib
import json
import os
import pathlib
import select
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest

import environment

HERE = pathlib.Path(__file__).resolve().parent
PROGRAM = os.environ["GRIDWRIGHT_PROGRAM"]
VERSION = os.environ["GRIDWRIGHT_VERSION"]
FAILURES = pathlib.Path(os.environ["GRIDWRIGHT_FAILURES"])
SCREENSHOTS = os.environ.get("GRIDWRIGHT_SCREENSHOTS")
PATIENCE = 30.0  # seconds that an expectation waits; a loaded machine under sanitizers is slow
POLL = 0.03
KEY_REST = 0.6  # seconds for which a box that a key has brought up takes none


def middle(rect):
    """The middle of a rectangle, as words for xdotool."""
    x, y, width, height = rect
    return str(x + width // 2), str(y + height // 2)


def inner(rect):
    """A rectangle without its rim, where lines and borders are."""
    x, y, width, height = rect
    rim = min(width, height) // 4
    return x + rim, y + rim, width - 2 * rim, height - 2 * rim


class DesktopTest(unittest.TestCase):
    """A test with a display, a window manager, a fresh home and an empty working folder, `self.folder`."""

    # True shows the program as on its very first start. Else it finds preferences that keep it from the tutorial, the
    # change log and the network.
    first_run = False

    def setUp(self):
        environment.take_own_shared_memory()
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="gridwright-e2e-"))
        self.addCleanup(shutil.rmtree, self.root, ignore_errors=True)
        self.folder = self._make_folder("work")
        self.preferences = self.root / "data" / "Gridwright"
        self.programs = []
        self.probe = None
        self.environment = self._make_environment()
        if not self.first_run:
            self._write_preferences()
        self._start_display()
        self._start_window_manager()

    def tearDown(self):
        if not self._outcome.success:
            FAILURES.mkdir(parents=True, exist_ok=True)
            self.display.write_png(FAILURES / f"{self.id()}.png")
        self._show_output()
        crashed = [program.returncode for program in self.programs if program.poll() not in (None, 0)]
        self.assertEqual(crashed, [], "the program ended with an error")

    # What a person does.

    def start(self, *arguments, before=(), **options):
        """Starts the program in the working folder. A second call is a second start on the same desktop. `before` is a
        command that starts another one in its own place; the options are those of subprocess.Popen."""
        log = open(self.root / f"output-{len(self.programs)}.txt", "wb")
        self.addCleanup(log.close)
        variables = {"GRIDWRIGHT_PROBE": str(self._probe_path(len(self.programs)))}
        program = self._spawn([*before, PROGRAM, *map(str, arguments)], cwd=self.folder, stdout=log, stderr=log,
                              env=self.environment | variables, **options)
        self.programs.append(program)
        return program

    def press(self, *keys):
        """Presses keys one after the other in the window that has the focus, such as press("ctrl+s", "Return")."""
        self._xdotool("key", "--clearmodifiers", *keys, check=True)

    def type(self, text):
        self._xdotool("type", "--clearmodifiers", "--", text, check=True)

    def click(self, rect, button=1, count=1, keys=()):
        """Clicks into the middle of a rectangle on the screen, while keys such as "shift" are held."""
        held = [word for key in keys for word in ("keydown", key)]
        freed = [word for key in keys for word in ("keyup", key)]
        self._xdotool(*held, "mousemove", *middle(rect), "click", "--repeat", str(count), str(button), *freed, check=True)

    def drag(self, *rects):
        """Presses the left button in the middle of the first rectangle, moves over the others and lets it go."""
        with self.dragging(rects[0]) as move:
            for rect in rects[1:]:
                move(rect)

    @contextlib.contextmanager
    def dragging(self, start):
        """Holds the left button, which goes down in the middle of a rectangle; gives what moves on to another one."""
        self._xdotool("mousemove", *middle(start), "mousedown", "1", check=True)
        yield lambda rect: self._xdotool("mousemove", *middle(rect), check=True)
        self._xdotool("mouseup", "1", check=True)

    # Where things are: rectangles (x, y, width, height) on the screen. Each waits until the thing is in sight.

    def cell(self, row, col):
        return self._place("cell", row=row, col=col)["rect"]

    def label(self, axis, line):
        """The label of one of the "rows" or "columns"."""
        return self._place("label", axis=axis, line=line)["rect"]

    def label_edge(self, axis, line):
        """Where a label is drawn larger or smaller."""
        return self._place("label", axis=axis, line=line)["edge"]

    def scroll_bar(self, axis):
        """The handle of a scroll bar, and all of the bar."""
        bar = self._place("scrollbar", axis=axis)
        return bar["handle"], bar["rect"]

    def grid(self):
        """The part of the window that shows cells."""
        return self._place("grid")["rect"]

    def button(self, text):
        return self._place("button", text=text)["rect"]

    def entry(self, text):
        """An entry of the open menu."""
        return self._place("entry", text=text)["rect"]

    def widget(self, name):
        """A widget by its accessible name, such as that of a label in the status bar, or by its class."""
        return self._place("widget", name=name)["rect"]

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

    def state(self):
        """What the program's window in front is doing; the words are in probe/WindowAnswers.cpp."""
        return self.ask("state")

    def expect(self, **wanted):
        """Waits until the window at rest is in a state: expect(launcher="exit"). None stands for "has no such thing"."""
        seen = {}

        def holds():
            seen.update(now=self.state())
            return seen["now"].get("idle") and all(seen["now"].get(name) == value for name, value in wanted.items())

        self.wait_for(holds, lambda: f"the window does not come to {wanted} but is {seen['now']}")

    def expect_message(self, *words):
        """Waits until a message box is open whose text holds all these words, and until it takes keys."""
        def shown():
            message = self.state().get("message")
            return message is not None and all(word in message for word in words)

        self.expect_window("Gridwright")
        self.wait_for(shown, lambda: f"no message with {words} but {self.state().get('message')!r}")
        time.sleep(KEY_REST)

    def expect_cell(self, row, col, text):
        """Waits until a cell in sight shows a text."""
        self.wait_for(lambda: self.ask("cell", row=row, col=col).get("text") == text,
                      lambda: f"the cell ({row}, {col}) is {self.ask('cell', row=row, col=col)} and not {text!r}")

    def text_of(self, name):
        """The text of a widget in sight; see widget()."""
        return self._place("widget", name=name)["text"]

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
            # Keys reach the window from when it has the focus, and a table from when it is loaded.
            return self.active_window() == title and self.ask("state").get("focus")

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
        """Offers a picture of the whole screen to whoever wants to look at it."""
        if SCREENSHOTS:
            self.expect()
            pathlib.Path(SCREENSHOTS).mkdir(parents=True, exist_ok=True)
            self.display.write_png(pathlib.Path(SCREENSHOTS, f"{name}.png"))

    # The probe.

    def ask(self, question, **details):
        """The answer of the running program to a question; see probe/WindowAnswers.h."""
        line = json.dumps({"ask": question} | details).encode() + b"\n"
        while True:
            probe = self._connect()
            try:
                probe.sendall(line)
                with probe.makefile("rb") as stream:
                    answer = stream.readline()
            except OSError as failure:
                answer = b""
                if isinstance(failure, TimeoutError):
                    self.fail(f"the program does not answer what it shows: {question} {details}")
            if answer:
                return json.loads(answer)
            probe.close()  # the program is gone; another one may have been started
            self.probe = None

    def _place(self, question, **details):
        """The answer, once the thing is in sight in a window at rest."""
        answers = [{}]

        def in_sight():
            answers.append(self.ask(question, **details))
            # What moves on is asked for again.
            return "error" not in answers[-1] and answers[-1] == answers[-2]

        self.wait_for(in_sight, lambda: answers[-1].get("error", f"{question} {details} does not come to rest"))
        return answers[-1]

    def _probe_path(self, number):
        return self.root / f"probe-{number}"

    def _connect(self):
        """A connection to the first of the programs that still runs."""
        def connected():
            for number, program in enumerate(self.programs):
                if self.probe is None and program.poll() is None:
                    probe = socket.socket(socket.AF_UNIX)
                    probe.settimeout(PATIENCE)
                    try:
                        probe.connect(str(self._probe_path(number)))
                        self.probe = probe
                        self.addCleanup(probe.close)
                    except OSError:  # it is starting, or ending
                        probe.close()
            return self.probe is not None

        self.wait_for(connected, lambda: "no program can be asked what it shows")
        return self.probe

    # The desktop.

    def _make_folder(self, name):
        path = self.root / name
        path.mkdir(mode=0o700)
        return path

    def _make_environment(self):
        variables = {name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")}
        variables |= {
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
        variables |= environment.fonts(self._make_folder("fonts"))
        # What Qt and the font libraries keep until the end is no leak of the program's.
        variables.setdefault("ASAN_OPTIONS", "detect_leaks=0")
        return variables

    def _write_preferences(self):
        self.preferences.mkdir(parents=True)
        text_size = f"Text Size,{environment.text_size()}\n" if environment.text_size() else ""
        for name, content in {
            "Gridwright.ini": f"[main]\npreference_file_version={VERSION}\n",
            "Settings (User).csv": "Setting,User Value\nEnable Check for Updates,false\n" + text_size,
            "Tutorial (Fake Data).csv": "",
        }.items():
            (self.preferences / name).write_text(content, encoding="utf-8")

    def _start_display(self):
        read_end, write_end = os.pipe()
        log = open(self.root / "display.txt", "w+b")
        self.addCleanup(log.close)
        self._spawn(["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1280x800x24", "-fbdir",
                     str(self.root), "-nolisten", "tcp", "-noreset"], pass_fds=[write_end], stdout=log, stderr=log)
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
        self.display = environment.Screen(self.root / "Xvfb_screen0")

    def _start_window_manager(self):
        self._spawn(["openbox", "--config-file", str(HERE / "openbox.xml")],
                    stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.wait_for(lambda: self._xdotool("get_num_desktops") == "1", lambda: "no window manager")

    def _spawn(self, command, **options):
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, start_new_session=True,
                                   **({"env": self.environment} | options))
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
