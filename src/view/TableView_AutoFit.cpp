// Auto-fit: the sizes that rows and columns get from their contents. A fit looks at a sample of the cells and at few of
// their texts closely, so that it stays cheap in a table of millions of rows.

#include "model/TableModel.h"
#include "view/ColumnSample.h"
#include "view/HeaderView.h"
#include "view/MsgBox.h"
#include "view/RowFit.h"
#include "view/SampledLines.h"
#include "view/TableDelegate.h"
#include "view/TableView.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <map>
#include <numeric>

namespace {

/// For the fit of single columns after an edit.
constexpr int editPrecision = 50;

} // namespace

/// Labels that have become longer are not cut. Columns that the user has sized stay.
void TableView::widenToLabels() {
    if (!autoFitColWidth)
        return;
    resizeTogether([this] {
        for (int col = 0; col < tableModel()->columnCountModel(); ++col) {
            if (!colSizes->isByHand(col))
                colSizes->widen(col, std::min(getHorizontalHeaderView()->labelWidth(col), maximumColumnWidth));
        }
    });
}

/// A view that has not been shown has no size yet, and what is in sight in it says nothing.
void TableView::scrollAfterFit() {
    if (isVisible())
        scrollToMainCell(true, false);
}

// Rows.

int TableView::calculateAutoFitRowHeight(int row) const {
    return calculateAutoFitRowHeight(row, verticalHeader()->resizeContentsPrecision());
}

int TableView::calculateAutoFitRowHeight(int row, int precision) const {
    return RowFit(*this, tableFont, tableModel()->getNumHeaderCols(), tableModel()->columnCountModel(), precision,
                  maximumRowHeight)
        .heightOf(row);
}

void TableView::fitRow(RowFit const& fit, int row) {
    int const height = fit.heightOf(row);
    if (height > 0)
        rowSizes->fit(row, std::min(std::max(height, rowSizes->defaultSize()), maximumRowHeight));
    else
        boundRow(row);
}

void TableView::boundRow(int row) {
    enforceMinimumRowHeight(row);
    enforceEmptyRowHeight(row);
    enforceMaximumRowHeight(row);
}

void TableView::enforceAutoFitRowHeight(bool scroll) {
    showSizes();
    if (autoFitRowHeight) {
        std::vector<int> rows(std::size_t(tableModel()->rowCountModel()));
        std::iota(rows.begin(), rows.end(), 0);
        enforceAutoFitRowHeights(rows);
    }
    resizeTogether([this] {
        enforceMinimumRowHeight();
        enforceEmptyRowHeight();
        enforceMaximumRowHeight();
    });
    if (scroll)
        scrollAfterFit();
}

void TableView::enforceAutoFitRowHeights(std::vector<int> const& rows) {
    showSizes();
    if (!autoFitRowHeight && rowSizes->areDefault())
        return;
    resizeTogether([&] {
        if (autoFitRowHeight) {
            RowFit const fit(*this, tableFont, tableModel()->getNumHeaderCols(), tableModel()->columnCountModel(),
                             verticalHeader()->resizeContentsPrecision(), maximumRowHeight);
            int const count = tableModel()->rowCountModel();
            for (int const row : rows) {
                if (row >= 0 && row < count)
                    fitRow(fit, row);
            }
            return;
        }
        for (int const row : rows) {
            if (row < rowSizes->end())
                boundRow(row);
        }
    });
}

void TableView::setAutoFitRowHeight(bool on, bool emitChange) {
    autoFitRowHeight = on;
    for (AbstractTableView* const view : allViews())
        view->setWordWrap(on);
    enforceAutoFitRowHeight(true);
    if (emitChange)
        emit fileMetadataChangedSignal();
}

// Columns.

int TableView::estimateMaxWidthForColumnMainTable(int col, int precision, int defaultWidth, int maxWidth,
                                                  bool& allEmpty) {
    allEmpty = true;
    TableModel const& model = *tableModel();
    ColumnSample sample(averageCharWidth, maxWidth);
    for (int const row : SampledLines(model.getNumVisibleHeaderRows(), model.rowCountModel(), precision)) {
        if (!sample.add(model.index(row, col).data().toString()))
            return maxWidth;
    }
    allEmpty = sample.isEmpty();
    // Those of highlighted header columns are bold.
    columnSampleTable.setFont(model.index(model.getNumVisibleHeaderRows(), col).data(Qt::FontRole).value<QFont>());
    int const width = allEmpty && defaultWidth >= 0 ? defaultWidth : columnSampleTable.widthOf(sample.texts());
    return maxWidth >= 0 ? std::min(width, maxWidth) : width;
}

