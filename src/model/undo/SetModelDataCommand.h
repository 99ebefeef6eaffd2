#pragma once

#include "model/undo/CellContentsCommand.h"

/// Writes new texts into cells, as typing and most operations on texts do. A Cell brings its text in `value`; a Row,
/// Column or Table brings texts in its vectors, with `value` for all cells beyond them.
class SetModelDataCommand : public CellContentsCommand {
public:
    /// With `useExtraCells` further cells are written, before the others.
    SetModelDataCommand(TableModel* model, RangeVector const& cells, RangeVector const& extraCells, bool useExtraCells,
                        bool changeSelection, QUndoCommand* parent = nullptr);
    SetModelDataCommand(TableModel* model, RangeVector const& cells, bool changeSelection,
                        QUndoCommand* parent = nullptr);
    /// Writes one text to all cells, which is kept once.
    SetModelDataCommand(TableModel* model, RangeSet const& cells, QString const& text, bool changeSelection,
                        LeftOut leftOut = LeftOut::Change, QUndoCommand* parent = nullptr);
};
