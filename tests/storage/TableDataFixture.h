#pragma once

#include "storage/TableData.h"
#include "tests/support/TestFolder.h"

/// A TableData with files of its own.
class TableDataFixture : public testing::Test {
protected:
    QString path(QString const& name) const { return directory.filePath(name); }
    QString write(QString const& name, QByteArray const& content) const { return directory.write(name, content); }
    QByteArray read(QString const& name) const { return directory.read(name); }

    void load(QByteArray const& content, EncodingType encoding = EncodingType::Utf8) {
        open(write("table.csv", content), false, encoding);
    }

    bool open(QString const& path, bool useThread, EncodingType encoding = EncodingType::Utf8) {
        return data.loadCSV(path, useThread, TableData::DataContainerType::Editable, QStringLiteral(","),
                            QStringLiteral(","), encoding, ParsingStandard::Rfc4180);
    }

    /// What the model shows, cells by blanks and rows by bars, "-" for an empty cell.
    std::string shown() const {
        std::string result;
        for (int row = 0; row < data.numModelRows(); ++row) {
            result += row ? "|" : "";
            for (int col = 0; col < data.numModelCols(); ++col) {
                std::string const text = data.getValueModel(row, col).toString().toStdString();
                result += (col ? " " : "") + (text.empty() ? "-" : text);
            }
        }
        return result;
    }

    TestFolder directory;
    TableData data;
};
