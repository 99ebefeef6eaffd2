#pragma once

#include "model/undo/ContentCommand.h"

/// A command that writes texts into cells, wherever the texts come from. Its `cells` hold the new texts, and the old
/// ones as they were when the command was made.
class CellContentsCommand : public ContentCommand {
protected:
    using ContentCommand::ContentCommand;

    /// Reads the texts that the cells have now, to be written back by undo.
    void retainContents();
    /// Makes `cells` write the texts of `sources` `rows` further down and `cols` further right; with `vacate` the
    /// places where they came from are emptied first. What would leave the table is dropped. The selection goes along.
    void carry(RangeVector const& sources, int rows, int cols, bool vacate);

    /// Makes the first range hold the main cell if none does; without one a selection would jump to the table's start.
    static void flagFirstIfNone(RangeVector& ranges);

    void apply() override;
    void revert() override;

private:
    int gridRows = 0; ///< when the contents were written first
    int gridCols = 0;
};
