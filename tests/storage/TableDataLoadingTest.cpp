#include "storage/CellPatch.h"
#include "storage/TakenLines.h"
#include "tests/storage/TableDataFixture.h"
#include "tests/support/HeldReads.h"

#include <QCoreApplication>
#include <QMutex>
#include <QSignalSpy>
#include <QWaitCondition>

#include <sys/resource.h>
#include <sys/stat.h>

namespace {

constexpr int bigRows = 220'000;
constexpr int patience = 60'000; ///< milliseconds

struct WithHeldReads {
    HeldReads reads; ///< outlives the table
};

class TableDataLoading : protected WithHeldReads, public TableDataFixture {
protected:
    TableDataLoading() {
        QByteArray line(119, 'x');
        line[60] = ',';
        line += '\n';
        big = write("big.csv", line.repeated(bigRows));
    }

    QString big; ///< larger than 24 MiB, two columns
    QSignalSpy started{&data, &TableData::startProgressUpdateSignal};
    QSignalSpy progress{&data, &TableData::loadProgressUpdateSignal};
    QSignalSpy finished{&data, &TableData::loadFinishedSignal};
    QSignalSpy sizes{&data, &TableData::tableSizeChangedSignal};
};

TEST_F(TableDataLoading, AThreadedLoadReportsItsProgressAndFillsTheTable) {
    QMutex mutex;
    QWaitCondition condition;
    data.setProgressUpdateMutex(&mutex, &condition);
    open(big, true);
    EXPECT_TRUE(data.isLoading());
    EXPECT_EQ(data.numRawRows(), 0);
    ASSERT_TRUE(finished.wait(patience));
    EXPECT_FALSE(data.isLoading());
    EXPECT_EQ(started.count(), 1);
    ASSERT_GE(progress.count(), 3);
    EXPECT_EQ(progress.first(), (QVariantList{0, 4, 25}));
    EXPECT_GE(data.numRawRows(), bigRows);
    EXPECT_EQ(data.numRawCols(), 2);
    ASSERT_EQ(sizes.count(), 1);
    EXPECT_EQ(sizes.first().first().toInt(), data.numRawRows());
    EXPECT_EQ(data.getValueRaw(bigRows - 1, 1).toString().size(), 58);
    // The container is at home on this thread again.
    EXPECT_EQ(data.getDataContainer()->thread(), QThread::currentThread());
}

TEST_F(TableDataLoading, ASecondLoadCancelsTheFirst) {
    open(big, true);
    ASSERT_TRUE(started.wait(patience));
    open(write("small.csv", "a,b,c"), true);
    ASSERT_TRUE(finished.wait(patience));
    QCoreApplication::processEvents();
    EXPECT_EQ(finished.count(), 1);
    EXPECT_EQ(shown(), "a b c");
}

TEST_F(TableDataLoading, ALateSignalOfAReplacedContainerIsIgnored) {
    reads.hold();
    open(big, true);
    reads.waitUntilHeld();
    reads.release();
    data.stopLoadThread(false); // the load ends on its thread, and its signal lies in this thread's queue
    open(write("small.csv", "a,b,c"), true);
    QCoreApplication::processEvents();
    ASSERT_TRUE(finished.count() > 0 || finished.wait(patience));
    QCoreApplication::processEvents();
    EXPECT_EQ(finished.count(), 1);
    EXPECT_EQ(shown(), "a b c");
}

TEST_F(TableDataLoading, ALoadThatCannotBeginLeavesTheTableAndARunningLoadAsTheyAre) {
    QString const pipe = path("pipe.csv");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    struct Case {
        QString file;
        char const* reason;
    };
    std::vector<Case> const cases = {{path("missing.csv"), "The file does not exist."},
                                     {directory.path(), "It is a folder."},
                                     {pipe, "It is not a regular file."},
                                     {QStringLiteral("/proc/self/mem"), "Input/output error."}};
    QSignalSpy failed(&data, &TableData::loadFailedSignal);
    load("a,b\nc,d");
    data.toggleTranspose();
    data.concealRawRow(0);
    auto const expectFailures = [&](std::string const& table) {
        for (Case const& c : cases) {
            EXPECT_FALSE(open(c.file, true));
            EXPECT_EQ(failed.takeLast().first().toString(), QString(c.reason));
            EXPECT_EQ(shown(), table);
            EXPECT_EQ(data.getFilepath(), path("table.csv"));
        }
    };
    expectFailures("b d");

    reads.hold();
    EXPECT_TRUE(open(path("table.csv"), true));
    expectFailures("");
    EXPECT_TRUE(data.isLoading());
    reads.release();
    ASSERT_TRUE(finished.wait(patience));
    EXPECT_EQ(data.numRawRows(), 2);
}

TEST_F(TableDataLoading, ALoadWithoutADescriptorLeftFailsAndLaterWorks) {
    load("a,b");
    QString const file = data.getFilepath();
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit none = before;
    none.rlim_cur = 0;
    QSignalSpy failed(&data, &TableData::loadFailedSignal);
    ::setrlimit(RLIMIT_NOFILE, &none);
    bool const opened = open(file, true);
    ::setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_FALSE(opened);
    EXPECT_EQ(failed.value(0).value(0).toString(), "Too many open files.");
    EXPECT_EQ(shown(), "a b");
    EXPECT_TRUE(open(file, true));
    ASSERT_TRUE(finished.wait(patience));
    EXPECT_EQ(shown(), "a b");
}

TEST_F(TableDataLoading, ATableThatLoadsRefusesEveryChangeAndTheSave) {
    QString const file = write("table.csv", "a,b\nc,d\ne,f");
    reads.hold();
    open(file, true);
    reads.waitUntilHeld();
    CellPatch patch;
    patch.add(0, 0, "x");
    data.exchange(patch);
    TakenLines lines(Axis::Rows, {{0, 0}});
    data.take(lines);
    data.putBack(lines);
    data.sortLines(Axis::Rows, {2, 1, 0});
    data.concealRawRow(0);
    data.toggleTranspose();
    data.clear();
    data.setSaveWithTrailingDelimiters(false); // an option of the program, which may change at any time
    EXPECT_FALSE(data.setValueRaw(0, 0, "x"));
    EXPECT_FALSE(data.setValueModel(5, 5, "x"));
    EXPECT_FALSE(data.insertRowsRaw(0, 2));
    EXPECT_FALSE(data.insertColsRaw(0, std::vector<AbstractDataContainer::Cells>(2)));
    EXPECT_FALSE(data.removeRowsRaw(0, 1));
    EXPECT_FALSE(data.removeColsModel(0, 1));
    EXPECT_FALSE(data.duplicateRow(0, 1));
    EXPECT_FALSE(data.moveColRelative(0, 1));
    EXPECT_FALSE(data.saveCSV(false, false));
    EXPECT_FALSE(data.saveCSV(path("other.csv"), false, false));
    EXPECT_EQ(data.getLastSaveError(), "The file is being loaded.");
    EXPECT_FALSE(QFile::exists(path("other.csv")));
    EXPECT_EQ(shown(), "");
    reads.release();
    ASSERT_TRUE(finished.wait(patience));
    EXPECT_EQ(shown(), "a b|c d|e f");
    EXPECT_EQ(read(file), "a,b\nc,d\ne,f");
    EXPECT_TRUE(data.setValueRaw(1, 1, ""));
    ASSERT_TRUE(data.saveCSV(false, false));
    EXPECT_EQ(read(file), "a,b\nc\ne,f\n");
}

TEST_F(TableDataLoading, AReadThatFailsInTheMiddleLeavesAPart) {
    for (bool const threaded : {true, false}) {
        reads.failAfter(2);
        open(big, threaded);
        ASSERT_TRUE(!threaded || finished.wait(patience));
        EXPECT_EQ(data.getLoadResult().end, LoadEnd::Part);
        EXPECT_EQ(data.getLoadResult().reason, "Input/output error.");
        EXPECT_GT(data.numRawRows(), 0);
        EXPECT_LT(data.numRawRows(), bigRows);
        EXPECT_EQ(data.getValueRaw(0, 1).toString().size(), 58);
    }
    reads.failAfter(-1);
    open(big, false);
    EXPECT_EQ(data.getLoadResult().end, LoadEnd::Whole);
    EXPECT_EQ(data.getLoadResult().reason, "");
}

TEST_F(TableDataLoading, AFileBeyondTheLimitsOpensUpToThereAndIsNotOverwritten) {
    struct Case {
        QByteArray file, delimiter, expected, reason;
    };
    data.setLoadLimits({3, 4});
    for (Case const& c :
         std::vector<Case>{{"a,b,c,d\ne\nf", ",", "a b c d|e - - -|f - - -", ""},
                           {"a\nb\nc\nd\ne\n", ",", "a|b|c", "It has more than 3 rows."},
                           {"a,b\nc,d,e,f,g,h\ni\n", ",", "a b - -|c d e f", "It has more than 4 columns."},
                           {"a,b,c,d,e", ",", "a b c d", "It has more than 4 columns."},
                           {",,,,,\n", ",", "- - - -", "It has more than 4 columns."},
                           {"a, b, c, d\ne", ", ", "a b c d|e - - -", ""},
                           {"a\nb\nc\nd", ", ", "a|b|c", "It has more than 3 rows."},
                           {"a, b, c, d, e, f\n", ", ", "a b c d", "It has more than 4 columns."}}) {
        QString const file = write("limits.csv", c.file);
        QString const delimiter = c.delimiter;
        data.loadCSV(file, false, TableData::DataContainerType::Editable, delimiter, delimiter, EncodingType::Utf8,
                     ParsingStandard::Rfc4180);
        EXPECT_EQ(shown(), c.expected.toStdString()) << c.file.constData();
        EXPECT_EQ(data.getLoadResult().reason, QString(c.reason)) << c.file.constData();
        bool const beyond = !c.reason.isEmpty();
        EXPECT_EQ(data.getLoadResult().beyondLimits, beyond);
        if (!beyond)
            continue;
        EXPECT_EQ(data.getDataContainerType(), TableData::DataContainerType::ReadOnly);
        EXPECT_FALSE(data.saveCSV(false, false));
        EXPECT_FALSE(data.saveCSV(path("./limits.csv"), false, false));
        EXPECT_EQ(data.getLastSaveError(),
                  "The table holds only the beginning of the file. Save it under another name.");
        EXPECT_EQ(read(file), c.file);
        EXPECT_TRUE(data.saveCSV(path("part.csv"), false, false));
    }
}

TEST_F(TableDataLoading, AStoppedLoadNeitherEndsNorBeginsLater) {
    open(big, true);
    data.stopLoadThread(true);
    QCoreApplication::processEvents();
    EXPECT_FALSE(data.isLoading());
    EXPECT_EQ(finished.count(), 0);
    EXPECT_EQ(data.numRawRows(), 0);
    open(big, true); // and the destructor ends one that runs
}

TEST_F(TableDataLoading, AnUnreadableFileIsAnEmptyTableWithoutAThread) {
    load("a,b");
    data.toggleTranspose();
    open(path("missing.csv"), false);
    EXPECT_EQ(finished.count(), 2);
    EXPECT_EQ(sizes.last(), (QVariantList{0, 0, 0, 0}));
    EXPECT_FALSE(data.isTransposed());
    EXPECT_EQ(data.getFilepath(), path("missing.csv"));
}

TEST_F(TableDataLoading, ANewContainerTypeReloadsTheFileInItsDialect) {
    QString const file = write("dialect.csv", "a;\xE9\n");
    data.setLineEnding(LineEndingType::Windows);
    data.loadCSV(file, false, TableData::DataContainerType::Editable, QStringLiteral(";"), QStringLiteral("|"),
                 EncodingType::Iso8859_1, ParsingStandard::AllQuotes);
    data.setValueRaw(0, 0, QStringLiteral("edited"));
    data.setDataContainerType(TableData::DataContainerType::Editable);
    EXPECT_EQ(data.getValueRaw(0, 0).toString(), QStringLiteral("edited"));
    data.setDataContainerType(TableData::DataContainerType::ReadOnly);
    ASSERT_TRUE(finished.wait(patience));
    EXPECT_EQ(data.getDataContainerType(), TableData::DataContainerType::ReadOnly);
    EXPECT_EQ(data.getValueRaw(0, 0).toString(), QStringLiteral("a"));
    EXPECT_EQ(data.getValueRaw(0, 1).toString(), QStringLiteral("é"));
    AbstractDataContainer const& container = *data.getDataContainer();
    EXPECT_EQ(container.getSaveDelimiter(), QStringLiteral("|"));
    EXPECT_EQ(container.getLineEnding(), LineEndingType::Windows);
    EXPECT_EQ(container.getParsingStandard(), ParsingStandard::AllQuotes);
}

class TableDataSaving : public TableDataFixture {};

TEST_F(TableDataSaving, ConcealedLinesAndTransposeShapeTheFile) {
    struct Case {
        bool transposed, skipConcealed;
        QByteArray expected;
    };
    load("a,b,c\nd,e,f\ng,h,i");
    data.concealRawRow(1);
    data.concealRawCol(0);
    QSignalSpy begun(&data, &TableData::saveStartedSignal);
    QSignalSpy ended(&data, &TableData::saveFinishedSignal);
    // A transposed save leaves out shown rows only: its lines keep all their cells.
    for (Case const& c : std::vector<Case>{{false, false, "a,b,c\nd,e,f\ng,h,i"},
                                           {false, true, "b,c\nh,i"},
                                           {true, false, "a,d,g\nb,e,h\nc,f,i"},
                                           {true, true, "b,e,h\nc,f,i"}}) {
        if (data.isTransposed() != c.transposed)
            data.toggleTranspose();
        QString const target = path("saved.csv");
        EXPECT_TRUE(data.saveCSV(target, false, c.skipConcealed));
        EXPECT_EQ(read(target).trimmed(), c.expected);
        EXPECT_EQ(begun.last().first().toString(), target);
        EXPECT_EQ(ended.last().first().toString(), target);
    }
    EXPECT_TRUE(data.saveCSV(false, true));
    EXPECT_EQ(read(path("saved.csv")).trimmed(), "b,e,h\nc,f,i");
}

TEST_F(TableDataSaving, AFailureLeavesItsReasonAndThePath) {
    load("a");
    QString const own = data.getFilepath();
    QSignalSpy ended(&data, &TableData::saveFinishedSignal);
    EXPECT_FALSE(data.saveCSV(path("no such folder/x.csv"), false, false));
    EXPECT_EQ(data.getLastSaveError(), "There is no folder " + path("no such folder") + ".");
    EXPECT_EQ(ended.first().first().toString(), own);
    EXPECT_TRUE(data.saveCSV(false, false));
    EXPECT_TRUE(data.getLastSaveError().isEmpty());
}

TEST_F(TableDataSaving, WhatWouldNotComeBackIsHeldBackUntilItIsWanted) {
    load("a,b\nc,d\n");
    auto const before = FileStamp::of(data.getFilepath());
    data.setParsingStandard(ParsingStandard::DelimiterOnly);
    data.toggleTranspose();
    data.setValueRaw(0, 1, "x\ny");
    SaveRequest request;
    auto report = data.save(request);
    EXPECT_EQ(report.outcome, SaveReport::Outcome::WouldChange);
    EXPECT_EQ(report.changed.cells, CellRegion::ofCells({{0, 1}}));
    EXPECT_EQ(report.reason, "1 cell would not be read back from " + data.getFilepath() + " as it is.");
    EXPECT_EQ(report.reason, data.getLastSaveError());
    EXPECT_EQ(before, FileStamp::of(data.getFilepath()));
    request.path = path("other.csv");
    EXPECT_FALSE(data.save(request).isSaved() || data.getFilepath() == request.path);
    request = SaveRequest::unchecked();
    request.file.expected = before;
    report = data.save(request);
    EXPECT_TRUE(report.isSaved() && report.reason.isEmpty() && report.changed.isEmpty());
    EXPECT_EQ(report.stamp, FileStamp::of(data.getFilepath()));
    EXPECT_EQ(data.save(request).outcome, SaveReport::Outcome::TargetChanged);
}

} // namespace
