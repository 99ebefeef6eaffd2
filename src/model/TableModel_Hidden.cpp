// Rows and columns that the user has hidden.

#include "model/TableModel.h"

void TableModel::setAndApplyHiddenRowsList(Indexes const& rows) {
    showAllRows();
    tableData.concealRawRows(rows);
    onConcealedLinesChanged();
}

void TableModel::setAndApplyHiddenColsList(Indexes const& cols) {
    showAllCols();
    tableData.concealRawCols(cols);
    onConcealedLinesChanged();
}

void TableModel::onConcealedLinesChanged() {
    refreshVisibleHeaderRows();
    if (hasHiddenLines())
        emit addContextSignal(Context::HiddenPresent);
    else
        emit removeContextSignal(Context::HiddenPresent);
    emit refreshHeadersSignal();
    emit updateStatusBarSignal();
    enforceTableSize();
}
