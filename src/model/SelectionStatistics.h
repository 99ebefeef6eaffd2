#pragma once

#include "model/SelectedCellWalk.h"
#include "storage/CellCodec.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QThread>
#include <QTimer>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class TableModel;

/// Sums the numbers of a large selection in the background. A table may change at any moment and is not locked, so only
/// the GUI thread reads it: it copies the bytes of the selected cells in short slices between other events, and a
/// thread turns them into numbers. Nothing of it happens before the frame that shows the selection: it begins when the
/// selection has rested for a moment. Lives in the GUI thread; one sum at a time.
class SelectionStatistics : public QObject {
    Q_OBJECT

public:
    /// What the status bar shows for `count` numbers with that sum.
    static QString text(double sum, qint64 count);

    explicit SelectionStatistics(QObject* parent = nullptr);
    ~SelectionStatistics() override;

    /// Starts anew, a moment later, with the selection of `model`. Ends without a word if the model goes or loads.
    void start(TableModel const* model);
    void stop();
    bool isRunning() const { return !model.isNull(); }

signals:
    /// The text for the whole selection. Not sent for a selection that was stopped.
    void finishedSignal(QString text);

private:
    /// Copied bytes of many cells.
    struct Slice {
        std::string bytes;
        std::vector<std::size_t> ends;
    };

    void begin();
    void copySlice();
    void add(int number, double sum, qint64 count, bool last);

    QPointer<TableModel const> model; ///< null while nothing is summed
    std::optional<SelectedCellWalk> walk;
    CellCodec codec;
    QTimer restTimer; ///< until the selection has rested
    QTimer sliceTimer;
    QThread thread;
    QObject* worker; ///< lives in the thread
    int number = 0;  ///< tells slices of the present sum from late ones
    int openSlices = 0;
    double totalSum = 0;
    qint64 totalCount = 0;
};
