#include "commands/HandlerName.h"

#include <algorithm>
#include <iterator>

namespace {

struct HandlerException {
    char const* command;
    char const* handler;
};

constexpr HandlerException exceptions[] = {
    {"Import from JSON or XML", "commandImport"},
    {"Export to JSON or XML", "commandExport"},
    {"Export to PDF", "commandExportToPdf"},
    {"Copy Cell(s) to HTML", "commandCopyCellsToHtml"},
    {"Clear Cell Contents", "commandClearCellContentsNavigate"},
    {"Fill Selected Cells with UUID/GUID", "commandFillSelectedCellsWithUuidGuid"},
};

bool separatesWords(QChar character) {
    return character.isSpace() || character == QLatin1Char('-') || character == QLatin1Char('/');
}

} // namespace

QString commandHandlerName(QString const& name) {
    auto const exception = std::find_if(std::begin(exceptions), std::end(exceptions), [&](HandlerException const& row) {
        return name == QLatin1String(row.command);
    });
    if (exception != std::end(exceptions))
        return QString::fromLatin1(exception->handler);
    QString handler = QStringLiteral("command");
    bool atWordStart = true;
    for (QChar const character : name) {
        if (separatesWords(character)) {
            atWordStart = true;
        } else if (character.isLetterOrNumber()) {
            handler += atWordStart ? character.toUpper() : character;
            atWordStart = false;
        }
    }
    return handler;
}
