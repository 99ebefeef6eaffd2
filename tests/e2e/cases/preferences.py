"""The preferences, edited as tables in the program's own grid."""

import subprocess

from harness import DesktopTest, PATIENCE


class Preferences(DesktopTest):
    def pixel(self, x, y):
        """The colour of a pixel of the screen, such as "#222222"."""
        done = subprocess.run(["import", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "txt:-"],
                              env=self.environment, timeout=PATIENCE, check=True, stdout=subprocess.PIPE)
        return done.stdout.decode().split("#")[-1][:6].lower()

    def test_a_theme_typed_into_the_settings_table_is_put_on_at_once(self):
        settings = self.preferences / "Settings (User).csv"
        settings.write_text("Setting,User Value\nEnable Check for Updates,false\nTheme,\n")
        self.start(settings, "-w", "900", "-h", "500", "-x", "0", "-y", "0")
        self.expect_window("Settings (User).csv - Gridwright")
        self.wait_for(lambda: self.pixel(800, 300) == "222222", lambda: f"no dark grid but {self.pixel(800, 300)}")
        self.press("Down", "Down", "Right")
        self.type("light")
        self.press("Return", "ctrl+s")
        self.wait_for(lambda: self.pixel(800, 300) == "fafafa", lambda: f"no light grid but {self.pixel(800, 300)}")
        self.screenshot("preferences-light")
        self.assertEqual(settings.read_text(), "Setting,User Value\nEnable Check for Updates,false\nTheme,light\n")
