// Commands that go to tabs, close those of others, and scroll to the edges of the active table.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/TabBar.h"
#include "app/TableWalk.h"
#include "view/TableView.h"

#include <QPointer>
#include <QScrollBar>

void MainWindow::commandCloseAllFilesExceptCurrent() {
    QPointer<TableView> const kept = activeTable;
    TableWalk walk(*paneView);
    while (TableView* const table = walk.next()) {
        if (table != kept && (!closeFile(table) || !kept)) {
            return;
        }
    }
    setActiveTable(kept);
}

void MainWindow::switchToExistingTab(int index) {
    if (index < tabBar->count()) {
        switchToTab(index);
    }
}

void MainWindow::commandSwitchToTab1() {
    switchToExistingTab(0);
}

void MainWindow::commandSwitchToTab2() {
    switchToExistingTab(1);
}

void MainWindow::commandSwitchToTab3() {
    switchToExistingTab(2);
}

void MainWindow::commandSwitchToTab4() {
    switchToExistingTab(3);
}

void MainWindow::commandSwitchToTab5() {
    switchToExistingTab(4);
}

void MainWindow::commandSwitchToTab6() {
    switchToExistingTab(5);
}

void MainWindow::commandSwitchToTab7() {
    switchToExistingTab(6);
}

void MainWindow::commandSwitchToTab8() {
    switchToExistingTab(7);
}

void MainWindow::commandSwitchToTab9() {
    switchToExistingTab(8);
}

void MainWindow::commandSwitchToTab10() {
    switchToExistingTab(9);
}

void MainWindow::commandScrollToTop() {
    activeTable->verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
}

void MainWindow::commandScrollToBottom() {
    activeTable->verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
}

void MainWindow::commandScrollToFarLeft() {
    activeTable->horizontalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
}

void MainWindow::commandScrollToFarRight() {
    activeTable->horizontalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
}
