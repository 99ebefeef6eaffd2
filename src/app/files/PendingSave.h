#pragma once

#include "core/ExtensionData.h"
#include "storage/AtomicFileWriter.h"

#include <QPointer>
#include <QSet>
#include <QString>

#include <optional>

class TableView;

/// What the user is asked before a save at most once.
enum class SaveQuestion { PartOfFile, FileDialect, LostCharacters };

/// A save on its way through the questions. The table may be closed meanwhile, which ends it without a word.
struct PendingSave {
    QPointer<TableView> table;
    QString path;             ///< empty for a save to the table's own file
    ExtensionData dialect;    ///< what the file is written in
    bool visibleOnly = false; ///< writes a copy without what is concealed; the table stays on its file
    QSet<SaveQuestion> answered;
    std::optional<AtomicFileWriter::Way> way; ///< of a file with several names, once the user has said so
    bool writeWhatWouldChange = false;        ///< although a load would not give it back

    bool isToOwnFile() const { return path.isEmpty(); }
};

inline size_t qHash(SaveQuestion question, size_t seed = 0) {
    return ::qHash(static_cast<int>(question), seed);
}