/// The width that the header rows ask for. They are measured as the band of header rows shows them, by the cells' own
/// font, which is bold where headers are highlighted.
int TableView::headerRowsWidth(int col) {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    int width = 0;
    for (int const row : SampledLines(
             0, std::min(tableModel()->getNumVisibleHeaderRows(), tableModel()->rowCountModel()), editPrecision)) {
        QModelIndex const cell = tableModel()->index(row, col);
        QString const text = cell.data().toString();
        if (text.isEmpty())
            continue;
        if (qint64(averageBoldCharWidth) * text.size() > maximumColumnWidth)
            return maximumColumnWidth;
        width = std::max(width, itemDelegate()->sizeHint(option, cell).width() + (showGrid() ? 1 : 0));
    }
    return width;
}

void TableView::resizeColumnToContents(int col, int precision) {
    int width = colSizes->defaultSize();
    if (col < tableModel()->columnCountModel()) {
        bool allEmpty = false;
        width = estimateMaxWidthForColumnMainTable(col, precision, width, maximumColumnWidth, allEmpty);
        width = std::max({width, getHorizontalHeaderView()->labelWidth(col), headerRowsWidth(col)});
    }
    colSizes->fit(col, std::min(width, maximumColumnWidth));
}

void TableView::resizeColumnsToContents() {
    resizeTogether([this] {
        int const precision = horizontalHeader()->resizeContentsPrecision();
        // Columns behind the data are empty, and most often as wide as those without a width of their own.
        bool const emptyFit = colSizes->defaultSize() <= maximumColumnWidth;
        int const count = horizontalHeader()->count();
        for (int col = 0; col < (emptyFit ? std::min(count, tableModel()->columnCountModel()) : count); ++col)
            resizeColumnToContents(col, precision);
        if (emptyFit)
            colSizes->resetBehindData();
        showSizes();
    });
}

int TableView::typedWidth(QString const& text, bool bold) {
    if (qint64(bold ? averageBoldCharWidth : averageCharWidth) * text.size() > maximumColumnWidth)
        return maximumColumnWidth;
    QFont font = tableFont;
    font.setWeight(bold ? QFont::Bold : tableFont.weight());
    measuringTable.setFont(font);
    return std::min(measuringTable.widthOf({text}), maximumColumnWidth);
}

/// While a text is typed its columns only grow; the cells above and below are not looked at before the edit is over.
void TableView::widenTo(QString const& text, RangeSet const& ranges) {
    if (!autoFitColWidth)
        return;
    std::array<int, 2> widths{-1, -1}; // plain and bold
    // Where bold cells are edited they are those at the top.
    std::map<int, int> topRows; // by column
    CellRegion const cells = ranges.coverage({tableModel()->rowCount(), tableModel()->columnCount()}, true);
    for (CellRect const& rect : cells.rects()) {
        for (int col = rect.left; col <= rect.right; ++col)
            topRows.try_emplace(col, rect.top);
    }
    for (auto const& [col, row] : topRows) {
        bool const bold = tableModel()->index(row, col).data(Qt::FontRole).value<QFont>().bold();
        int& width = widths[bold ? 1 : 0];
        if (width < 0)
            width = typedWidth(text, bold);
        colSizes->widen(col, width);
    }
}

void TableView::enforceAutoFitColWidth(bool scroll) {
    if (autoFitColumnCountdown == 0)
        return;
    if (autoFitColumnCountdown > 0)
        --autoFitColumnCountdown;
    showSizes();
    if (!autoFitColWidth)
        return;
    resizeColumnsToContents();
    if (scroll)
        scrollAfterFit();
}

void TableView::enforceAutoFitColWidths(std::vector<int> const& cols) {
    showSizes();
    if (!autoFitColWidth)
        return;
    resizeTogether([&] {
        for (int const col : cols)
            resizeColumnToContents(col, editPrecision);
    });
}

