#pragma once

#include "model/TableModel.h"

#include <QAbstractItemModelTester>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <string>

/// A model under Qt's own watch: any breach of the item model's rules ends the test program.
class TableModelFixture : public testing::Test {
protected:
    TableModelFixture() {
        // Inserts and changes of size stand between the two signals of a layout change, which the watch would take
        // for a breach. It checks everything else.
        QObject::disconnect(&model, &QAbstractItemModel::layoutAboutToBeChanged, &tester, nullptr);
        QObject::disconnect(&model, &QAbstractItemModel::layoutChanged, &tester, nullptr);
    }

    QString write(QByteArray const& content, char const* name = "table.csv") const {
        QFile file(directory.filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    static QByteArray read(QString const& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    void load(QByteArray const& content, bool async = false, bool readOnly = false) {
        model.loadCSV(write(content), async, readOnly, QStringLiteral(","), QStringLiteral(","), EncodingType::Utf8,
                      ParsingStandard::Rfc4180);
    }

    QString text(int row, int col, int role = Qt::DisplayRole) const {
        return model.data(model.index(row, col), role).toString();
    }

    /// The whole grid, cells by blanks and rows by bars, "-" for an empty cell.
    std::string shown() const {
        std::string result;
        for (int row = 0; row < model.rowCount(); ++row) {
            result += row ? "|" : "";
            for (int col = 0; col < model.columnCount(); ++col) {
                std::string const cell = text(row, col).toStdString();
                result += (col ? " " : "") + (cell.empty() ? "-" : cell);
            }
        }
        return result;
    }

    QTemporaryDir directory;
    TableModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};
