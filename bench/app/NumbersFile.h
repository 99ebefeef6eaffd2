#pragma once

#include <QFile>
#include <QTemporaryDir>

/// Writes a table of numbers with 12 columns and returns its path.
inline QString numbersFile(QTemporaryDir const& folder, QString const& name, int rows) {
    QFile file(folder.filePath(name));
    file.open(QIODevice::WriteOnly);
    for (int row = 0; row < rows; ++row) {
        QByteArray line;
        for (int col = 0; col < 12; ++col)
            line += (col > 0 ? "," : "") + QByteArray::number((row * 7919LL + col * 104729LL) % 999983);
        file.write(line + '\n');
    }
    return file.fileName();
}
