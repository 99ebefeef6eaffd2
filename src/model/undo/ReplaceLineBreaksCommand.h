#pragma once

#include "model/undo/ContentCommand.h"

/// Writes texts in which line breaks have been replaced. The table does not grow.
class ReplaceLineBreaksCommand : public ContentCommand {
public:
    /// `cells` are Cells with new and old texts; Raw ones reach what is concealed too. The selection stays.
    ReplaceLineBreaksCommand(TableModel* model, RangeVector const& cells, QUndoCommand* parent = nullptr);

protected:
    void apply() override;
    void revert() override;
    CellRegion lostCharacters() const override;

private:
    void showTexts();

    RangeVector replacements; ///< in the index space that the caller has given
};
