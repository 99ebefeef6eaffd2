#include "view/TableView.h"

#include "view/FrozenTableView.h"
#include "view/HeaderView.h"
#include "view/ScrollAreaBottomRightCornerWidget.h"
#include "view/TLCornerButton.h"
#include "view/TableDelegate.h"

#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

constexpr int defaultRowHeight = 24;
constexpr int defaultColumnWidth = 80;
constexpr int wheelSnapDelayMs = 100;

/// How many cells a section's size is judged by, falling with the number of rows.
int precisionForRows(int rows) {
    if (rows > 999999)
        return 50;
    return rows > 99999 ? 100 : 500;
}

} // namespace

TableView::TableView(QWidget* parent) : AbstractTableView(TableType::Main, parent) {
    setAccessibleName(tr("Table"));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setupSections();
    setupFrozenHeaders();
    setupCorners();
    setupScrollBars();
    for (QObject* const watched : std::initializer_list<QObject*>{horizontalHeader(), verticalHeader(), viewport(),
                                                                  verticalScrollBar(), horizontalScrollBar()})
        watched->installEventFilter(this);
    connect(this, &AbstractTableView::scrollSignal, this,
            [this](Direction direction, bool page) { scroll(direction, page); });
    connect(this, &AbstractTableView::scrollToMainCellSignal, this, &TableView::scrollToMainCell);
    connectEditing();
    TableView::setModel(new TableModel(this));
    setTheme(tableModel()->getTheme());
}

TableView::~TableView() {
    // The parts outlive this class by a moment and still signal, when they are hidden for one.
    stack.disconnect(this);
    QList<QObject*> const parts = findChildren<QObject*>();
    for (QObject* const part : parts)
        part->disconnect(this);
}

// Construction.

void TableView::setupSections() {
    verticalHeader()->setDefaultSectionSize(defaultRowHeight);
    horizontalHeader()->setDefaultSectionSize(defaultColumnWidth);
}

void TableView::setupFrozenHeaders() {
    horizontalFrozenView = new FrozenTableView(TableType::HorizontalFrozen, this);
    verticalFrozenView = new FrozenTableView(TableType::VerticalFrozen, this);
    cornerFrozenView = new FrozenTableView(TableType::CornerFrozen, this);
    horizontalFrozenView->stackUnder(cornerFrozenView);
    verticalFrozenView->stackUnder(cornerFrozenView);
    for (FrozenTableView* const view : frozenViews()) {
        view->setNumRows(numHeaderRows);
        view->setNumCols(numHeaderCols);
        view->verticalHeader()->setDefaultSectionSize(defaultRowHeight);
        view->horizontalHeader()->setDefaultSectionSize(defaultColumnWidth);
        view->hide();
        view->viewport()->installEventFilter(this);
        connect(view, &FrozenTableView::moveSelectionRelativeSignal, this, &TableView::moveSelectionRelativeSlot);
        connect(view, &AbstractTableView::scrollSignal, this, &AbstractTableView::scrollSignal);
        connect(view, &AbstractTableView::scrollToMainCellSignal, this, &TableView::scrollToMainCell);
        connect(view, &AbstractTableView::addContextSignal, this, &AbstractTableView::addContextSignal);
        connect(view, &AbstractTableView::removeContextSignal, this, &AbstractTableView::removeContextSignal);
        connect(view, qOverload<bool>(&AbstractTableView::startEditingSignal), this,
                qOverload<bool>(&AbstractTableView::startEditingSignal));
        connect(view, qOverload<bool, QKeyEvent*>(&AbstractTableView::startEditingSignal), this,
                qOverload<bool, QKeyEvent*>(&AbstractTableView::startEditingSignal));
        // A drag in a band shows in all views.
        connect(view, &AbstractTableView::selectionExpandingSignal, this, &TableView::refreshView);
    }
}

void TableView::setupCorners() {
    topLeftCornerButton = new TLCornerButton(this);
    topLeftCornerButton->installEventFilter(this);
    connect(horizontalHeader(), &QHeaderView::geometriesChanged, this, &TableView::placeCornerButton);
    connect(verticalHeader(), &QHeaderView::geometriesChanged, this, &TableView::placeCornerButton);
    bottomRightCorner = new ScrollAreaBottomRightCornerWidget(this);
    setCornerWidget(bottomRightCorner);
}

