"""The preferences, edited as tables in the program's own grid."""

from harness import DesktopTest, inner


class Preferences(DesktopTest):
    def expect_grid(self, dark):
        """Waits until the grid is dark, or light."""
        brightness = lambda: self.display.brightness(inner(self.grid()))
        self.wait_for(lambda: (brightness() < 0.5) == dark, lambda: f"the brightness of the grid is {brightness()}")

    def test_a_theme_typed_into_the_settings_table_is_put_on_at_once(self):
        settings = self.preferences / "Settings (User).csv"
        settings.write_text("Setting,User Value\nEnable Check for Updates,false\nTheme,\n")
        self.start(settings, "-w", "900", "-h", "500", "-x", "0", "-y", "0")
        self.expect_window("Settings (User).csv - Gridwright")
        self.expect_grid(dark=True)
        self.press("Down", "Down", "Right")
        self.type("light")
        self.press("Return", "ctrl+s")
        self.expect_grid(dark=False)
        self.screenshot("preferences-light")
        self.assertEqual(settings.read_text(), "Setting,User Value\nEnable Check for Updates,false\nTheme,light\n")

    def run_command(self, words):
        self.press("ctrl+l")
        self.expect(launcher="")
        self.type(words)
        self.expect(launcher=words)
        self.press("Return")

    def test_a_shortcut_typed_into_its_table_works_at_once(self):
        shortcuts = self.preferences / "Shortcuts (User).csv"
        shortcuts.write_text("Command,User Shortcut\nUpper Case,\nSave File,\n")
        self.write("a.csv", b"a,b\n")
        self.start("a.csv", "-w", "900", "-h", "500", "-x", "0", "-y", "0")
        self.expect_window("a.csv - Gridwright")
        self.run_command("edit keyboard")
        self.expect_window("Shortcuts (User).csv - Gridwright")
        self.press("Down", "Right")
        self.type("ctrl+j")
        self.press("Return", "ctrl+s")
        self.expect_file(shortcuts, b"Command,User Shortcut\nUpper Case,ctrl+j\nSave File,\n")
        self.screenshot("preferences-shortcuts")
        self.press("ctrl+w")
        self.expect_window("a.csv - Gridwright")

        def pressed():
            self.press("ctrl+j", "ctrl+s")
            return self.read("a.csv") == b"A,b\n"

        self.wait_for(pressed, lambda: f"the new key does nothing: {self.read('a.csv')}")

    def test_a_delimiter_typed_into_the_table_of_extensions_reads_the_next_file(self):
        extensions = self.preferences / "File Extensions (User).csv"
        titles = b"Extension,Delimiter,Line Ending,Encoding,Parsing Standard\n"
        extensions.write_bytes(titles + b"log,;,,,\n")
        self.write("a.csv", b"a,b\n")
        self.write("b.log", b"a|b;c\n")
        self.start("a.csv", "-w", "900", "-h", "500", "-x", "0", "-y", "0")
        self.expect_window("a.csv - Gridwright")
        self.run_command("edit file ext")
        self.expect_window("File Extensions (User).csv - Gridwright")
        self.press("Down", "Right")
        self.type("|")
        self.press("Return", "ctrl+s")
        self.expect_file(extensions, titles + b"log,|,,,\n")

        def read_anew():
            self.expect_end(self.start("b.log"))
            if self.active_window() != "b.log - Gridwright":
                return False
            self.press("Right")
            self.type("x")
            self.press("Return", "ctrl+s", "ctrl+w")
            self.expect_window("File Extensions (User).csv - Gridwright")
            return self.read("b.log") == b"a|x\n"

        self.wait_for(read_anew, lambda: f"read with another delimiter: {self.read('b.log')}")
