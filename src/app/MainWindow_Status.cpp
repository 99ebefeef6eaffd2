// What the window tells about its active table: the title and the labels of the status bar.

#include "app/MainWindow.h"
#include "app/StatusBar.h"
#include "core/DialectUtilities.h"
#include "core/EncodingUtilities.h"
#include "model/LossyCells.h"
#include "view/TableView.h"

using Label = StatusBar::Label;

void MainWindow::updateWindowTitle() {
    QString const program = QStringLiteral("Gridwright");
    setWindowTitle(activeTable == nullptr
                       ? program
                       : QStringLiteral("%1 - %2").arg(activeTable->tableModel()->getTableName(), program));
}

void MainWindow::connectStatusBar(TableView* table) {
    auto const ifActive = [this, table](auto&& tell) {
        if (table == activeTable) {
            tell();
        }
    };
    connect(table, &TableView::tableSizeChangedSignal, this,
            [this, ifActive](int rows, int cols, int visibleRows, int visibleCols) {
                ifActive([&] { onTableSizeChanged(rows, cols, visibleRows, visibleCols); });
            });
    connect(table, &TableView::selectionSizeChangedSignal, this,
            [this, ifActive](RangeSize const& size) { ifActive([&] { onSelectionSizeChanged(size); }); });
    connect(table, &TableView::mainCellChangedSignal, this, [this, table, ifActive] {
        ifActive([&] { onMainCellLengthChanged(table->getMainCell(true).value().toString().size()); });
    });
    connect(table, &TableView::mainCellLengthChangedSignal, this,
            [this, ifActive](int length) { ifActive([&] { onMainCellLengthChanged(length); }); });
    connect(table, &TableView::updateStatusBarSignal, this, [this, ifActive] { ifActive([&] { updateStatusBar(); }); });
    connect(table->tableModel(), &TableModel::updateStatsLabelSignal, this,
            [this, ifActive](QString const& text) { ifActive([&] { labelBar->setText(Label::Stats, text); }); });
    connect(table->tableModel(), &TableModel::lostCharactersSignal, this, [this, table, ifActive](qint64 cells) {
        ifActive([&] { tellLostCharacters(*table->tableModel(), cells); });
    });
    connectDialectLabels(table);
}

void MainWindow::tellLostCharacters(TableModel const& model, qint64 cells) {
    constexpr int displayMs = 20000;
    if (cells > 0) {
        lostCharactersNotice = LossyCells::notice(cells, model.getEncoding());
        labelBar->showMessage(lostCharactersNotice, displayMs);
    } else if (labelBar->currentMessage() == lostCharactersNotice) {
        labelBar->clearMessage();
    }
}

void MainWindow::connectDialectLabels(TableView* table) {
    TableModel const* const model = table->tableModel();
    auto const update = [this, table] {
        if (table == activeTable) {
            updateDialectLabels();
        }
    };
    connect(model, &TableModel::setDelimiterSignal, this, update);
    connect(model, &TableModel::setLineEndingSignal, this, update);
    connect(model, &TableModel::setEncodingSignal, this, update);
    connect(model, &TableModel::setParsingStandardSignal, this, update);
}

void MainWindow::updateDialectLabels() {
    TableModel const& model = *activeTable->tableModel();
    labelBar->setText(Label::Delimiter, StatusBar::delimiterText(model.getDelimiter(), model.getSaveDelimiter()));
    labelBar->setText(Label::Encoding, Utilities::convertEncodingTypeToString(model.getEncoding()));
    labelBar->setText(Label::LineEnding, Utilities::convertLineEndingTypeToShortString(model.getLineEnding(), false));
}

void MainWindow::updateStatusBar() {
    TableModel const& model = *activeTable->tableModel();
    QString const mode = activeTable->isReadOnly() ? tr("Read-Only") : tr("Editable");
    QString const formerMode = labelBar->text(Label::Mode);
    if (!formerMode.isEmpty() && mode != formerMode)
        labelBar->clearMessage(); // it may speak of the other mode
    labelBar->setText(Label::Mode, mode);
    updateDialectLabels();
    labelBar->setText(Label::Filters, StatusBar::filtersText({}, {}));
    onSelectionSizeChanged(activeTable->tableModel()->getSelectionSize());
    onMainCellLengthChanged(activeTable->getMainCell(true).value().toString().size());
    TableSize const size = model.getShownSize();
    onTableSizeChanged(size.rawRows, size.rawCols, size.modelRows, size.modelCols);
}

void MainWindow::onSelectionSizeChanged(RangeSize const& size) {
    labelBar->setText(Label::Selection, StatusBar::selectionText(size));
    updateStatsLabel();
}

void MainWindow::onMainCellLengthChanged(int length) {
    labelBar->setText(Label::CellLength, tr("Cell Length: %1").arg(length));
}

// Few cells are summed at once; for more the thread takes over, and the label waits.
void MainWindow::updateStatsLabel() {
    constexpr qint64 fewCells = 5000;
    TableModel& model = *activeTable->tableModel();
    statistics.stop();
    if (activeTable->isReadOnly() || activeTable->isLoading()) {
        labelBar->setText(Label::Stats, QStringLiteral("Sum: -      Mean: -"));
    } else if (model.numSelectedCells() < fewCells) {
        model.updateStatusBarStats();
    } else {
        labelBar->setText(Label::Stats, QStringLiteral("Sum: ...    Mean: ..."));
        statistics.start(&model);
    }
}

void MainWindow::onTableSizeChanged(int rows, int cols, int visibleRows, int visibleCols) {
    labelBar->setText(Label::TableSize, activeTable->isLoading()
                                            ? tr("Loading ...")
                                            : StatusBar::tableSizeText(rows, cols, visibleRows, visibleCols));
}
