// What the user is told and shown, in step with the tables whatever has happened to them.

#include "app/PreferenceWatcher.h"
#include "model/undo/DialectCommand.h"
#include "tests/app/TellingFixture.h"

#include <QLabel>
#include <QSignalSpy>

namespace {

class InStep : public TellingFixture {
protected:
    InStep() {
        window.resize(900, 600);
        window.show();
    }
    /// Runs a command and compares what the window tells then with what is so.
    void step(QString const& command, QStringList const& answers = {}) {
        SCOPED_TRACE(command.toStdString());
        run(command, answers);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !table()->isLoading(); }));
        EXPECT_EQ(told(), toBeTold());
    }
    /// The labels of the first columns or rows.
    QStringList labels(Qt::Orientation orientation) const {
        QStringList texts;
        for (int i = 0; i < 3; ++i)
            texts << model().headerData(i, orientation).toString();
        return texts;
    }
};

TEST_F(InStep, TheWindowTellsWhatIsSoOfTheTableInFrontWhateverTheUserTurnsTo) {
    open("h,i,j\n1,22,x\n\n3,4,\"long\ntext\"\n", "b.csv");
    EXPECT_EQ(told(), toBeTold());
    select("C1,1* R3,0");
    step("Hide Selected Row(s)");
    open("5,6\n7,8\n", "a.csv");
    EXPECT_EQ(told(), toBeTold());
    step("Select Entire Table");
    step("Switch to Tab on the Left");
    for (char const* const command :
         {"Undo", "Redo", "Show All Hidden Row(s)", "Undo", "Select Entire Column(s)", "Hide Selected Column(s)",
          "Remove All Filtered Out and Hidden Data", "Undo", "Redo", "Undo", "Transpose Table", "Undo", "Redo",
          "Go to Bottom", "Insert Row(s) After", "Insert Row(s) After", "Undo", "Undo", "Save File"})
        step(command);
    step("Go to Cell", {"2, 1"});
    box.next("Discard");
    change("changed");
    step("Reload File");
    step("Toggle Read-Only");
    step("Select All");
    step("Transpose Table");
    step("Toggle Read-Only");
    step("New File");
    step("Switch to Tab 1");
    step("Go to File", {"a.csv"});
    step("Close File");
    change("more");
    EXPECT_EQ(told(), toBeTold());
    box.next("Don't Save");
    step("Close File");
    step("Close All Files");
}

TEST_F(InStep, LinesThatAreInsertedBehindTheLastAreThereInTheFileToo) {
    for (auto const& [kind, file] : {std::pair("Row", "a,b\nc,d\n,\nx,\n,y\n"), {"Column", "a,b,,x,\nc,d,,,y\n"}}) {
        bool const rows = kind == std::string("Row");
        QString const insert = QString("Insert %1(s) After").arg(kind);
        open("a,b\nc,d\n");
        select(rows ? "C1,0" : "C0,1");
        step(insert);
        step(insert);
        step(insert);
        change("x", rows ? 3 : 0, rows ? 0 : 3);
        change("y", rows ? 4 : 1, rows ? 1 : 4);
        for (int i = 0; i < 5; ++i)
            step("Undo");
        EXPECT_EQ(shown(), "a b|c d");
        for (int i = 0; i < 5; ++i)
            step("Redo");
        step("Save File");
        EXPECT_EQ(read("a.csv"), file);
        std::string const saved = shown();
        step("Reload File");
        EXPECT_EQ(shown(), saved);
        step("Close File");
    }
}

TEST_F(InStep, ThePaneShowsTheTextWithoutTheLineBreaksThatASaveHasReplaced) {
    open("\"x\ny\",1\n");
    step("Toggle Show Editor Pane");
    table()->pushUndoCommand(new SetParsingStandardCommand(&model(), {}, ParsingStandard::DelimiterOnly, false));
    box.next("Replace");
    window.saveFile(table());
    prompts.choose("Replace line breaks with:", "Space");
    EXPECT_EQ(read("a.csv"), "x y,1\n");
    EXPECT_EQ(told(), toBeTold());
    step("Undo");
    EXPECT_EQ(window.getPaneView()->getEditorPane()->toPlainText(), "x\ny");
}

