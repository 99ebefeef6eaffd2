#include "model/LineBreakCells.h"

#include "model/TableModel.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

QString tr(char const* text) {
    return QCoreApplication::translate("DelimiterOnlySave", text);
}

bool isLineBreak(QChar character) {
    return character == QLatin1Char('\n') || character == QLatin1Char('\r');
}

/// Whether the cell may hold a line break, judged by its bytes in whatever encoding.
bool mayHoldLineBreak(AbstractDataContainer::Bytes const& cell) {
    return std::any_of(cell.begin(), cell.end(), [](auto byte) { return byte == '\n' || byte == '\r'; });
}

} // namespace

void LineBreakCells::forEach(TableModel const& model, bool visibleOnly, Visit const& visit) {
    TableData const& data = model.getTableData();
    bool const transposed = data.isTransposed();
    int const storedRows = transposed ? data.numRawCols() : data.numRawRows();
    AbstractDataContainer::Cells cells;
    for (int stored = 0; stored < storedRows; ++stored) {
        cells.clear();
        data.getRow(cells, stored, true, GetRowColMaskType::NoMask, {});
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (!mayHoldLineBreak(cells[i])) {
                continue;
            }
            int const other = static_cast<int>(i);
            int const row = transposed ? other : stored;
            int const col = transposed ? stored : other;
            if (visibleOnly && (data.isRowConcealed(row) || data.isColConcealed(col))) {
                continue;
            }
            QString const text = data.getValueRaw(row, col).toString();
            if (std::any_of(text.begin(), text.end(), isLineBreak)) {
                visit(row, col, text);
            }
        }
    }
}

int LineBreakCells::count(TableModel const& model, bool visibleOnly) {
    int found = 0;
    forEach(model, visibleOnly, [&found](int, int, QString const&) { ++found; });
    return found;
}

QString LineBreakCells::sentence(int count) {
    return count == 1 ? tr("1 cell contains line breaks.") : tr("%1 cells contain line breaks.").arg(count);
}
