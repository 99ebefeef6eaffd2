#include "app/PaneView.h"

#include "app/LoadProgressOverlay.h"

#include <QFileInfo>
#include <QStackedLayout>

#include <algorithm>

PaneView::PaneView(QWidget* parent) : QWidget(parent), pages(new QStackedLayout(this)) {
    pages->setContentsMargins(0, 0, 0, 0);
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
    connect(table, &TableView::startProgressUpdateSignal, stack, [this, page] {
        showOverlay(page, true);
        page.table->onStartProgressUpdate();
    });
    connect(table, &TableView::loadProgressUpdateSignal, stack, [page](int done, int steps, int sizeMiB) {
        page.overlay->setProgress(done, steps);
        page.table->onLoadProgressUpdate(done, steps, sizeMiB);
    });
    connect(table, &TableView::loadFinishedSignal, stack, [this, page] {
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
    table->setParent(nullptr);
    delete page->stack;
    pageList.erase(page);
}

void PaneView::setActiveTable(TableView* table) {
    if (Page const* page = pageOf(table)) {
        pages->setCurrentWidget(page->stack);
    }
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
