#include "storage/TableData.h"

#include <QFileInfo>

#include <utility>
#include <vector>

namespace {

/// The same cells of the table that has rows for columns.
CellRegion turned(CellRegion const& cells) {
    std::vector<CellRect> rects;
    for (auto const& rect : cells.rects())
        rects.push_back({rect.left, rect.top, rect.right, rect.bottom});
    return CellRegion::ofRects(rects);
}

} // namespace

QString TableData::saveRefusalFor(QString const& path) const {
    if (isLocked())
        return tr("The file is being loaded.");
    if (getLoadResult().beyondLimits && QFileInfo(path) == QFileInfo(getFilepath()))
        return tr("The table holds only the beginning of the file. Save it under another name.");
    return {};
}

SaveReport TableData::save(SaveRequest const& request) {
    auto const path = request.path.isEmpty() ? getFilepath() : request.path;
    saveRefusal = saveRefusalFor(path);
    if (!saveRefusal.isEmpty()) {
        SaveReport refused;
        refused.reason = saveRefusal;
        return refused;
    }
    emit saveStartedSignal(path);
    auto report = dataContainer->save(request, {transposed, skipMask(Axis::Rows, request.skipConcealed),
                                                skipMask(Axis::Columns, request.skipConcealed)});
    if (transposed)
        report.changed.cells = turned(report.changed.cells);
    emit saveFinishedSignal(report.isSaved() ? path : getFilepath());
    return report;
}

bool TableData::saveCSV(bool ignoreMaps, bool skipConcealed) {
    return saveCSV({}, ignoreMaps, skipConcealed);
}

bool TableData::saveCSV(QString const& path, bool ignoreMaps, bool skipConcealed) {
    return save(SaveRequest::unchecked(path, {}, skipConcealed, ignoreMaps)).isSaved();
}

bool TableData::saveCSV(QString const& path, ExtensionData const& dialect, bool skipConcealed) {
    return save(SaveRequest::unchecked(path, dialect, skipConcealed)).isSaved();
}

TableData::Indexes TableData::skipMask(Axis axis, bool skipConcealed) const {
    return skipConcealed ? along(axis).concealed.indexes() : Indexes{};
}
