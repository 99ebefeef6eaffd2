"""Every menu opens by its mnemonic, and commands are reached through it."""

from harness import DesktopTest

MENUS = {"file": "alt+f", "edit": "alt+e", "data": "alt+d", "selection": "alt+s", "find": "alt+n", "view": "alt+v",
         "tools": "alt+t", "go-to": "alt+g", "preferences": "alt+p", "contact": "alt+u", "help": "alt+h"}


class Menus(DesktopTest):
    def setUp(self):
        super().setUp()
        self.write("a.csv", b"name,price\nhinge,4\nlatch,5\n")
        self.start("a.csv", "-w", "1000", "-h", "760", "-x", "0", "-y", "0")
        self.expect_window("a.csv - Gridwright")

    def test_each_menu_opens(self):
        for name, keys in MENUS.items():
            self.press_and_see(keys)
            self.screenshot("menu-" + name)
            self.press_and_see("Escape")

    def test_a_row_is_moved_through_submenus(self):
        self.press("Down")
        self.press_and_see("alt+d", "Right")  # "Data", "Move"
        self.screenshot("menu-data-move")
        self.press_and_see("Down", "Down", "Down", "Down", "Down")  # "Move Row(s) Down" is the sixth entry
        self.press_and_see("Return")
        self.press("ctrl+s")
        self.expect_file("a.csv", b"name,price\nlatch,5\nhinge,4\n")

    def test_a_command_that_is_not_built_says_so(self):
        self.press_and_see("alt+h", "u")  # "Check for Updates"
        self.expect_window("Gridwright")
        self.screenshot("not-built")
        self.press("Return")
        self.expect_no_window("Gridwright")
