#pragma once

#include "app/launcher/PromptStep.h"
#include "core/Enumerations.h"

#include <functional>
#include <vector>

class TableView;

/// What a file is read or written with.
struct Dialect {
    static Dialect ofLoad(TableView const& table);
    static Dialect ofSave(TableView const& table);

    QString delimiter;
    LineEndingType lineEnding;
    EncodingType encoding;
    ParsingStandard parsingStandard;
};

enum class DialectPart { Delimiter, LineEnding, Encoding, ParsingStandard };

namespace Prompts {

/// Asks for the parts one after the other, then hands over the dialect in which to read the table's file again.
PromptStep reloadDialect(std::vector<DialectPart> const& parts, TableView* table,
                         std::function<void(Dialect const& dialect)> const& reload);

/// Asks for the parts one after the other, then sets them for saves of the table, as one undoable change. `mayEncode`
/// has the last word on the encoding.
PromptStep saveDialect(std::vector<DialectPart> const& parts, TableView* table,
                       std::function<bool(EncodingType encoding)> const& mayEncode);

/// Offers the names of all encodings and puts the chosen one on the clipboard.
PromptStep listCharacterEncodings();

} // namespace Prompts
