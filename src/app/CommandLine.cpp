#include "app/CommandLine.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace {

bool namesAFile(QString const& path) {
    QFileInfo const info(path);
    return info.exists() || info.isSymLink() || path.contains(QChar::ReplacementCharacter);
}

} // namespace

CommandLine CommandLine::parse(QStringList const& arguments, QString const& workingDirectory) {
    CommandLine result;
    std::pair<QString, int*> const switches[] = {
        {"-w", &result.width}, {"-h", &result.height}, {"-x", &result.x}, {"-y", &result.y}};
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        QString const& argument = arguments[i];
        auto const known = std::find_if(std::begin(switches), std::end(switches),
                                        [&](auto const& candidate) { return candidate.first == argument; });
        if (known != std::end(switches)) {
            if (i + 1 == arguments.size()) {
                break;
            }
            *known->second = arguments[++i].toInt();
            continue;
        }
        if (argument.isEmpty()) {
            continue;
        }
        // A file of the same name in this process's own directory is not the one that the user of a later start means.
        QString const absolute = QDir(workingDirectory).absoluteFilePath(argument);
        QString const path = namesAFile(absolute) ? absolute : argument;
        if (QFileInfo(path).isDir()) {
            result.folders.append(path);
        } else if (namesAFile(path)) {
            result.files.append(path);
        } else {
            result.missing.append(absolute);
        }
    }
    result.folders.removeDuplicates();
    return result;
}
