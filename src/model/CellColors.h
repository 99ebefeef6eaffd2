#pragma once

#include "appearance/Theme.h"
#include "model/Selection.h"

#include <QColor>

#include <optional>

/// What the options and the header settings of a table say about the colours of its cells.
struct CellColorOptions {
    bool shadeEveryOtherRow = false;
    bool shadeEveryOtherColumn = false;
    bool highlightMainCellRow = false;
    bool highlightMainCellColumn = false;
    bool highlightHeaderRows = true;
    bool highlightHeaderColumns = true;
    int headerRows = 1; ///< number of visible header rows
    int headerCols = 0;
};

/// Decides the background colour of a cell. Made for one cell of a repaint and refers to everything it reads, so it
/// costs nothing to make. Rows and columns are Model.
class CellColors {
public:
    CellColors(Theme const& theme, CellColorOptions const& options, Selection const& selection)
        : theme(theme), options(options), selection(selection) {}

    /// The colour of the main cell and of selected cells, the rectangle of a drag included; no value for a cell that
    /// is none of them.
    std::optional<QColor> selectionColor(int row, int col) const;
    /// The colour of a cell that is not selected: highlight, header or plain, each in the shade of the line, and over
    /// it the tint of the main cell's row and column.
    QColor surfaceColor(int row, int col, bool highlighted) const;

private:
    bool isHeader(int row, int col) const;
    bool isOnCrossLine(int row, int col) const;
    bool isInPendingRectangle(int row, int col) const;

    Theme const& theme;
    CellColorOptions const& options;
    Selection const& selection;
};

/// Mixes a share `alpha` of `over` into `base`, channel by channel and truncated, to an opaque colour; an invalid base
/// gives `over` itself. A channel above 255 gives an invalid colour.
QColor blendColors(QColor const& base, QColor const& over, float alpha);
