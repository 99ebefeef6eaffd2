// Tables of which little or nothing is in sight, under every command.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/launcher/Launcher.h"
#include "app/launcher/PromptChain.h"
#include "view/MsgBox.h"
#include "view/TableView.h"

#include <QAbstractButton>
#include <QFile>
#include <QLineEdit>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

QByteArray const content = "a,b,c\n1,,3\n,,\n4,5,\n";

struct Sight {
    char const* name;
    QByteArray file;
    std::vector<int> hiddenRows;
    std::vector<int> hiddenCols;
    bool readOnly = false;
};

Sight const sights[] = {
    {"NoRow", content, {0, 1, 2, 3}, {}},
    {"NoColumn", content, {}, {0, 1, 2}},
    {"Nothing", content, {0, 1, 2, 3}, {0, 1, 2}},
    {"OneCell", content, {0, 2, 3}, {1, 2}},
    {"EmptyFile", "", {}, {}},
    {"LineBreaksOnly", "\n\n", {0, 1}, {}},
    {"NothingReadOnly", content, {0, 1, 2, 3}, {0, 1, 2}, true},
};

void PrintTo(Sight const& sight, std::ostream* out) {
    *out << sight.name;
}

/// These open dialogs of the desktop, further windows or other programs, or end the window.
QStringList const outside = {"Close All Files",         "Exit",        "New Window", "Open File",
                             "Open Preferences Folder", "Save File As"};

class LittleInSight : public testing::TestWithParam<Sight> {
protected:
    void SetUp() override {
        MsgBox::setAnswer([](MsgBox const& box) {
            for (QAbstractButton* const button : box.buttons()) {
                if (button->text() == "Do&n't Save")
                    return button;
            }
            return box.buttons().value(0);
        });
        path = directory.filePath("table.csv");
    }
    void TearDown() override { MsgBox::setAnswer({}); }

    /// The table as it is at the start. Opened anew only if it is not that any more, for the sake of time.
    void openWithLittleInSight() {
        if (table == nullptr || table != window.getActiveTable() || state() != before) {
            close();
            QFile file(path);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(GetParam().file);
            file.close();
            ASSERT_TRUE(window.openFile(path));
            table = window.getActiveTable();
        }
        table->setReadOnly(GetParam().readOnly);
        window.setActiveTable(table);
        model().setAndApplyHiddenRowsList(GetParam().hiddenRows);
        model().setAndApplyHiddenColsList(GetParam().hiddenCols);
        model().setSelection(Range(0, 0, RangeIndexType::Model));
        table->undoStack()->clear();
        before = state();
    }
    void close() {
        window.getActiveTable()->stopEditing();
        while (window.getPaneView()->getTables().size() > 1 || !window.getActiveTable()->getFilepath().isEmpty())
            window.closeFile(window.getActiveTable());
    }

    TableModel& model() { return *window.getActiveTable()->tableModel(); }

    /// All cells of the data, in sight or not, and what is hidden.
    QString state() {
        QStringList texts{QString::number(model().rowCountRaw()), QString::number(model().columnCountRaw())};
        TableData const& data = model().getTableData();
        for (int row = 0; row < model().rowCountRaw(); ++row) {
            texts << (data.isRowConcealed(row) ? "\n-" : "\n");
            for (int col = 0; col < model().columnCountRaw(); ++col)
                texts << (data.isColConcealed(col) ? "-" : "") + data.getValueRaw(row, col).toString();
        }
        return texts.join('|');
    }

    void expectASelection() {
        Range const& mainCell = model().getMainCell();
        EXPECT_GE(mainCell.row, 0);
        EXPECT_GE(mainCell.col, 0);
        EXPECT_FALSE(model().getSelection().empty());
        EXPECT_TRUE(model().getSelection().containsRange(mainCell));
    }

    void answerPrompts(char const* answer) {
        for (int i = 0; i < 5 && window.getPrompts()->isOpen(); ++i) {
            Launcher* const launcher = window.getPaneView()->getLauncher();
            if (answer != nullptr)
                launcher->setEditorText(answer);
            QTest::keyClick(launcher->getEditor(), answer == nullptr ? Qt::Key_Escape : Qt::Key_Return);
        }
        window.getPrompts()->close();
        if (Launcher* const launcher = window.getPaneView()->getLauncher())
            QTest::keyClick(launcher->getEditor(), Qt::Key_Escape);
    }

    /// Whether the command has asked anything.
    bool runAndTakeBack(QString const& command, char const* answer) {
        openWithLittleInSight();
        window.runCommand(command);
        bool const asked = window.getPaneView()->getLauncher() != nullptr;
        answerPrompts(answer);
        if (table == nullptr || window.getActiveTable() != table)
            return asked;
        expectASelection();
        table->stopEditing();
        expectASelection();
        QString const after = state();
        QUndoStack& stack = *table->undoStack();
        for (int round = 0; round < 2 && stack.count() > 0; ++round) {
            stack.setIndex(0);
            EXPECT_EQ(state().toStdString(), before.toStdString());
            expectASelection();
            stack.setIndex(stack.count());
            EXPECT_EQ(state().toStdString(), after.toStdString());
            expectASelection();
        }
        stack.setIndex(0);
        return asked;
    }

    QTemporaryDir directory;
    QString path;
    MainWindow window;
    QPointer<TableView> table;
    QString before;
};

TEST_P(LittleInSight, EveryCommandRunsAndIsTakenBack) {
    window.resize(900, 700);
    window.show();
    openWithLittleInSight();
    EXPECT_FALSE(window.grab().isNull());
    for (Command const& command : window.getCommands().sorted()) {
        if (outside.contains(command.name))
            continue;
        for (char const* const answer : {static_cast<char const*>(nullptr), "1", "x"}) {
            SCOPED_TRACE(command.name.toStdString() + " answered by " + (answer == nullptr ? "nothing" : answer));
            bool asked = false;
            ASSERT_NO_THROW(asked = runAndTakeBack(command.name, answer));
            if (!asked)
                break;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, LittleInSight, testing::ValuesIn(sights),
                         [](auto const& info) { return info.param.name; });

} // namespace
