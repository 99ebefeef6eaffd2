"""A second start hands its files to the running program, and a start without files opens a further window there."""

from harness import DesktopTest


class SecondStart(DesktopTest):
    def test_files_and_windows_go_to_the_running_program(self):
        self.write("a.csv", b"1,2\n")
        self.write("b <i>.csv", b"3,4\n")
        first = self.start("a.csv")
        self.expect_window("a.csv - Gridwright")

        second = self.start("b <i>.csv", "a.csv")
        self.expect_end(second)
        self.expect_window("a.csv - Gridwright")  # "<" separates the words of the message, so that name got lost

        self.write("c.csv", b"5,6\n")
        self.expect_end(self.start("c.csv"))
        self.expect_window("c.csv - Gridwright")

        self.expect_end(self.start())
        self.expect_window("untitled - Gridwright")
        self.assertIn("c.csv - Gridwright", self.windows())
        self.assertIsNone(first.poll())

    def test_behind_a_file_dialog_files_open_when_it_is_left(self):
        self.write("a.csv", b"1,2\n")
        self.write("b.csv", b"3,4\n")
        self.start("a.csv")
        self.expect_window("a.csv - Gridwright")
        self.press("ctrl+o")
        self.expect_window("Open File")
        self.expect_end(self.start("b.csv"))
        self.press("Escape")
        self.expect_window("b.csv - Gridwright")

    def test_during_the_questions_of_a_closing_window_no_edit_is_lost(self):
        for name in "abcd":
            self.write(f"{name}.csv", b"1,2\n")
        self.start("a.csv", "b.csv", "c.csv")
        for name in "acb":
            self.expect_window(f"{name}.csv - Gridwright")
            self.type("x")
            self.press("Return", "ctrl+Next")
        self.press("ctrl+l")
        self.expect(launcher="")
        self.type("exit")
        self.expect(launcher="exit", answer="File: Exit")
        self.press("Return")
        self.expect_message("a.csv")
        self.expect_end(self.start("d.csv"))
        for name in "abc":
            self.expect_message(f"{name}.csv")
            self.press("alt+s")
            self.expect_file(f"{name}.csv", b"x,2\n")
        self.expect_window("d.csv - Gridwright")
