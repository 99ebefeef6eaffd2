#include "tests/model/TableModelFixture.h"

#include <QSignalSpy>

namespace {

constexpr auto Model = RangeIndexType::Model;

class TableModelLoadingTest : public TableModelFixture {
protected:
    void loadAndWait(QByteArray const& content) {
        QSignalSpy finished(&model, &TableModel::loadFinishedSignal);
        load(content, true);
        ASSERT_TRUE(finished.wait());
    }
};

TEST_F(TableModelLoadingTest, OneLoadFillsTheGridAndSaysSoOnce) {
    for (bool const async : {false, true}) {
        QSignalSpy finished(&model, &TableModel::loadFinishedSignal);
        QSignalSpy const mainCell(&model, &TableModel::mainCellChangedSignal);
        QSignalSpy const size(&model, &TableModel::tableSizeChangedSignal);
        QSignalSpy const changed(&model, &QAbstractItemModel::dataChanged);
        load("a,b\nc,d\ne,f\n", async);
        EXPECT_TRUE(!async || finished.wait());
        EXPECT_EQ(finished.size(), 1);
        EXPECT_EQ(mainCell.last()[0].value<Range>().value(), "a");
        EXPECT_EQ(size.last(), (QVariantList{3, 2, 3, 2}));
        EXPECT_EQ(changed.last()[1].toModelIndex(), model.index(2, 1));
        EXPECT_EQ(shown(), "a b|c d|e f");
        EXPECT_EQ(std::pair(model.getSavedRowCountRaw(), model.getSavedColCountRaw()), std::pair(3, 2));
    }
}

TEST_F(TableModelLoadingTest, ALoadForgetsTheTableBefore) {
    load("a,b\nc,d\ne,f\n");
    model.concealRawRows({1});
    model.getTableData().concealRawCol(0);
    model.enforceTableSize();
    model.setRowSortData({SortType::Ascending, Axis::Rows, 1});
    model.toggleTranspose();
    QSignalSpy const headers(&model, &TableModel::refreshHeadersSignal);
    loadAndWait("x,y,z\n1,2,3\n");
    EXPECT_EQ(shown(), "x y z|1 2 3");
    EXPECT_EQ(model.getRowSortData(), SortData());
    EXPECT_GE(headers.size(), 2);
    // A file that is not there is an empty table.
    model.loadCSV(directory.filePath("none.csv"), false, false, ",", ",", EncodingType::Utf8, ParsingStandard::Rfc4180);
    EXPECT_EQ(shown(), "");
}

TEST_F(TableModelLoadingTest, ALoadCanOvertakeAnother) {
    QByteArray content;
    for (int row = 0; row < 200000; ++row)
        content += "some,cells,of,a,longer,file\n";
    load(content, true);
    EXPECT_EQ(text(0, 0), "");
    loadAndWait("a,b\n");
    EXPECT_EQ(shown(), "a b");
}

TEST_F(TableModelLoadingTest, ReloadsUnderAnotherDialectOnly) {
    EXPECT_EQ(model.getTableName(), "untitled");
    EXPECT_FALSE(model.reloadFileWithDelimiter(";"));
    load("a;\xE4\n");
    EXPECT_EQ(model.getTableName(), "table.csv");
    EXPECT_FALSE(model.reloadFile(",", EncodingType::Utf8, ParsingStandard::Rfc4180));
    QSignalSpy finished(&model, &TableModel::loadFinishedSignal);
    EXPECT_TRUE(model.reloadFileWithDelimiter(";"));
    EXPECT_TRUE(finished.wait());
    EXPECT_EQ(model.columnCount(), 2);
    EXPECT_EQ(model.getSaveDelimiter(), ";");
    EXPECT_TRUE(model.reloadFileWithEncoding(EncodingType::Iso8859_1));
    EXPECT_TRUE(finished.wait());
    EXPECT_EQ(text(0, 1), QString(QChar(0xE4)));
    EXPECT_EQ(model.getLoadedEncoding(), EncodingType::Iso8859_1);
}

TEST_F(TableModelLoadingTest, SavesAndSavesAfterEachEdit) {
    load("a,b\n");
    QSignalSpy const started(&model, &TableModel::saveStartedSignal);
    QSignalSpy const clean(&model, &TableModel::undoStackCleanChangedSignal);
    QSignalSpy const failed(&model, &TableModel::autoSaveFailedSignal);
    model.setData(model.index(0, 0), "A");
    model.saveAfterEdit();
    EXPECT_EQ(started.size(), 0);
    model.setSaveAfterEachEdit(true);
    model.saveAfterEdit();
    EXPECT_EQ(started.size(), 1);
    EXPECT_EQ(clean.size(), 1);
    EXPECT_EQ(read(model.getFilepath()).trimmed(), "A,b");

    QString const other = directory.filePath("other.csv");
    EXPECT_TRUE(model.setDelimiter(";", ";"));
    model.insertRows(1, 1);
    EXPECT_TRUE(model.setData(model.index(1, 1), "c"));
    EXPECT_TRUE(model.saveCSV(other, false, false));
    EXPECT_EQ(read(other).trimmed(), "A;b\n;c");
    EXPECT_EQ(model.getSavedRowCountRaw(), 2);

    ASSERT_TRUE(QDir(directory.path()).removeRecursively());
    model.setData(model.index(0, 0), "B");
    model.saveAfterEdit();
    ASSERT_EQ(failed.size(), 1);
    EXPECT_EQ(failed[0][0].toString(), other);
    EXPECT_FALSE(failed[0][1].toString().isEmpty());
    EXPECT_EQ(text(0, 0), "B");
}

TEST_F(TableModelLoadingTest, EncodingRewritesTheCells) {
    load("\xC3\xA4,b\n");
    EXPECT_TRUE(model.setEncoding(EncodingType::Iso8859_1));
    EXPECT_EQ(text(0, 0), QString(QChar(0xE4)));
    QString const path = directory.filePath("latin.csv");
    ASSERT_TRUE(model.saveCSV(path, false, false));
    EXPECT_EQ(read(path).trimmed(), "\xE4,b");
}

} // namespace

