#pragma once

#include "view/AbstractTableView.h"

class Theme;

/// A band of header rows or columns that stays in sight over the main view. What is done in it is done to the main
/// view, which listens to its signals. It has no model until it is first shown: the headers of each view cost time and
/// memory by the rows of the table.
class FrozenTableView : public AbstractTableView {
    Q_OBJECT

public:
    /// At the ends of a band of rows and above and below a band of columns, in pixels.
    static constexpr int borderWidth = 1;

    FrozenTableView(TableType type, QWidget* parent);

    bool showsRows() const { return getTableType() != TableType::VerticalFrozen; }
    bool showsCols() const { return getTableType() != TableType::HorizontalFrozen; }
    /// How many rows or columns the band shows. A drag along its labels ends there.
    void setNumRows(int count);
    void setNumCols(int count);
    int getNumRows() const { return numRows; }
    /// Shows the table of `main`.
    void takeModelOf(AbstractTableView const& main);
    bool hasModel() const { return tableModel() != nullptr; }
    /// Lays headers and scroll bars out by the sizes of rows and columns.
    void relayOut();
    /// Brings an axis to where the bar of the main view is, also past the band's own end.
    void follow(Axis axis, QScrollBar const& bar);
    void setTheme(Theme const& theme);

    /// One of the lines that the band is for, also for a point on its edge, where another line shows a little.
    Range cellAtPos(int x, int y) const override;
    using AbstractTableView::cellAtPos;
    void moveSelectionRelative(int rows, int cols) override;
    /// Does nothing: only the main view jumps.
    void moveSelectionAbsolute(int row, int col) override;

signals:
    void moveSelectionRelativeSignal(int rows, int cols);

private:
    int numRows = 0;
    int numCols = 0;
};