void TableView::setAutoFitColWidth(bool on, bool emitChange) {
    autoFitColWidth = on;
    enforceAutoFitColWidth(true);
    if (emitChange)
        emit fileMetadataChangedSignal();
}

// What a fit is judged by.

void TableView::setResizeContentsPrecision(int precision) {
    resizeContentsPrecision = precision;
    horizontalHeader()->setResizeContentsPrecision(precision);
    verticalHeader()->setResizeContentsPrecision(precision);
}

void TableView::setFont(QFont const& font) {
    tableFont = font;
    applyFont();
}

void TableView::setTextSize(int size) {
    textSize = size;
    applyFont();
}

void TableView::applyFont() {
    tableFont.setPixelSize(textSize);
    tableModel()->setFont(tableFont);
    tableModel()->setTextSize(textSize);
    for (AbstractTableView const* const view : allViews()) {
        view->tableDelegate()->setFont(tableFont);
        view->tableDelegate()->setTextSize(textSize);
    }
    constexpr double widerThanAverage = 1.1;
    QFont bold = tableFont;
    bold.setWeight(QFont::Bold);
    averageCharWidth = int(QFontMetrics(tableFont).averageCharWidth() * widerThanAverage);
    averageBoldCharWidth = int(QFontMetrics(bold).averageCharWidth() * widerThanAverage);
    updateShownSize(Axis::Rows);
    refreshView();
    enforceAutoFitRowHeight(true);
    enforceAutoFitColWidth(true);
}

// The warning.

bool TableView::isLargeForAutoFit(Axis axis) const {
    constexpr int many = 10000;
    TableModel const& model = *tableModel();
    bool const isLarge = axis == Axis::Rows ? autoFitRowHeight && model.rowCountModel() > many
                                            : autoFitColWidth && model.columnCountModel() > many;
    return isLarge && !suppressAutoFitWarnings;
}

void TableView::warnAutoFitIfLargeFile() {
    int const rowCount = tableModel()->rowCountModel();
    int const colCount = tableModel()->columnCountModel();
    bool const rows = isLargeForAutoFit(Axis::Rows);
    bool const cols = isLargeForAutoFit(Axis::Columns);
    if (!rows && !cols)
        return;
    QString text;
    if (rows && cols)
        text = tr("This file has a lot of rows (%1) and columns (%2).\n"
                  "Auto-Fit Row Height and Auto-Fit Column Width are enabled, so loading will take a while.\n"
                  "Would you like to disable them?")
                   .arg(rowCount)
                   .arg(colCount);
    else if (rows)
        text = tr("This file has a lot of rows (%1).\n"
                  "Auto-Fit Row Height is enabled, so loading will take a while.\n"
                  "Would you like to disable Auto-Fit Row Height?")
                   .arg(rowCount);
    else
        text = tr("This file has a lot of columns (%1).\n"
                  "Auto-Fit Column Width is enabled, so loading will take a while.\n"
                  "Would you like to disable Auto-Fit Column Width?")
                   .arg(colCount);
    if (!askToDisableAutoFit(text))
        return;
    if (rows)
        setAutoFitRowHeight(false, true);
    if (cols)
        setAutoFitColWidth(false, true);
}

bool TableView::askToDisableAutoFit(QString const& text) {
    constexpr int besideLabel = 20;
    MsgBox box(window());
    box.setTheme(tableModel()->getTheme());
    box.setText(text);
    QPushButton* const disable = box.addButton(tr("&Disable Auto-Fit"), QMessageBox::AcceptRole);
    QPushButton* const keep = box.addButton(tr("&Keep Auto-Fit"), QMessageBox::RejectRole);
    box.setDefaultButton(disable);
    auto* const dontAsk = new QCheckBox(tr("Don't ask me again"), &box);
    box.setCheckBox(dontAsk);
    box.conditionButtons();
    for (QPushButton* const button : {disable, keep})
        MsgBox::enlarge(*button, {button->fontMetrics().horizontalAdvance(button->text()) + besideLabel, 0});
    box.exec();
    if (dontAsk->isChecked()) {
        suppressAutoFitWarnings = true;
        emit suppressAutoFitWarningsChangedSignal(true);
    }
    return box.clickedButton() == disable;
}
