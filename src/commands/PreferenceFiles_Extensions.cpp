#include "commands/ExtensionTable.h"
#include "commands/PreferenceFiles.h"
#include "commands/PreferenceTable.h"
#include "core/DelimiterUtilities.h"
#include "core/DialectUtilities.h"
#include "core/EncodingUtilities.h"
#include "core/PathUtilities.h"
#include "model/TableModel.h"

#include <algorithm>

namespace {

enum Title : std::size_t { Extension, Delimiter, SaveDelimiter, LineEnding, Encoding, Standard };

/// The titles to look for; of these the column for saving may be missing.
std::vector<QString> titles() {
    return {"Extension", "Delimiter", "Delimiter (Save)", "Line Ending", "Encoding", "Parsing Standard"};
}
constexpr int requiredTitles = 5;

/// The instructions, a block for each column.
std::vector<QStringList> instructions() {
    return {
        {"For a given file extension,", "set your preferred delimiter,", "character encoding, and",
         "parsing standard. You may add", "your own extensions.", "No extension: Type \"(none)\"."},
        {"--- Delimiter ---", "Can be one or more characters.", "No delimiter: Type \"(none)\".",
         "Auto-detect: Type \"(auto)\".", "Tab: Type \"\\t\" or \"tab\".", "Space: Type \"\\s\" or \"space\".",
         "Default delimiter: auto-detect", "if enabled. Otherwise, comma."},
        {"--- Line Ending ---", "Affects file save only.", "Windows (CR LF): \"Windows\"", "Mac/Linux (LF): \"Unix\"",
         "Current Platform: \"(platform)\"", "Default ending: current platform"},
        {"--- Encoding ---", "To see supported encodings, call the", "\"List Character Encodings\" command",
         "and select one to copy to the clipboard.", "Default encoding: UTF-8"},
        {"--- Parsing Standard ---", "The current options include ", "\"RFC 4180\", \"Delimiter Only\", ",
         "\"All Quotes\", and \"Sparse Quotes\".", "Default standard: RFC 4180."},
    };
}

QString delimiterFromFile(QString const& text) {
    QString const word = text.toLower();
    if (word == QLatin1String("\\t") || word == QLatin1String("tab")) {
        return QStringLiteral("\t");
    }
    if (word == QLatin1String("\\s") || word == QLatin1String("space")) {
        return QStringLiteral(" ");
    }
    return text.isEmpty() || text == QLatin1String("\"") ? QStringLiteral(",") : text;
}

QString delimiterForFile(QString const& delimiter) {
    if (delimiter == QLatin1String("\t")) {
        return QStringLiteral("\\t");
    }
    return delimiter == QLatin1String(" ") ? QStringLiteral("\\s") : delimiter;
}

/// Without a delimiter of its own, saving uses that for loading, or a comma where that is detected in the file.
QString saveDelimiterFromFile(QString const& text, QString const& delimiter) {
    if (!text.isEmpty()) {
        return delimiterFromFile(text);
    }
    return delimiter == QLatin1String("(auto)") ? QStringLiteral(",") : delimiter;
}

ExtensionData parseRow(PreferenceTable const& table, int row, QString const& extension) {
    ExtensionData data;
    data.extension = extension;
    data.delimiter = delimiterFromFile(table.text(row, Delimiter));
    data.saveDelimiter = saveDelimiterFromFile(table.text(row, SaveDelimiter), data.delimiter);
    QString const ending = table.text(row, LineEnding);
    data.lineEnding = Utilities::lineEndingValid(ending) ? Utilities::convertLineEndingStringToType(ending)
                                                         : Utilities::getLineEndingFromPlatform();
    QString const encoding = table.text(row, Encoding);
    data.encoding =
        Utilities::encodingValid(encoding) ? Utilities::convertEncodingStringToType(encoding) : EncodingType::Utf8;
    QString const standard = table.text(row, Standard);
    data.parsingStandard = Utilities::parsingStandardValid(standard)
                               ? Utilities::convertParsingStringToStandard(standard)
                               : ParsingStandard::Rfc4180;
    return data;
}

std::vector<ExtensionData> parseRows(PreferenceTable const& table) {
    std::vector<ExtensionData> rows;
    for (int row = table.firstRow(); row < table.endRow(); ++row) {
        QString extension = table.text(row, Extension).toLower().trimmed();
        if (extension.isEmpty()) {
            continue;
        }
        if (extension.startsWith(QLatin1Char('.'))) {
            extension.remove(0, 1);
        }
        rows.push_back(parseRow(table, row, extension));
    }
    return rows;
}

void addIfMissing(std::vector<ExtensionData>& rows, QString const& extension, QString const& delimiter) {
    auto const isIt = [&](ExtensionData const& row) { return row.extension == extension; };
    if (std::none_of(rows.begin(), rows.end(), isIt)) {
        rows.emplace_back(extension, delimiter, QStringLiteral(","));
        rows.back().lineEnding = Utilities::getLineEndingFromPlatform();
    }
}

bool writeFile(std::vector<ExtensionData> const& rows) {
    TableModel model;
    PreferenceFiles::makeExtensionsTable(model, rows);
    return PreferenceFiles::save(model, Utilities::getExtensionsFilepath());
}

} // namespace

