#include "app/files/SaveFlow.h"

#include "app/LossyCellsQuestion.h"
#include "app/WatchedFiles.h"
#include "app/files/DelimiterOnlySave.h"
#include "app/files/DialectChoices.h"
#include "app/files/SaveHost.h"
#include "commands/ExtensionTable.h"
#include "commands/Settings.h"
#include "core/EncodingUtilities.h"
#include "core/PathUtilities.h"
#include "model/FileDialect.h"
#include "model/LineBreakCells.h"
#include "model/undo/RemoveEmptyRowsColsAtEndCommand.h"
#include "model/undo/SetEncodingCommand.h"
#include "storage/SaveRequest.h"
#include "view/FileDialog.h"
#include "view/MsgBox.h"
#include "view/SaveFailureMessage.h"
#include "view/TableView.h"

#include <QFileInfo>
#include <QPushButton>

#include <utility>

namespace {

/// The options that a file of this name is saved with. What the row leaves to detection stays as the table has it: the
/// new file has no content yet.
ExtensionData saveOptions(std::vector<ExtensionData> const& rows, QString const& path, TableModel const& model) {
    ExtensionData options = ExtensionTable::find(rows, ExtensionTable::extensionOfFile(path));
    auto const settle = [](QString& delimiter, QString const& present) {
        if (delimiter.isEmpty() || delimiter == QLatin1String("(auto)")) {
            delimiter = present;
        } else if (delimiter == QLatin1String("(none)")) {
            delimiter.clear();
        }
    };
    settle(options.saveDelimiter, model.getSaveDelimiter());
    settle(options.delimiter, options.saveDelimiter);
    options.encoding = Utilities::guessEncodingFromFile(options.encoding, path);
    return options;
}

} // namespace

SaveFlow::SaveFlow(SaveHost& host, WatchedFiles& watchedFiles, QObject* parent)
    : QObject(parent), host(host), watchedFiles(watchedFiles) {}

bool SaveFlow::saveFile(TableView* table) {
    if (table == nullptr || table->isLoading()) {
        return false;
    }
    QPointer<TableView> const alive = table;
    table->stopEditing(); // may tell of an automatic save that fails
    if (!alive || refusesReadOnly(table)) {
        return false;
    }
    if (table->getFilepath().isEmpty()) {
        return saveFileAs(table, false);
    }
    return carryOn({table, {}, {}, false, {}, {}});
}

bool SaveFlow::saveFileAs(TableView* table, bool visibleOnly) {
    if (table == nullptr || table->isLoading()) {
        return false;
    }
    QPointer<TableView> const alive = table;
    table->stopEditing();
    if (!alive) {
        return false;
    }
    QString const path =
        FileDialog::fileToSave(host.asWidget(), tr("Save File"), table->getFilepath(), getFiletypeFilter());
    return alive && saveFileUnder(table, path, visibleOnly);
}

bool SaveFlow::saveFileUnder(TableView* table, QString const& path, bool visibleOnly) {
    if (path.isEmpty()) {
        return false;
    }
    // A file may have several paths; that of an open table is known to all.
    TableView const* const open = host.tableOfFile(path);
    QString const target = open != nullptr ? open->getFilepath() : QFileInfo(path).absoluteFilePath();
    return carryOn(
        {table, target, saveOptions(host.getExtensions(), target, *table->tableModel()), visibleOnly, {}, {}});
}

QString SaveFlow::getFiletypeFilter() const {
    QStringList filters;
    for (ExtensionData const& row : host.getExtensions()) {
        if (row.extension != QLatin1String("(none)")) {
            filters.append(tr("%1 File (*.%2)").arg(row.extension.toUpper(), row.extension));
        }
    }
    filters.append(tr("All Files (*)"));
    return filters.join(QStringLiteral(";;"));
}

// A question may take as long as the user likes: what was looked at before it is looked at again.
bool SaveFlow::carryOn(PendingSave save) {
    if (!save.table) {
        return false;
    }
    if (save.isToOwnFile()) {
        save.dialect = SaveDialect::present(*save.table->tableModel());
    } else if (refusesOpenFile(save)) {
        return false;
    }
    if (isOverOwnFile(save) && watchedFiles.holdsBackSave(save.table->getFilepath())) {
        return false;
    }
    for (auto const question :
         {&SaveFlow::askAboutPartOfFile, &SaveFlow::askAboutFileDialect, &SaveFlow::resolveLineBreaks,
          &SaveFlow::askAboutLostCharacters, &SaveFlow::askAboutHardLinks}) {
        Ended const ended = (this->*question)(save);
        if (ended || !save.table) {
            return ended.value_or(false);
        }
    }
    return write(save);
}

bool SaveFlow::isOverOwnFile(PendingSave const& save) const {
    return save.isToOwnFile() || host.tableOfFile(save.path) == save.table;
}

