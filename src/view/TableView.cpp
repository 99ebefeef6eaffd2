#include "view/TableView.h"

#include "model/undo/TableUndoCommand.h"
#include "view/FrozenTableView.h"
#include "view/HeaderView.h"
#include "view/HiddenNotice.h"
#include "view/ScrollAreaBottomRightCornerWidget.h"
#include "view/TLCornerButton.h"
#include "view/TableDelegate.h"

#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace {

constexpr int wheelSnapDelayMs = 100;

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
    setupAnimations();
    for (QObject* const watched : std::initializer_list<QObject*>{horizontalHeader(), verticalHeader(), viewport(),
                                                                  verticalScrollBar(), horizontalScrollBar()})
        watched->installEventFilter(this);
    connect(this, &AbstractTableView::scrollSignal, this,
            [this](Direction direction, bool page) { scroll(direction, page); });
    connect(this, &AbstractTableView::scrollToMainCellSignal, this, &TableView::scrollToMainCell);
    connectEditing();
    TableView::setModel(new TableModel(this));
    hiddenNotice = new HiddenNotice(this);
    applyFont();
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
    rowSizes = new LineSizes(Axis::Rows, *verticalHeader(), this);
    colSizes = new LineSizes(Axis::Columns, *horizontalHeader(), this);
}

void TableView::setupCorners() {
    topLeftCornerButton = new TLCornerButton(this);
    topLeftCornerButton->installEventFilter(this);
    connectHeader(getHorizontalHeaderView());
    connectHeader(getVerticalHeaderView());
    bottomRightCorner = new ScrollAreaBottomRightCornerWidget(this);
    setCornerWidget(bottomRightCorner);
}

void TableView::setupScrollBars() {
    wheelSnapTimer.setTimerType(Qt::CoarseTimer);
    wheelSnapTimer.setInterval(wheelSnapDelayMs);
    connect(&wheelSnapTimer, &QTimer::timeout, this, &TableView::onWheelSnapTimerStopped);
    for (Axis const axis : {Axis::Rows, Axis::Columns}) {
        QScrollBar const* const bar = scrollBarOf(axis);
        connect(bar, &QScrollBar::valueChanged, this, [this, axis] {
            followScrollBar(axis);
            onScrollBarValueChanged();
        });
        connect(bar, &QScrollBar::sliderReleased, this, [this, axis] { snapScrollBarPosition(axis); });
    }
}

void TableView::setModel(QAbstractItemModel* model) {
    AbstractTableView::setModel(model);
    setTableOfSizes();
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
    connect(model, &TableModel::loadFailedSignal, this, &TableView::loadFailedSignal);
    connect(model, &TableModel::tableSizeChangedSignal, this, &TableView::tableSizeChangedSignal);
    connect(model, &TableModel::mainCellChangedSignal, this, &TableView::onMainCellChanged);
    connect(model, &TableModel::selectionSizeChangedSignal, this, &TableView::selectionSizeChangedSignal);
    connect(model, &TableModel::updateStatusBarSignal, this, &TableView::updateStatusBarSignal);
    connect(model, &TableModel::updateFindReplaceMatchesSignal, this, &TableView::updateFindReplaceMatchesSignal);
    connect(model, &TableModel::undoStackCleanChangedSignal, this, &TableView::undoStackCleanChangedSignal);
    connect(model, &TableModel::undoStackCleanChangedSignal, this, [this](bool clean) { autoSaved = clean; });
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
    connect(model, &TableModel::enforceAutoFitAllSignal, this,
            [this](Axis axis) { axis == Axis::Rows ? enforceAutoFitRowHeight(true) : enforceAutoFitColWidth(true); });
    connectSizesAlong(Axis::Rows);
    connectSizesAlong(Axis::Columns);
}

// Undo. No command changes the table under an open edit, which is a step of its own before it.

void TableView::endEditBeforeStep() {
    if (pendingEdit)
        stopEditing();
}

void TableView::pushUndoCommand(QUndoCommand* command) {
    endEditBeforeStep();
    // One that would do nothing must not cost the user what can be redone.
    if (command->isObsolete() || refuses(command))
        delete command;
    else
        changeStack([this, command] { stack.push(command); });
}

void TableView::pushUndoCommands(QString const& text, std::vector<QUndoCommand*> const& commands) {
    endEditBeforeStep();
    std::vector<QUndoCommand*> taken;
    for (QUndoCommand* const command : commands) {
        if (refuses(command))
            delete command;
        else
            taken.push_back(command);
    }
    if (taken.empty())
        return;
    changeStack([&] {
        bool const several = taken.size() > 1;
        if (several)
            stack.beginMacro(text);
        for (QUndoCommand* const command : taken)
            stack.push(command);
        if (several)
            stack.endMacro();
    });
}

void TableView::undo() {
    endEditBeforeStep();
    if (!refuses(stack.command(stack.index() - 1)))
        changeStack([this] { stack.undo(); });
}

void TableView::redo() {
    endEditBeforeStep();
    if (!refuses(stack.command(stack.index())))
        changeStack([this] { stack.redo(); });
}

/// Whether the table loads, or is read-only and the command, or one within it, would change its cells. Null is no
/// command.
bool TableView::refuses(QUndoCommand const* command) const {
    if (isLoading() || command == nullptr)
        return isLoading();
    auto const* const change = dynamic_cast<TableUndoCommand const*>(command);
    bool refused = readOnly && change != nullptr && change->changesCells();
    for (int i = 0; i < command->childCount() && !refused; ++i)
        refused = refuses(command->child(i));
    return refused;
}

// A command saves before the stack counts it, so the stack learns of the save afterwards.
void TableView::changeStack(std::function<void()> const& change) {
    finishAnimations();
    autoSaved = false;
    change();
    if (autoSaved)
        stack.setClean();
    showSizes();
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
    hiddenNotice->setActions(actions);
}

void TableView::setTheme(Theme const& theme) {
    tableModel()->setTheme(theme);
    bottomRightCorner->setColor(theme.getBackground1Color());
    tableDelegate()->setEditorBackgroundColor(theme.getCellColor());
    tableDelegate()->setTextColor(theme.getTextColor());
    for (FrozenTableView* const view : frozenViews())
        view->setTheme(theme);
    hiddenNotice->setTheme(theme);
}

void TableView::refreshView() {
    showSizes();
    AbstractTableView::refreshView();
    for (FrozenTableView* const view : frozenViews()) {
        if (view->isVisible())
            view->refreshView();
    }
}

// The file.

void TableView::setReadOnly(bool on) {
    readOnly = on;
    settings.setValue(SettingType::ReadOnly, on);
    tableModel()->setReadOnly(on);
}

void TableView::makeEditable() {
    if (tableModel()->getTableData().makeEditable())
        setReadOnly(false);
}

void TableView::setExtensionData(ExtensionData const& data) {
    TableModel* const model = tableModel();
    model->setExtension(data.extension);
    model->setDelimiter(data.delimiter, data.saveDelimiter);
    model->setLineEnding(data.lineEnding);
    model->setEncoding(data.encoding);
    model->setParsingStandard(data.parsingStandard);
}
