"""The sample tables open from the command line, each in a tab, and a second open of one goes to its tab."""

import shutil

from harness import HERE, DesktopTest

SAMPLES = HERE.parent.parent / "samples"


class Samples(DesktopTest):
    def test_all_open_and_show(self):
        names = sorted(path.name for path in SAMPLES.iterdir() if path.suffix != ".md")
        for name in names:
            shutil.copy(SAMPLES / name, self.folder)
        self.start("-w", "1100", "-h", "640", "-x", "40", "-y", "40", *names)
        self.expect_window(f"{names[0]} - Gridwright")
        self.screenshot("samples-first")
        for name in reversed(names):
            self.expect_end(self.start(name))
            self.expect_window(f"{name} - Gridwright")
            self.expect(file=name, changed=False)
        for name in names:
            self.assertEqual(self.read(name), (SAMPLES / name).read_bytes(), f"{name} was changed by opening it")
