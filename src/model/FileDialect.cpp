#include "model/FileDialect.h"

#include "model/TableModel.h"

ExtensionData SaveDialect::present(TableModel const& model) {
    ExtensionData dialect(model.getExtension(), model.getDelimiter(), model.getSaveDelimiter());
    dialect.lineEnding = model.getLineEnding();
    dialect.encoding = model.getEncoding();
    dialect.parsingStandard = model.getParsingStandard();
    return dialect;
}

// A single column has nothing between its cells.
SaveDialect::Change SaveDialect::changeBy(TableModel const& model, ExtensionData const& dialect) {
    FileDialect const* const file = model.getFileDialect();
    if (file == nullptr || file->isChosen)
        return {};
    return {file->foundDelimiter != dialect.saveDelimiter && model.columnCountRaw() > 1,
            !file->lineEndings.areAll(dialect.lineEnding)};
}

SaveDialect::Change SaveDialect::unaskedChange(TableModel const& model) {
    Change const change = changeBy(model, present(model));
    return {change.delimiter && !model.dialectOrigin().delimiterSetByCommand,
            change.lineEnding && !model.dialectOrigin().lineEndingSetByCommand};
}

bool SaveDialect::canKeep(TableModel const& model, Change const& change) {
    LineEndings const& endings = model.getFileDialect()->lineEndings;
    return !change.lineEnding || endings.areAll(endings.prevailing());
}

ExtensionData SaveDialect::asInFile(TableModel const& model, ExtensionData dialect, Change const& change) {
    FileDialect const* const file = model.getFileDialect();
    if (change.delimiter)
        dialect.saveDelimiter = file->foundDelimiter;
    if (change.lineEnding && file->lineEndings.prevailing() != LineEndingType::Invalid)
        dialect.lineEnding = file->lineEndings.prevailing();
    return dialect;
}