void TableView::setupScrollBars() {
    wheelSnapTimer.setTimerType(Qt::CoarseTimer);
    wheelSnapTimer.setInterval(wheelSnapDelayMs);
    connect(&wheelSnapTimer, &QTimer::timeout, this, &TableView::onWheelSnapTimerStopped);
    for (Axis const axis : {Axis::Rows, Axis::Columns}) {
        QScrollBar const* const bar = scrollBarOf(axis);
        connect(bar, &QScrollBar::valueChanged, this, &TableView::onScrollBarValueChanged);
        connect(bar, &QScrollBar::sliderReleased, this, [this, axis] { snapScrollBarPosition(axis); });
    }
}

std::array<FrozenTableView*, 3> TableView::frozenViews() const {
    return {horizontalFrozenView, verticalFrozenView, cornerFrozenView};
}

void TableView::setModel(QAbstractItemModel* model) {
    AbstractTableView::setModel(model);
    connectSignalsWithModel();
    connectSizesWithModel();
    connectEditingWithModel();
    tableModel()->setSelection(Range(0, 0, RangeIndexType::Model));
    refreshView();
    selectionModel()->clear();
}

void TableView::connectSignalsWithModel() {
    TableModel* const model = tableModel();
    connect(model, &TableModel::startProgressUpdateSignal, this, &TableView::startProgressUpdateSignal);
    connect(model, &TableModel::loadProgressUpdateSignal, this, &TableView::loadProgressUpdateSignal);
    connect(model, &TableModel::loadFinishedSignal, this, &TableView::loadFinishedSignal);
    connect(model, &TableModel::tableSizeChangedSignal, this, &TableView::tableSizeChangedSignal);
    connect(model, &TableModel::mainCellChangedSignal, this, &TableView::mainCellChangedSignal);
    connect(model, &TableModel::selectionSizeChangedSignal, this, &TableView::selectionSizeChangedSignal);
    connect(model, &TableModel::updateStatusBarSignal, this, &TableView::updateStatusBarSignal);
    connect(model, &TableModel::updateFindReplaceMatchesSignal, this, &TableView::updateFindReplaceMatchesSignal);
    connect(model, &TableModel::undoStackCleanChangedSignal, this, &TableView::undoStackCleanChangedSignal);
    connect(model, &TableModel::addContextSignal, this, &AbstractTableView::addContextSignal);
    connect(model, &TableModel::removeContextSignal, this, &AbstractTableView::removeContextSignal);
    connect(model, &TableModel::newPendingSelectionCornerSignal, this, &TableView::onNewPendingSelectionCorner);
    connect(model, &TableModel::scrollToMainCellSignal, this, &TableView::scrollToMainCell);
    connect(model, &TableModel::scrollToRowSignal, this, &TableView::scrollToRow);
    connect(model, &TableModel::scrollToColSignal, this, &TableView::scrollToCol);
    connect(model, &TableModel::selectionChangedSignal, this, [this] {
        refreshView();
        emit selectionChangedSignal(this);
    });
}

void TableView::connectSizesWithModel() {
    TableModel* const model = tableModel();
    connect(model, &TableModel::enforceTableSizeSignal, this, &TableView::enforceTableSize);
    connect(model, &TableModel::toggleTransposeSignal, this, &TableView::refreshView);
    connect(model, &TableModel::refreshHeadersSignal, this, &TableView::refreshHeaders);
    connect(model, &TableModel::resizeRowSignal, this, &QTableView::setRowHeight);
    connect(model, &TableModel::resizeColSignal, this, &QTableView::setColumnWidth);
    connect(model, &TableModel::resizeRowsSignal, this, [this](std::vector<int> const& rows, int height) {
        std::for_each(rows.begin(), rows.end(), [&](int row) { setRowHeight(row, height); });
    });
    connect(model, &TableModel::resizeColsSignal, this, [this](std::vector<int> const& cols, int width) {
        std::for_each(cols.begin(), cols.end(), [&](int col) { setColumnWidth(col, width); });
    });
    auto const run = [](int first, int count) {
        std::vector<int> lines(static_cast<std::size_t>(std::max(count, 0)));
        std::iota(lines.begin(), lines.end(), first);
        return lines;
    };
    connect(model, qOverload<int, int>(&TableModel::removeRowsGuiSignal), this,
            [this, run](int row, int count) { removeRowsSlot(run(row, count)); });
    connect(model, qOverload<std::vector<int>>(&TableModel::removeRowsGuiSignal), this, &TableView::removeRowsSlot);
    connect(model, qOverload<int, int>(&TableModel::removeColsGuiSignal), this,
            [this, run](int col, int count) { removeColsSlot(run(col, count)); });
    connect(model, qOverload<std::vector<int>>(&TableModel::removeColsGuiSignal), this, &TableView::removeColsSlot);
}

// State and options.

void TableView::setContext(Context newContext) {
    AbstractTableView::setContext(newContext);
    for (FrozenTableView* const view : frozenViews())
        view->setContext(newContext);
}

