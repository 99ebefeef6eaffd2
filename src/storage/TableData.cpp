#include "storage/TableData.h"

#include <algorithm>

namespace {

Axis otherAxis(Axis axis) {
    return axis == Axis::Rows ? Axis::Columns : Axis::Rows;
}

} // namespace

TableData::TableData(QObject* parent) : QObject(parent) {
    setContainer(makeContainer(DataContainerType::Editable));
    setDelimiter(delimiter, saveDelimiter);
    setEncoding(encoding, false);
    rebuildWordDelimiterLookup();
}

TableData::~TableData() {
    stopLoadThread(true);
}

QString TableData::getFilepath() const {
    return dataContainer->getFilepath();
}

QString TableData::getLastSaveError() const {
    return saveRefusal.isEmpty() ? dataContainer->getLastSaveError() : saveRefusal;
}

void TableData::setDelimiter(QString const& delimiter, QString const& saveDelimiter) {
    this->delimiter = delimiter;
    this->saveDelimiter = saveDelimiter;
    dataContainer->setDelimiter(delimiter, saveDelimiter);
}

void TableData::setLineEnding(LineEndingType type) {
    lineEnding = type;
    dataContainer->setLineEnding(type);
}

void TableData::setParsingStandard(ParsingStandard standard) {
    parsingStandard = standard;
    dataContainer->setParsingStandard(standard);
}

void TableData::setSaveWithTrailingDelimiters(bool on) {
    saveWithTrailingDelimiters = on;
    dataContainer->setSaveWithTrailingDelimiters(on);
}

void TableData::setExtension(QString const& extension) {
    this->extension = extension;
}

void TableData::clear() {
    if (!isLocked())
        dataContainer->clear();
}

void TableData::toggleTranspose() {
    if (isLocked())
        return;
    transposed = !transposed;
    noteMapping(Axis::Rows);
    noteMapping(Axis::Columns);
    signalSize();
}

void TableData::signalSize() {
    emit tableSizeChangedSignal(numRawRows(), numRawCols(), numModelRows(), numModelCols());
}

void TableData::cemTableContents() const {
    for (int row = 0; row < dataContainer->numRows(); ++row) {
    }
}

// Words.

void TableData::setWordDelimiters(QString const& characters) {
    wordDelimiters = characters;
    rebuildWordDelimiterLookup();
}

bool TableData::isWordDelimiter(QChar character) const {
    ushort const code = character.unicode();
    if (code < wordDelimiterLookup.size() && wordDelimiterLookup[code])
        return true;
    return wordDelimiters.contains(character);
}

void TableData::rebuildWordDelimiterLookup() {
    wordDelimiterLookup.reset();
    for (QChar const character : std::as_const(wordDelimiters)) {
        if (character.unicode() < wordDelimiterLookup.size())
            wordDelimiterLookup.set(character.unicode());
    }
}

// Counts and coordinates.

Axis TableData::storedAxis(Axis shown, bool ignoreTranspose) const {
    return transposed && !ignoreTranspose ? otherAxis(shown) : shown;
}

int TableData::modelCount(Axis axis) const {
    return countOf(axis) - along(axis).concealed.size();
}

int TableData::modelFromRaw(Axis axis, int raw, bool nearest) const {
    ConcealedList const& concealed = along(axis).concealed;
    return nearest ? concealed.toNearestModel(raw, modelCount(axis)) : concealed.toModel(raw);
}

int TableData::numRawRows(bool ignoreTranspose) const {
    return countOf(storedAxis(Axis::Rows, ignoreTranspose));
}

int TableData::numRawCols(bool ignoreTranspose) const {
    return countOf(storedAxis(Axis::Columns, ignoreTranspose));
}

int TableData::numModelRows(bool ignoreTranspose) const {
    return modelCount(storedAxis(Axis::Rows, ignoreTranspose));
}

int TableData::numModelCols(bool ignoreTranspose) const {
    return modelCount(storedAxis(Axis::Columns, ignoreTranspose));
}

int TableData::numConcealedRows(bool ignoreTranspose) const {
    return along(storedAxis(Axis::Rows, ignoreTranspose)).concealed.size();
}

int TableData::numConcealedCols(bool ignoreTranspose) const {
    return along(storedAxis(Axis::Columns, ignoreTranspose)).concealed.size();
}

int TableData::getRawFromModelRow(int model, bool ignoreTranspose) const {
    return along(storedAxis(Axis::Rows, ignoreTranspose)).concealed.toRaw(model);
}

int TableData::getRawFromModelCol(int model, bool ignoreTranspose) const {
    return along(storedAxis(Axis::Columns, ignoreTranspose)).concealed.toRaw(model);
}

