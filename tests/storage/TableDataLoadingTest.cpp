#include "tests/storage/TableDataFixture.h"

#include <QCoreApplication>
#include <QMutex>
#include <QSemaphore>
#include <QSignalSpy>
#include <QWaitCondition>

namespace {

constexpr int bigRows = 220'000;
constexpr int patience = 60'000; ///< milliseconds

class TableDataLoading : public TableDataFixture {
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
    QMutex mutex;
    data.setProgressUpdateMutex(&mutex, nullptr);
    QSemaphore sent;
    mutex.lock(); // the load cannot get far before the connection below is made
    open(big, true);
    QObject::connect(
        data.getDataContainer(), &AbstractDataContainer::loadFinishedSignal, &data, [&] { sent.release(); },
        Qt::DirectConnection);
    mutex.unlock();
    // The load ends on its thread; its signal lies in this thread's queue while the next load begins.
    ASSERT_TRUE(sent.tryAcquire(1, patience));
    open(path("missing.csv"), true);
    QCoreApplication::processEvents();
    EXPECT_EQ(finished.count(), 0);
    EXPECT_TRUE(data.isLoading()); // a file that cannot be opened sends nothing
    data.stopLoadThread(false);
    EXPECT_FALSE(data.isLoading());
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
    EXPECT_EQ(data.getLastSaveError(), QStringLiteral("No such file or directory."));
    EXPECT_EQ(ended.first().first().toString(), own);
    EXPECT_TRUE(data.saveCSV(false, false));
    EXPECT_TRUE(data.getLastSaveError().isEmpty());
}

} // namespace
