// Changes that other programs make to the files of open tables.

#include "app/GoneTables.h"
#include "app/MainWindow.h"
#include "app/NoticeLine.h"
#include "app/PaneView.h"
#include "app/SystemFileWatch.h"
#include "app/TabBar.h"
#include "app/WatchedFiles.h"
#include "app/launcher/Launcher.h"
#include "app/launcher/PromptChain.h"
#include "core/ModalHold.h"
#include "view/MsgBox.h"
#include "view/TableView.h"
#include "view/TypingGuard.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>

void MainWindow::setupWatch() {
    auto* const files = new SystemFileWatch(this);
    WatchedFiles::Tables tables;
    tables.behavior = [this] {
        return settings.getValueRefreshBehavior(SettingType::BehaviorWhenFileIsChangedExternally);
    };
    tables.isOpen = [this](QString const& path) { return paneView->getTableView(path) != nullptr; };
    tables.hasUnsavedEdits = [this](QString const& path) { return hasUnsavedEdits(paneView->getTableView(path)); };
    tables.isAsking = [] { return ModalHold::isOpen() || TypingGuard::isTyping(); };
    tables.isLoading = [this](QString const& path) { return paneView->getTableView(path)->isLoading(); };
    watchedFiles = new WatchedFiles(*files, std::move(tables), watchTimings, this);
    TypingGuard::addText(this, [this] { return isTextOpen(); });
    connect(files, &SystemFileWatch::fileChangedSignal, watchedFiles, &WatchedFiles::onFileChanged);
    connect(watchedFiles, &WatchedFiles::fileGoneSignal, this, &MainWindow::onWatchedFileGone);
    connect(watchedFiles, &WatchedFiles::askSignal, this, &MainWindow::askForReload);
    connect(watchedFiles, &WatchedFiles::askAboutUnsavedSignal, this, &MainWindow::askForReloadOverEdits);
    connect(watchedFiles, &WatchedFiles::reloadSignal, this,
            [this](QString const& path) { reloadChangedFile(paneView->getTableView(path)); });
}

bool MainWindow::isTextOpen() const {
    Launcher const* const launcher = paneView->getLauncher();
    return (activeTable != nullptr && activeTable->isEditing()) ||
           (launcher != nullptr && !launcher->getEditor()->text().isEmpty());
}

void MainWindow::watchTable(TableView* table) {
    connect(table->tableModel(), &TableModel::saveStartedSignal, watchedFiles, &WatchedFiles::onSaveStarted);
    connect(table->tableModel(), &TableModel::saveFinishedSignal, watchedFiles, &WatchedFiles::onSaveFinished);
    table->tableModel()->installEventFilter(watchedFiles);
    connect(table->undoStack(), &QUndoStack::indexChanged, this,
            [this, table] { onlySortedSinceReload.remove(table); });
    watchedFiles->add(table->getFilepath());
}

bool MainWindow::hasUnsavedEdits(TableView* table) const {
    bool const changed = table->hasUnsavedChanges() && !onlySortedSinceReload.contains(table);
    return (changed || table->hasAutoSaveFailed() || table->isEditing()) && !isUntouchedEmptyTable(table);
}

void MainWindow::unwatchTable(TableView* table) {
    reloads.remove(table);
    onlySortedSinceReload.remove(table);
    disconnect(table->tableModel(), nullptr, watchedFiles, nullptr);
    table->tableModel()->removeEventFilter(watchedFiles);
    table->undoStack()->disconnect(this);
    watchedFiles->remove(table->getFilepath());
}

// The table goes with its file. What it showed is kept, what is typed just now included, but must not be written to
// the file anew. The rest of a text that the user pauses in must not come into another table.
void MainWindow::onWatchedFileGone(QString const& path) {
    TableView* const table = paneView->getTableView(path);
    if (table->isLoading()) { // nothing is there yet
        takeOut(table);
        tellMissing({QFileInfo(path).absoluteFilePath()});
        return;
    }
    bool const edited = hasUnsavedEdits(table);
    table->tableModel()->setSaveAfterEachEdit(false);
    bool const wasInText = table == activeTable && isTextOpen();
    bool const hadFocus = table == activeTable && (table->hasFocusInside() || paneView->isAncestorOf(focusWidget()));
    table->stopEditing();
    goneTables->keep(takeOut(table), edited);
    if (wasInText) {
        goneTables->getLine()->setFocus();
    } else if (hadFocus) {
        activeTable->takeFocus();
    }
}

