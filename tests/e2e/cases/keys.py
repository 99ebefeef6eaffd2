"""Keys that write nothing, both Enter keys, and a table of which everything is hidden."""

from harness import DesktopTest


class Keys(DesktopTest):
    def setUp(self):
        super().setUp()
        self.write("a.csv", b"a,b\nc,d\n")
        self.start("a.csv")
        self.expect_window("a.csv - Gridwright")

    def run_command(self, name):
        self.press("ctrl+l")
        self.type(name)
        self.press("Return")

    def test_keys_without_a_character_change_nothing_also_within_an_edit(self):
        silent = ["ISO_Level5_Shift", "XF86Fn", "ISO_Next_Group"]
        self.press(*silent)
        self.type("x")
        self.press(*silent)
        self.type("y")
        self.press("Return", "ctrl+k", "ctrl+e", *silent)
        self.press("ctrl+s")
        self.expect_file("a.csv", b"xy,b\nc,d\n")

    def test_enter_of_either_keyboard_inserts_a_row(self):
        self.press("ctrl+Return", "ctrl+KP_Enter", "ctrl+s")
        self.expect_file("a.csv", b"a,b\n,\n,\nc,d\n")

    def test_a_table_of_which_everything_is_hidden_lives_on(self):
        self.press("ctrl+a")
        self.run_command("hide selected row")
        self.run_command("hide selected column")
        self.screenshot("everything-hidden")
        self.press("alt+r", "ctrl+z", "Down", "ctrl+Right")
        self.run_command("show all hidden row")
        self.run_command("show all hidden column")
        self.press("ctrl+Home", "ctrl+alt+Home")
        self.type("x")
        self.press("Return", "ctrl+s")
        self.expect_file("a.csv", b"x,b\nc,d\n")
