#include "storage/EditableDataContainer.h"
#include "tests/support/TestFolder.h"

#include <QFile>
#include <gtest/gtest.h>

#include <chrono>
#include <sys/stat.h>

using namespace std::string_literals;

namespace {

using Table = std::vector<std::vector<std::string>>;
using enum EncodingType;
using Standard = ParsingStandard;

constexpr std::size_t largeBytes = 0x1800000;

class ScannerLoading : public testing::Test {
protected:
    QString write(std::string const& bytes) { return folder.write("table.csv", QByteArray::fromStdString(bytes)); }

    /// Notes every signal of a container as text, in order.
    static void listen(EditableDataContainer& container, std::vector<std::string>& heard) {
        QObject::connect(&container, &AbstractDataContainer::startProgressUpdateSignal,
                         [&] { heard.push_back("start"); });
        QObject::connect(
            &container, &AbstractDataContainer::loadProgressUpdateSignal, [&](int done, int steps, int mib) {
                heard.push_back(std::to_string(done) + "/" + std::to_string(steps) + " of " + std::to_string(mib));
            });
        QObject::connect(&container, &AbstractDataContainer::loadFinishedSignal, [&] { heard.push_back("finished"); });
    }

    static Table contentOf(EditableDataContainer const& container) {
        Table table(static_cast<std::size_t>(container.numRows()));
        for (int row = 0; row < container.numRows(); ++row)
            for (int col = 0; col < container.numColsInRow(row); ++col)
                table[static_cast<std::size_t>(row)].emplace_back(container.cellView(row, col));
        return table;
    }

