#pragma once

#include "storage/ChangedCells.h"
#include "storage/FileStamp.h"

#include <QString>
#include <QStringList>

#include <optional>

/// How a save has ended. Whatever it is but Saved, the file is as it was.
struct SaveReport {
    enum class Outcome {
        Saved,
        Failed,
        TargetChanged, ///< the file is another one than the request expected
        WouldChange,   ///< a load would not give the table back as it is
    };

    Outcome outcome = Outcome::Failed;
    QString reason;                 ///< why it was not saved: a sentence for the user
    QStringList notKept;            ///< sentences on what the file could not keep of the former one's attributes
    std::optional<FileStamp> stamp; ///< of the saved file
    ChangedCells changed;           ///< of a table that would change; Raw, as the user sees it, if TableData tells it

    bool isSaved() const { return outcome == Outcome::Saved; }
};