void TableView::setLetEditorPaneConsumeNavigationKeystrokes(bool on) {
    AbstractTableView::setLetEditorPaneConsumeNavigationKeystrokes(on);
    for (FrozenTableView* const view : frozenViews())
        view->setLetEditorPaneConsumeNavigationKeystrokes(on);
}

void TableView::setupContextMenus(CommandActions const& actions) {
    AbstractTableView::setupContextMenus(actions);
    for (FrozenTableView* const view : frozenViews())
        view->setupContextMenus(actions);
}

void TableView::setTheme(Theme const& theme) {
    tableModel()->setTheme(theme);
    bottomRightCorner->setColor(theme.getBackground1Color());
    for (AbstractTableView const* const view :
         std::initializer_list<AbstractTableView*>{this, horizontalFrozenView, verticalFrozenView, cornerFrozenView}) {
        view->tableDelegate()->setEditorBackgroundColor(theme.getCellColor());
        view->tableDelegate()->setTextColor(theme.getTextColor());
    }
}

void TableView::refreshView() {
    AbstractTableView::refreshView();
    for (FrozenTableView* const view : frozenViews()) {
        if (view->isVisible())
            view->refreshView();
    }
}

void TableView::refreshHeaders() {
    horizontalHeader()->headerDataChanged(Qt::Horizontal, 0, std::max(horizontalHeader()->count() - 1, 0));
    verticalHeader()->headerDataChanged(Qt::Vertical, 0, std::max(verticalHeader()->count() - 1, 0));
}

void TableView::setResizeContentsPrecision(int precision) {
    horizontalHeader()->setResizeContentsPrecision(precision);
    verticalHeader()->setResizeContentsPrecision(precision);
}

// The file.

bool TableView::reloadFile(QString const& delimiter, EncodingType encoding, ParsingStandard standard) {
    TableModel& model = *tableModel();
    bool const same =
        delimiter == model.getDelimiter() && encoding == model.getEncoding() && standard == model.getParsingStandard();
    if (same || getFilepath().isEmpty())
        return false;
    stack.clear();
    startBackgroundLoad();
    return model.reloadFile(delimiter, encoding, standard);
}

void TableView::reloadFileReadOnly(bool on) {
    setReadOnly(on);
    if (!getFilepath().isEmpty()) {
        stack.clear();
        loadCSV(getFilepath(), true);
    }
}

void TableView::startBackgroundLoad() {
    hide();
    loading = true;
    setUpdatesEnabled(false);
}

void TableView::setReadOnly(bool on) {
    readOnly = on;
    settings.setValue(SettingType::ReadOnly, on);
    tableModel()->setReadOnly(on);
}

void TableView::setExtensionData(ExtensionData const& data) {
    TableModel* const model = tableModel();
    model->setExtension(data.extension);
    model->setDelimiter(data.delimiter, data.saveDelimiter);
    model->setLineEnding(data.lineEnding);
    model->setEncoding(data.encoding);
    model->setParsingStandard(data.parsingStandard);
}

void TableView::loadCSV(QString const& path, bool background) {
    if (background)
        startBackgroundLoad();
    TableModel* const model = tableModel();
    model->loadCSV(path, background, readOnly, model->getDelimiter(), model->getSaveDelimiter(), model->getEncoding(),
                   model->getParsingStandard());
    if (!background) {
        setResizeContentsPrecision(50);
        refreshView();
    }
}

// The scanner waits a moment at each report for this answer, so that it does not run ahead of the event queue.
void TableView::onStartProgressUpdate() {
    tableModel()->wakeLoader();
}

void TableView::onLoadProgressUpdate(int, int, int) {
    tableModel()->wakeLoader();
}

void TableView::onLoadFinished() {
    setResizeContentsPrecision(precisionForRows(tableModel()->rowCountModel()));
    setUpdatesEnabled(true);
    loading = false;
    show();
}

// Sizes.

void TableView::removeRowsSlot(std::vector<int> rows) {
    removeLines(Axis::Rows, std::move(rows));
}

void TableView::removeColsSlot(std::vector<int> cols) {
    removeLines(Axis::Columns, std::move(cols));
}

void TableView::removeLines(Axis axis, std::vector<int> lines) {
    std::sort(lines.begin(), lines.end());
    if (axis == Axis::Rows)
        tableModel()->removeRows(lines);
    else
        tableModel()->removeCols(lines);
    enforceTableSize();
}

void TableView::placeCornerButton() {
    int const frame = frameWidth();
    topLeftCornerButton->setGeometry(frame, frame, verticalHeader()->width(), horizontalHeader()->height());
}
