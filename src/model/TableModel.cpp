#include "model/TableModel.h"

#include "core/IndexUtilities.h"
#include "core/SortMarks.h"
#include "model/ScreenScale.h"

#include <utility>

namespace {

/// What a painted cell shows of a longer text, so that one cell cannot stall a repaint.
constexpr int maxDisplayLength = 4096;

/// A header's number or letters, with an arrow behind it if the table is sorted by its line.
QVariant withSortArrow(QVariant const& label, int raw, SortData const& sort) {
    if (raw != sort.index || sort.sortType == SortType::None)
        return label;
    return QStringLiteral("%1 %2")
        .arg(label.toString())
        .arg(sort.sortType == SortType::Ascending ? SortMarks::ascending : SortMarks::descending);
}

} // namespace

TableModel::TableModel(QObject* parent) : QAbstractTableModel(parent) {
    headerFont = QFont(QStringLiteral("Lucida Sans Unicode"), int(10.0 / Utilities::getDpiScalingFactor()));
    setFont(font);
    refreshBrushes();
    connect(&tableData, &TableData::startProgressUpdateSignal, this, &TableModel::startProgressUpdateSignal);
    connect(&tableData, &TableData::loadProgressUpdateSignal, this, &TableModel::loadProgressUpdateSignal);
    // A change of a size or of what is concealed changes how raw and model indexes belong together.
    connect(&tableData, &TableData::tableSizeChangedSignal, this, [this] { highlighted.invalidate(); });
    connect(&tableData, &TableData::tableSizeChangedSignal, this, &TableModel::tableSizeChangedSignal);
    connect(&tableData, &TableData::loadFinishedSignal, this, &TableModel::onLoadFinished);
    connect(&tableData, &TableData::loadFailedSignal, this, &TableModel::loadFailedSignal);
    connect(&tableData, &TableData::updateProgressSignal, this, &TableModel::updateProgress);
    connect(&tableData, &TableData::saveStartedSignal, this, &TableModel::onSaveStarted);
    connect(&tableData, &TableData::saveFinishedSignal, this, &TableModel::onSaveFinished);
    tableData.setProgressUpdateMutex(&progressMutex, &progressCondition);
}

TableModel::TableModel(bool readOnly, QObject* parent) : TableModel(parent) {
    setReadOnly(readOnly);
}

TableModel::~TableModel() = default;

QModelIndex TableModel::index(int row, int column, QModelIndex const&) const {
    return createIndex(row, column);
}

int TableModel::rowCount(QModelIndex const& parent) const {
    return parent.isValid() ? 0 : viewRowCount;
}

int TableModel::columnCount(QModelIndex const& parent) const {
    return parent.isValid() ? 0 : viewColCount;
}

// Selecting is the model's own business and not Qt's, so no cell is selectable.
Qt::ItemFlags TableModel::flags(QModelIndex const& index) const {
    return index.isValid() ? Qt::ItemIsEditable | Qt::ItemIsEnabled : Qt::NoItemFlags;
}

QVariant TableModel::data(QModelIndex const& index, int role) const {
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole: return displayText(index);
    case Qt::EditRole: return cellValue(index);
    case Qt::FontRole: return isHeaderCell(index) ? boldFontValue : fontValue;
    case Qt::ForegroundRole: return foregroundOf(index);
    case Qt::BackgroundRole: return backgroundOf(index);
    default: return {};
    }
}

QVariant TableModel::cellValue(QModelIndex const& index) const {
    if (provisional && provisional->covers(index.row(), index.column()))
        return provisional->text;
    if (highlightPreview && !highlighted.isEmpty()) {
        Range const* const range = highlighted.startingAt(index.row(), index.column(), spaces());
        if (range && range->value().isValid())
            return range->value();
    }
    return tableData.getValueModel(index.row(), index.column());
}

QVariant TableModel::displayText(QModelIndex const& index) const {
    QVariant const value = cellValue(index);
    QString const text = value.toString();
    if (text.size() > maxDisplayLength)
        return QString(text.left(maxDisplayLength - 3) + QStringLiteral("..."));
    return text;
}

bool TableModel::isHeaderCell(QModelIndex const& index) const {
    return (colorOptions.highlightHeaderRows && index.row() < colorOptions.headerRows) ||
           (colorOptions.highlightHeaderColumns && index.column() < colorOptions.headerCols);
}

