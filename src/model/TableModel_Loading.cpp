// Loading, saving and the dialect of the file.

#include "core/EncodingUtilities.h"
#include "model/AutoSaveEvent.h"
#include "model/LineBreakCells.h"
#include "model/TableModel.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>

namespace {

TableData::DataContainerType containerType(bool readOnly) {
    return readOnly ? TableData::DataContainerType::ReadOnly : TableData::DataContainerType::Editable;
}

} // namespace

bool TableModel::openForLoad(QString const& path, bool forReading) {
    return tableData.openForLoad(path, containerType(forReading));
}

bool TableModel::loadCSV(QString const& path, bool async, bool readOnly, QString const& delimiter,
                         QString const& saveDelimiter, EncodingType encoding, ParsingStandard parsingStandard) {
    if (async && !openForLoad(path, readOnly))
        return false;
    ++loadNumber;
    loadInBackground = async;
    clearGrid();
    markLostCharacters({});
    setReadOnly(readOnly);
    this->delimiter = delimiter;
    this->saveDelimiter = saveDelimiter;
    this->encoding = encoding;
    loadedEncoding = encoding;
    this->parsingStandard = parsingStandard;
    fileDialects.insert(path, {delimiter, delimiter, encoding, parsingStandard,
                               LineEndings::ofFile(path, encoding, parsingStandard, delimiter), false,
                               Utilities::getEncodingFromMark(path)});
    setRowSortData(SortData());
    setColSortData(SortData());
    showEverything();
    // The end of the load comes to onLoadFinished by a signal, within this call if the load is not on a thread.
    return tableData.loadCSV(path, async, containerType(readOnly), delimiter, saveDelimiter, encoding, parsingStandard);
}

void TableModel::showEverything() {
    showAllRows();
    showAllCols();
    onConcealedLinesChanged();
}

void TableModel::clearTable(QModelIndex const& parent) {
    QScopedValueRollback<bool> const onlyView(dataAlreadyChanged, true);
    tableData.clear();
    markLostCharacters({});
    removeRows(0, rowCount(parent), parent);
    removeColumns(0, columnCount(parent), parent);
}

void TableModel::clearGrid() {
    QScopedValueRollback<bool> const onlyView(dataAlreadyChanged, true);
    removeRows(0, viewRowCount);
    removeColumns(0, viewColCount);
}

/// A view takes a while to learn of many millions of rows. It is told of them in steps, between which the window
/// answers. True once the grid lacks no more than a step.
bool TableModel::growTowardsLoadedRows() {
    constexpr int rowsAtOnce = 500000;
    if (!loadInBackground || rowCountModel() - viewRowCount <= rowsAtOnce)
        return true;
    tableData.setLocked(true);
    QScopedValueRollback<bool> const onlyView(dataAlreadyChanged, true);
    insertRows(viewRowCount, rowsAtOnce);
    QTimer::singleShot(0, this, [this, load = loadNumber] {
        if (load == loadNumber)
            onLoadFinished();
    });
    return false;
}

void TableModel::onLoadFinished() {
    if (!growTowardsLoadedRows())
        return;
    tableData.setLocked(false);
    readOnly = readOnly || getLoadResult().beyondLimits;
    savedRowCountRaw = rowCountRaw();
    savedColCountRaw = columnCountRaw();
    enforceTableSize();
    // The grid takes its size first: a change may only be told of cells that are there.
    QModelIndex const last =
        index(std::min(savedRowCountRaw, viewRowCount - 1), std::min(savedColCountRaw, viewColCount - 1));
    if (last.isValid())
        emit dataChanged(index(0, 0), last);
    onMainCellChanged();
    emit loadFinishedSignal();
}

bool TableModel::reloadFile(QString const& newDelimiter, EncodingType newEncoding, ParsingStandard newStandard) {
    if (newDelimiter == delimiter && newEncoding == encoding && newStandard == parsingStandard)
        return false;
    QString const path = getFilepath();
    if (path.isEmpty()) {
        delimiter = newDelimiter;
        saveDelimiter = newDelimiter;
        encoding = newEncoding;
        parsingStandard = newStandard;
        return false;
    }
    return loadCSV(path, true, readOnly, newDelimiter, newDelimiter, newEncoding, newStandard);
}

