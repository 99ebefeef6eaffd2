#pragma once

#include "core/Enumerations.h"
#include "storage/Worker.h"

#include <vector>

class TableData;

/// Works the order of a sort out. While it runs in a thread of its own, nothing may change the table.
class TableDataWorker : public Worker {
    Q_OBJECT

public:
    using Worker::Worker;

public slots:
    /// Fills `out` with the raw indexes of all rows (with Axis::Columns, of all columns) in the order of their cells in
    /// the raw column `key` (row `key`). The first `start` lines are headers and stay in front. `out` is empty if the
    /// sort was canceled.
    void getSortIndexes(std::vector<int>* out, int key, Axis axis, SortType type, int start, TableData const* data);

signals:
    void getSortIndexesFinishedSignal(bool sorted);
};
