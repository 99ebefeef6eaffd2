// Opening and closing of files.

#include "app/FileOpening.h"
#include "app/MainWindow.h"
#include "app/NoticeLine.h"
#include "app/PaneView.h"
#include "app/StatusBar.h"
#include "app/TabBar.h"
#include "commands/ExtensionTable.h"
#include "core/DelimiterUtilities.h"
#include "core/DialectUtilities.h"
#include "core/EncodingUtilities.h"
#include "core/PathUtilities.h"
#include "view/FileDialog.h"
#include "view/MsgBox.h"
#include "view/TypingGuard.h"

#include <QApplication>
#include <QFileInfo>
#include <QPointer>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr int messageMs = 8000;
constexpr qint64 backgroundLoadSize = 0x1800000; // larger files load on a thread, under a progress display

bool needsDetection(QString const& delimiter) {
    return delimiter.isEmpty() || delimiter == QLatin1String("(auto)");
}

/// A mark of UTF-16 or UTF-32 says more of a file than its extension does.
EncodingType encodingOf(EncodingType ofExtension, QString const& path) {
    EncodingType const marked = Utilities::getEncodingFromMark(path);
    bool const isTold =
        marked != EncodingType::Invalid && Utilities::getEncodingBom(marked) != Utilities::getEncodingBom(ofExtension);
    return isTold ? marked : Utilities::guessEncodingFromFile(ofExtension, path);
}

/// The row's options with "(auto)" and unknown byte orders settled by a look into the file.
ExtensionData settledOptions(ExtensionData options, QString const& path) {
    if (needsDetection(options.delimiter)) {
        options.delimiter = Utilities::getDelimiterFromAutoDetect(path);
    }
    if (!Utilities::delimiterValid(options.delimiter)) {
        options.delimiter = QStringLiteral(",");
    }
    if (needsDetection(options.saveDelimiter)) {
        options.saveDelimiter = Utilities::getDelimiterFromAutoDetect(path);
    }
    if (!Utilities::delimiterValid(options.saveDelimiter)) {
        options.saveDelimiter = options.delimiter;
    }
    for (QString* const delimiter : {&options.delimiter, &options.saveDelimiter}) {
        if (*delimiter == QLatin1String("(none)")) {
            delimiter->clear();
        }
    }
    options.encoding = encodingOf(options.encoding, path);
    return options;
}

/// How preference files are written.
ExtensionData preferenceFileOptions() {
    ExtensionData options(QStringLiteral("csv"), QStringLiteral(","), QStringLiteral(","));
    options.lineEnding = Utilities::getLineEndingFromPlatform();
    return options;
}

} // namespace

bool MainWindow::openFiles(QStringList const& paths) {
    QPointer<TableView> const before = activeTable;
    QPointer<TableView> first;
    bool shown = false;
    for (QString const& path : paths) {
        if (showElsewhere(path)) {
            shown = true;
            continue;
        }
        TableView* const table = takeTable(path);
        if (!first) {
            first = table;
        }
    }
    if (!first) {
        return shown;
    }
    bool const cutsText = wouldCutText(first);
    if (before != first) {
        closeLauncher(); // what it asks is about the table that was active
    }
    setActiveTable(first);
    if (first && cutsText) {
        tellOpened(first);
    }
    dropUntouched(before);
    return true;
}

// Two tables on one file would undo each other's saves.
bool MainWindow::showElsewhere(QString const& path) {
    MainWindow* const other = fileHolder(path);
    if (other != nullptr) {
        other->showFile(path);
    }
    return other != nullptr;
}

void MainWindow::showFile(QString const& path) {
    TableView* const table = paneView->getTableView(path);
    if (table == nullptr) {
        return;
    }
    QPointer<TableView> const alive(table);
    bool const cutsText = wouldCutText(table);
    comeToFront();
    setActiveTable(table);
    if (alive && cutsText) {
        tellOpened(table);
    }
}

bool MainWindow::wouldCutText(TableView const* table) const {
    bool const cutAlready = qobject_cast<NoticeLine const*>(focusWidget()) != nullptr;
    return FromOutside::isActing() && isActiveWindow() && table != activeTable && (isTextOpen() || cutAlready);
}

void MainWindow::tellOpened(TableView const* table) {
    openedFiles->tell(tr("This table was opened while you were typing in another one: %1"),
                      {QFileInfo(table->getFilepath()).absoluteFilePath()});
    openedFiles->setFocus();
}

void MainWindow::comeToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void MainWindow::dropUntouched(TableView* table) {
    if (table != nullptr && table != activeTable && isUntouchedEmptyTable(table)) {
        detachTable(table);
    }
}