    TestFolder folder;
};

struct Reading {
    char const* name;
    EncodingType encoding;
    ParsingStandard standard;
    QString delimiter;
    std::string file;
    Table rows;
    int columns;
    std::string mark = {};
};

TEST_F(ScannerLoading, EveryDialectFindsItsScannerAndMark) {
    QString const comma = QStringLiteral(",");
    Reading const readings[] = {
        {"empty", Utf8, Standard::Rfc4180, comma, "", {}, 0},
        {"line feed alone", Utf8, Standard::Rfc4180, comma, "\n", {{}}, 1},
        {"quotes",
         Utf8,
         Standard::Rfc4180,
         comma,
         "a,\"b\"\"c\",d\na,\"b\"c,d",
         {{"a", "b\"c", "d"}, {"a", "\"b\"c", "d"}},
         3},
        {"pending cell", Utf8, Standard::Rfc4180, comma, "a,b,", {{"a", "b"}}, 2},
        {"pending cell, ended", Utf8, Standard::Rfc4180, comma, "a,b,\n", {{"a", "b"}}, 3},
        {"open quote", Utf8, Standard::AllQuotes, comma, "\"ab,", {{"\"ab"}}, 1},
        {"line break in quotes", Utf8, Standard::SparseQuotes, comma, "\"a\nb\",c", {{"a\nb", "c"}}, 2},
        {"delimiter only", Utf8, Standard::DelimiterOnly, comma, "\"a\nb\",c", {{"\"a"}, {"b\"", "c"}}, 2},
        {"row ends",
         Utf8,
         Standard::AsciiSeparated,
         comma,
         "a\r\nb\rc\x1e\nd\n\n",
         {{"a"}, {"b"}, {"c"}, {}, {"d"}, {}},
         1},
        {"mark",
         Utf8,
         Standard::Rfc4180,
         comma,
         "\xef\xbb\xbf"
         "a",
         {{"a"}},
         1,
         "\xef\xbb\xbf"},
        {"mark alone", Utf8, Standard::Rfc4180, comma, "\xef\xbb\xbf", {}, 0, "\xef\xbb\xbf"},
        {"no mark of this one",
         Windows1252,
         Standard::Rfc4180,
         comma,
         "\xef\xbb\xbf"
         "a",
         {{"\xef\xbb\xbf"
           "a"}},
         1},
        {"sequence", Utf8, Standard::Rfc4180, u"§§"_qs, "a§§\"b§§\"§§", {{"a", "b§§"}}, 3},
        {"sequence, mark alone", Utf8, Standard::Rfc4180, u"§"_qs, "\xef\xbb\xbf", {{}}, 1, "\xef\xbb\xbf"},
        {"one legacy byte",
         Iso8859_1,
         Standard::Rfc4180,
         u"§"_qs,
         "a\xa7"
         "b\xa7",
         {{"a", "b"}},
         2},
        {"no delimiter", Utf8, Standard::Rfc4180, QString(), "\"a,b\nc\"\n", {{"\"a,b"}, {"c\""}}, 1},
        {"UTF-16",
         Utf16LE,
         Standard::Rfc4180,
         comma,
         "a\0,\0\"\0,\0\"\0\n\0\x1e\0z"s,
         {{"a\0"s, ",\0"s}, {"\x1e\0"s}},
         2},
        {"UTF-16 by mark",
         Utf16,
         Standard::Rfc4180,
         comma,
         "\xff\xfe"
         "a\0"s,
         {{"a\0"s}},
         1,
         "\xff\xfe"},
        {"UTF-32", Utf32BE, Standard::Rfc4180, comma, "\0\0\0a\0\0\0,\0\0\0b"s, {{"\0\0\0a"s, "\0\0\0b"s}}, 2},
        {"UTF-16 lines",
         Utf16BE,
         Standard::Rfc4180,
         QString(),
         "\0a\0\n\0\r\0\n\0b\0\x1e"s,
         {{"\0a\0\n"s}, {"\0\n\0b"s}},
         1},
    };
    for (Reading const& reading : readings) {
        SCOPED_TRACE(reading.name);
        EditableDataContainer container;
        std::vector<std::string> heard;
        listen(container, heard);
        container.setFilepath(write(reading.file));
        container.setEncoding(reading.encoding);
        container.setDelimiter(reading.delimiter, reading.delimiter);
        container.setParsingStandard(reading.standard);
        EXPECT_TRUE(container.loadCSV());
        EXPECT_EQ(heard, std::vector<std::string>{"finished"});
        EXPECT_EQ(contentOf(container), reading.rows);
        EXPECT_EQ(container.numCols(), reading.columns);
        EXPECT_EQ(container.getFileSize(), static_cast<qint64>(reading.file.size()));
        EXPECT_EQ(container.getHasBom(), !reading.mark.empty());
        EXPECT_EQ(std::string(container.getBom().begin(), container.getBom().end()), reading.mark);
    }
}

TEST_F(ScannerLoading, WhatIsNoFileIsRefusedWithoutASignal) {
    QString const pipe = folder.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (QString const& path : {folder.filePath(QStringLiteral("missing")), folder.path(), pipe}) {
        EditableDataContainer container;
        std::vector<std::string> heard;
        listen(container, heard);
        container.setFilepath(path);
        EXPECT_FALSE(container.loadCSV());
        EXPECT_TRUE(heard.empty());
    }
}

/// 24 MiB and a bit in rows of 1 KiB, the last of which starts a progress step.
std::string largeFile(std::string const& lineEnd) {
    std::string const row = std::string(1024 - lineEnd.size(), 'a') + lineEnd;
    std::string file;
    while (file.size() <= largeBytes)
        file += row;
    return file;
}

struct LargeReading {
    EncodingType encoding;
    QString delimiter;
    int rowsUntilQuit; ///< when it is set at the first step
};

TEST_F(ScannerLoading, LargeFilesTellTheirProgressAndStopOnQuit) {
    LargeReading const readings[] = {{Utf8, QStringLiteral(","), 8193},
                                     {Utf8, QString(), 8193},
                                     {Utf8, QStringLiteral("::"), 24577},
                                     {Utf16LE, QStringLiteral(","), 8193}};
    for (LargeReading const& reading : readings) {
        for (bool const quitting : {false, true}) {
            EditableDataContainer container;
            std::vector<std::string> heard;
            listen(container, heard);
            container.setFilepath(write(largeFile(reading.encoding == Utf8 ? "\n" : "\n\0"s)));
            container.setEncoding(reading.encoding);
            container.setDelimiter(reading.delimiter, reading.delimiter);
            if (quitting)
                QObject::connect(&container, &AbstractDataContainer::loadProgressUpdateSignal, [&](int done) {
                    if (done == 1)
                        container.setQuit(true);
                });
            EXPECT_EQ(container.loadCSV(), !quitting);
            std::vector<std::string> expected = {"start",     "0/4 of 24", "1/4 of 24",
                                                 "2/4 of 24", "3/4 of 24", "finished"};
            if (quitting)
                expected.resize(reading.delimiter.size() > 1 ? 5 : 3); // that scanner looks after a block only
            EXPECT_EQ(heard, expected);
            EXPECT_EQ(container.numRows(), quitting ? reading.rowsUntilQuit : 24577);
        }
    }
}

TEST_F(ScannerLoading, AFileThatShrinksOrGrowsMeanwhileIsReadAsFarAsItGoes) {
    struct Change {
        qint64 newSize;
        int rows;
        bool whole;
    };
    // The size is that of 24,577 rows; a file that grows is read to the end of the blocks counted at its start.
    for (Change const& change : {Change{10 << 20, 10240, false}, Change{30 << 20, 24577, true}}) {
        EditableDataContainer container;
        container.setFilepath(write(largeFile("\n")));
        QObject::connect(&container, &AbstractDataContainer::loadProgressUpdateSignal, [&](int done) {
            if (done == 0)
                QFile::resize(container.getFilepath(), change.newSize);
        });
        EXPECT_TRUE(container.loadCSV());
        EXPECT_EQ(container.numRows(), change.rows);
        EXPECT_EQ(container.getLoadResult().end == LoadEnd::Whole, change.whole);
    }
}

TEST_F(ScannerLoading, ALargeFileGivesTheProgressDialogTimeWhenThereIsOne) {
    QMutex mutex;
    QWaitCondition condition;
    EditableDataContainer container;
    container.setFilepath(write(largeFile("\n")));
    container.setProgressUpdateMutex(&mutex, &condition);
    auto const begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(container.loadCSV());
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(500));
    EXPECT_TRUE(mutex.tryLock());
    mutex.unlock();
}

} // namespace
