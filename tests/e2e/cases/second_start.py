"""A second start hands its files to the running program, and a start without files opens a further window there."""

from harness import DesktopTest


class SecondStart(DesktopTest):
    def test_files_and_windows_go_to_the_running_program(self):
        for name in ("a.csv", "b <i>.csv", "c.csv"):
            self.write(name, b"1,2\n")
        first = self.start("a.csv")
        self.expect_window("a.csv - Gridwright")

        self.expect_end(self.start("b <i>.csv", "c.csv"))
        self.expect_window("c.csv - Gridwright")  # "<" separates the words of the message, so that name got lost

        self.expect_end(self.start("a.csv"))
        self.expect_window("a.csv - Gridwright")

        self.expect_end(self.start())
        self.expect_window("untitled - Gridwright")
        self.assertIn("a.csv - Gridwright", self.windows())
        self.assertIsNone(first.poll())

    def test_ten_starts_at_once_open_ten_files(self):
        names = [f"{number}.csv" for number in range(10)]
        for name in names:
            self.write(name, b"1,2\n")
        starts = [self.start(name) for name in names]
        self.wait_for(lambda: sum(start.poll() == 0 for start in starts) == 9, lambda: "not nine have handed over")
        missing = {f"{name} - Gridwright" for name in names}

        def all_seen():
            missing.discard(self.active_window())
            self.press("ctrl+Next")  # the tab on the right
            return not missing

        self.wait_for(all_seen, lambda: f"there is no tab {missing}")

    def test_relative_name_means_the_file_of_the_second_start(self):
        self.write("here/first.csv", b"")
        self.write("here/same.csv", b"here\n")
        self.write("there/same.csv", b"there\n")
        both = self.folder
        self.folder = both / "here"
        self.start("first.csv")
        self.expect_window("first.csv - Gridwright")
        self.folder = both / "there"
        self.expect_end(self.start("same.csv"))
        self.expect_window("same.csv - Gridwright")
        self.press("x", "Return", "ctrl+s")
        self.expect_file("same.csv", b"x\n")
        self.folder = both
        self.assertEqual(self.read("here/same.csv"), b"here\n")

    def test_largest_numbers_leave_the_window_on_the_screen(self):
        self.write("a.csv", b"1,2\n")
        largest = str(2**31 - 1)
        self.start("-w", largest, "-h", largest, "-x", largest, "-y", largest, "a.csv")
        self.expect_window("a.csv - Gridwright")

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
