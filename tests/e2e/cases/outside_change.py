"""Another program changes, replaces or deletes an open file, or the disk no longer takes it."""

import os
import resource

from harness import DesktopTest


class OutsideChange(DesktopTest):
    def setUp(self):
        super().setUp()
        self.write("a.csv", b"1,2\n")
        self.start("a.csv", "-w", "900", "-h", "500")
        self.expect_window("a.csv - Gridwright")

    def edit(self, text):
        self.type(text)
        self.press("Return")

    def save_edit_and_expect(self, content):
        """Types into the second cell and saves: what else the file holds then is what the table took over."""
        self.click(self.cell(0, 1))
        self.expect(mainCell=[0, 1])
        self.edit("mine")
        self.press("ctrl+s")
        self.expect_file("a.csv", content)

    def test_writes_and_replacements_are_read_again(self):
        self.write("a.csv", b"outside,2\n")
        self.expect_cell(0, 0, "outside")
        os.replace(self.write("b.csv", b"replaced,2\n"), self.folder / "a.csv")
        self.expect_cell(0, 0, "replaced")
        self.write("a.csv", b"after that,2\n")
        self.expect_cell(0, 0, "after that")
        self.save_edit_and_expect(b"after that,mine\n")

    def test_unsaved_edits_are_asked_about(self):
        for answer, expected in (("Ignore", "edit Ignore"), ("Reload", "theirs Reload")):
            with self.subTest(answer):
                self.click(self.cell(0, 0))
                self.expect(mainCell=[0, 0])
                self.edit(f"edit {answer}")
                self.expect_cell(0, 0, f"edit {answer}")
                self.write("a.csv", f"theirs {answer},2\n".encode())
                self.expect_message("changed externally")
                self.screenshot("outside-change-question")
                self.click(self.button(answer))  # keys count only when they have been still for a moment
                self.expect_window("a.csv - Gridwright")
                self.expect_cell(0, 0, expected)
                self.save_edit_and_expect(f"{expected},mine\n".encode())

    def test_a_deleted_file_takes_its_tab_along_and_its_last_contents_can_be_had_back(self):
        self.edit("x")
        (self.folder / "a.csv").unlink()
        self.expect_window("untitled - Gridwright")
        self.screenshot("outside-change-file-gone")
        self.button("Open Last Contents")
        self.press("alt+o")
        self.expect_cell(0, 0, "x")
        self.press("ctrl+s")
        self.expect_window("Save File")
        self.type(self.folder / "b.csv")
        self.press("Return")
        self.expect_file("b.csv", b"x,2\n")


class FailedSave(DesktopTest):
    text = b"0123456789" * 20000

    def setUp(self):
        super().setUp()
        self.write("a.csv", self.text + b",2\n")

    def start_and_edit(self):
        # A write beyond the limit is to fail, not to end the program, and nothing is to be allowed because root asks.
        program = self.start("a.csv", "-w", "900", "-h", "500", before=self.without_privilege(),
                             restore_signals=False)
        self.expect_window("a.csv - Gridwright")
        self.press("Right")
        self.type("mine")
        self.press("Return")
        return program

    def without_privilege(self):
        """For root nothing is forbidden, unless it has given that up. It still runs the program wherever that is."""
        return ["setpriv", "--bounding-set", "-dac_override"] if os.geteuid() == 0 else []

    def fail_and_save_later(self, name, repair):
        self.press("ctrl+s")
        self.expect_message("a.csv")
        self.screenshot(f"failed-save-{name}")
        self.assertEqual(self.read("a.csv"), self.text + b",2\n")
        self.assertEqual([path.name for path in self.folder.iterdir()], ["a.csv"])
        self.press("Return")
        self.expect_window("a.csv - Gridwright")
        self.press("ctrl+w")
        self.expect_message("a.csv")
        self.press("alt+c")
        self.expect_window("a.csv - Gridwright")
        repair()
        self.press("ctrl+s")
        self.expect_file("a.csv", self.text + b",mine\n")

    def test_a_disk_without_room(self):
        program = self.start_and_edit()
        limits = resource.prlimit(program.pid, resource.RLIMIT_FSIZE)
        resource.prlimit(program.pid, resource.RLIMIT_FSIZE, (len(self.text) // 2, limits[1]))
        self.fail_and_save_later("full", lambda: resource.prlimit(program.pid, resource.RLIMIT_FSIZE, limits))

    def test_a_file_and_folder_that_may_no_longer_be_written(self):
        self.start_and_edit()
        os.chmod(self.folder / "a.csv", 0o444)
        os.chmod(self.folder, 0o555)

        def repair():
            os.chmod(self.folder, 0o755)
            os.chmod(self.folder / "a.csv", 0o644)

        self.addCleanup(os.chmod, self.folder, 0o755)
        self.fail_and_save_later("forbidden", repair)
