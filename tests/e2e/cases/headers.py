"""Labels that select, sort and resize, and frozen rows and columns that stay and keep in step with the body."""

import subprocess

from harness import DesktopTest

# Pixels in the window: the middle of the column labels, the first cell's corner, and the sizes of rows and columns. Row
# labels of four digits are wider.
LABELS, TOP, LEFT, WIDE_LEFT, ROW, COLUMN = 66, 79, 32, 47, 24, 80
WIDTH, HEIGHT = 900, 500


def label(col):
    return LEFT + COLUMN * col + COLUMN // 2, LABELS


class Headers(DesktopTest):
    def open(self, content, **settings):
        self.set("Auto-Fit Column Width", "false")
        for name, value in settings.items():
            self.set(name.replace("_", " "), value)
        self.write("a.csv", content)
        self.start("a.csv", "-w", WIDTH, "-h", HEIGHT, "-x", "30", "-y", "30")
        self.expect_window("a.csv - Gridwright")

    def save_and_expect(self, content):
        self.press("ctrl+s")
        self.expect_file("a.csv", content)

    def picture(self, window):
        return subprocess.run(["import", "-window", window, "-depth", "8", "rgb:-"], env=self.environment, check=True,
                              stdout=subprocess.PIPE).stdout

    def pixels(self, picture, left, top, width, height):
        """The rows of pixels of a part of a picture of the window."""
        first = top * WIDTH + left
        return [picture[3 * (first + y * WIDTH):][:3 * width] for y in range(height)]

    def scroll_and_compare(self, path, compare):
        """Drags along a path; compare(picture) holds in each picture that is taken meanwhile. Returns how many
        pictures differ."""
        start, end = path
        window = self._xdotool("getactivewindow")
        step = lambda part: [str(round(a + (b - a) * part / 150)) for a, b in zip(start, end)]
        moves = [word for part in range(150) for word in ("mousemove", "--window", window, *step(part), "sleep", "0.02")]
        first = ["mousemove", "--window", window, *step(0), "mousedown", "1"]
        drag = subprocess.Popen(["xdotool", *first, *moves, "mouseup", "1"], env=self.environment)
        seen = []
        while drag.poll() is None:
            seen.append(self.picture(window))
        seen.append(self.picture(window))
        self.screenshot(f"headers-scrolled-{end[0]}-{end[1]}")
        for picture in seen:
            compare(picture)
        return len(set(seen))

    def test_labels_select_and_sort(self):
        self.open(b"name,n,x\nb,2,p\nc,3,q\na,1,r\n")
        for order in (b"a,1,r\nb,2,p\nc,3,q\n", b"c,3,q\nb,2,p\na,1,r\n", b"a,1,r\nb,2,p\nc,3,q\n"):
            self.click(*label(1), count=2)
            self.wait_for(lambda: self.press("ctrl+s") or self.read("a.csv") == b"name,n,x\n" + order,
                          lambda: f"not sorted: {self.read('a.csv')!r}")
        self.screenshot("headers-sorted")
        self.drag(label(1), label(1), label(2), label(2))
        self.screenshot("headers-selected")
        self.press("Delete")
        self.save_and_expect(b"name,,\na,,\nb,,\nc,,\n")

    def test_an_edge_of_a_label_resizes_in_the_body_and_in_a_band(self):
        self.open(b"a,b,c\nd,e,f\n", Freeze_Header_Columns="true", Number_of_Header_Columns="1")
        edge = LEFT + COLUMN - 2
        # First column 0 by the label in its band, then column 1.
        self.drag((edge, LABELS), (edge + 20, LABELS), (edge + COLUMN, LABELS))
        self.drag((edge + 2 * COLUMN, LABELS), (edge + 2 * COLUMN - 20, LABELS), (edge + COLUMN + 40, LABELS))
        self.screenshot("headers-resized")
        for col, x in enumerate((edge + COLUMN - 8, edge + COLUMN + 30, edge + COLUMN + 50)):
            self.click(x, TOP + ROW + ROW // 2)
            self.type(str(col))
            self.press("Return")
        self.save_and_expect(b"a,b,c\n0,1,2\n")

    def test_frozen_rows_stay_and_bands_never_part_from_the_body(self):
        # Every cell of a row says the same, then every cell of a column: bands and body must look alike.
        plain = {"Highlight_Header_Rows": "false", "Highlight_Header_Columns": "false"}
        rows = b"".join(b"%d,%d,%d\n" % (row, row, row) for row in range(3000))
        self.open(rows, Freeze_Header_Columns="true", Number_of_Header_Columns="1", **plain)
        band = lambda picture: self.pixels(picture, WIDE_LEFT, TOP, 3 * COLUMN, ROW - 2)
        before = band(self.picture(self._xdotool("getactivewindow")))

        def same_rows(picture):
            self.assertTrue(band(picture) == before, "the frozen row moves")
            parts = [self.pixels(picture, WIDE_LEFT + COLUMN * col + 3, TOP + ROW + 4, COLUMN - 6, 300) for col in (0, 1)]
            self.assertTrue(parts[0] == parts[1], "the frozen column is not where the body is")

        views = self.scroll_and_compare(((WIDTH - 7, TOP), (WIDTH - 7, 300)), same_rows)
        self.assertGreater(views, 5)

    def test_a_frozen_row_scrolls_sideways_with_the_body(self):
        line = b",".join(b"%d" % col for col in range(300)) + b"\n"
        self.open(line * 3, Highlight_Header_Rows="false")

        def same_columns(picture):
            # Row 0 is the band. Both parts lie beside the main cell.
            parts = [self.pixels(picture, LEFT + COLUMN, TOP + ROW * row + 2, 600, ROW - 5) for row in (0, 1)]
            self.assertTrue(parts[0] == parts[1], "the frozen row is not where the body is")

        bottom = HEIGHT - 35
        views = self.scroll_and_compare(((LEFT - 20, bottom), (600, bottom)), same_columns)
        self.assertGreater(views, 5)
