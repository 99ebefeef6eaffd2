#pragma once

#include "view/AbstractTableView.h"

/// A band of header rows or columns that stays in sight over the main view. What is done in it is done to the main
/// view, which listens to its signals. To be given the model when it is first shown and not before: the headers of each
/// view cost time and memory by the rows of the table.
class FrozenTableView : public AbstractTableView {
    Q_OBJECT

public:
    FrozenTableView(TableType type, QWidget* parent);

    /// How many rows or columns the band shows.
    void setNumRows(int count) { numRows = count; }
    void setNumCols(int count) { numCols = count; }
    int getNumRows() const { return numRows; }
    int getNumCols() const { return numCols; }

    void moveSelectionRelative(int rows, int cols) override;
    /// Does nothing: only the main view jumps.
    void moveSelectionAbsolute(int row, int col) override;

signals:
    void moveSelectionRelativeSignal(int rows, int cols);

private:
    int numRows = 0;
    int numCols = 0;
};
