#include "model/undo/SetEncodingCommand.h"

#include "storage/CellCodec.h"

#include <algorithm>

namespace {

bool isAscii(AbstractDataContainer::Bytes const& bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return static_cast<unsigned char>(byte) < 128; });
}

} // namespace

void SetEncodingCommand::redo() {
    keepLossyCells();
    exchange();
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
    CellCodec const present(model->getEncoding());
    CellCodec const next(value);
    bool const asciiIsSafe = present.keepsAscii() && next.keepsAscii();
    auto const again = [](CellCodec const& to, CellCodec const& from, AbstractDataContainer::Bytes const& bytes) {
        return to.encode(from.decode({bytes.data(), bytes.size()}));
    };
    AbstractDataContainer const& data = *model->getTableData().getDataContainer();
    for (int row = 0; row < data.numRows(); ++row) {
        int const cols = data.numColsInRow(row);
        for (int col = 0; col < cols; ++col) {
            auto bytes = data.getValue(row, col);
            bool const safe = bytes.empty() || (asciiIsSafe && isAscii(bytes));
            if (!safe && again(present, next, again(next, present, bytes)) != bytes)
                kept.push_back({row, col, std::move(bytes)});
        }
    }
}
