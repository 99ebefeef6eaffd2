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
