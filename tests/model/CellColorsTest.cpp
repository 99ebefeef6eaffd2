#include "model/CellColors.h"

namespace {

constexpr auto Model = RangeIndexType::Model;

struct Setting {
    CellColorOptions options;
    Selection selection;
    bool highlighted = false;
};

QColor colorOf(Setting const& setting, int row, int col) {
    Theme const theme;
    CellColors const colors(theme, setting.options, setting.selection);
    return colors.selectionColor(row, col).value_or(colors.surfaceColor(row, col, setting.highlighted));
}

void select(Selection& selection, int row, int col) {
    Range cell(row, col, Model);
    selection.setSelection(cell);
}

Setting withMainCell(int row, int col) {
    Setting setting;
    select(setting.selection, row, col);
    return setting;
}

TEST(CellColors, PrecedenceOfSurfaces) {
    using C = ThemeColor;
    struct Case {
        char const* what;
        bool highlighted, headerRows, headerCols;
        int row, col;
        C color;
    };
    // Every other row and column is shaded, with one header row and one header column; the main cell is far away.
    Case const cases[] = {
        {"plain", false, true, true, 2, 2, C::CellColor},
        {"odd row", false, true, true, 3, 2, C::CellShade1Color},
        {"odd column", false, true, true, 2, 3, C::CellShade1Color},
        {"both odd", false, true, true, 3, 3, C::CellShade2Color},
        {"header row", false, true, true, 0, 2, C::HeaderCellColor},
        {"header row, odd column", false, true, true, 0, 3, C::HeaderCellShade1Color},
        {"header column, odd row", false, true, true, 1, 0, C::HeaderCellShade1Color},
        {"header rows not shown", false, false, true, 0, 2, C::CellColor},
        {"header columns not shown", false, true, false, 2, 0, C::CellColor},
        {"highlight over header", true, true, true, 0, 2, C::HighlightedCellColor},
        {"highlight, odd row", true, true, true, 3, 2, C::HighlightedCellShade1Color},
        {"highlight, both odd", true, true, true, 3, 3, C::HighlightedCellShade2Color},
        {"main cell over highlight", true, true, true, 9, 9, C::MainCellColor},
    };
    for (Case const& each : cases) {
        Setting setting = withMainCell(9, 9);
        setting.options = {true, true, false, false, each.headerRows, each.headerCols, 1, 1};
        setting.highlighted = each.highlighted;
        EXPECT_EQ(colorOf(setting, each.row, each.col), Theme().color(each.color)) << each.what;
    }
}

TEST(CellColors, SelectionAndDragRectangle) {
    Theme const theme;
    Setting setting = withMainCell(1, 1);
    Range row(4, RangeType::Row, Model);
    row.col = 2;
    row.setExcludedCols({5});
    setting.selection.addCellToSelection(row);
    EXPECT_EQ(colorOf(setting, 1, 1), theme.getMainCellColor());
    EXPECT_EQ(colorOf(setting, 4, 2), theme.getSelectedCellColor());
    EXPECT_EQ(colorOf(setting, 4, 1), theme.getCellColor());
    EXPECT_EQ(colorOf(setting, 4, 5), theme.getCellColor());

    Range start(8, 8, Model);
    setting.selection.setPendingCorners(start, Range(RangeType::None));
    EXPECT_EQ(colorOf(setting, 8, 8), theme.getSelectedCellColor());
    EXPECT_EQ(colorOf(setting, 7, 7), theme.getCellColor());
    start.hasMainCell = true;
    setting.selection.setPendingCorners(start, Range(6, 7, Model));
    EXPECT_EQ(colorOf(setting, 8, 8), theme.getMainCellColor());
    EXPECT_EQ(colorOf(setting, 7, 7), theme.getSelectedCellColor());
    EXPECT_EQ(colorOf(setting, 6, 9), theme.getCellColor());
}

TEST(CellColors, LineOfTheMainCellTintsOnlyAroundASingleCell) {
    Theme const theme;
    // #222222 with 15 % of #770077, truncated: 34 * 0.85 + 119 * 0.15 = 46.75, and 28.9 without green.
    QColor const tinted(46, 28, 46);
    Setting setting = withMainCell(2, 2);
    setting.options.headerRows = 0;
    EXPECT_EQ(colorOf(setting, 2, 5), theme.getCellColor());
    setting.options.highlightMainCellRow = true;
    EXPECT_EQ(colorOf(setting, 2, 5), tinted);
    EXPECT_EQ(colorOf(setting, 5, 2), theme.getCellColor());
    setting.options.highlightMainCellColumn = true;
    EXPECT_EQ(colorOf(setting, 5, 2), tinted);
    EXPECT_EQ(colorOf(setting, 2, 2), theme.getMainCellColor());

    setting.selection.setPendingCorners(Range(2, 2, Model), Range(2, 2, Model));
    EXPECT_EQ(colorOf(setting, 5, 2), tinted);
    setting.selection.setPendingCorners(Range(2, 2, Model), Range(3, 2, Model));
    EXPECT_EQ(colorOf(setting, 5, 2), theme.getCellColor());
    setting.selection.setPendingCorners(Range(RangeType::None), Range(RangeType::None));
    setting.selection.addCellToSelection(Range(9, 9, Model));
    EXPECT_EQ(colorOf(setting, 5, 2), theme.getCellColor());
}

TEST(CellColors, BlendTruncatesAndReportsOverflow) {
    QColor const over(119, 0, 119, 40);
    EXPECT_EQ(blendColors(QColor(), over, 0.15F), over);
    EXPECT_EQ(blendColors(QColor(34, 34, 34), over, 0.15F), QColor(46, 28, 46));
    EXPECT_FALSE(blendColors(QColor(255, 0, 0), QColor(0, 0, 0), -1.0F).isValid());
}

} // namespace
