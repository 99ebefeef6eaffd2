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
    // Those who are told may ask for the selection, which has to fit the grid by then.
    enforceTableSize();
    emit refreshHeadersSignal();
    emit updateStatusBarSignal();
}
