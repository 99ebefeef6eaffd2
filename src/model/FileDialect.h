#pragma once

#include "core/Enumerations.h"
#include "core/ExtensionData.h"
#include "core/LineEndings.h"

#include <QString>

class TableModel;

/// What a file is in, as its last load or save says.
struct FileDialect {
    QString delimiter;
    /// This and the ends of lines are what it was in before automatic saves, which keep both unless a command has set
    /// them.
    QString foundDelimiter;
    EncodingType encoding = EncodingType::Utf8;
    ParsingStandard parsingStandard = ParsingStandard::Rfc4180;
    LineEndings lineEndings;
    bool isChosen = false;                       ///< the program has written the file as its table was set
    EncodingType marked = EncodingType::Invalid; ///< what a mark of UTF-16 or UTF-32 says, whatever it was read in
};

/// The dialect of a save against what the table's file is in.
namespace SaveDialect {

struct Change {
    bool delimiter = false;
    bool lineEnding = false;

    bool any() const { return delimiter || lineEnding; }
};

/// What the table is set to be saved in.
ExtensionData present(TableModel const& model);
/// What a save as `dialect` would change of the file.
Change changeBy(TableModel const& model, ExtensionData const& dialect);
/// What a save as the table is set would change of it although no command has set it.
Change unaskedChange(TableModel const& model);
/// Whether a save could leave all that as it is. Lines that end in several ways or with CR alone would be changed.
bool canKeep(TableModel const& model, Change const& change);
/// `dialect` with what the file has in place of what would change, as far as it can be kept.
ExtensionData asInFile(TableModel const& model, ExtensionData dialect, Change const& change);

} // namespace SaveDialect