bool TableModel::reloadFileWithDelimiter(QString const& newDelimiter) {
    return reloadFile(newDelimiter, encoding, parsingStandard);
}

bool TableModel::reloadFileWithEncoding(EncodingType newEncoding) {
    return reloadFile(delimiter, newEncoding, parsingStandard);
}

bool TableModel::reloadFileWithParsingStandard(ParsingStandard newStandard) {
    return reloadFile(delimiter, encoding, newStandard);
}

SaveReport TableModel::save(SaveRequest const& request) {
    auto const report = tableData.save(request);
    if (!report.isSaved())
        return report;
    auto const path = request.path.isEmpty() ? getFilepath() : request.path;
    auto const dialect = request.dialect.value_or(SaveDialect::present(*this));
    FileDialect file{dialect.saveDelimiter,
                     dialect.saveDelimiter,
                     dialect.encoding,
                     dialect.parsingStandard,
                     LineEndings::of(dialect.lineEnding),
                     true};
    bool const keepsItsOwn = request.dialect && request.path.isEmpty(); // as automatic saves do
    if (auto const* const before = getFileDialect(); keepsItsOwn && before != nullptr) {
        file.foundDelimiter = before->foundDelimiter;
        file.lineEndings = before->lineEndings;
        file.isChosen = before->isChosen;
    }
    fileDialects.insert(path, file);
    return report;
}

bool TableModel::saveCSV(bool ignoreMaps, bool skipConcealed) {
    return saveCSV({}, ignoreMaps, skipConcealed);
}

bool TableModel::saveCSV(QString const& path, bool ignoreMaps, bool skipConcealed) {
    return save(SaveRequest::unchecked(path, {}, skipConcealed, ignoreMaps)).isSaved();
}

bool TableModel::saveCSV(QString const& path, ExtensionData const& dialect, bool skipConcealed) {
    return save(SaveRequest::unchecked(path, dialect, skipConcealed)).isSaved();
}

FileDialect const* TableModel::getFileDialect() const {
    auto const file = fileDialects.constFind(getFilepath());
    return file == fileDialects.constEnd() ? nullptr : &*file;
}

void TableModel::takeFileDialect() {
    FileDialect const* const file = getFileDialect();
    if (file == nullptr)
        return;
    delimiter = file->delimiter;
    encoding = file->encoding;
    parsingStandard = file->parsingStandard;
    // A mark that was there before is one that the user wants the file read without.
    EncodingType const marked = Utilities::getEncodingFromMark(getFilepath());
    if (marked != file->marked && Utilities::contradictsMark(encoding, marked))
        encoding = marked;
    emit updateStatusBarSignal();
}

void TableModel::onSaveStarted(QString const& path) {
    emit saveStartedSignal(path);
}

void TableModel::onSaveFinished(QString const& path) {
    savedRowCountRaw = rowCountRaw();
    savedColCountRaw = columnCountRaw();
    emit saveFinishedSignal(path);
}

void TableModel::saveAfterEdit() {
    if (!saveAfterEachEdit || readOnly || getFilepath().isEmpty())
        return;
    AutoSaveEvent begun(getFilepath());
    QCoreApplication::sendEvent(this, &begun);
    if (!begun.isAccepted())
        return;
    QString const reason = reasonAgainstAutoSave();
    if (!reason.isEmpty()) {
        emit autoSaveHeldBackSignal(tr("Not saved: %1").arg(reason));
        return;
    }
    int const broken = parsingStandard == ParsingStandard::DelimiterOnly ? LineBreakCells::count(*this, false) : 0;
    if (broken > 0)
        emit autoSaveFailedSignal(getFilepath(),
                                  tr("Cannot save as Delimiter Only. %1").arg(LineBreakCells::sentence(broken)));
    else
        endAutoSave(save(requestOfAutoSave(begun.heedsChanges())));
}

