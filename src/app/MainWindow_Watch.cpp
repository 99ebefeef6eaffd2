// Changes that other programs make to the files of open tables.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/SystemFileWatch.h"
#include "app/WatchedFiles.h"
#include "view/MsgBox.h"
#include "view/TableView.h"

#include <QApplication>
#include <QPushButton>
#include <QScrollBar>

void MainWindow::setupWatch() {
    auto* const files = new SystemFileWatch(this);
    WatchedFiles::Tables tables;
    tables.behavior = [this] {
        return settings.getValueRefreshBehavior(SettingType::BehaviorWhenFileIsChangedExternally);
    };
    tables.isOpen = [this](QString const& path) { return paneView->getTableView(path) != nullptr; };
    tables.hasUnsavedEdits = [this](QString const& path) {
        TableView* const table = paneView->getTableView(path);
        bool const changed = !table->undoStack()->isClean() || table->hasAutoSaveFailed() || table->isEditing();
        return changed && !isUntouchedEmptyTable(table);
    };
    tables.isAsking = [] { return QApplication::activeModalWidget() != nullptr; };
    tables.isLoading = [this](QString const& path) { return paneView->getTableView(path)->isLoading(); };
    watchedFiles = new WatchedFiles(*files, std::move(tables), watchTimings, this);
    connect(files, &SystemFileWatch::fileChangedSignal, watchedFiles, &WatchedFiles::onFileChanged);
    connect(watchedFiles, &WatchedFiles::fileGoneSignal, this, &MainWindow::onWatchedFileGone);
    connect(watchedFiles, &WatchedFiles::askSignal, this, &MainWindow::askForReload);
    connect(watchedFiles, &WatchedFiles::askAboutUnsavedSignal, this, &MainWindow::askForReloadOverEdits);
    connect(watchedFiles, &WatchedFiles::reloadSignal, this,
            [this](QString const& path) { reloadChangedFile(paneView->getTableView(path)); });
}

void MainWindow::watchTable(TableView* table) {
    connect(table->tableModel(), &TableModel::saveStartedSignal, watchedFiles, &WatchedFiles::onSaveStarted);
    connect(table->tableModel(), &TableModel::saveFinishedSignal, watchedFiles, &WatchedFiles::onSaveFinished);
    watchedFiles->add(table->getFilepath());
}

void MainWindow::unwatchTable(TableView const* table) {
    scrollAfterReload.remove(table);
    watchedFiles->remove(table->getFilepath());
}

// What the file has become is all there is now, so edits go with the table.
void MainWindow::onWatchedFileGone(QString const& path) {
    TableView* const table = paneView->getTableView(path);
    table->stopEditing(false);
    closeFileNoSave(table);
}

void MainWindow::askForReload(QString const& path) {
    askWhetherToReload(path, tr("This file has been changed externally.\n\n") + tr("Would you like to reload it?"),
                       tr("Do&n't Reload"));
}

void MainWindow::askForReloadOverEdits(QString const& path) {
    askWhetherToReload(path,
                       tr("This file has been changed externally, ") + tr("but you have unsaved changes.\n\n") +
                           tr("Would you like to reload the file or ignore the external changes?"),
                       tr("&Ignore"));
}

void MainWindow::askWhetherToReload(QString const& path, QString const& question, QString const& refusal) {
    MsgBox box(this);
    box.setTheme(theme);
    box.setTextFormat(Qt::PlainText);
    box.setText(question);
    QPushButton* const reload = box.addButton(tr("&Reload"), QMessageBox::AcceptRole);
    box.addButton(refusal, QMessageBox::RejectRole);
    box.setDefaultButton(reload);
    box.conditionButtons();
    box.exec();
    if (box.clickedButton() == reload) {
        reloadChangedFile(paneView->getTableView(path));
    } else {
        watchedFiles->recordWatchedFileState(path);
    }
}

void MainWindow::reloadChangedFile(TableView* table) {
    table->stopEditing(false);
    table->undoStack()->clear();
    scrollAfterReload.insert(table, QPoint(table->horizontalScrollBar()->value(), table->verticalScrollBar()->value()));
    watchedFiles->startReload(table->getFilepath());
    table->tableModel()->takeFileDialect();
    table->loadCSV(table->getFilepath(), true);
    if (table == activeTable) {
        setActiveTable(table);
    }
}

void MainWindow::endReload(TableView* table) {
    watchedFiles->onLoadFinished(table->getFilepath());
    if (scrollAfterReload.contains(table)) {
        QPoint const scroll = scrollAfterReload.take(table);
        table->horizontalScrollBar()->setValue(scroll.x());
        table->verticalScrollBar()->setValue(scroll.y());
    }
}
