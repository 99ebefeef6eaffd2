"""Every menu opens by its mnemonic, and commands are reached through it."""

from harness import DesktopTest

MENUS = {"File": "alt+f", "Edit": "alt+e", "Data": "alt+d", "Selection": "alt+s", "Find": "alt+n", "View": "alt+v",
         "Tools": "alt+t", "Go To": "alt+g", "Preferences": "alt+p", "Contact Us": "alt+u", "Help": "alt+h"}


class Menus(DesktopTest):
    def setUp(self):
        super().setUp()
        self.write("a.csv", b"name,price\nhinge,4\nlatch,5\n")
        self.start("a.csv", "-w", "1000", "-h", "760", "-x", "0", "-y", "0")
        self.expect_window("a.csv - Gridwright")

    def test_each_menu_opens(self):
        for name, keys in MENUS.items():
            self.press(keys)
            self.expect(menu=name)
            self.assertGreater(len(self.state()["entries"]), 0)
            self.screenshot(f"menu-{name.lower()}")
            self.press("Escape")
            self.expect(menu=None)

    def test_a_row_is_moved_through_submenus(self):
        self.press("Down", "alt+d")
        self.expect(menu="Data", chosen="Move")
        self.press("Right")
        self.expect(menu="Move")
        self.screenshot("menu-data-move")
        for _ in self.state()["entries"]:
            if self.state().get("chosen") != "Move Row(s) Down":
                self.press("Down")
        self.expect(chosen="Move Row(s) Down")
        self.press("Return")
        self.expect(menu=None)
        self.press("ctrl+s")
        self.expect_file("a.csv", b"name,price\nlatch,5\nhinge,4\n")

    def test_a_command_that_is_not_built_says_so(self):
        self.press("alt+h")
        self.expect(menu="Help")
        self.click(self.entry("Check for Updates"))
        self.expect_message("Check for Updates")
        self.screenshot("not-built")
        self.press("Return")
        self.expect_no_window("Gridwright")