// Nobody can be asked, so the file keeps what it has, and what would lose anything waits for a save of the user.
QString TableModel::reasonAgainstAutoSave() const {
    if (getLoadResult().end == LoadEnd::Part)
        return tr("only the beginning of the file could be read.");
    SaveDialect::Change const change = SaveDialect::unaskedChange(*this);
    if (change.any() && !SaveDialect::canKeep(*this, change))
        return tr("the line ends of the file would change.");
    if (!getWayOfFile(getFilepath()) && AtomicFileWriter::linkCount(getFilepath()) > 1)
        return tr("the file has other names, which would keep what it was.");
    return {};
}

SaveRequest TableModel::requestOfAutoSave(bool heedsChanges) const {
    SaveRequest request;
    SaveDialect::Change const change = SaveDialect::unaskedChange(*this);
    if (change.any())
        request.dialect = SaveDialect::asInFile(*this, SaveDialect::present(*this), change);
    if (heedsChanges)
        request.file.expected = getFileStamp();
    request.file.way = getWayOfFile(getFilepath()).value_or(AtomicFileWriter::Way::Replace);
    return request;
}

void TableModel::endAutoSave(SaveReport const& report) {
    switch (report.outcome) {
    case SaveReport::Outcome::Saved:
        emit undoStackCleanChangedSignal(true);
        if (!report.notKept.isEmpty())
            emit notKeptSignal(report.notKept);
        break;
    case SaveReport::Outcome::Failed: emit autoSaveFailedSignal(getFilepath(), report.reason); break;
    case SaveReport::Outcome::TargetChanged:
        emit fileIsAnotherSignal(getFilepath());
        emit autoSaveHeldBackSignal(tr("Not saved: %1").arg(tr("the file has been changed externally.")));
        break;
    case SaveReport::Outcome::WouldChange:
        emit autoSaveHeldBackSignal(
            tr("Not saved: %1").arg(tr("cells would not come back from the file as they are.")));
        break;
    }
}

QString TableModel::getTableName() const {
    QString const path = getFilepath();
    return path.isEmpty() ? QStringLiteral("untitled") : QFileInfo(path).fileName();
}

void TableModel::setExtension(QString const& newExtension) {
    if (newExtension == extension)
        return;
    extension = newExtension;
    tableData.setExtension(newExtension);
}

bool TableModel::setDelimiter(QString const& newDelimiter, QString const& newSaveDelimiter) {
    if (isLoading())
        return false;
    delimiter = newDelimiter;
    saveDelimiter = newSaveDelimiter;
    tableData.setDelimiter(delimiter, saveDelimiter);
    return true;
}

bool TableModel::setLineEnding(LineEndingType type) {
    if (isLoading())
        return false;
    lineEnding = type;
    tableData.setLineEnding(type);
    return true;
}

bool TableModel::setEncoding(EncodingType type) {
    if (isLoading())
        return false;
    encoding = type;
    tableData.setEncoding(type, true);
    return true;
}

bool TableModel::setParsingStandard(ParsingStandard standard) {
    if (isLoading())
        return false;
    parsingStandard = standard;
    tableData.setParsingStandard(standard);
    return true;
}

void TableModel::setSaveWithTrailingDelimiters(bool on) {
    saveWithTrailingDelimiters = on;
    tableData.setSaveWithTrailingDelimiters(on);
}

bool TableModel::setReadOnly(bool on) {
    bool const changed = on != readOnly;
    readOnly = on;
    tableData.setReadOnly(on);
    return changed;
}

bool TableModel::setDelimiterForFileSaveCommand(QString const& newDelimiter) {
    emit setDelimiterSignal(newDelimiter);
    return true;
}

bool TableModel::setLineEndingForFileSaveCommand(LineEndingType type) {
    emit setLineEndingSignal(type);
    return true;
}

bool TableModel::setEncodingForFileSaveCommand(EncodingType type) {
    emit setEncodingSignal(type);
    return true;
}

bool TableModel::setParsingStandardForFileSaveCommand(ParsingStandard standard) {
    emit setParsingStandardSignal(standard);
    return true;
}
