#pragma once

#include "core/ExtensionData.h"
#include "storage/AtomicFileWriter.h"

#include <QString>

#include <optional>
#include <vector>

/// What a save of a table is to do.
struct SaveRequest {
    /// Empty for the table's own file. Another one becomes the table's own if the save succeeds.
    QString path;
    /// The table stays on its own file although another one is written.
    bool isCopy = false;
    /// Of that one file. Cells are converted on their way, and the table keeps its own dialect and its cells, whether
    /// the save succeeds or not.
    std::optional<ExtensionData> dialect;
    bool ignoreMaps = false;    ///< has a meaning on read-only tables only
    bool skipConcealed = false; ///< leaves concealed rows and columns out
    AtomicFileWriter::Options file;
    /// Saves a table that a load would not give back as it is, without a look at it.
    bool writeWhatWouldChange = false;

    /// One without a look at what a load would give back.
    static SaveRequest unchecked(QString const& path = {}, std::optional<ExtensionData> const& dialect = {},
                                 bool skipConcealed = false, bool ignoreMaps = false) {
        return {path, false, dialect, ignoreMaps, skipConcealed, {}, true};
    }
};

/// Which part of what a container stores a save writes, and as what.
struct SavedPart {
    bool transposed = false;  ///< columns are written as lines
    std::vector<int> rowMask; ///< sorted rows that are left out, unless columns are the lines
    std::vector<int> colMask; ///< sorted columns that are left out
};
