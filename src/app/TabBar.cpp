#include "app/TabBar.h"

#include "view/TableView.h"

#include <QHBoxLayout>
#include <QSignalBlocker>

#include <algorithm>

TabBar::TabBar(QWidget* parent) : QWidget(parent), bar(new QTabBar(this)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(bar);
    bar->setAccessibleName(tr("Open files"));
    bar->setExpanding(false);
    bar->setElideMode(Qt::ElideRight);
    bar->setDrawBase(false);
    bar->setMovable(true);
    bar->setTabsClosable(true);
    connect(bar, &QTabBar::currentChanged, this, [this](int index) {
        if (TableView* table = tableAt(index)) {
            emit tabBarIndexChangedSignal(table);
        }
    });
    connect(bar, &QTabBar::tabCloseRequested, this, [this](int index) { emit closeFileSignal(tableAt(index)); });
    connect(bar, &QTabBar::tabMoved, this, &TabBar::onTabMoved);
}

void TabBar::addTable(TableView* table) {
    QSignalBlocker const quiet(bar);
    int const index = std::min(bar->currentIndex() + 1, count());
    tables.insert(tables.begin() + index, table);
    bar->insertTab(index, table->tableModel()->getTableName());
    bar->setTabToolTip(index, table->getFilepath());
}

void TabBar::removeTable(TableView* table) {
    int const index = getIndexFromTable(table);
    if (index < 0) {
        return;
    }
    QSignalBlocker const quiet(bar);
    tables.erase(tables.begin() + index);
    bar->removeTab(index);
}

void TabBar::selectTabOnly(TableView* table) {
    QSignalBlocker const quiet(bar);
    bar->setCurrentIndex(getIndexFromTable(table));
}

void TabBar::setSaved(TableView const* table, bool saved) {
    int const index = getIndexFromTable(table);
    QString const name = table->tableModel()->getTableName();
    bar->setTabText(index, saved ? name : QStringLiteral("\u25CF ") + name);
}

void TabBar::renameTable(TableView const* table) {
    int const index = getIndexFromTable(table);
    bar->setTabText(index, table->tableModel()->getTableName());
    bar->setTabToolTip(index, table->getFilepath());
}

int TabBar::getIndexFromTable(TableView const* table) const {
    auto const position = std::find(tables.begin(), tables.end(), table);
    return position == tables.end() ? -1 : static_cast<int>(position - tables.begin());
}

TableView* TabBar::tableAt(int index) const {
    return index >= 0 && index < count() ? tables[static_cast<std::size_t>(index)] : nullptr;
}

void TabBar::onTabMoved(int from, int to) {
    TableView* const moved = tables[static_cast<std::size_t>(from)];
    tables.erase(tables.begin() + from);
    tables.insert(tables.begin() + to, moved);
}