bool SaveFlow::refusesReadOnly(TableView* table) {
    QString const path = table->getFilepath();
    bool const refused = table->isReadOnly() && !path.isEmpty();
    if (refused) {
        tellFailure(path, tr("The table is read-only. \"Save File As\" saves it to another file."));
    }
    return refused;
}

// Two tables on one file would undo each other's saves, and their edits would be lost. Only the copy of what is visible
// may go to the file of a table without edits of its own, which is then read again.
bool SaveFlow::refusesOpenFile(PendingSave const& save) {
    if (host.isOpenInOtherWindow(save.path)) {
        MsgBox::inform(
            host.asWidget(), host.getTheme(),
            tr("This file is open in another window:\n%1\n\nClose its tab there first, or save under another name.")
                .arg(save.path));
        return true;
    }
    TableView* const open = host.tableOfFile(save.path);
    if (open == nullptr || open == save.table ||
        (save.visibleOnly && !open->isLoading() && !host.hasUnsavedEdits(open))) {
        return false;
    }
    MsgBox::inform(host.asWidget(), host.getTheme(),
                   tr("This file is open in another tab:\n%1\n\nClose that tab first, or save under another name.")
                       .arg(save.path));
    return true;
}

SaveFlow::Ended SaveFlow::askAboutPartOfFile(PendingSave& save) {
    LoadResult const& load = save.table->tableModel()->getLoadResult();
    if (!isOverOwnFile(save) || load.end != LoadEnd::Part || load.beyondLimits ||
        save.answered.contains(SaveQuestion::PartOfFile)) {
        return {};
    }
    switch (SaveQuestions::aboutPartOfFile(asker(), save.table->getFilepath(), load.bytes)) {
    case SaveQuestions::PartAnswer::SaveAs: return save.table && saveFileAs(save.table, save.visibleOnly);
    case SaveQuestions::PartAnswer::Cancel: return false;
    case SaveQuestions::PartAnswer::SaveAnyway: break;
    }
    save.answered.insert(SaveQuestion::PartOfFile);
    return {};
}

// Nobody has asked for another dialect than the file's, so nothing is converted in silence.
SaveFlow::Ended SaveFlow::askAboutFileDialect(PendingSave& save) {
    using Choice = DialectChoices::Choice;
    TableModel& model = *save.table->tableModel();
    if (!isOverOwnFile(save) || save.answered.contains(SaveQuestion::FileDialect) ||
        Utilities::isPreferenceFilepath(model.getFilepath())) {
        return {};
    }
    SaveDialect::Change const change =
        save.isToOwnFile() ? SaveDialect::unaskedChange(model) : SaveDialect::changeBy(model, save.dialect);
    if (!change.any()) {
        return {};
    }
    Choice choice = DialectChoices::of(save.dialect.extension);
    if (choice == Choice::Ask || (choice == Choice::KeepAsInFile && !SaveDialect::canKeep(model, change))) {
        SaveQuestions::DialectAnswer const answer =
            SaveQuestions::aboutFileDialect(asker(), model, save.dialect, change);
        if (!save.table || answer.choice == SaveQuestions::DialectAnswer::Cancel) {
            return false;
        }
        bool const keep = answer.choice == SaveQuestions::DialectAnswer::KeepAsInFile;
        choice = keep ? Choice::KeepAsInFile : Choice::SaveAsSet;
        if (answer.forAllOfExtension) {
            if (!DialectChoices::remember(save.dialect.extension, choice)) {
                MsgBox::inform(host.asWidget(), host.getTheme(),
                               tr("This choice is for this file alone; it could not be kept in:\n%1")
                                   .arg(Utilities::getConfigFilepath()));
            }
            if (!save.table) {
                return false;
            }
        }
    }
    if (choice == Choice::KeepAsInFile) {
        save.dialect = SaveDialect::asInFile(model, save.dialect, change);
    }
    if (choice == Choice::KeepAsInFile && save.isToOwnFile()) {
        model.setDelimiter(save.dialect.delimiter, save.dialect.saveDelimiter);
        model.setLineEnding(save.dialect.lineEnding);
        host.refreshTable(save.table);
    }
    save.answered.insert(SaveQuestion::FileDialect);
    return {};
}

SaveFlow::Ended SaveFlow::resolveLineBreaks(PendingSave& save) {
    if (save.dialect.parsingStandard != ParsingStandard::DelimiterOnly ||
        (save.isToOwnFile() && Utilities::isPreferenceFilepath(save.table->getFilepath()))) {
        return {};
    }
    int const count = LineBreakCells::count(*save.table->tableModel(), save.visibleOnly);
    if (count == 0) {
        return {};
    }
    promptDelimiterOnlyLineBreakAction(save, count);
    return false;
}

