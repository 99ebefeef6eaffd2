// Changes that other programs make to the files of open tables.

#include "app/GoneTables.h"
#include "app/MainWindow.h"
#include "app/NoticeLine.h"
#include "app/PaneView.h"
#include "app/SystemFileWatch.h"
#include "app/TabBar.h"
#include "app/WatchedFiles.h"
#include "app/files/SaveFlow.h"
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
    saves = new SaveFlow(*this, *watchedFiles, this);
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
    connect(table->tableModel(), &TableModel::fileIsAnotherSignal, watchedFiles, &WatchedFiles::onAutoSaveRefused);
    connect(table->tableModel(), &TableModel::notKeptSignal, this, &MainWindow::tellNotKept);
    connect(table->undoStack(), &QUndoStack::indexChanged, this,
            [this, table] { onlySortedSinceReload.remove(table); });
    watchedFiles->add(table->getFilepath());
}

bool MainWindow::hasUnsavedEdits(TableView* table) const {
    bool const changed = table->hasUnsavedChanges() && !onlySortedSinceReload.contains(table);
    auto const& edit = table->getPendingEdit();
    bool const typed = edit && edit->isTextChanged();
    return (changed || table->hasAutoSaveFailed() || typed) && !isUntouchedEmptyTable(table);
}

void MainWindow::unwatchTable(TableView* table) {
    reloads.remove(table);
    onlySortedSinceReload.remove(table);
    disconnect(table->tableModel(), nullptr, watchedFiles, nullptr);
    disconnect(table->tableModel(), &TableModel::notKeptSignal, this, nullptr);
    table->tableModel()->removeEventFilter(watchedFiles);
    table->undoStack()->disconnect(this);
    watchedFiles->remove(table->getFilepath());
}

// The table goes with its file. What it showed is kept, what is typed just now included, but must not be written to
// the file anew. What the user types next must not come into another table.
void MainWindow::onWatchedFileGone(QString const& path) {
    QPointer<TableView> const table = paneView->getTableView(path);
    FromOutside const acting;
    bool const hadFocus = table == activeTable && (table->hasFocusInside() || paneView->isAncestorOf(focusWidget()));
    NoticeLine* const line = table->isLoading() ? missingFiles : goneTables->getLine();
    if (table->isLoading()) { // nothing is there yet
        takeOut(table);
        tellMissing({QFileInfo(path).absoluteFilePath()});
    } else {
        bool const edited = hasUnsavedEdits(table);
        table->tableModel()->setSaveAfterEachEdit(false);
        table->stopEditing(); // may ask
        if (!table) {
            return;
        }
        goneTables->keep(takeOut(table), edited);
    }
    if (hadFocus) {
        line->setFocus();
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
        if (table != nullptr) {
            table->tableModel()->takeFileAsItIs();
        }
        watchedFiles->ignoreChange(path);
    }
}

void MainWindow::reloadChangedFile(TableView* table) {
    Retained const before = reloads.value(table);
    if (before.isRead || !reloads.contains(table)) {
        Retained retained{{table->horizontalScrollBar()->value(), table->verticalScrollBar()->value()}, {}, {}, false};
        TableModel const& model = *table->tableModel();
        bool const isSorted = model.getRowSortData() != SortData() || model.getColSortData() != SortData();
        if (settings.getValueBool(SettingType::RetainSortAndFiltersUponFileRefresh)) {
            retained.rowSort = isSorted ? model.getRowSortData() : before.rowSort;
            retained.colSort = isSorted ? model.getColSortData() : before.colSort;
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
    reloads[table].isRead = true;
    scrollTo(table, reloads[table].scroll);
    sortWhenStill(table);
}

// The user may have begun a text in the table, and goes on with it after a pause.
void MainWindow::sortWhenStill(TableView* table) {
    TypingGuard::whenStill(table, [this, table] {
        if (!table->isEditing()) {
            sortAgain(table);
            return;
        }
        auto const later = [this, table] { sortWhenStill(table); };
        connect(
            table, &TableView::removeContextSignal, table,
            [table, later] { QMetaObject::invokeMethod(table, later, Qt::QueuedConnection); },
            Qt::SingleShotConnection);
    });
}

// The file has another order than the table then, which a save would change, so the table counts as changed and the
// sort can be undone. It is no edit to ask about before the next reload, though, and nothing that writes the file.
void MainWindow::sortAgain(TableView* table) {
    if (table->isLoading() || !reloads.value(table).isRead) {
        return;
    }
    Retained const retained = reloads.take(table);
    TableModel& model = *table->tableModel();
    bool const untouched = table->undoStack()->count() == 0;
    QPoint const place(table->horizontalScrollBar()->value(), table->verticalScrollBar()->value());
    model.setSaveAfterEachEdit(false);
    bool moved = false;
    for (SortData const& sort : {retained.rowSort, retained.colSort}) {
        SortData const& present = sort.axis == Axis::Rows ? model.getRowSortData() : model.getColSortData();
        if (present.sortType == SortType::None) { // else the user has sorted meanwhile
            moved = table->sortRowsOrCols(sort) || moved;
            tellIfNotSorted(table, sort);
        }
    }
    model.setSaveAfterEachEdit(settings.getValueBool(SettingType::SaveAfterEachEdit));
    scrollTo(table, place);
    if (!untouched) {
        return;
    }
    if (moved) {
        onlySortedSinceReload.insert(table);
    } else if (!table->undoStack()->isClean()) {
        table->undoStack()->setClean();
    }
}

void MainWindow::tellIfNotSorted(TableView const* table, SortData const& sort) {
    constexpr int displayMs = 20000;
    TableModel const& model = *table->tableModel();
    SortData const& present = sort.axis == Axis::Rows ? model.getRowSortData() : model.getColSortData();
    if (sort.sortType != SortType::None && present != sort) {
        labelBar->showMessage(tr("%1 was read again and is not sorted any more.").arg(model.getTableName()), displayMs);
    }
}

void MainWindow::scrollTo(TableView* table, QPoint const& place) {
    table->horizontalScrollBar()->setValue(place.x());
    table->verticalScrollBar()->setValue(place.y());
}
