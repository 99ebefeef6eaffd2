#include "model/FileDialect.h"

#include "model/TableModel.h"

ExtensionData SaveDialect::present(TableModel const& model) {
    ExtensionData dialect(model.getExtension(), model.getDelimiter(), model.getSaveDelimiter());
    dialect.lineEnding = model.getLineEnding();
    dialect.encoding = model.getEncoding();
    dialect.parsingStandard = model.getParsingStandard();
    return dialect;
}

ExtensionData SaveDialect::asInFile(TableModel const& model) {
    ExtensionData dialect = present(model);
    FileDialect const* const file = model.getFileDialect();
    if (file == nullptr)
        return dialect;
    if (!model.dialectOrigin().delimiterSetByCommand && changesDelimiter(model, dialect))
        dialect.saveDelimiter = file->delimiter;
    bool const mayKeep = !model.dialectOrigin().lineEndingSetByCommand && changesLineEnding(model, dialect);
    if (mayKeep && file->lineEndings.prevailing() != LineEndingType::Invalid)
        dialect.lineEnding = file->lineEndings.prevailing();
    return dialect;
}

// A single column has nothing between its cells.
bool SaveDialect::changesDelimiter(TableModel const& model, ExtensionData const& dialect) {
    FileDialect const* const file = model.getFileDialect();
    return file != nullptr && !file->isChosen && file->delimiter != dialect.saveDelimiter && model.columnCountRaw() > 1;
}

bool SaveDialect::changesLineEnding(TableModel const& model, ExtensionData const& dialect) {
    FileDialect const* const file = model.getFileDialect();
    return file != nullptr && !file->isChosen && !file->lineEndings.areAll(dialect.lineEnding);
}

bool SaveDialect::changesUnasked(TableModel const& model) {
    ExtensionData const set = present(model);
    return (!model.dialectOrigin().delimiterSetByCommand && changesDelimiter(model, set)) ||
           (!model.dialectOrigin().lineEndingSetByCommand && changesLineEnding(model, set));
}
