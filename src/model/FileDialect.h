#pragma once

#include "core/Enumerations.h"
#include "core/ExtensionData.h"
#include "core/LineEndings.h"

#include <QString>

class TableModel;

/// What a file is in, as its last load or save says.
struct FileDialect {
    QString delimiter;
    EncodingType encoding = EncodingType::Utf8;
    ParsingStandard parsingStandard = ParsingStandard::Rfc4180;
    LineEndings lineEndings;
    bool isChosen = false; ///< the program has written the file as its table was set
};

/// The dialect of a table's next save against what its file is in.
namespace SaveDialect {

/// What the table is set to be saved in.
ExtensionData present(TableModel const& model);
/// The same with the file's own delimiter and line ending in place of those that no command has set.
ExtensionData asInFile(TableModel const& model);
/// Whether a save as `dialect` would separate cells in another way than the file does.
bool changesDelimiter(TableModel const& model, ExtensionData const& dialect);
/// Whether a save as `dialect` would end lines in another way than all lines of the file end in.
bool changesLineEnding(TableModel const& model, ExtensionData const& dialect);
/// Whether a save as the table is set would change delimiter or line ending of the file although no command has set
/// them.
bool changesUnasked(TableModel const& model);

} // namespace SaveDialect
