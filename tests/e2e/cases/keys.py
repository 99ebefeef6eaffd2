"""One walk at the keyboard: where each key leads, what is typed on the way, and what the file holds in the end."""

from harness import DesktopTest


class Keys(DesktopTest):
    def test_a_walk_through_a_table_ends_where_it_should_and_in_the_file(self):
        self.write("a.csv", b"id,name,note\n1,,x\n2,,x\n,,\n4,d,\n5,e,y\n")
        self.start("a.csv", "-w", "900", "-h", "500")
        self.expect_window("a.csv - Gridwright")
        for keys, row, col in [
            ("Down", 1, 0), ("Right Right", 1, 2),
            # To the end of a block, over a gap, along a row and back.
            ("ctrl+Down", 2, 2), ("ctrl+Down", 5, 2), ("ctrl+Left", 5, 0), ("ctrl+Up", 4, 0), ("ctrl+Up", 2, 0),
            # Enter returns to where the record began.
            ("Tab Tab", 2, 2), ("shift+Tab", 2, 1), ("Return", 3, 0),
            ("ctrl+End", 5, 0), ("ctrl+alt+End", 5, 2), ("alt+i", 4, 2), ("ctrl+alt+Home", 4, 0), ("Page_Up", 0, 0),
        ]:
            self.press(*keys.split())
            self.expect(mainCell=[row, col], selected=1, changed=False)
        self.press("Page_Down")
        self.expect(selected=1)
        self.assertGreater(self.state()["mainCell"][0], 5)
        self.press("ctrl+Home", "Down", "Right")
        self.type("new")
        self.expect(mainCell=[1, 1], editing=True)
        self.press("Return")
        self.type("b, c")
        self.press("Tab")
        self.expect(mainCell=[2, 2], editing=False, changed=True)
        self.press("shift+Down", "Delete")
        self.expect(mainCell=[2, 2], selected=2)
        self.expect_cell(2, 2, "")
        self.press("ctrl+z", "ctrl+z")
        self.expect_cell(2, 1, "")
        self.expect_cell(2, 2, "x")
        self.press("ctrl+y")
        self.expect_cell(2, 1, "b, c")
        self.press("ctrl+Home", "ctrl+alt+End", "Down", "Down")
        self.press("ctrl+shift+End")
        self.expect(selected=4)
        self.type("z")
        self.press("Return")
        self.press("ctrl+s")
        self.expect_file("a.csv", b'id,name,note\n1,new,x\n2,"b, c",z\n,,z\n4,d,z\n5,e,z\n')
        self.expect(mainCell=[3, 1], selected=4, changed=False)
