#include "model/undo/SetEncodingCommand.h"

#include "storage/CellConversion.h"

#include <utility>

SetEncodingCommand* SetEncodingCommand::afterSave(TableModel* model, EncodingType encoding) {
    auto* const command = new SetEncodingCommand(model, {}, encoding, false);
    command->alreadySaved = true;
    return command;
}

void SetEncodingCommand::redo() {
    keepLossyCells();
    exchange();
    if (!std::exchange(alreadySaved, false))
        finish();
}

void SetEncodingCommand::undo() {
    exchange();
    for (KeptCell const& cell : kept)
        model->getTableData().getDataContainer()->setValue(cell.row, cell.col, cell.bytes);
    kept.clear();
    finish();
}

/// Keeps the cells that would not be the same after the way to the new encoding and back.
void SetEncodingCommand::keepLossyCells() {
    CellConversion const conversion(model->getEncoding(), value);
    AbstractDataContainer const& data = *model->getTableData().getDataContainer();
    for (int row = 0; row < data.numRows(); ++row) {
        int const cols = data.numColsInRow(row);
        for (int col = 0; col < cols; ++col) {
            auto bytes = data.getValue(row, col);
            if (conversion.changesBytes({bytes.data(), bytes.size()}))
                kept.push_back({row, col, std::move(bytes)});
        }
    }
}