TEST_F(TableModelLoadingTest, ManyRowsReachTheGridInStepsThatANewLoadEnds) {
    QSignalSpy finished(&model, &TableModel::loadFinishedSignal);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QByteArray const rows = QByteArray("1\n").repeated(1200000);
    load(rows, true);
    ASSERT_TRUE(finished.wait());
    EXPECT_EQ(model.rowCount(), 1200000);
    EXPECT_GE(inserted.count(), 3);

    load(rows, true);
    while (model.rowCount() < 500000)
        QCoreApplication::processEvents();
    EXPECT_EQ(finished.count(), 1);
    load("1\n2\n", true);
    ASSERT_TRUE(finished.wait());
    QCoreApplication::processEvents();
    EXPECT_EQ(finished.count(), 2);
    EXPECT_EQ(model.rowCount(), 2);
}

TEST_F(TableModelLoadingTest, AReloadGoesByWhatTheFileIsInNotByWhatTheNextSaveWouldWrite) {
    for (bool const plain : {false, true}) {
        SCOPED_TRACE(plain);
        load("a,b\n1,2\n");
        QString const path = model.getFilepath();
        model.setDelimiter(QStringLiteral(","), QStringLiteral(";"));
        model.setParsingStandard(ParsingStandard::DelimiterOnly);
        model.takeFileDialect(); // nothing is saved yet
        EXPECT_EQ(model.getDelimiter(), ",");
        EXPECT_EQ(model.getParsingStandard(), ParsingStandard::Rfc4180);

        model.setParsingStandard(ParsingStandard::AllQuotes);
        ASSERT_TRUE(plain ? model.saveCSV(false, false) : model.saveCSV(path, false, false));
        EXPECT_EQ(read(path), "\"a\";\"b\"\n\"1\";\"2\"\n");
        model.setParsingStandard(ParsingStandard::Rfc4180);
        model.takeFileDialect();
        EXPECT_EQ(model.getDelimiter(), ";");
        EXPECT_EQ(model.getParsingStandard(), ParsingStandard::AllQuotes);
    }
}
