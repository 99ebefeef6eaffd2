"""The launcher as a person sees it: opened, filtered, left, and a command run through it."""

from harness import DesktopTest


class Launcher(DesktopTest):
    size = ("-w", "1000", "-h", "640")

    def setUp(self):
        super().setUp()
        rows = b"".join(b"part %d,%d,store %d,%d\n" % (i, i * 7, i % 5, i * 31) for i in range(60))
        self.write("a.csv", b"name,price,store,stock\n" + rows)
        self.start("a.csv", *self.size)
        self.expect_window("a.csv - Gridwright")

    def test_a_command_is_found_and_run(self):
        self.press("ctrl+l")
        self.expect(launcher="")
        every = self.state()["options"]
        self.screenshot("launcher-empty")
        self.type("ins row bef")
        self.expect(launcher="ins row bef", answer="Data/Insert: Insert Row(s) Before")
        self.assertLess(self.state()["options"], every)
        self.screenshot("launcher-query")
        self.press("Return")
        self.expect(launcher=None)
        self.press("ctrl+s")
        self.wait_for(lambda: self.read("a.csv").startswith(b",,,\nname,price"), lambda: "no row inserted")

    def test_escape_leaves_everything_as_it_was_and_the_table_takes_keys(self):
        self.press("ctrl+l")
        self.type("remove row")
        self.expect(launcher="remove row")
        self.screenshot("launcher-ranked")
        self.press("Escape")
        self.expect(launcher=None, changed=False)
        self.type("x")
        self.press("Return", "ctrl+s")
        self.wait_for(lambda: self.read("a.csv").startswith(b"x,price"), lambda: "the table did not get the key")


class LauncherInANarrowWindow(Launcher):
    size = ("-w", "400", "-h", "500")

    def screenshot(self, name):
        super().screenshot(name.replace("launcher-", "launcher-narrow-"))