TEST_F(InStep, TheArrowsOfBothSortsAreThereAfterAnOutsideChangeWasRead) {
    QByteArray const content = "k,1,2\nb,y,x\na,z,w\n";
    open(content);
    table()->setNumberOfHeaderColumns(1, false);
    select("C1,1");
    run("Sort Selected Column - Descending");
    select("C1,0");
    run("Sort Selected Row - Ascending");
    EXPECT_EQ(shown(), "k 2 1|a w z|b x y");
    QStringList const columns{"0", "1", QStringLiteral("2 ") + QChar(0x2193)};
    QStringList const rows{"0", QStringLiteral("1 ") + QChar(0x2191), "2"};
    EXPECT_EQ(labels(Qt::Horizontal), columns);
    EXPECT_EQ(labels(Qt::Vertical), rows);
    table()->undoStack()->setClean();
    write("a.csv", content + "c,q,r\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return model().rowCountRaw() == 4 && !table()->undoStack()->isClean(); }));
    EXPECT_EQ(told(), toBeTold());
}

TEST_F(InStep, APressOnALabelOffersItsCommandsAndCtrlMinusGoesBackToTheQuestionBefore) {
    using Label = StatusBar::Label;
    open("1,2\n");
    for (auto const& [which, title] :
         {std::pair(Label::TableSize, "Table Dimensions Commands:"), std::pair(Label::Filters, "Filter Commands:"),
          std::pair(Label::Delimiter, "Delimiter Commands:"), std::pair(Label::Encoding, "Encoding Commands:"),
          std::pair(Label::LineEnding, "Line Ending Commands:"), std::pair(Label::Mode, "File Mode Commands:")}) {
        for (QLabel* const each : window.getStatusBar()->findChildren<QLabel*>()) {
            QMouseEvent press(QEvent::MouseButtonPress, QPointF(2, 2), each->mapToGlobal(QPointF(2, 2)), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            if (each->text() == label(which))
                QCoreApplication::sendEvent(each, &press);
        }
        prompts.leave(title);
    }
    window.runCommand("Set Parameters for File Save");
    QString const first = window.getPrompts()->currentTitle();
    prompts.press(Qt::Key_Return);
    QString const second = window.getPrompts()->currentTitle();
    EXPECT_NE(second, first);
    prompts.press(Qt::Key_Minus, Qt::ControlModifier);
    prompts.leave(first);
}

TEST_F(InStep, ASumThatIsUnderWayWhenFewCellsAreSelectedGivesWayToTheirs) {
    QString const path = open((QByteArray("2,").repeated(24) + "2\n").repeated(20000));
    auto const load = [](TableModel& into, QString const& file) {
        into.loadCSV(file, false, false, ",", ",", EncodingType::Utf8, ParsingStandard::Rfc4180);
        into.setSelection(modelCell(0, 0), rangesFrom("T0,0"));
    };
    TableModel few;
    TableModel asMany;
    load(few, write("few.csv", "1\n"));
    load(asMany, path);
    SelectionStatistics sumOfFew;
    SelectionStatistics sumOfMany;
    QSignalSpy fewDone(&sumOfFew, &SelectionStatistics::finishedSignal);
    QSignalSpy manyDone(&sumOfMany, &SelectionStatistics::finishedSignal);
    run("Select Entire Table");
    sumOfFew.start(&few); // has rested no longer than that of the window, which goes on when this one is done
    EXPECT_TRUE(fewDone.wait());
    select("C0,0");
    sumOfMany.start(&asMany);
    EXPECT_TRUE(manyDone.wait(60000));
    EXPECT_EQ(label(StatusBar::Label::Stats), "Sum: 2      Mean: 2");
}

TEST(PreferenceWatcher, TellsOfAFileThatIsMadeAnewLongAfterItWent) {
    TestFolder folder;
    QString const path = folder.write("settings.csv", "a\n");
    PreferenceWatcher watcher({path, folder.filePath("never.csv")});
    QSignalSpy told(&watcher, &PreferenceWatcher::preferenceChangedSignal);
    QFile::remove(path);
    EXPECT_TRUE(told.wait()) << "the burst of the deletion is over";
    for (QByteArray const content : {"b\n", "longer\n"}) { // it is watched again, too
        told.clear();
        folder.write("settings.csv", content);
        EXPECT_TRUE(told.wait());
        EXPECT_EQ(told.value(0), QVariantList{path});
    }
    folder.write("never.csv", "new\n");
    EXPECT_TRUE(told.wait());
    EXPECT_EQ(told.last(), QVariantList{folder.filePath("never.csv")});
}

} // namespace