bool MainWindow::openFile(QString const& path) {
    return openFiles({path});
}

void MainWindow::tellMissing(QStringList const& paths) {
    if (!paths.isEmpty()) {
        missingFiles->tell(paths.size() == 1 ? tr("This file does not exist: %1") : tr("These files do not exist: %1"),
                           paths);
    }
}

void MainWindow::openFolder(QString const& path) {
    MsgBox::inform(this, theme, tr("This can't be opened as a table:\n%1\n\nIt is a folder.").arg(path));
}

TableView* MainWindow::takeTable(QString const& path) {
    if (TableView* const open = paneView->getTableView(path)) {
        return open;
    }
    QString const reason = reasonAgainstOpening(path);
    if (!reason.isEmpty()) {
        tellThatItCannotBeOpened(path, reason);
        return nullptr;
    }
    if (Utilities::isPreferenceFilepath(path)) {
        return addTableEditorFromFile(path, false, true);
    }
    bool readOnly = settings.getValueBool(SettingType::ReadOnly) || !isWritableFile(path);
    if (!readOnly && !askHowToOpenLargeFile(path, readOnly)) {
        return nullptr;
    }
    TableView* const openedMeanwhile = paneView->getTableView(path);
    return openedMeanwhile != nullptr ? openedMeanwhile : addTableEditorFromFile(path, readOnly, false);
}

