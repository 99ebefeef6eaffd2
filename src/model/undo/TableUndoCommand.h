#pragma once

#include "core/SortData.h"
#include "model/RangeSet.h"

#include <QUndoCommand>

class TableModel;

/// The base of every undoable change of a table: which cells it concerns, what is selected after it and after its undo,
/// and by what the table was sorted before. Made for a model in the state that the change starts from; pushing it on
/// the table's undo stack carries it out. Commands never merge, and their text is their class name.
class TableUndoCommand : public QUndoCommand {
public:
    explicit TableUndoCommand(QUndoCommand* parent = nullptr);
    TableUndoCommand(TableModel* model, QUndoCommand* parent);
    TableUndoCommand(TableModel* model, bool changeSelection, QUndoCommand* parent);
    /// With `changeSelection` the cells are also what is selected after redo and undo.
    TableUndoCommand(TableModel* model, RangeSet const& cells, bool changeSelection, QUndoCommand* parent);
    /// With `changeSelection` redo selects `cells` and undo `oldCells`.
    TableUndoCommand(TableModel* model, RangeSet const& cells, RangeSet const& oldCells, bool changeSelection,
                     QUndoCommand* parent);

    /// Whether it writes cells or inserts, removes or moves lines, which a read-only table refuses.
    virtual bool changesCells() const { return false; }

    /// What redo selects, in any index space and as a model keeps its selection: offsets of the main cell count from
    /// the start of its range.
    void setSelectionCells(RangeSet const& cells);
    /// The same, and what undo selects. An empty `oldCells` makes undo select `cells` too.
    void setSelectionCells(RangeSet const& cells, RangeSet const& oldCells);

protected:
    void clearModelRowSortData();
    void clearModelColSortData();
    void restoreRowSortDataToModel();
    void restoreColSortDataToModel();
    /// Select what belongs to redo or to undo, if the command changes the selection.
    void selectNewCells();
    void selectOldCells();
    /// Has the whole grid painted anew.
    void refreshView();

    TableModel* model = nullptr;
    RangeSet cells; ///< Model
    bool changeSelection = true;
    bool firstRedo = true; ///< until the change has been made once
    SortData rowSortData;  ///< of the model when the command was made
    SortData colSortData;
    int rowsAdded = 0; ///< Raw, by the last redo; negative for rows that it took away
    int colsAdded = 0;
    RangeSet newSelection; ///< Model
    RangeSet oldSelection; ///< Model

private:
    void retainModelRowSortData();
    void retainModelColSortData();
    void select(RangeSet const& ranges);
};
