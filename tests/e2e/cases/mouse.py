"""Presses, drags, double clicks and menus in the grid, and a cell too long to edit in place."""

from harness import DesktopTest


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
        self.drag(self.cell(1, 1), self.cell(1, 2), self.cell(2, 2))
        self.expect(selected=4, mainCell=[1, 1])
        self.screenshot("mouse-drag")
        self.press("Delete")
        self.save_and_expect(b"a,b,c\nd,,\ng,,\n")
        self.click(self.cell(0, 1), count=2)
        self.expect(editing=True, mainCell=[0, 1])
        self.type("+")
        self.press("Return")
        self.save_and_expect(b"a,b+,c\nd,,\ng,,\n")

    def test_a_drag_past_the_edge_scrolls_and_selects_on(self):
        rows = 200
        self.open(b"x,y\n" * rows)
        first = 2
        start = self.cell(first, 0)
        below = lambda step: (start[0], self.display.height - 1 - step % 2, 1, 1)
        self.drag(start, *(below(step) for step in range(30)))
        self.screenshot("mouse-drag-past-edge")
        state = self.state()
        self.assertGreater(state["scroll"][0], 0)
        last = first + state["selected"]  # may be behind the data
        self.assertGreater(last, 40)
        self.press("Delete")
        self.save_and_expect(b"x,y\n" * first + b",y\n" * (min(last, rows) - first) + b"x,y\n" * (rows - last))

    def test_the_context_menu_offers_what_can_be_done(self):
        self.open(b"a,b\nc,d\n")
        self.click(self.cell(1, 0), button=3)
        self.click(self.entry("Insert Row(s) Before"))
        self.save_and_expect(b"a,b\n,\nc,d\n")
        self.click(self.cell(1, 0), button=3)
        self.entry("Insert Row(s) Before")
        self.screenshot("context-menu")
        self.press("Escape")
        self.expect(entries=None)
        self.save_and_expect(b"a,b\n,\nc,d\n")

    def test_a_long_cell_asks_for_the_pane(self):
        text = b"0123456789" * 4000
        self.open(text + b",short\n")
        self.press("F2")
        self.expect_message("large")
        self.screenshot("large-cell-question")
        self.press("alt+o")
        self.expect_window("a.csv - Gridwright")
        self.expect(pane=True, editing=True, focus="EditorPane")
        self.type("<")
        self.press("Escape")
        self.screenshot("large-cell-in-pane")
        self.save_and_expect(b"<" + text + b",short\n")
        self.press("ctrl+z")
        self.save_and_expect(text + b",short\n")
