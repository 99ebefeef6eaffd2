#pragma once

#include "model/LeftOutCells.h"
#include "model/undo/ContentCommand.h"
#include "storage/CellPatch.h"
#include "storage/ReplacedCells.h"

#include <QString>

#include <optional>

/// A command that writes texts into cells, wherever the texts come from. It keeps bytes: of cells with texts of their
/// own the patch, which redo and undo exchange; of cells with one text for all their region, the text once, and while
/// it stands there what it replaced.
class CellContentsCommand : public ContentCommand {
protected:
    using ContentCommand::ContentCommand;

    /// Writes what the ranges hold, one after the other; they are Model.
    void writeContents(RangeVector const& ranges);
    /// Writes one text to all cells of the ranges as far as the grid goes.
    void writeEverywhere(RangeSet const& ranges, QString const& text, LeftOut leftOut);
    /// Writes the texts of `sources` `rows` further down and `cols` further right; with `vacate` the places where they
    /// came from are emptied first. The selection goes along. Copies that would leave the table at the top or left are
    /// dropped; a move of which any cell would leave it makes the command obsolete, for its texts would be lost.
    void carry(RangeSet const& sources, int rows, int cols, bool vacate);

    void apply() override;
    void revert() override;
    CellRegion lostCharacters() const override;

private:
    void growGrid();

    struct Fill {
        CellRegion cells; ///< Model
        QString text;
    };

    CellPatch patch;
    std::optional<Fill> fill;
    ReplacedCells replaced; ///< by the fill, while it stands
};
