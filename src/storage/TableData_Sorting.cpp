// Sorting: the order of the rows or columns by a line across them, and putting them in an order.

#include "core/IndexUtilities.h"
#include "core/ModalHold.h"
#include "storage/EditableDataContainer.h"
#include "storage/TableData.h"
#include "storage/TableDataWorker.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>

void TableData::setCancelPointers(std::shared_ptr<bool> flag, std::shared_ptr<QMutex> mutex) {
    cancelFlag = std::move(flag);
    cancelMutex = std::move(mutex);
}

bool TableData::getSortIndexes(Indexes& out, int key, Axis axis, SortType type, int start, bool useThread) const {
    TableDataWorker worker(cancelFlag, cancelMutex, nullptr);
    connect(&worker, &Worker::updateProgressSignal, this, &TableData::updateProgressSignal);
    if (!useThread) {
        worker.getSortIndexes(&out, key, axis, type, start, this);
        return !out.empty();
    }
    QThread thread;
    worker.moveToThread(&thread);
    ModalHold const hold;
    QEventLoop loop;
    bool finished = false;
    connect(&worker, &TableDataWorker::getSortIndexesFinishedSignal, &loop, [&] {
        finished = true;
        loop.quit();
    });
    thread.start();
    QMetaObject::invokeMethod(&worker, [&, this] { worker.getSortIndexes(&out, key, axis, type, start, this); });
    // Whoever waits puts a dialog before the table when this takes long. Until then no key may reach the table.
    constexpr int inputHeldBack = 400;
    QTimer::singleShot(inputHeldBack, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    // Both can have ended the loop in one turn, so only this tells whether there is something left to wait for.
    if (!finished)
        loop.exec();
    thread.quit();
    thread.wait();
    return !out.empty();
}

void TableData::sortLines(Axis shown, Indexes const& order) {
    Axis const axis = storedAxis(shown, false);
    if (editableContainer == nullptr || isLocked() || int(order.size()) != countOf(axis))
        return;
    if (axis == Axis::Rows)
        editableContainer->permuteRows(order);
    else
        editableContainer->permuteCols(order);
    noteOrder(axis, order);
    ConcealedList& concealed = along(axis).concealed;
    if (concealed.size() == 0)
        return;
    Indexes const places = Utilities::invertSortIndexesVector(order);
    Indexes moved;
    for (int const raw : concealed.indexes())
        moved.push_back(places[static_cast<std::size_t>(raw)]);
    std::sort(moved.begin(), moved.end());
    concealed.showAll();
    concealed.conceal(std::move(moved));
}

void TableData::unsortLines(Axis shown, Indexes const& order) {
    sortLines(shown, Utilities::invertSortIndexesVector(order));
}
