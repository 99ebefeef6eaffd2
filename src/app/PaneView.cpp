#include "app/PaneView.h"

#include "app/LoadProgressOverlay.h"
#include "app/launcher/Launcher.h"
#include "view/EditorPane.h"
#include "view/EditorPaneLoader.h"

#include <QFileInfo>
#include <QSplitter>
#include <QStackedLayout>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

PaneView::PaneView(QWidget* parent)
    : QWidget(parent), splitter(new QSplitter(Qt::Vertical, this)), pages(new QStackedWidget(splitter)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    setupEditorPane();
}

void PaneView::addTable(TableView* table) {
    auto* stack = new QWidget(this);
    auto* layout = new QStackedLayout(stack);
    auto* overlay = new LoadProgressOverlay(stack);
    layout->addWidget(table);
    layout->addWidget(overlay);
    pages->addWidget(stack);
    Page const page{table, stack, overlay};
    pageList.push_back(page);
    showOverlay(page, table->isLoading());
    connectLoad(page);
    connectEditing(table);
}

void PaneView::connectLoad(Page const& page) {
    TableView const* const table = page.table;
    connect(table, &TableView::loadBegunSignal, page.stack, [this, page] {
        page.overlay->setProgress(0, 1);
        if (page.table == activeTable)
            editorPane->setReadOnly(true);
        emit tableLoadBegunSignal(page.table);
    });
    connect(table, &TableView::loadFailedSignal, page.stack,
            [this, page](QString const& reason) { emit tableLoadFailedSignal(page.table, reason); });
    connect(table, &TableView::startProgressUpdateSignal, page.stack, [this, page] {
        showOverlay(page, true);
        page.table->onStartProgressUpdate();
    });
    connect(table, &TableView::loadProgressUpdateSignal, page.stack, [page](int done, int steps, int sizeMiB) {
        page.overlay->setProgress(done, steps);
        page.table->onLoadProgressUpdate(done, steps, sizeMiB);
    });
    connect(table, &TableView::loadFinishedSignal, page.stack, [this, page] {
        page.table->onLoadFinished();
        showOverlay(page, false);
        emit tableLoadedSignal(page.table);
    });
}

void PaneView::removeTable(TableView* table) {
    auto const page =
        std::find_if(pageList.begin(), pageList.end(), [&](Page const& entry) { return entry.table == table; });
    if (page == pageList.end()) {
        return;
    }
    emit tableRemovedSignal(table);
    disconnect(table, nullptr, this, nullptr);
    if (activeTable == table) {
        activeTable = nullptr;
        shownCell = Range();
        loader->request(QString());
    }
    table->setParent(nullptr);
    delete page->stack;
    pageList.erase(page);
}

void PaneView::setActiveTable(TableView* table) {
    if (table == activeTable) {
        return;
    }
    if (activeTable != nullptr && activeTable->isEditing()) {
        activeTable->stopEditing(); // may ask
    }
    Page const* const page = pageOf(table);
    if (page == nullptr) {
        return;
    }
    activeTable = table;
    pages->setCurrentWidget(page->stack);
    table->setContext(context);
    shownCell = Range();
    onMainCellChanged(table->getMainCell(true));
    if (launcher != nullptr)
        launcher->onCurrentTableChanged(table->tableModel()->getTableName());
}

TableView* PaneView::getTableView(QString const& path) const {
    QFileInfo const wanted(path);
    auto const page = std::find_if(pageList.begin(), pageList.end(), [&](Page const& entry) {
        QString const open = entry.table->getFilepath();
        return !open.isEmpty() && QFileInfo(open) == wanted;
    });
    return page == pageList.end() ? nullptr : page->table;
}

std::vector<TableView*> PaneView::getTables() const {
    std::vector<TableView*> tables;
    tables.reserve(pageList.size());
    std::transform(pageList.begin(), pageList.end(), std::back_inserter(tables),
                   [](Page const& page) { return page.table; });
    return tables;
}

PaneView::Page const* PaneView::pageOf(TableView const* table) const {
    auto const page =
        std::find_if(pageList.begin(), pageList.end(), [&](Page const& entry) { return entry.table == table; });
    return page == pageList.end() ? nullptr : &*page;
}

void PaneView::showOverlay(Page const& page, bool on) {
    static_cast<QStackedLayout*>(page.stack->layout())->setCurrentIndex(on ? 1 : 0);
}
