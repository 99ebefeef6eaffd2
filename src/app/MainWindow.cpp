#include "app/MainWindow.h"

#include "app/FileMetadataWidget.h"
#include "app/FindReplaceWidget.h"
#include "app/FindResultsWidget.h"
#include "app/GoneTables.h"
#include "app/NoticeLine.h"
#include "app/PaneView.h"
#include "app/SideBar.h"
#include "app/StatusBar.h"
#include "app/TabBar.h"
#include "commands/ExtensionTable.h"
#include "core/ModalHold.h"

#include <QCloseEvent>
#include <QMimeData>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

MainWindow::MainWindow(QWidget* parent) : UnbuiltCommands(parent), extensions(ExtensionTable::defaultRows()) {
    Q_INIT_RESOURCE(images);
    constexpr int narrowest = 200;
    setMinimumWidth(narrowest);
    setAcceptDrops(true);
    buildWidgets();
    setupWatch();
    commands.populate(this);
    loadPreferences();
    setupMenus();
    commandNewFile();
}

// The tables end after the window's own parts, and their undo stacks tell of their end.
MainWindow::~MainWindow() {
    goneTables->clear();
    for (TableView* const table : paneView->getTables()) {
        table->undoStack()->disconnect(this);
    }
    paneView->disconnect(this); // an edit that is open ends with its table
}

void MainWindow::buildWidgets() {
    constexpr int handleWidth = 5;
    auto const plainLayout = [](QWidget* widget) {
        auto* const layout = new QVBoxLayout(widget);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        return layout;
    };
    auto* const centre = new QWidget(this);
    auto* const panes = new QSplitter(Qt::Horizontal, centre);
    panes->setHandleWidth(handleWidth);
    goneTables = new GoneTables(centre);
    missingFiles = new NoticeLine(QString(), centre);
    openedFiles = new NoticeLine(QString(), centre);
    saveRemarks = new NoticeLine(QString(), centre);
    QVBoxLayout* const centreLayout = plainLayout(centre);
    centreLayout->addWidget(panes, 1);
    centreLayout->addWidget(goneTables->getLine());
    centreLayout->addWidget(missingFiles);
    centreLayout->addWidget(openedFiles);
    centreLayout->addWidget(saveRemarks);

    auto* const column = new QWidget(panes);
    auto* const tablesAndResults = new QSplitter(Qt::Vertical, column);
    tablesAndResults->setHandleWidth(handleWidth);
    tabBar = new TabBar(column);
    findReplaceWidget = new FindReplaceWidget(column);
    paneView = new PaneView(tablesAndResults);
    findResultsWidget = new FindResultsWidget(tablesAndResults);
    tablesAndResults->setStretchFactor(0, 1);
    tablesAndResults->setStretchFactor(1, 0);
    QVBoxLayout* const columnLayout = plainLayout(column);
    columnLayout->addWidget(tabBar);
    columnLayout->addWidget(findReplaceWidget);
    columnLayout->addWidget(tablesAndResults, 1);

    sideBar = new SideBar(panes);
    panes->insertWidget(0, sideBar);
    metadataArea = new QScrollArea(panes);
    fileMetadataWidget = new FileMetadataWidget(metadataArea);
    fileMetadataWidget->setMaximumHeight(10000);
    metadataArea->setWidget(fileMetadataWidget);
    metadataArea->hide();
    panes->setStretchFactor(panes->indexOf(column), 1);
    setCentralWidget(centre);
    labelBar = new StatusBar(this);
    setStatusBar(labelBar);
    connect(tabBar, &TabBar::tabBarIndexChangedSignal, this, &MainWindow::setActiveTable);
    connect(tabBar, &TabBar::closeFileSignal, this, &MainWindow::closeFile);
    connect(paneView, &PaneView::addContextSignal, this, [this](Context flags) {
        Context changed = context;
        addContextGlobal(changed, flags);
        setContext(changed);
    });
    connect(paneView, &PaneView::removeContextSignal, this, [this](Context flags) {
        Context changed = context;
        removeContextGlobal(changed, flags);
        setContext(changed);
    });
    connect(labelBar, &StatusBar::sideBarButtonPressedSignal, this,
            [this] { runCommand(QStringLiteral("Toggle Show Side Bar")); });
    connect(labelBar, &StatusBar::metadataButtonPressedSignal, this,
            [this] { runCommand(QStringLiteral("Toggle Show File Metadata")); });
    connect(&statistics, &SelectionStatistics::finishedSignal, this,
            [this](QString const& text) { labelBar->setText(StatusBar::Label::Stats, text); });
    connect(paneView, &PaneView::tableLoadBegunSignal, this, &MainWindow::onTableLoadBegun);
    connect(paneView, &PaneView::tableLoadedSignal, this,
            [this](TableView* table) { ModalHold::whenFree(table, [this, table] { onTableLoaded(table); }); });
    connect(paneView, &PaneView::tableLoadFailedSignal, this, &MainWindow::onTableLoadFailed);
    connect(goneTables, &GoneTables::takenBackSignal, this, &MainWindow::takeBack);
    for (NoticeLine const* const line : {goneTables->getLine(), missingFiles, openedFiles, saveRemarks}) {
        for (auto const leaving : {&NoticeLine::dismissedSignal, &NoticeLine::leftSignal}) {
            connect(line, leaving, this, [this] { activeTable->takeFocus(); });
        }
    }
    connect(openedFiles, &NoticeLine::leftSignal, openedFiles, &NoticeLine::dismiss);
    setupLauncher();
}

