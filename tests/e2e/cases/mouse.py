"""Presses, drags, double clicks and menus in the grid, and a cell too long to edit in place."""

from harness import DesktopTest

# Where the middle of a cell lies in the window: rows of 24 and columns of 80 pixels behind bars and headers.
TOP, LEFT, ROW, COLUMN = 91, 72, 24, 80


def cell(row, col):
    return LEFT + COLUMN * col, TOP + ROW * row


class Mouse(DesktopTest):
    def setUp(self):
        super().setUp()
        self.set("Auto-Fit Column Width", "false")

    def open(self, content):
        self.write("a.csv", content)
        self.start("a.csv", "-w", "900", "-h", "500", "-x", "30", "-y", "30")
        self.expect_window("a.csv - Gridwright")

    def save_and_expect(self, content):
        self.press("ctrl+s")
        self.expect_file("a.csv", content)

    def test_a_drag_selects_and_a_double_click_edits(self):
        self.open(b"a,b,c\nd,e,f\ng,h,i\n")
        self.drag(cell(1, 1), cell(1, 2), cell(2, 2))
        self.screenshot("mouse-drag")
        self.press("Delete")
        self.save_and_expect(b"a,b,c\nd,,\ng,,\n")
        self.click(*cell(0, 1), count=2)
        self.type("+")
        self.press("Return")
        self.save_and_expect(b"a,b+,c\nd,,\ng,,\n")

    def test_a_drag_past_the_edge_scrolls_and_selects_on(self):
        rows = 200
        self.open(b"x,y\n" * rows)
        x, y = cell(10, 0)
        self.drag((x, y), *((x, 600 + step % 2) for step in range(30)))
        self.screenshot("mouse-drag-past-edge")
        self.press("Delete", "ctrl+s")
        emptied = lambda: (self.read("a.csv") or b"").count(b"\n,y")
        self.wait_for(lambda: emptied() > 30, lambda: f"only {emptied()} cells were selected")

    def test_the_context_menu_offers_what_can_be_done(self):
        self.open(b"a,b\nc,d\n")
        self.click(*cell(1, 0), button=3)
        self.screenshot("context-menu")
        self.press("Escape")
        self.save_and_expect(b"a,b\nc,d\n")

    def test_a_long_cell_asks_for_the_pane(self):
        text = b"0123456789" * 4000
        self.open(text + b",short\n")
        self.press("F2")
        self.expect_window("Gridwright")
        self.screenshot("large-cell-question")
        self.press("alt+o")
        self.expect_window("a.csv - Gridwright")
        self.type("<")
        self.press("Escape")
        self.screenshot("large-cell-in-pane")
        self.save_and_expect(b"<" + text + b",short\n")
        self.press("ctrl+z")
        self.save_and_expect(text + b",short\n")
