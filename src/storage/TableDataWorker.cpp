#include "storage/TableDataWorker.h"

#include "core/TextOrderKeys.h"
#include "storage/TableData.h"

#include <algorithm>
#include <numeric>

namespace {

/// The share of a sort that it takes to read the keys, in per cent; the rest is to put them in order.
constexpr int readingPercent = 50;

bool isAscii(std::string_view bytes) {
    unsigned char all = 0;
    for (char const byte : bytes)
        all |= static_cast<unsigned char>(byte);
    return all < 0x80;
}

/// Takes the keys of the lines from `start` on; false if the sort was canceled meanwhile.
bool takeKeys(TextOrderKeys& keys, int key, Axis axis, int start, TableData const& data, Worker& worker) {
    bool const rows = axis == Axis::Rows;
    int const count = rows ? data.numRawRows() : data.numRawCols();
    CellCodec const& codec = data.getCodec();
    bool const keepsAscii = codec.keepsAscii();
    keys.reserve(static_cast<std::size_t>(std::max(count - start, 0)));
    constexpr int often = 1 << 13;
    for (int line = start; line < count; ++line) {
        std::string_view const bytes = data.cellBytesRaw(rows ? line : key, rows ? key : line);
        if (keepsAscii && isAscii(bytes))
            keys.addAscii(bytes);
        else
            keys.add(codec.decode(bytes));
        if (line % often != 0)
            continue;
        bool const goOn =
            worker.readyForUpdate()
                ? worker.updateProgress(static_cast<float>(line - start) / static_cast<float>(count - start))
                : !worker.isCanceled();
        if (!goOn)
            return false;
    }
    return true;
}

} // namespace

void TableDataWorker::getSortIndexes(std::vector<int>* out, int key, Axis axis, SortType type, int start,
                                     TableData const* data) {
    initiateProgressUpdate();
    out->clear();
    TextOrderKeys keys(data->getCaseSensitiveSorting());
    std::vector<int> order;
    setProgressBounds(0, readingPercent);
    if (takeKeys(keys, key, axis, start, *data, *this)) {
        setProgressBounds(readingPercent, 100);
        order = keys.sortedOrder(type == SortType::Descending, [this](double share) {
            return readyForUpdate() ? updateProgress(static_cast<float>(share)) : !isCanceled();
        });
    }
    bool const sorted = order.size() == keys.size() && !isCanceled();
    if (sorted) {
        out->resize(static_cast<std::size_t>(start));
        std::iota(out->begin(), out->end(), 0);
        std::transform(order.begin(), order.end(), std::back_inserter(*out), [=](int place) { return place + start; });
    }
    emit getSortIndexesFinishedSignal(sorted);
}