void MainWindow::setActiveTable(TableView* table) {
    if (table != nullptr) {
        showTable(table);
        table->takeFocus();
    }
}

void MainWindow::showTable(TableView* table) {
    QPointer<TableView> const wanted(table);
    if (activeTable != nullptr && activeTable != table && hasAnyContext(context, Context::CellEditing)) {
        activeTable->stopEditing(); // may ask
    }
    if (!wanted) {
        return;
    }
    activeTable = table;
    paneView->setActiveTable(table);
    tabBar->selectTabOnly(table);
    refreshActiveTable();
}

void MainWindow::refreshActiveTable() {
    Context changed = context & globalContextMask;
    addContextGlobal(changed, contextOfTable(activeTable));
    setContext(changed);
    updateWindowTitle();
    updateStatusBar();
}

Context MainWindow::contextOfTable(TableView const* table) const {
    Context bits = Context::TableActive;
    bits |= table->getFilepath().isEmpty() ? Context::None : Context::FileOnDisk;
    bits |= table->isReadOnly() ? Context::ReadOnly : Context::None;
    bits |= table->tableModel()->hasHiddenLines() ? Context::HiddenPresent : Context::None;
    bits |= table->tableModel()->isSelectionMultiCell() ? Context::MultiCellSelection : Context::None;
    return bits;
}

void MainWindow::runCommand(QString const& name) {
    if (Command const* const command = commands.find(name)) {
        command->action->trigger();
    }
}

// Bits bring others along, and whoever sets one need not know of a load.
void MainWindow::setContext(Context newContext) {
    bool const isLoading = activeTable != nullptr && activeTable->isLoading();
    context = isLoading ? withoutTable(newContext) : newContext;
    commands.enableMatching(context);
    paneView->setContext(context);
    settings.setValue(SettingType::ShowEditorPane, hasAnyContext(context, Context::EditorPaneShown));
}

void MainWindow::changeEvent(QEvent* event) {
    UnbuiltCommands::changeEvent(event);
    if (event->type() != QEvent::ActivationChange) {
        return;
    }
    if (isActiveWindow()) {
        emit mainWindowFocusChangedSignal();
    } else if (activeTable != nullptr) {
        activeTable->endCutOffDrag();
    }
}

// A question that is open anywhere goes first. While the tables of this window are asked about, it closes already.
void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (closing) {
        return;
    }
    if (ModalHold::isOpen()) {
        closing = true;
        ModalHold::whenFree(this, [this] {
            closing = false;
            close();
        });
        return;
    }
    QScopedValueRollback<bool> const walk(closing, true);
    goneTables->giveBackEdited(); // to be asked about
    // The last table that closes leaves a new one behind.
    while (tabBar->count() > 1 || !isUntouchedEmptyTable(activeTable)) {
        if (!closeFile(activeTable)) {
            return;
        }
    }
    emit mainWindowClosedSignal();
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    QStringList paths;
    for (QUrl const& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) {
            paths.append(url.toLocalFile());
        }
    }
    event->acceptProposedAction();
    ModalHold::whenFree(this, [this, paths] { openFiles(paths); });
}
