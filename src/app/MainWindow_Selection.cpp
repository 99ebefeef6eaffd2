// Commands that select, move and scroll in the active table.

#include "app/MainWindow.h"
#include "app/TabBar.h"
#include "view/TableView.h"

void MainWindow::selectAlong(Direction direction, bool toBlockEdge) {
    TableModel& model = *activeTable->tableModel();
    bool takenBack = false;
    if (direction == Direction::Up || direction == Direction::Down) {
        model.selectUpOrDown(direction, toBlockEdge, false, &takenBack);
    } else {
        model.selectLeftOrRight(direction, toBlockEdge, false, &takenBack);
    }
    Range const farthest = activeTable->findFarthestSelectedCellInDirection(direction);
    activeTable->scrollToCell(farthest.row, farthest.col, true, true, Axis::Both);
    activeTable->refreshView();
}

void MainWindow::commandSelectUp() {
    selectAlong(Direction::Up, false);
}

void MainWindow::commandSelectDown() {
    selectAlong(Direction::Down, false);
}

void MainWindow::commandSelectLeft() {
    selectAlong(Direction::Left, false);
}

void MainWindow::commandSelectRight() {
    selectAlong(Direction::Right, false);
}

void MainWindow::commandSelectUpByABlock() {
    selectAlong(Direction::Up, true);
}

void MainWindow::commandSelectDownByABlock() {
    selectAlong(Direction::Down, true);
}

void MainWindow::commandSelectLeftByABlock() {
    selectAlong(Direction::Left, true);
}

void MainWindow::commandSelectRightByABlock() {
    selectAlong(Direction::Right, true);
}

void MainWindow::commandSelectUpToTopOfColumnHeaderExcluded() {
    activeTable->selectUpToTopOfColumnHeaderExcluded();
}

void MainWindow::commandSelectDownToBottomOfColumn() {
    activeTable->selectDownToBottomOfColumn();
}

void MainWindow::commandSelectLeftToStartOfRowHeaderExcluded() {
    activeTable->selectLeftToStartOfRowHeaderExcluded();
}

void MainWindow::commandSelectRightToEndOfRow() {
    activeTable->selectRightToEndOfRow();
}

void MainWindow::commandSelectEntireColumns() {
    activeTable->selectEntireCols();
}

void MainWindow::commandSelectEntireColumnsHeaderExcluded() {
    activeTable->selectEntireColsHeaderExcluded();
}

void MainWindow::commandSelectEntireRows() {
    activeTable->selectEntireRows();
}

void MainWindow::commandSelectEntireRowsHeaderExcluded() {
    activeTable->selectEntireRowsHeaderExcluded();
}

void MainWindow::commandSelectEntireTable() {
    activeTable->selectEntireTable();
}

void MainWindow::commandMoveSelectionUp() {
    activeTable->moveSelectionRelative(-1, 0);
}

void MainWindow::commandMoveSelectionDown() {
    activeTable->moveSelectionRelative(1, 0);
}

void MainWindow::commandMoveSelectionLeft() {
    activeTable->moveSelectionRelative(0, -1);
}

void MainWindow::commandMoveSelectionRight() {
    activeTable->moveSelectionRelative(0, 1);
}

void MainWindow::commandMoveSelectionUpByABlock() {
    activeTable->moveSelectionByBlock(Direction::Up);
}

void MainWindow::commandMoveSelectionDownByABlock() {
    activeTable->moveSelectionByBlock(Direction::Down);
}

void MainWindow::commandMoveSelectionLeftByABlock() {
    activeTable->moveSelectionByBlock(Direction::Left);
}

void MainWindow::commandMoveSelectionRightByABlock() {
    activeTable->moveSelectionByBlock(Direction::Right);
}

void MainWindow::commandInvertSelectionByRowsHeaderExcluded() {
    activeTable->tableModel()->invertSelectionByRowsHeaderExcluded();
}

void MainWindow::commandInvertSelectionByColumnsHeaderExcluded() {
    activeTable->tableModel()->invertSelectionByColumnsHeaderExcluded();
}

void MainWindow::commandGoUpOneScreen() {
    activeTable->moveSelectionOneScreen(Direction::Up);
}

void MainWindow::commandGoDownOneScreen() {
    activeTable->moveSelectionOneScreen(Direction::Down);
}

void MainWindow::commandGoLeftOneScreen() {
    activeTable->moveSelectionOneScreen(Direction::Left);
}

void MainWindow::commandGoRightOneScreen() {
    activeTable->moveSelectionOneScreen(Direction::Right);
}

void MainWindow::commandGoToTop() {
    activeTable->goToTop();
}

void MainWindow::commandGoToBottom() {
    activeTable->goToBottom();
}

void MainWindow::commandGoToFarLeft() {
    activeTable->goToFarLeft();
}

void MainWindow::commandGoToFarRight() {
    activeTable->goToFarRight();
}

void MainWindow::commandScrollUpOneScreen() {
    activeTable->scroll(Direction::Up, true);
}

void MainWindow::commandScrollDownOneScreen() {
    activeTable->scroll(Direction::Down, true);
}

void MainWindow::commandScrollLeftOneScreen() {
    activeTable->scroll(Direction::Left, true);
}

void MainWindow::commandScrollRightOneScreen() {
    activeTable->scroll(Direction::Right, true);
}

// Past the last tab comes the first, before the first the last.
void MainWindow::switchToTab(int index) {
    setActiveTable(tabBar->tableAt((index + tabBar->count()) % tabBar->count()));
}

void MainWindow::commandSwitchToTabOnTheRight() {
    switchToTab(tabBar->getIndexFromTable(activeTable) + 1);
}

void MainWindow::commandSwitchToTabOnTheLeft() {
    switchToTab(tabBar->getIndexFromTable(activeTable) - 1);
}