void PreferenceFiles::makeExtensionsTable(TableModel& model, std::vector<ExtensionData> const& rows) {
    std::vector<QStringList> const blocks = instructions();
    auto const shorter = [](QStringList const& a, QStringList const& b) { return a.size() < b.size(); };
    int row = int(std::max_element(blocks.begin(), blocks.end(), shorter)->size()) + 1;
    setSize(model, row + 1 + int(rows.size()), int(blocks.size()));
    for (std::size_t col = 0; col < blocks.size(); ++col) {
        writeColumn(model, 0, int(col), blocks[col]);
    }
    writeRow(model, row++, 0, {"Extension", "Delimiter", "Line Ending", "Encoding", "Parsing Standard"});
    for (ExtensionData const& data : rows) {
        writeRow(model, row++, 0,
                 {data.extension, delimiterForFile(data.delimiter),
                  Utilities::convertLineEndingTypeToShortString(data.lineEnding),
                  Utilities::convertEncodingTypeToString(data.encoding),
                  Utilities::convertParsingStandardToString(data.parsingStandard)});
    }
}

bool PreferenceFiles::makeExtensionsFile() {
    return writeFile(ExtensionTable::defaultRows());
}

PreferenceFiles::FileTest PreferenceFiles::examineExtensionsFile() {
    return examine(Utilities::getExtensionsFilepath(),
                   {"Extension", "Delimiter", "Line Ending", "Encoding", "Parsing Standard"});
}

bool PreferenceFiles::testExtensionsFileValidity() {
    return examineExtensionsFile() == FileTest::Sound;
}

bool PreferenceFiles::updateExtensionsFile() {
    TableModel model;
    if (!load(model, Utilities::getExtensionsFilepath())) {
        return false;
    }
    PreferenceTable const table(model, titles(), requiredTitles);
    if (!table.hasTitles()) {
        return makeExtensionsFile();
    }
    std::vector<ExtensionData> rows = parseRows(table);
    for (ExtensionData& row : rows) {
        if (!Utilities::delimiterValid(row.delimiter)) {
            row.delimiter = QStringLiteral(",");
        }
    }
    return writeFile(rows);
}

std::vector<ExtensionData> PreferenceFiles::userExtensions(TableModel const& model) {
    std::vector<ExtensionData> rows = parseRows(PreferenceTable(model, titles(), requiredTitles));
    addIfMissing(rows, QStringLiteral("csv"), QStringLiteral(","));
    addIfMissing(rows, QStringLiteral("tsv"), QStringLiteral("\t"));
    return rows;
}
