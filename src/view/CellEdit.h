#pragma once

#include "core/RangeVector.h"

#include <QString>

#include <memory>

class QUndoCommand;
class TableModel;

/// An edit of the selected cells from its first character to its undo command. Every text goes into the model at once,
/// provisionally; at the end the old texts are put back and one command is made that writes the last text. Lives as
/// long as the edit is pending, and refers to the model.
class CellEdit {
public:
    /// Remembers the selection and the main cell, and the texts that they hold. With `overwrite` the edit replaces the
    /// main cell's text instead of extending it.
    CellEdit(TableModel& model, bool overwrite);

    Range const& mainRange() const { return editMainRange; }
    RangeVector const& ranges() const { return editRanges; }
    bool isOverwrite() const { return overwriteEdit; }
    bool isTextChanged() const { return cellTextChanged; }
    bool isMultiCell() const { return editRanges.size() > 1 || editRanges.front().type != RangeType::Cell; }

    /// Shows `text` in all cells of the edit; with `skipMainCell` in all others, for the main cell is under an editor.
    void setText(QString const& text, bool skipMainCell);
    /// Takes back what setText() has shown. The edit is over.
    void revert();
    /// As revert(), and returns the command that writes the text, null if no cell would hold another text than before.
    std::unique_ptr<QUndoCommand> finish();

private:
    bool rangeHasValueChange(Range const& range) const;

    TableModel& model;
    RangeVector editRanges;
    Range editMainRange;
    bool overwriteEdit;
    bool cellTextChanged = false;
    int rawRows; ///< of the data before the edit
    int rawCols;
};
