"""A window with several changed files is closed: each one is asked about, and a save that must ask is answered."""

from harness import DesktopTest


class CloseQuestions(DesktopTest):
    def open_three_and_edit_two(self):
        for name in "abc":
            self.write(f"{name}.csv", b"1,2\n")
        program = self.start("a.csv", "b.csv", "c.csv", "-w", "900", "-h", "500")
        self.expect_window("a.csv - Gridwright")
        self.edit("x")
        self.press("ctrl+Next")
        self.expect_window("c.csv - Gridwright")
        self.edit("y")
        return program

    def edit(self, text):
        self.type(text)
        self.press("Return")

    def close_window(self):
        self.press("ctrl+l")
        self.expect(launcher="")
        self.type("exit")
        self.expect(launcher="exit", answer="File: Exit")
        self.press("Return")
        self.expect_message("c.csv")

    def test_save_and_dont_save_are_asked_for_each_changed_table(self):
        program = self.open_three_and_edit_two()
        self.close_window()
        self.screenshot("close-window-question")
        self.press("alt+s")
        self.expect_file("c.csv", b"y,2\n")
        self.expect_message("a.csv")
        self.screenshot("close-window-second-question")
        self.press("alt+n")
        self.expect_end(program)
        self.assertEqual(self.read("a.csv"), b"1,2\n")
        self.assertEqual(self.read("b.csv"), b"1,2\n")

    def test_cancel_keeps_the_window_with_all_edits(self):
        self.open_three_and_edit_two()
        self.close_window()
        self.press("alt+c")
        self.expect_window("c.csv - Gridwright")
        self.press("ctrl+shift+s")
        self.expect_file("a.csv", b"x,2\n")
        self.expect_file("c.csv", b"y,2\n")


class DelimiterOnlyQuestion(DesktopTest):
    def setUp(self):
        super().setUp()
        self.write("a.csv", b'"a\nb",1\n')
        self.start("a.csv", "-w", "900", "-h", "500")
        self.expect_window("a.csv - Gridwright")
        self.press("ctrl+l")
        command = "Set Parsing Standard for File Save"
        self.answer(command, f"File/Save Options: {command}")
        self.answer("Delimiter Only")
        self.expect(launcher=None)
        self.press("ctrl+s")
        self.expect_message("Delimiter Only")

    def answer(self, text, row=None):
        self.expect(launcher="")
        self.type(text)
        self.expect(launcher=text, answer=row or text)
        self.press("Return")

    def test_line_breaks_are_replaced_by_a_text_of_the_users(self):
        self.screenshot("delimiter-only-question")
        self.press("Tab", "Return")
        self.expect_window("a.csv - Gridwright")
        self.screenshot("delimiter-only-replacements")
        self.answer("Custom")
        self.screenshot("delimiter-only-custom")
        self.answer(" / ")
        self.expect_file("a.csv", b"a / b,1\n")

    def test_another_standard_keeps_the_line_breaks(self):
        self.press("Return")
        self.expect_window("a.csv - Gridwright")
        self.screenshot("delimiter-only-standards")
        self.answer("All Quotes")
        self.expect_file("a.csv", b'"a\nb","1"\n')
