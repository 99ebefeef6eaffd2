#pragma once

#include "core/CellRegion.h"
#include "model/LeftOutCells.h"

#include <QString>

#include <memory>

class QUndoCommand;
class TableModel;

/// An edit of the selected cells from its first character to its undo command. While it is pending all cells show its
/// text, but the data stay as they are; at the end one command is made that writes the last text. Lives as long as the
/// edit is pending, and refers to the model.
class CellEdit {
public:
    /// Remembers the selection and the main cell.
    explicit CellEdit(TableModel& model);

    Range const& mainRange() const { return editMainRange; }
    /// Whether `cell` (Model) is the main cell of the edit.
    bool isAt(Range const& cell) const { return cell.row == editMainRange.row && cell.col == editMainRange.col; }
    RangeSet const& ranges() const { return editRanges; }
    bool isTextChanged() const { return cellTextChanged; }
    bool isMultiCell() const { return !editRanges.isSingleCell(); }
    QString const& text() const { return lastText; }

    /// Shows `text` in all cells of the edit; with `skipMainCell` in all others, for the main cell is under an editor.
    void setText(QString const& text, bool skipMainCell);
    /// Takes back what setText() has shown. The edit is over.
    void revert();
    /// As revert(), and returns the command that writes the text, null if no cell would hold another text than before.
    /// It leaves cells out that were taken out of the ranges, or changes them as it was shown.
    std::unique_ptr<QUndoCommand> finish(LeftOut leftOut = LeftOut::Change);

private:
    std::unique_ptr<QUndoCommand> commandThatKeepsBytes() const;

    TableModel& model;
    RangeSet editRanges; ///< with the main cell
    CellRegion cells;    ///< as far as the grid goes
    Range editMainRange;
    QString lastText;
    bool cellTextChanged = false;
};