void SaveFlow::promptDelimiterOnlyLineBreakAction(PendingSave const& save, int count) {
    MsgBox box(host.asWidget());
    box.setTheme(host.getTheme());
    box.setTextFormat(Qt::RichText);
    box.setText(DelimiterOnlySave::question(count));
    QPushButton const* const change = box.addButton(tr("Change"), QMessageBox::AcceptRole);
    QPushButton const* const replace = box.addButton(tr("Replace"), QMessageBox::AcceptRole);
    QPushButton const* const remove = box.addButton(tr("Remove"), QMessageBox::AcceptRole);
    box.addButton(tr("Cancel"), QMessageBox::RejectRole);
    box.conditionButtons();
    box.exec();
    if (!save.table) {
        return;
    }
    auto const resume = [this](PendingSave const& pending) { carryOn(pending); };
    if (box.clickedButton() == remove) {
        DelimiterOnlySave::applyReplacement(save, QString(), resume);
        return;
    }
    bool const asks = box.clickedButton() == change || box.clickedButton() == replace;
    if (asks && save.table != host.getActiveTable()) {
        host.setActiveTable(save.table); // the launcher stands on the active table and goes with it
    }
    if (box.clickedButton() == change) {
        host.ask(DelimiterOnlySave::askForParsingStandard(save, resume));
    } else if (box.clickedButton() == replace) {
        host.ask(DelimiterOnlySave::askForReplacement(save, resume));
    }
}

SaveFlow::Ended SaveFlow::askAboutLostCharacters(PendingSave& save) {
    if (save.isToOwnFile() || save.answered.contains(SaveQuestion::LostCharacters)) {
        return {};
    }
    auto const show = [this](TableView* table) { host.setActiveTable(table); };
    if (!LossyCellsQuestion::mayChange(host.asWidget(), host.getTheme(),
                                       {save.table, save.dialect.encoding, save.visibleOnly, save.path}, show)) {
        return false;
    }
    save.answered.insert(SaveQuestion::LostCharacters);
    return {};
}

SaveFlow::Ended SaveFlow::askAboutHardLinks(PendingSave& save) {
    using Way = AtomicFileWriter::Way;
    QString const path = save.isToOwnFile() ? save.table->getFilepath() : save.path;
    int const names = AtomicFileWriter::linkCount(path);
    if (names < 2 || save.way || save.table->tableModel()->getWayOfFile(path)) {
        return {};
    }
    switch (SaveQuestions::aboutHardLinks(asker(), path, names)) {
    case SaveQuestions::LinksAnswer::Replace: save.way = Way::Replace; break;
    case SaveQuestions::LinksAnswer::WriteInPlace: save.way = Way::InPlace; break;
    case SaveQuestions::LinksAnswer::Cancel: return false;
    }
    return {};
}

bool SaveFlow::write(PendingSave save) {
    if (!save.isToOwnFile() && refusesOpenFile(save)) { // it may have been opened while a question was open
        return false;
    }
    if (save.isToOwnFile() && host.getSettings().getValueBool(SettingType::RemoveExtraneousRowsColumnsOnFileSave)) {
        removeExtraneousRowsAndColumns(save.table);
    }
    if (!save.table) {
        return false;
    }
    QString const own = save.table->getFilepath();
    SaveReport const report = writeFile(save);
    if (report.isSaved() && save.isToOwnFile()) {
        endOwnFile(save);
    } else if (report.isSaved() && save.visibleOnly) {
        endCopy(save);
    } else if (report.isSaved()) {
        endMove(save, own);
    } else {
        return endUnsaved(save, report);
    }
    if (!report.notKept.isEmpty()) {
        host.tellNotKept(report.notKept);
    }
    return true;
}

SaveReport SaveFlow::writeFile(PendingSave const& save) {
    TableModel& model = *save.table->tableModel();
    SaveRequest request;
    request.path = save.path;
    request.isCopy = save.visibleOnly;
    request.skipConcealed = save.visibleOnly;
    request.writeWhatWouldChange = save.writeWhatWouldChange;
    QString const path = save.isToOwnFile() ? model.getFilepath() : save.path;
    if (save.way) {
        model.setWayOfFile(path, *save.way);
    }
    request.file.way = model.getWayOfFile(path).value_or(AtomicFileWriter::Way::Replace);
    if (isOverOwnFile(save) && watchedFiles.isHeedingChanges()) {
        request.file.expected = model.getFileStamp();
    }
    if (!save.isToOwnFile()) {
        request.dialect = save.dialect;
    }
    return model.save(request);
}

