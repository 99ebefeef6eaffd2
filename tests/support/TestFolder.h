#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// A folder for the files of one test, gone with it. Names may be paths.
class TestFolder {
public:
    QString path() const { return directory.path(); }
    QString filePath(QString const& name) const { return QDir(directory.path()).filePath(name); }
    /// Returns the path.
    QString write(QString const& name, QByteArray const& bytes) const {
        QFile file(filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(name);
        file.write(bytes);
        return file.fileName();
    }
    QByteArray read(QString const& name) const {
        QFile file(filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

private:
    QTemporaryDir directory;
};
