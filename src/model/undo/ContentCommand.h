#pragma once

#include "core/Enumerations.h"
#include "model/undo/TableUndoCommand.h"

/// The frame of a command that changes what a table holds: a subclass makes its change and takes it back, the frame
/// keeps the size of the grid in step, takes sort marks away and brings them back, and saves if the user wants a save
/// after each edit. Whatever the table grew by, undo takes away again.
class ContentCommand : public TableUndoCommand {
public:
    using TableUndoCommand::TableUndoCommand;

    bool changesCells() const override { return true; }
    void undo() final;
    void redo() final;

protected:
    /// Makes the change and sets the selection.
    virtual void apply() = 0;
    /// Takes the change back and sets the selection. Lines that were added at the end may stay.
    virtual void revert() = 0;
    /// The cells, Raw and as of the end of apply(), whose new texts the table's encoding cannot carry.
    virtual CellRegion lostCharacters() const { return {}; }

private:
    void removeSurplus(Axis axis, int rawCount);
    void announce();
};