int TableData::getModelFromRawRow(int raw, bool nearest, bool ignoreTranspose) const {
    return modelFromRaw(storedAxis(Axis::Rows, ignoreTranspose), raw, nearest);
}

int TableData::getModelFromRawCol(int raw, bool nearest, bool ignoreTranspose) const {
    return modelFromRaw(storedAxis(Axis::Columns, ignoreTranspose), raw, nearest);
}

Range TableData::getRawFromModelRange(Range range) const {
    range.row = getRawFromModelRow(range.row);
    range.col = getRawFromModelCol(range.col);
    range.indexType = RangeIndexType::Raw;
    return range;
}

Range TableData::getModelFromRawRange(Range range, bool nearest) const {
    range.row = getModelFromRawRow(range.row, nearest);
    range.col = getModelFromRawCol(range.col, nearest);
    range.indexType = RangeIndexType::Model;
    return range;
}

// Concealing.

void TableData::concealModel(Axis axis, Indexes const& models) {
    Indexes raws(models.size());
    std::transform(models.begin(), models.end(), raws.begin(),
                   [&](int model) { return along(axis).concealed.toRaw(model); });
    concealRaw(axis, raws);
}

void TableData::concealRaw(Axis axis, Indexes const& raws) {
    if (isLocked())
        return;
    along(axis).concealed.conceal(raws);
    noteMapping(axis);
    signalSize();
}

void TableData::showRaw(Axis axis, Indexes const& raws) {
    if (isLocked())
        return;
    along(axis).concealed.show(raws);
    noteMapping(axis);
    signalSize();
}

void TableData::showAll(Axis axis) {
    if (isLocked())
        return;
    along(axis).concealed.showAll();
    noteMapping(axis);
    signalSize();
}

bool TableData::isRowConcealed(int raw, bool ignoreTranspose) const {
    return along(storedAxis(Axis::Rows, ignoreTranspose)).concealed.contains(raw);
}

bool TableData::isColConcealed(int raw, bool ignoreTranspose) const {
    return along(storedAxis(Axis::Columns, ignoreTranspose)).concealed.contains(raw);
}

TableData::Indexes const& TableData::getConcealedRowsRaw(bool ignoreTranspose) const {
    return along(storedAxis(Axis::Rows, ignoreTranspose)).concealed.indexes();
}

TableData::Indexes const& TableData::getConcealedColsRaw(bool ignoreTranspose) const {
    return along(storedAxis(Axis::Columns, ignoreTranspose)).concealed.indexes();
}

void TableData::concealModelRow(int model, bool ignoreTranspose) {
    concealModelRows({model}, ignoreTranspose);
}

void TableData::concealModelCol(int model, bool ignoreTranspose) {
    concealModelCols({model}, ignoreTranspose);
}

void TableData::concealModelRows(Indexes const& models, bool ignoreTranspose) {
    concealModel(storedAxis(Axis::Rows, ignoreTranspose), models);
}

void TableData::concealModelCols(Indexes const& models, bool ignoreTranspose) {
    concealModel(storedAxis(Axis::Columns, ignoreTranspose), models);
}

void TableData::concealRawRow(int raw, bool ignoreTranspose) {
    concealRawRows({raw}, ignoreTranspose);
}

void TableData::concealRawCol(int raw, bool ignoreTranspose) {
    concealRawCols({raw}, ignoreTranspose);
}

void TableData::concealRawRows(Indexes const& raws, bool ignoreTranspose) {
    concealRaw(storedAxis(Axis::Rows, ignoreTranspose), raws);
}

void TableData::concealRawCols(Indexes const& raws, bool ignoreTranspose) {
    concealRaw(storedAxis(Axis::Columns, ignoreTranspose), raws);
}

void TableData::showRawRow(int raw, bool ignoreTranspose) {
    showRawRows({raw}, ignoreTranspose);
}

void TableData::showRawCol(int raw, bool ignoreTranspose) {
    showRawCols({raw}, ignoreTranspose);
}

void TableData::showRawRows(Indexes const& raws, bool ignoreTranspose) {
    showRaw(storedAxis(Axis::Rows, ignoreTranspose), raws);
}

void TableData::showRawCols(Indexes const& raws, bool ignoreTranspose) {
    showRaw(storedAxis(Axis::Columns, ignoreTranspose), raws);
}

void TableData::showAllRows(bool ignoreTranspose) {
    showAll(storedAxis(Axis::Rows, ignoreTranspose));
}

void TableData::showAllCols(bool ignoreTranspose) {
    showAll(storedAxis(Axis::Columns, ignoreTranspose));
}
