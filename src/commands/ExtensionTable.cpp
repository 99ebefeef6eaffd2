#include "commands/ExtensionTable.h"

#include "core/DialectUtilities.h"

#include <QFileInfo>

#include <algorithm>

std::vector<ExtensionData> ExtensionTable::defaultRows() {
    std::vector<ExtensionData> rows{
        {"csv", "(auto)", ","}, {"tsv", "\t", "\t"}, {"tab", "\t", "\t"}, {"dsv", ";", ";"}, {"psv", "|", "|"},
    };
    for (ExtensionData& row : rows) {
        row.lineEnding = Utilities::getLineEndingFromPlatform();
    }
    return rows;
}

ExtensionData ExtensionTable::find(std::vector<ExtensionData> const& rows, QString const& extension) {
    QString const lowered = extension.toLower();
    auto const row = std::find_if(rows.begin(), rows.end(),
                                  [&](ExtensionData const& candidate) { return candidate.extension == lowered; });
    return row == rows.end() ? ExtensionData() : *row;
}

QString ExtensionTable::extensionOfFile(QString const& path) {
    QString const suffix = QFileInfo(path).suffix();
    return suffix.isEmpty() ? QStringLiteral("(none)") : suffix;
}
