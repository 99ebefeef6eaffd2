// Sorting.

#include "model/undo/SortCommand.h"
#include "view/ProgressDialog.h"
#include "view/TableView.h"

#include <QScopedValueRollback>

#include <memory>

bool TableView::sortRowsOrCols(SortData const& sort) {
    if (sort.sortType == SortType::None || sort.index < 0 || isLoading() || sorting)
        return false;
    // A line behind the data has nothing to sort by.
    if (sort.index >= (sort.axis == Axis::Rows ? tableModel()->columnCountRaw() : tableModel()->rowCountRaw()))
        return false;
    stopEditing();
    QScopedValueRollback<bool> const busy(sorting, true);
    auto const cancelFlag = std::make_shared<bool>(false);
    auto const cancelMutex = std::make_shared<QMutex>();
    TableModel* const model = tableModel();
    model->setCancelPointers(cancelFlag, cancelMutex);
    ProgressDialog progress(tr("Sorting ..."), model->getTheme(), window());
    connect(model, &TableModel::updateProgressSignal, &progress, &ProgressDialog::setPercent);
    connect(&progress, &QDialog::rejected, &progress, [&] {
        QMutexLocker const lock(cancelMutex.get());
        *cancelFlag = true;
    });
    auto command = std::make_unique<SortCommand>(model, sort);
    model->setCancelPointers(nullptr, nullptr);
    if (command->isCanceled())
        return false;
    bool const moved = command->movesLines();
    pushUndoCommand(command.release());
    return moved;
}
