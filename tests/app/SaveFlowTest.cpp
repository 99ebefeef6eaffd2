#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "core/Range.h"
#include "model/undo/DialectCommand.h"
#include "model/undo/SetModelDataCommand.h"
#include "tests/support/MsgBoxAnswers.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct ShortWaits {
    ShortWaits() { MainWindow::setWatchTimings({20, 80, 30}); }
};

class SaveFlowTest : public testing::Test {
protected:
    QString write(QString const& name, QByteArray const& bytes) const {
        QString const path = directory.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }
    QByteArray read(QString const& name) const {
        QFile file(directory.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }
    TableView* table() const { return window.getActiveTable(); }
    QString cell(int row, int col) const {
        TableModel const& model = *table()->tableModel();
        return model.data(model.index(row, col)).toString();
    }
    void change(QString const& text) const {
        RangeVector cells{Range(0, 0, RangeIndexType::Model)};
        cells[0].value = text;
        table()->pushUndoCommand(new SetModelDataCommand(table()->tableModel(), cells, true));
    }
    QString openWithLineBreaks() {
        QString const path = write("a.csv", "\"x\r\ny\",1\n\"p\nq\",2\n");
        window.openFile(path);
        table()->pushUndoCommand(
            new SetParsingStandardCommand(table()->tableModel(), {}, ParsingStandard::DelimiterOnly, false));
        return path;
    }

    ShortWaits shortWaits;
    QTemporaryDir directory;
    MainWindow window;
    MsgBoxAnswers box;
};

} // namespace

TEST_F(SaveFlowTest, AnOwnSaveIsQuietAndOutsideWritesAndReplacementsAreReadAgain) {
    QString const path = write("a.csv", "1\n");
    window.openFile(path);
    change("2");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_TRUE(table()->undoStack()->isClean());
    EXPECT_EQ(read("a.csv"), "2\n");
    write("a.csv", "three\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "three"; }));
    QString const other = write("b.csv", "fourth\n");
    ASSERT_EQ(::rename(QFile::encodeName(other), QFile::encodeName(path)), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "fourth"; }));
    write("a.csv", "five of it\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "five of it"; }));
}

TEST_F(SaveFlowTest, OutsideChangesUnderEditsAskAndAFileThatGoesClosesItsTable) {
    QString const path = write("a.csv", "1\n");
    window.openFile(path);
    change("mine");
    box.next("Ignore");
    write("a.csv", "theirs\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.texts().size() == 1; }));
    EXPECT_EQ(box.texts().value(0), "This file has been changed externally, but you have unsaved changes.\n\nWould you "
                                    "like to reload the file or ignore the external changes?");
    EXPECT_EQ(cell(0, 0), "mine");
    box.next("Reload");
    write("a.csv", "theirs again\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "theirs again"; }));
    EXPECT_TRUE(table()->undoStack()->isClean());
    QFile::remove(path);
    EXPECT_TRUE(QTest::qWaitFor([&] { return table()->getFilepath().isEmpty(); }));
}

TEST_F(SaveFlowTest, ASaveAsDelimiterOnlyRemovesLineBreaksOrIsCancelled) {
    QString const path = openWithLineBreaks();
    QByteArray const before = read("a.csv");
    box.next("Cancel");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_EQ(read("a.csv"), before);
    EXPECT_TRUE(box.texts().value(0).contains("2 cells contain line breaks."));
    box.next("Remove");
    window.saveFile(table());
    EXPECT_EQ(read("a.csv"), "xy,1\npq,2\n");
    table()->undo();
    EXPECT_EQ(cell(0, 0), "x\r\ny");
}

TEST_F(SaveFlowTest, ASaveUnderAnotherNameTakesItsDialectAndACopyOfTheVisibleLeavesTheTable) {
    window.openFile(write("a.csv", "1,2\n3,4\n"));
    TableView* const first = table();
    EXPECT_TRUE(window.saveFileUnder(first, directory.filePath("b.tsv"), false));
    EXPECT_EQ(read("b.tsv"), "1\t2\n3\t4\n");
    EXPECT_EQ(window.windowTitle(), "b.tsv - Gridwright");
    first->tableModel()->getTableData().concealRawRow(0);
    EXPECT_TRUE(window.saveFileUnder(first, directory.filePath("c.csv"), true));
    EXPECT_EQ(read("c.csv"), "3,4\n");
    EXPECT_EQ(first->getFilepath(), directory.filePath("b.tsv"));
    EXPECT_EQ(first->tableModel()->getSaveDelimiter(), "\t");
    EXPECT_EQ(table()->getFilepath(), directory.filePath("c.csv"));
}
