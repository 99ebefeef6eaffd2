#include "model/SelectionStatistics.h"

#include "core/NumberUtilities.h"
#include "model/TableModel.h"

#include <QElapsedTimer>

SelectionStatistics::SelectionStatistics(QObject* parent) : QObject(parent), worker(new QObject) {
    // Longer than from one key to the next while the key is held down.
    constexpr int restMilliseconds = 50;
    restTimer.setSingleShot(true);
    restTimer.setInterval(restMilliseconds);
    connect(&restTimer, &QTimer::timeout, this, &SelectionStatistics::begin);
    sliceTimer.setInterval(0);
    connect(&sliceTimer, &QTimer::timeout, this, &SelectionStatistics::copySlice);
    worker->moveToThread(&thread);
    connect(&thread, &QThread::finished, worker, &QObject::deleteLater);
}

SelectionStatistics::~SelectionStatistics() {
    stop();
    thread.quit();
    thread.wait();
    if (!thread.isFinished())
        delete worker;
}

QString SelectionStatistics::text(double sum, qint64 count) {
    if (count == 0)
        return QStringLiteral("Sum: -      Mean: -");
    return QStringLiteral("Sum: %1      Mean: %2")
        .arg(Utilities::convertNumberToString(sum, true),
             Utilities::convertNumberToString(sum / static_cast<double>(count), true));
}

void SelectionStatistics::start(TableModel const* newModel) {
    stop();
    model = newModel;
    restTimer.start();
}

void SelectionStatistics::begin() {
    if (model.isNull() || model->getTableData().isLoading())
        return stop();
    walk.emplace(model->getSelectedSet(), GridSize{model->rowCountModel(), model->columnCountModel()});
    codec = CellCodec(model->getEncoding());
    totalSum = 0;
    totalCount = 0;
    if (!thread.isRunning())
        thread.start(QThread::InheritPriority);
    sliceTimer.start();
}

void SelectionStatistics::stop() {
    ++number;
    openSlices = 0;
    restTimer.stop();
    sliceTimer.stop();
    walk.reset();
    model = nullptr;
}

void SelectionStatistics::copySlice() {
    constexpr qint64 sliceMilliseconds = 2;
    constexpr std::size_t sliceBytes = std::size_t(1) << 20;
    constexpr int mostWaiting = 8; // slices that the thread has not come to yet
    if (model.isNull() || model->getTableData().isLoading())
        return stop();
    if (openSlices >= mostWaiting)
        return;
    QElapsedTimer clock;
    clock.start();
    auto slice = std::make_shared<Slice>();
    TableData const& data = model->getTableData();
    int row = 0;
    std::vector<int> cols;
    bool more = true;
    while (clock.elapsed() < sliceMilliseconds && slice->bytes.size() < sliceBytes && (more = walk->next(row, cols))) {
        int const rawRow = data.getRawFromModelRow(row);
        for (int const col : cols) {
            auto const bytes = data.getValueRawCharVec(rawRow, data.getRawFromModelCol(col));
            slice->bytes.append(bytes.data(), bytes.size());
            slice->ends.push_back(slice->bytes.size());
        }
    }
    if (!more)
        sliceTimer.stop();
    ++openSlices;
    QMetaObject::invokeMethod(worker, [this, slice, more, at = number, decode = codec] {
        double sum = 0;
        qint64 count = 0;
        std::size_t begin = 0;
        for (std::size_t const end : slice->ends) {
            std::string_view const bytes(slice->bytes.data() + begin, end - begin);
            double const value = Utilities::convertStringToDouble(decode.decode(bytes).toUtf8(), true);
            begin = end;
            if (value == value) {
                sum += value;
                ++count;
            }
        }
        QMetaObject::invokeMethod(this, [this, at, sum, count, more] { add(at, sum, count, !more); });
    });
}

void SelectionStatistics::add(int at, double sum, qint64 count, bool last) {
    if (at != number)
        return;
    --openSlices;
    totalSum += sum;
    totalCount += count;
    if (last) {
        stop();
        emit finishedSignal(text(totalSum, totalCount));
    }
}
