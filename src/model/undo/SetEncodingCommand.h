#pragma once

#include "model/undo/DialectCommand.h"
#include "storage/AbstractDataContainer.h"

#include <vector>

/// Sets the encoding of a table, which rewrites its cells. What the new encoding cannot hold is kept as bytes, so that
/// undo brings back every character.
class SetEncodingCommand : public DialectCommand<EncodingDialect> {
public:
    SetEncodingCommand(TableModel* model, RangeSet const& cells, EncodingType encoding, bool changeSelection,
                       QUndoCommand* parent = nullptr)
        : DialectCommand(model, cells, encoding, changeSelection, parent) {}

    /// The same of a table whose file has just been saved in that encoding, so that the change itself saves nothing.
    static SetEncodingCommand* afterSave(TableModel* model, EncodingType encoding);

    void undo() override;
    void redo() override;

private:
    struct KeptCell {
        int row; ///< as stored, also in a transposed table
        int col;
        AbstractDataContainer::Bytes bytes;
    };

    void keepLossyCells();

    std::vector<KeptCell> kept;
    bool alreadySaved = false;
};
