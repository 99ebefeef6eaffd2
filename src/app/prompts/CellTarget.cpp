#include "app/prompts/CellTarget.h"

#include "core/CellAddress.h"
#include "model/TableModel.h"

#include <algorithm>

namespace {

constexpr qint64 roomyGrid = 1000000;

int rawLine(int user, int firstIndex, int rawCount, bool growing) {
    qint64 const last = std::max<qint64>(growing ? std::max<qint64>(rawCount, roomyGrid) : rawCount, 1) - 1;
    return static_cast<int>(std::clamp<qint64>(qint64(user) - firstIndex, 0, last));
}

} // namespace

CellTarget CellTarget::fromUser(TableModel const& model, int userRow, int userCol) {
    bool const growing = !model.isReadOnly();
    CellTarget target;
    Range raw(0, 0, RangeIndexType::Raw);
    if (userRow != Utilities::noLine) {
        raw.row = rawLine(userRow, model.getFirstRowIndex(), model.rowCountRaw(), growing);
        int const row = model.getModelFromRawRows({raw.row}).front();
        target.row = row == -1 ? model.getModelFromRawRange(raw, true).row : row;
    }
    if (userCol != Utilities::noLine) {
        raw.col = rawLine(userCol, model.getFirstColIndex(), model.columnCountRaw(), growing);
        int const col = model.getModelFromRawCols({raw.col}).front();
        target.col = col == -1 ? model.getModelFromRawRange(raw, true).col : col;
    }
    return target;
}

CellTarget CellTarget::fromText(TableModel const& model, QString const& text, bool loneNumberIsColumn) {
    int row = Utilities::noLine;
    int col = Utilities::noLine;
    Utilities::parseCellLocationString(row, col, text.trimmed(), model.getRepresentColumnsAsLetters(),
                                       loneNumberIsColumn);
    return fromUser(model, row, col);
}