void MainWindow::takeBack(TableView* table) {
    QPointer<TableView> const before = activeTable;
    table->tableModel()->getTableData().getDataContainer()->setFilepath(QString());
    table->makeEditable(); // it is in no file, and is to be saved to one
    table->propagateSettings(settings);
    addTableEditorFromView(table);
    table->undoStack()->resetClean();
    onSavedStatusChanged(table, false);
    setActiveTable(table);
    dropUntouched(before);
}

void MainWindow::askForReload(QString const& path) {
    askWhetherToReload(path, tr("This file has been changed externally.\n\n") + tr("Would you like to reload it?"),
                       tr("Do&n't Reload"),
                       hasUnsavedEdits(paneView->getTableView(path)) ? tr("Your unsaved changes would be lost.")
                                                                     : QString());
}

void MainWindow::askForReloadOverEdits(QString const& path) {
    askWhetherToReload(path,
                       tr("This file has been changed externally, ") + tr("but you have unsaved changes.\n\n") +
                           tr("Would you like to reload the file or ignore the external changes?"),
                       tr("&Ignore"), QString());
}

// Also before a save that the user wants, this question is none that was expected.
void MainWindow::askWhetherToReload(QString const& path, QString const& question, QString const& refusal,
                                    QString const& remark) {
    FromOutside const acting;
    MsgBox box(this);
    box.setTheme(theme);
    box.setTextFormat(Qt::PlainText);
    box.setText(question);
    box.nameFile(path, remark);
    QPushButton* const reload = box.addButton(tr("&Reload"), QMessageBox::AcceptRole);
    box.addButton(refusal, QMessageBox::RejectRole);
    box.setDefaultButton(reload);
    box.conditionButtons();
    box.exec();
    TableView* const table = paneView->getTableView(path);
    if (box.clickedButton() == reload && QFileInfo::exists(path) && table != nullptr) {
        reloadChangedFile(table);
    } else if (box.clickedButton() == reload) {
        watchedFiles->onFileChanged(path);
    } else {
        watchedFiles->ignoreChange(path);
    }
}

void MainWindow::reloadChangedFile(TableView* table) {
    if (!reloads.contains(table)) {
        TableModel const& model = *table->tableModel();
        Retained retained{{table->horizontalScrollBar()->value(), table->verticalScrollBar()->value()}, {}, {}};
        if (settings.getValueBool(SettingType::RetainSortAndFiltersUponFileRefresh)) {
            retained.rowSort = model.getRowSortData();
            retained.colSort = model.getColSortData();
        }
        reloads.insert(table, retained);
    }
    watchedFiles->startReload(table->getFilepath());
    table->readFileAgain();
}

void MainWindow::endReload(TableView* table) {
    watchedFiles->onLoadFinished(table->getFilepath());
    if (!reloads.contains(table)) {
        return;
    }
    Retained const retained = reloads.take(table);
    sortAgain(table, retained.rowSort, retained.colSort);
    table->horizontalScrollBar()->setValue(retained.scroll.x());
    table->verticalScrollBar()->setValue(retained.scroll.y());
}

// The file has another order than the table then, which a save would change, so the table counts as changed and the
// sort can be undone. It is no edit to ask about before the next reload, though, and nothing that writes the file.
void MainWindow::sortAgain(TableView* table, SortData const& rows, SortData const& cols) {
    TableModel& model = *table->tableModel();
    model.setSaveAfterEachEdit(false);
    bool moved = rows.index < model.columnCountRaw() && table->sortRowsOrCols(rows);
    moved = (cols.index < model.rowCountRaw() && table->sortRowsOrCols(cols)) || moved;
    model.setSaveAfterEachEdit(settings.getValueBool(SettingType::SaveAfterEachEdit));
    if (moved) {
        onlySortedSinceReload.insert(table);
    } else if (!table->undoStack()->isClean()) {
        table->undoStack()->setClean();
    }
}
