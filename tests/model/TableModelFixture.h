#pragma once

#include "model/TableModel.h"
#include "tests/support/TestFolder.h"

#include <QAbstractItemModelTester>
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

    QByteArray read(QString const& path) const { return directory.read(path); }

    void load(QByteArray const& content, bool async = false, bool readOnly = false) {
        model.loadCSV(directory.write("table.csv", content), async, readOnly, QStringLiteral(","), QStringLiteral(","),
                      EncodingType::Utf8, ParsingStandard::Rfc4180);
    }

    QString text(int row, int col, int role = Qt::DisplayRole) const {
        return model.data(model.index(row, col), role).toString();
    }

    /// The whole grid, cells by blanks and rows by bars, "-" for an empty cell.
    std::string shown() const { return shown(model.rowCount(), model.columnCount()); }
    std::string shown(int rows, int cols) const {
        std::string result;
        for (int row = 0; row < rows; ++row) {
            result += row ? "|" : "";
            for (int col = 0; col < cols; ++col) {
                std::string const cell = text(row, col).toStdString();
                result += (col ? " " : "") + (cell.empty() ? "-" : cell);
            }
        }
        return result;
    }

    TestFolder directory;
    TableModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};
