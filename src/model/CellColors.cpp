#include "model/CellColors.h"

#include <algorithm>

namespace {

bool isSet(Range const& corner) {
    return corner.row != -1 && corner.col != -1;
}

bool isAt(Range const& cell, int row, int col) {
    return cell.row == row && cell.col == col;
}

bool isBetween(int value, int a, int b) {
    return value >= std::min(a, b) && value <= std::max(a, b);
}

/// The plain colour of each surface and its two shades, in this order.
constexpr ThemeColor cellShades[] = {ThemeColor::CellColor, ThemeColor::CellShade1Color, ThemeColor::CellShade2Color};
constexpr ThemeColor headerShades[] = {ThemeColor::HeaderCellColor, ThemeColor::HeaderCellShade1Color,
                                       ThemeColor::HeaderCellShade2Color};
constexpr ThemeColor highlightShades[] = {ThemeColor::HighlightedCellColor, ThemeColor::HighlightedCellShade1Color,
                                          ThemeColor::HighlightedCellShade2Color};

} // namespace

std::optional<QColor> CellColors::selectionColor(int row, int col) const {
    Range const& mainCell = selection.mainCell();
    if (mainCell.type == RangeType::Cell && isAt(mainCell, row, col))
        return theme.getMainCellColor();
    if (selection.coversCell(row, col))
        return theme.getSelectedCellColor();
    Range const& start = selection.pendingCornerStart();
    if (!isSet(start))
        return std::nullopt;
    if (isAt(start, row, col) && start.hasMainCell)
        return theme.getMainCellColor();
    if (isInPendingRectangle(row, col))
        return theme.getSelectedCellColor();
    return std::nullopt;
}

QColor CellColors::surfaceColor(int row, int col, bool highlighted) const {
    bool const oddRow = options.shadeEveryOtherRow && row % 2 != 0;
    bool const oddCol = options.shadeEveryOtherColumn && col % 2 != 0;
    auto const& shades = highlighted ? highlightShades : isHeader(row, col) ? headerShades : cellShades;
    QColor const color = theme.color(shades[int(oddRow) + int(oddCol)]);
    if (!isOnCrossLine(row, col))
        return color;
    return blendColors(color, theme.getTranslucentMainCellColor(), theme.getLineBlendFactor());
}

bool CellColors::isHeader(int row, int col) const {
    return (options.highlightHeaderRows && row < options.headerRows) ||
           (options.highlightHeaderColumns && col < options.headerCols);
}

bool CellColors::isOnCrossLine(int row, int col) const {
    bool const onLine = (options.highlightMainCellRow && row == selection.mainCell().row) ||
                        (options.highlightMainCellColumn && col == selection.mainCell().col);
    if (!onLine || selection.isSelectionMultiCell())
        return false;
    Range const& start = selection.pendingCornerStart();
    Range const& end = selection.pendingCornerEnd();
    if (!isSet(start) && !isSet(end))
        return true;
    return start == selection.mainCell() && (!isSet(end) || end == start);
}

bool CellColors::isInPendingRectangle(int row, int col) const {
    Range const& start = selection.pendingCornerStart();
    Range const& end = selection.pendingCornerEnd();
    if (!isSet(end))
        return isAt(start, row, col);
    return isBetween(row, start.row, end.row) && isBetween(col, start.col, end.col);
}

QColor blendColors(QColor const& base, QColor const& over, float alpha) {
    if (!base.isValid())
        return over;
    auto const mix = [alpha](int from, int to) { return int(float(from) * (1.0F - alpha) + float(to) * alpha); };
    int const red = mix(base.red(), over.red());
    int const green = mix(base.green(), over.green());
    int const blue = mix(base.blue(), over.blue());
    if (std::max({red, green, blue}) > 255)
        return {};
    return QColor(red, green, blue);
}
