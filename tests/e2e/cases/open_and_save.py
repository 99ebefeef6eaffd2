"""A file named on the command line opens in a window of its name, and ctrl+s writes it back."""

from harness import DesktopTest


class OpenAndSave(DesktopTest):
    def test_a_save_keeps_the_cells_and_applies_the_line_ending(self):
        self.write("a.csv", b'part,price\r\n"hinge, brass",4.50\r\nlatch,"1 ""long"""\r\n')
        self.start("a.csv")
        self.expect_window("a.csv - Gridwright")
        self.press("ctrl+s")
        self.expect_message("lines ending with CRLF", "saved with lines ending with LF")
        self.press("alt+s")  # "Save as Set"
        self.expect_file("a.csv", b'part,price\n"hinge, brass",4.50\nlatch,"1 ""long"""\n')
