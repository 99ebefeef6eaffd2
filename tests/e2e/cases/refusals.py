"""What is no table is told in a message, the program goes on, and nothing on the disk changes."""

import os

from harness import DesktopTest


class Refusals(DesktopTest):
    def refuse(self, name):
        self.start(name)
        self.expect_message(name)
        self.screenshot(f"refusal-{name}")
        self.press("Return")
        self.expect_window("untitled - Gridwright")

    def test_a_folder(self):
        (self.folder / "folder.csv").mkdir()
        self.refuse("folder.csv")

    def test_a_fifo(self):
        os.mkfifo(self.folder / "fifo.csv")
        self.refuse("fifo.csv")

    def test_a_link_to_nothing(self):
        (self.folder / "link.csv").symlink_to("gone.csv")
        self.refuse("link.csv")

    def test_a_save_that_fails_leaves_the_table_and_the_file(self):
        path = self.write("a.csv", b"1,2\n")
        self.start("a.csv")
        self.expect_window("a.csv - Gridwright")
        path.unlink()
        path.mkdir()
        self.press("ctrl+s")
        self.expect_message("a.csv")
        self.screenshot("failed-save")
        self.press("Return")
        path.rmdir()
        self.press("ctrl+s")
        self.expect_file("a.csv", b"1,2\n")
