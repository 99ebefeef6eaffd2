"""Typing in the editor pane and behind the table, and a close with changes, as a person does them."""

from harness import DesktopTest


class Edit(DesktopTest):
    def setUp(self):
        super().setUp()
        self.write("a.csv", b"name,price\nhinge,4\nlatch,5\n")
        self.start("a.csv", "-w", "900", "-h", "500")
        self.expect_window("a.csv - Gridwright")

    def save_and_expect(self, content):
        self.press("ctrl+s")
        self.expect_file("a.csv", content)

    def test_the_pane_edits_the_main_cell_and_takes_line_breaks(self):
        self.press("ctrl+k", "ctrl+e")
        self.type("first")
        self.press("Return")
        self.type("second")
        self.press("Escape")
        self.screenshot("edit-pane")
        self.save_and_expect(b'"first\nsecond",price\nhinge,4\nlatch,5\n')

    def test_typing_behind_the_table_makes_it_grow_and_rows_come_and_go(self):
        self.press("ctrl+End", "Down")
        self.type("below")
        self.press("Return")
        self.save_and_expect(b"name,price\nhinge,4\nlatch,5\nbelow,\n")
        self.press("ctrl+Home", "ctrl+shift+k")
        self.save_and_expect(b"hinge,4\nlatch,5\nbelow,\n")

    def test_closing_with_changes_asks(self):
        self.type("x")
        self.press("Return", "ctrl+w")
        self.expect_message("a.csv")
        self.screenshot("close-question")
        self.press("alt+c")
        self.expect_window("a.csv - Gridwright")
        self.expect(changed=True, mainCell=[1, 0])
        self.press("ctrl+w")
        self.expect_message("a.csv")
        self.press("alt+s")
        self.expect_window("untitled - Gridwright")
        self.expect_file("a.csv", b"x,price\nhinge,4\nlatch,5\n")
