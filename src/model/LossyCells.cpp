#include "model/LossyCells.h"

#include "core/EncodingUtilities.h"
#include "model/TableModel.h"
#include "storage/CellConversion.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

QString tr(char const* text) {
    return QCoreApplication::translate("LossyCells", text);
}

QString nameOf(EncodingType encoding) {
    return QString::fromLatin1(Utilities::convertEncodingTypeToCodecName(encoding));
}

} // namespace

CellRegion LossyCells::find(TableModel const& model, EncodingType encoding, bool visibleOnly) {
    TableData const& data = model.getTableData();
    if (encoding == model.getEncoding())
        return {};
    CellConversion const conversion(model.getEncoding(), encoding);
    std::vector<std::pair<int, int>> found;
    int const storedRows = data.numRawRows(true);
    for (int stored = 0; stored < storedRows; ++stored) {
        int const cells = data.getDataContainer()->numColsInRow(stored);
        for (int other = 0; other < cells; ++other) {
            int const row = data.isTransposed() ? other : stored;
            int const col = data.isTransposed() ? stored : other;
            if (conversion.losesText(data.cellBytesRaw(row, col)) &&
                !(visibleOnly && (data.isRowConcealed(row) || data.isColConcealed(col))))
                found.emplace_back(row, col);
        }
    }
    return CellRegion::ofCells(std::move(found));
}

QString LossyCells::sentence(qint64 count, EncodingType encoding) {
    QString const name = nameOf(encoding);
    return count == 1 ? tr("1 cell holds characters that %1 cannot carry.").arg(name)
                      : tr("%1 cells hold characters that %2 cannot carry.").arg(QString::number(count), name);
}

QString LossyCells::notice(qint64 count, EncodingType encoding) {
    QString const name = nameOf(encoding);
    return count == 1
               ? tr("The text of 1 cell holds characters that %1 cannot carry; they were written as \"?\".").arg(name)
               : tr("The texts of %1 cells hold characters that %2 cannot carry; they were written as \"?\".")
                     .arg(QString::number(count), name);
}

bool LossyCells::select(TableModel& model, CellRegion const& cells) {
    TableData const& data = model.getTableData();
    std::vector<std::pair<int, int>> inSight;
    for (CellRect const& rect : cells.rects()) {
        for (int row = rect.top; row <= rect.bottom; ++row) {
            for (int col = rect.left; col <= rect.right; ++col) {
                if (!data.isRowConcealed(row) && !data.isColConcealed(col))
                    inSight.emplace_back(data.getModelFromRawRow(row), data.getModelFromRawCol(col));
            }
        }
    }
    if (inSight.empty())
        return false;
    CellRegion const region = CellRegion::ofCells(std::move(inSight));
    auto const [row, col] = region.first();
    model.setSelection(Range(row, col, RangeIndexType::Model), RangeSet(region));
    return true;
}
