// Header rows, labels, sort marks, and what is empty.

#include "model/DataAxis.h"
#include "model/TableModel.h"

#include <algorithm>
#include <numeric>
#include <utility>

void TableModel::setNumberOfHeaderRows(int count) {
    numHeaderRows = count > 0 ? tableData.getRawFromModelRow(count - 1) + 1 : 0;
    refreshVisibleHeaderRows();
}

void TableModel::refreshVisibleHeaderRows() {
    Indexes const& concealed = tableData.getConcealedRowsRaw();
    auto const concealedHeaders =
        std::lower_bound(concealed.begin(), concealed.end(), numHeaderRows) - concealed.begin();
    colorOptions.headerRows = std::max(numHeaderRows - int(concealedHeaders), 0);
}

void TableModel::setRowSortData(SortData const& data) {
    rowSortData = data;
    emit refreshHeadersSignal();
}

void TableModel::setColSortData(SortData const& data) {
    colSortData = data;
    emit refreshHeadersSignal();
}

bool TableModel::hasLabelRow() const {
    return std::max(colorOptions.headerRows - 1, 0) < rowCountModel();
}

QString TableModel::labelAt(int col) const {
    return tableData.getValueModel(std::max(colorOptions.headerRows - 1, 0), col).toString();
}

void TableModel::getColumnLabels(QList<QString>& out, Indexes const& cols) const {
    if (!hasLabelRow())
        return;
    for (int const col : cols)
        out.append(labelAt(col));
}

QList<QString> TableModel::getColumnLabels(Indexes const& cols) const {
    QList<QString> labels;
    getColumnLabels(labels, cols);
    return labels;
}

void TableModel::getAllColumnLabels(QList<QString>& out) const {
    Indexes cols = Indexes(std::size_t(columnCountModel()));
    std::iota(cols.begin(), cols.end(), 0);
    getColumnLabels(out, cols);
}

void TableModel::getSelectedColumnLabels(QList<QString>& out) const {
    Indexes cols;
    getOrderedSetOfSelectedCols(cols, RangeIndexType::Model, false);
    getColumnLabels(out, cols);
}

void TableModel::getColumnLabel(QString& out, int col) const {
    if (col >= -1)
        out = labelAt(col);
}

void TableModel::getHeaderRowInformation(int& row, Indexes& columns, std::vector<QString> const& names, int required,
                                         int maxRows, int maxCols) const {
    auto const cell = [this](int r, int c) { return tableData.getValueModel(r, c).toString(); };
    HeaderRowMatch match =
        findHeaderRow(names, required, std::min(maxRows, rowCountModel()), std::min(maxCols, columnCountModel()), cell);
    row = match.row;
    columns = std::move(match.columns);
}

TableModel::Indexes TableModel::getEmptyRowsModel(bool skipHeaderCols, GetRowColMaskType maskType,
                                                  Indexes const& cols) const {
    return tableData.getEmptyRows(skipHeaderCols ? getNumHeaderCols() : 0, RangeIndexType::Model, maskType,
                                  getRawFromModelCols(cols));
}

TableModel::Indexes TableModel::getEmptyColumnsModel(bool skipHeaderRows, GetRowColMaskType maskType,
                                                     Indexes const& rows) const {
    return tableData.getEmptyCols(skipHeaderRows ? getNumVisibleHeaderRows() : 0, RangeIndexType::Model, maskType,
                                  getRawFromModelRows(rows));
}

TableModel::Indexes TableModel::getEmptyRowsRaw(bool skipHeaderCols) const {
    return tableData.getEmptyRows(skipHeaderCols ? getNumHeaderCols() : 0, RangeIndexType::Raw,
                                  GetRowColMaskType::NoMask, {});
}

TableModel::Indexes TableModel::getEmptyColumnsRaw(bool skipHeaderRows) const {
    return tableData.getEmptyCols(skipHeaderRows ? numHeaderRows : 0, RangeIndexType::Raw, GetRowColMaskType::NoMask,
                                  {});
}

void TableModel::getRowString(std::string& out, int row, GetRowColMaskType maskType, Indexes const& mask) const {
    tableData.getRowString(out, row, maskType, mask);
}

void TableModel::getColumnString(std::string& out, int col, GetRowColMaskType maskType, Indexes const& mask) const {
    tableData.getColString(out, col, maskType, mask);
}