bool MainWindow::askHowToOpenLargeFile(QString const& path, bool& readOnly) {
    constexpr qint64 mebibyte = 1048576;
    constexpr int buttonWidth = 130;
    qint64 const size = QFileInfo(path).size() / mebibyte;
    if (size < settings.getValueInt(SettingType::MinimumFileSizeForReadOnlyModeQueryMB)) {
        return true;
    }
    MsgBox box(this);
    box.setTheme(theme);
    box.setText(tr("This file is large (%1 MB).\n").arg(size) + tr("Would you like to open it in read-only mode?"));
    box.nameFile(path);
    QPushButton* const asReadOnly = box.addButton(tr("Open as &Read-Only"), QMessageBox::AcceptRole);
    QPushButton* const forEditing = box.addButton(tr("Open in &Edit Mode"), QMessageBox::AcceptRole);
    box.addButton(tr("&Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(asReadOnly);
    box.conditionButtons();
    for (QPushButton* const button : {asReadOnly, forEditing}) {
        MsgBox::enlarge(*button, {buttonWidth, 0});
    }
    box.exec();
    readOnly = box.clickedButton() == asReadOnly;
    return readOnly || box.clickedButton() == forEditing;
}

TableView* MainWindow::makeEmptyTableObject() {
    auto* table = new TableView(this);
    table->propagateSettings(settings);
    table->setupContextMenus(actions);
    table->setExtensionData(settledOptions(ExtensionTable::find(extensions, QStringLiteral("csv")), QString()));
    connectStatusBar(table);
    connect(table, &TableView::suppressAutoFitWarningsChangedSignal, this,
            &MainWindow::onSuppressAutoFitWarningsChanged);
    connect(table, &TableView::messageSignal, this,
            [this](QString const& text) { labelBar->showMessage(text, messageMs); });
    connect(table, &TableView::undoStackCleanChangedSignal, this,
            [this, table](bool clean) { onSavedStatusChanged(table, clean); });
    return table;
}

TableView* MainWindow::addEmptyTableEditor() {
    TableView* const table = makeEmptyTableObject();
    addTableEditorFromView(table);
    return table;
}

TableView* MainWindow::addTableEditorFromFile(QString const& path, bool readOnly, bool isPreferenceFile) {
    TableView* const table = makeEmptyTableObject();
    table->setReadOnly(readOnly);
    if (isPreferenceFile) {
        table->setExtensionData(preferenceFileOptions());
    } else {
        ExtensionData const row = ExtensionTable::find(extensions, ExtensionTable::extensionOfFile(path));
        table->setExtensionData(settledOptions(row, path));
    }
    QString reason;
    auto const ears = connect(table, &TableView::loadFailedSignal, [&](QString const& told) { reason = told; });
    bool const opened = table->loadCSV(path, !isPreferenceFile && QFileInfo(path).size() > backgroundLoadSize);
    disconnect(ears);
    if (!opened) {
        reason += table->tableModel()->getLoadResult().reason;
        delete table;
        tellThatItCannotBeOpened(path, reason);
        return nullptr;
    }
    addTableEditorFromView(table);
    QPointer<TableView> const added = table;
    tellIfNotReadWhole(table);
    return added;
}

void MainWindow::addTableEditorFromView(TableView* table) {
    paneView->addTable(table);
    tabBar->addTable(table);
    watchTable(table);
}

bool MainWindow::isUntouchedEmptyTable(TableView const* table) const {
    TableModel const& model = *table->tableModel();
    return table->getFilepath().isEmpty() && model.rowCountRaw() == 0 && model.columnCountRaw() == 0;
}

void MainWindow::tellThatItCannotBeOpened(QString const& path, QString const& reason) {
    MsgBox::inform(this, theme, tr("This can't be opened as a table:\n%1\n\n%2").arg(path, reason));
}

void MainWindow::onTableLoadBegun(TableView* table) {
    if (table == activeTable) {
        refreshActiveTable();
    }
}

void MainWindow::onTableLoaded(TableView* table) {
    endReload(table);
    if (table == activeTable) {
        refreshActiveTable();
    }
    TypingGuard::whenStill(table, [this, table] { tellIfNotReadWhole(table); });
}

void MainWindow::onTableLoadFailed(TableView* table, QString const& reason) {
    QString const path = table->getFilepath();
    if (!table->isLoading() && !reloads.value(table).isRead) {
        reloads.remove(table);
    }
    watchedFiles->onLoadFailed(path);
    // Most reloads are nothing that the user asked for.
    QString const text = tr("This file can't be read again:\n%1\n\n%2\n\nThe table keeps what it had.");
    TypingGuard::whenStill(table, [this, told = text.arg(path, reason)] { MsgBox::inform(this, theme, told); });
}

void MainWindow::tellIfNotReadWhole(TableView const* table) {
    LoadResult const& result = table->tableModel()->getLoadResult();
    if (table->isLoading() || result.end == LoadEnd::Whole) {
        return;
    }
    QString const text =
        result.beyondLimits
            ? tr("This file has more than a table can show:\n%1\n\n%2 The table holds it up to there and is "
                 "read-only, so that the rest of the file is not lost.")
            : tr("This file became shorter, or could not be read on, while it was being opened:\n%1\n\nThe table "
                 "holds what could be read.");
    MsgBox::inform(this, theme,
                   result.beyondLimits ? text.arg(table->getFilepath(), result.reason)
                                       : text.arg(table->getFilepath()));
}

bool MainWindow::closeFile(TableView* table) {
    if (table == nullptr) {
        return false;
    }
    QPointer<TableView> const alive = table;
    if (table->isEditing()) {
        table->stopEditing();
    }
    if (alive && table->hasUnsavedChanges() && !isUntouchedEmptyTable(table)) {
        setActiveTable(table);
        QString const question = tr("Do you want to save changes to %1?").arg(table->tableModel()->getTableName());
        if (!mayLoseChanges(table, question, tr("Do&n't Save"))) {
            return false;
        }
    }
    if (alive) {
        bool const wasActive = table == activeTable;
        takeOut(table);
        if (wasActive) {
            activeTable->takeFocus();
        }
    }
    return true;
}

void MainWindow::onSavedStatusChanged(TableView* table, bool clean) {
    tabBar->setSaved(table, clean);
}

std::unique_ptr<TableView> MainWindow::detachTable(TableView* table) {
    unwatchTable(table);
    tabBar->removeTable(table);
    paneView->removeTable(table);
    if (table == activeTable) {
        activeTable = nullptr;
    }
    return std::unique_ptr<TableView>(table);
}

std::unique_ptr<TableView> MainWindow::takeOut(TableView* table) {
    int const index = tabBar->getIndexFromTable(table);
    std::unique_ptr<TableView> detached = detachTable(table);
    if (activeTable == nullptr) {
        showTable(tabBar->count() == 0 ? addEmptyTableEditor() : tabBar->tableAt(std::max(index - 1, 0)));
    }
    return detached;
}

void MainWindow::commandNewFile() {
    setActiveTable(addEmptyTableEditor());
}

void MainWindow::commandOpenFile() {
    openFiles(FileDialog::filesToOpen(this, tr("Open File")));
}

void MainWindow::commandNewWindow() {
    emit createNewInstanceSignal(false, {});
}

void MainWindow::commandCloseFile() {
    closeFile(activeTable);
}

void MainWindow::commandCloseAllFiles() {
    std::vector<TableView*> left = paneView->getTables();
    while ((left.size() > 1 || !isUntouchedEmptyTable(left.front())) && closeFile(left.front())) {
        left = paneView->getTables();
    }
}

void MainWindow::commandExit() {
    QApplication::closeAllWindows();
}