QVariant TableModel::foregroundOf(QModelIndex const& index) const {
    bool const marked = isMarked(index.row(), index.column()) ||
                        (highlightPreview && highlighted.startingAt(index.row(), index.column(), spaces()));
    return marked ? highlightedTextBrush : textBrush;
}

QVariant TableModel::backgroundOf(QModelIndex const& index) const {
    CellColors const colors(theme, colorOptions, selection);
    if (auto const color = colors.selectionColor(index.row(), index.column()))
        return *color;
    return colors.surfaceColor(index.row(), index.column(), isMarked(index.row(), index.column()));
}

bool TableModel::isMarked(int row, int col) const {
    return highlighted.covers(row, col, spaces()) || lostCharacters.covers(row, col);
}

void TableModel::markLostCharacters(CellRegion const& cells) {
    bool const isNews = !cells.isEmpty() || !lostCharacters.isEmpty();
    lostCharacters.set(cells);
    if (isNews)
        emit lostCharactersSignal(cells.count());
}

bool TableModel::cellInHighlightedRange(Range const& cell) const {
    return highlighted.covers(cell.row, cell.col, spaces());
}

bool TableModel::setData(QModelIndex const& index, QVariant const& value, int) {
    bool const changed = setDataDirectly(index, value);
    emit dataChanged(index, index);
    return changed;
}

bool TableModel::setDataDirectly(QModelIndex const& index, QVariant const& value) {
    return tableData.setValueModel(index.row(), index.column(), value.toString());
}

bool TableModel::setDataRaw(QModelIndex const& index, QVariant const& value) {
    bool const changed = tableData.setValueRaw(index.row(), index.column(), value.toString());
    int const row = tableData.getModelFromRawRow(index.row());
    int const col = tableData.getModelFromRawCol(index.column());
    // The first row and the first column never signal here; those who write there refresh the view themselves.
    if (row > 0 && col > 0) {
        QModelIndex const cell = this->index(row, col);
        emit dataChanged(cell, cell);
    }
    return changed;
}

QVariant TableModel::dataRaw(QModelIndex const& index) const {
    return index.isValid() ? tableData.getValueRaw(index.row(), index.column()) : QVariant();
}

void TableModel::emitCellChanged(Range const& cell) {
    Range const visible = getModelRange(cell);
    if (visible.row < 0 || visible.row >= viewRowCount || visible.col < 0 || visible.col >= viewColCount)
        return;
    QModelIndex const at = index(visible.row, visible.col);
    emit dataChanged(at, at);
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::FontRole)
        return headerFont;
    if (role != Qt::DisplayRole)
        return {};
    // A row's header marks a sort of the columns, whose keys stand in that row, and the reverse.
    if (orientation == Qt::Vertical) {
        int const raw = tableData.getRawFromModelRow(section);
        return withSortArrow(IndexSpaces::userFromRaw(raw, firstRowIndex), raw, colSortData);
    }
    int const raw = tableData.getRawFromModelCol(section);
    QVariant const label = representColumnsAsLetters ? QVariant(Utilities::convertNumberToLetters(raw))
                                                     : QVariant(IndexSpaces::userFromRaw(raw, firstColIndex));
    return withSortArrow(label, raw, rowSortData);
}

bool TableModel::setHeaderData(int section, Qt::Orientation orientation, QVariant const& value, int role) {
    if (value == headerData(section, orientation, role))
        return false;
    emit headerDataChanged(orientation, section, section);
    return true;
}

void TableModel::setTheme(Theme const& newTheme) {
    theme = newTheme;
    refreshBrushes();
}

void TableModel::refreshBrushes() {
    textBrush = QBrush(theme.getTextColor());
    highlightedTextBrush = QBrush(theme.getHighlightedCellTextColor());
}

void TableModel::setFont(QFont const& newFont) {
    font = newFont;
    boldFont = newFont;
    boldFont.setWeight(QFont::Bold);
    fontValue = font;
    boldFontValue = boldFont;
}

void TableModel::setTextSize(int size) {
    textSize = size;
    font.setPixelSize(size);
    setFont(font);
}

void TableModel::setProgressBounds(int low, int high) {
    progressLow = low;
    progressHigh = high;
}

void TableModel::updateProgress(float percent) {
    emit updateProgressSignal((float(progressLow) + float(progressHigh - progressLow) * percent) / 100.0F);
}
