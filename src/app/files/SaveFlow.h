#pragma once

#include "app/files/PendingSave.h"
#include "app/files/SaveQuestions.h"
#include "storage/SaveReport.h"

#include <QObject>

#include <optional>

class CellRegion;
class SaveHost;
class WatchedFiles;

/// Saves the tables of a window. A save goes through its questions in their order, each of which may end it, have it
/// wait for an answer of the launcher, or let it go on; then it is written, and what became of it is told. Tables may
/// go while a question is open.
class SaveFlow : public QObject {
    Q_OBJECT

public:
    SaveFlow(SaveHost& host, WatchedFiles& watchedFiles, QObject* parent = nullptr);

    /// Writes the table to its file, or asks for one. A failure is told and leaves both as they were. True if the table
    /// was saved before the return.
    bool saveFile(TableView* table);
    /// Asks for a file and writes the table to it in the dialect of its extension. The table moves to that file, or
    /// with `visibleOnly` stays where it is and a copy without what is concealed opens in a tab of its own.
    bool saveFileAs(TableView* table, bool visibleOnly);
    /// The same to a file that is known.
    bool saveFileUnder(TableView* table, QString const& path, bool visibleOnly);
    /// The kinds of files that a file dialog offers: one for each row of the extension table.
    QString getFiletypeFilter() const;

private:
    /// None lets a save go on; a value ends it and says whether the table was saved.
    using Ended = std::optional<bool>;

    /// Asks what is left to be asked, and writes.
    bool carryOn(PendingSave save);
    /// Whether the table's own file is written, under whatever name the user has asked for it.
    bool isOverOwnFile(PendingSave const& save) const;
    bool refusesReadOnly(TableView* table);
    bool refusesOpenFile(PendingSave const& save);
    Ended askAboutPartOfFile(PendingSave& save);
    Ended askAboutFileDialect(PendingSave& save);
    Ended resolveLineBreaks(PendingSave& save);
    void promptDelimiterOnlyLineBreakAction(PendingSave const& save, int count);
    Ended askAboutLostCharacters(PendingSave& save);
    Ended askAboutHardLinks(PendingSave& save);
    Ended askAboutChangedCells(PendingSave& save, ChangedCells const& changed);
    bool write(PendingSave save);
    SaveReport writeFile(PendingSave const& save);
    bool endUnsaved(PendingSave const& save, SaveReport const& report);
    void endOwnFile(PendingSave const& save);
    void endMove(PendingSave const& save, QString const& before);
    void endCopy(PendingSave const& save);
    bool askHowToOpenSavedCopy(QString const& path, bool& readOnly);
    void removeExtraneousRowsAndColumns(TableView* table);
    void showCells(TableView* table, CellRegion const& cells);
    void tellFailure(QString const& path, QString const& reason);
    SaveQuestions::Asker asker() const;

    SaveHost& host;
    WatchedFiles& watchedFiles;
};
