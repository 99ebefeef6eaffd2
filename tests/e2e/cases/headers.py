"""Labels that select, sort and resize, and frozen rows and columns that stay and keep in step with the body."""

from harness import DesktopTest, inner


class Headers(DesktopTest):
    def open(self, content, **settings):
        self.set("Auto-Fit Column Width", "false")
        for name, value in settings.items():
            self.set(name.replace("_", " "), value)
        self.write("a.csv", content)
        self.start("a.csv", "-w", "900", "-h", "500", "-x", "30", "-y", "30")
        self.expect_window("a.csv - Gridwright")

    def save_and_expect(self, content):
        self.press("ctrl+s")
        self.expect_file("a.csv", content)

    def scroll_and_compare(self, axis, pixels):
        """Drags the handle of a scroll bar to its end and back. After each move all that pixels() gives comes to look
        alike. Returns how many different pictures there were."""
        handle, (x, y, width, height) = self.scroll_bar(axis)
        steps, seen = 25, set()
        with self.dragging(handle) as move:
            for step in [*range(1, steps + 1), *range(steps, 0, -2)]:
                move((x, y + height * step // steps, width, 1) if axis == "rows" else
                     (x + width * step // steps, y, 1, height))
                self.expect()
                self.wait_for(lambda: len(set(pixels())) == 1, lambda: "a band is not where the body is")
                seen.add(pixels()[0])
        self.screenshot(f"headers-scrolled-{axis}")
        return len(seen)

    def test_labels_select_and_sort(self):
        self.open(b"name,n,x\nb,2,p\nc,3,q\na,1,r\n")
        for order in (b"a,1,r\nb,2,p\nc,3,q\n", b"c,3,q\nb,2,p\na,1,r\n", b"a,1,r\nb,2,p\nc,3,q\n"):
            self.click(self.label("columns", 1), count=2)
            self.expect_cell(1, 0, order[:1].decode())
            self.save_and_expect(b"name,n,x\n" + order)
        self.screenshot("headers-sorted")
        self.drag(self.label("columns", 1), self.label("columns", 1), self.label("columns", 2), self.label("columns", 2))
        self.screenshot("headers-selected")
        self.press("Delete")
        self.save_and_expect(b"name,,\na,,\nb,,\nc,,\n")

    def test_an_edge_of_a_label_resizes_in_the_body_and_in_a_band(self):
        self.open(b"a,b,c\nd,e,f\n", Freeze_Header_Columns="true", Number_of_Header_Columns="1")
        width = lambda col: self.label("columns", col)[2]
        plain = width(2)
        for col, change in ((0, 2 * plain), (1, plain // 2), (0, -plain)):  # column 0 by the label in its band
            x, *rest = self.label_edge("columns", col)
            before = width(col)
            self.drag((x, *rest), (x + change // 3, *rest), (x + change, *rest))
            self.assertEqual(width(col), before + change)
        self.assertEqual([width(0), width(1), width(2)], [2 * plain, plain + plain // 2, plain])
        self.screenshot("headers-resized")
        for col in range(3):
            self.click(self.cell(1, col))
            self.type(str(col))
            self.press("Return")
        self.save_and_expect(b"a,b,c\n0,1,2\n")

    def test_frozen_rows_stay_and_bands_never_part_from_the_body(self):
        # Every cell of a row says the same: the frozen column and the body must look alike.
        plain = {"Highlight_Header_Rows": "false", "Highlight_Header_Columns": "false"}
        rows = b"".join(b"%d,%d,%d\n" % (row, row, row) for row in range(3000))
        self.open(rows, Freeze_Header_Columns="true", Number_of_Header_Columns="1", **plain)
        self.click(self.cell(0, 2))
        band = [inner(self.cell(0, col)) for col in range(2)]
        before = self.picture(band[0])
        # What lies well below the frozen row.
        _, top, _, height = self.cell(2, 0)
        bottom = self.grid()[1] + self.grid()[3] - height
        columns = [(left, top, width, bottom - top) for left, _, width, _ in map(inner, (self.cell(2, 0), self.cell(2, 1)))]
        self.assertGreater(self.scroll_and_compare("rows", lambda: [self.picture(rect) for rect in columns]), 5)
        for rect in band:
            self.assertEqual(self.picture(rect), before, "the frozen row moves")

    def test_a_frozen_row_scrolls_sideways_with_the_body(self):
        # Every cell of a column says the same. Both parts lie beside the main cell.
        line = b",".join(b"%d" % col for col in range(300)) + b"\n"
        self.open(line * 4, Highlight_Header_Rows="false")
        self.click(self.cell(3, 0))
        column, grid = self.cell(0, 0)[2], self.grid()
        left, width = grid[0] + column, grid[2] - 2 * column
        rows = [(left, top, width, height) for _, top, _, height in map(inner, (self.cell(0, 0), self.cell(1, 0)))]
        self.assertGreater(self.scroll_and_compare("columns", lambda: [self.picture(rect) for rect in rows]), 5)

    def picture(self, rect):
        return b"".join(self.display.lines(rect))