bool SaveFlow::endUnsaved(PendingSave const& save, SaveReport const& report) {
    QString const path = save.isToOwnFile() ? save.table->getFilepath() : save.path;
    switch (report.outcome) {
    case SaveReport::Outcome::WouldChange: {
        PendingSave again = save;
        Ended const ended = askAboutChangedCells(again, report.changed);
        return ended ? *ended : carryOn(again);
    }
    case SaveReport::Outcome::TargetChanged: watchedFiles.onSaveRefused(path); return false;
    default: tellFailure(path, report.reason);
    }
    if (save.table && save.isToOwnFile()) {
        save.table->scrollToMainCell(true, true);
        host.refreshTable(save.table);
    }
    return false;
}

SaveFlow::Ended SaveFlow::askAboutChangedCells(PendingSave& save, ChangedCells const& changed) {
    QString const path = save.isToOwnFile() ? save.table->getFilepath() : save.path;
    switch (SaveQuestions::aboutChangedCells(asker(), path, changed)) {
    case SaveQuestions::CellsAnswer::GoOn: save.writeWhatWouldChange = true; return {};
    case SaveQuestions::CellsAnswer::ShowCells: showCells(save.table, changed.cells); break;
    case SaveQuestions::CellsAnswer::Cancel: break;
    }
    return false;
}

void SaveFlow::showCells(TableView* table, CellRegion const& cells) {
    if (table != nullptr) {
        LossyCellsQuestion::showCells(host.asWidget(), host.getTheme(), table, cells,
                                      [this](TableView* shown) { host.setActiveTable(shown); });
    }
}

void SaveFlow::removeExtraneousRowsAndColumns(TableView* table) {
    TableModel& model = *table->tableModel();
    TableData const& data = model.getTableData();
    if (data.numEmptyRowsRawAtEnd() > 0 || data.numEmptyColsRawAtEnd() > 0) {
        table->pushUndoCommand(new RemoveEmptyRowsColsAtEndCommand(&model, {}, false));
    }
}

void SaveFlow::endOwnFile(PendingSave const& save) {
    save.table->undoStack()->setClean();
    host.onTableSaved(save.table, save.table->getFilepath());
    save.table->scrollToMainCell(true, true);
    host.refreshTable(save.table);
}

void SaveFlow::endMove(PendingSave const& save, QString const& before) {
    TableView* const table = save.table;
    TableModel& model = *table->tableModel();
    // What is on the undo stack knows the cells in their present encoding.
    if (save.dialect.encoding != model.getEncoding()) {
        table->pushUndoCommand(SetEncodingCommand::afterSave(&model, save.dialect.encoding));
    }
    table->setExtensionData(save.dialect);
    table->undoStack()->setClean();
    host.onTableSaved(table, before);
    host.refreshTable(table);
}

// The table keeps its own file and dialect; only the copy has those of its name.
void SaveFlow::endCopy(PendingSave const& save) {
    if (host.tableOfFile(save.path) == save.table) {
        save.table->undoStack()->resetClean();
        return;
    }
    bool readOnly = false;
    if (host.tableOfFile(save.path) == nullptr && !askHowToOpenSavedCopy(save.path, readOnly)) {
        return;
    }
    TableView* open = host.tableOfFile(save.path); // it may have been opened while the question was open
    if (open != nullptr) {
        host.readSavedCopy(open);
    } else {
        open = host.openSavedCopy(save.path, readOnly);
    }
    host.setActiveTable(open);
}

bool SaveFlow::askHowToOpenSavedCopy(QString const& path, bool& readOnly) {
    constexpr qint64 mebibyte = 1048576;
    constexpr int buttonHeight = 40;
    qint64 const size = QFileInfo(path).size() / mebibyte;
    if (size < host.getSettings().getValueInt(SettingType::MinimumFileSizeForReadOnlyModeQueryMB)) {
        return true;
    }
    MsgBox box(host.asWidget());
    box.setTheme(host.getTheme());
    box.setText(tr("The new file is large (%1 MB).\n").arg(size) + tr("How would you like to open it?"));
    box.nameFile(path);
    QPushButton* const asReadOnly = box.addButton(tr("&Read-Only\nMode"), QMessageBox::AcceptRole);
    QPushButton* const forEditing = box.addButton(tr("&Edit Mode"), QMessageBox::AcceptRole);
    QPushButton* const notAtAll = box.addButton(tr("Do&n't Open"), QMessageBox::RejectRole);
    box.setDefaultButton(asReadOnly);
    box.conditionButtons();
    for (QPushButton* const button : {asReadOnly, forEditing, notAtAll}) {
        MsgBox::enlarge(*button, {0, buttonHeight});
    }
    box.exec();
    readOnly = box.clickedButton() == asReadOnly;
    return readOnly || box.clickedButton() == forEditing;
}

void SaveFlow::tellFailure(QString const& path, QString const& reason) {
    MsgBox::inform(host.asWidget(), host.getTheme(), buildSaveFailureMessage(path, reason));
}

SaveQuestions::Asker SaveFlow::asker() const {
    return {host.asWidget(), host.getTheme()};
}
