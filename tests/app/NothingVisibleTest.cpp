// Tables of which little or nothing is in sight, under every command.

#include "app/launcher/Launcher.h"
#include "tests/app/WindowFixture.h"
#include "view/FileDialog.h"

#include <QAbstractButton>
#include <QPointer>

namespace {

constexpr int patience = 20000; ///< milliseconds

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

/// These end the window or open another program.
QStringList const outside = {"Exit", "Open Preference File Folder"};

class LittleInSight : public WindowFixture, public testing::WithParamInterface<Sight> {
protected:
    LittleInSight() : path(directory.filePath("table.csv")) {
        MsgBox::setAnswer([](MsgBox const& box) {
            for (QAbstractButton* const button : box.buttons()) {
                if (button->text() == "Do&n't Save")
                    return button;
            }
            return box.buttons().value(0);
        });
        FileDialog::setAnswer([this](QString const&) { return QStringList{directory.filePath("other.csv")}; });
        window.resize(900, 700);
        window.show();
    }
    ~LittleInSight() override {
        MsgBox::setAnswer({});
        FileDialog::setAnswer({});
    }

    /// The table as it is at the start. Opened anew only if it is not that any more.
    void openWithLittleInSight() {
        if (table == nullptr || table != window.getActiveTable() || table->getFilepath() != path || state() != before) {
            closeAll();
            open(GetParam().file, path);
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
    void closeAll() {
        window.getActiveTable()->stopEditing();
        while (window.getPaneView()->getTables().size() > 1 || !window.getActiveTable()->getFilepath().isEmpty())
            window.closeFile(window.getActiveTable());
    }

    TableModel& model() const { return *table->tableModel(); }

    /// All cells of the data, in sight or not, what is hidden, and what a save writes beside the cells.
    QString state() const {
        QStringList texts{QString::number(model().rowCountRaw()),
                          QString::number(model().columnCountRaw()),
                          model().getSaveDelimiter(),
                          QString::number(int(model().getLineEnding())),
                          QString::number(int(model().getEncoding())),
                          QString::number(int(model().getParsingStandard()))};
        TableData const& data = model().getTableData();
        for (int row = 0; row < model().rowCountRaw(); ++row) {
            texts << (data.isRowConcealed(row) ? "\n-" : "\n");
            for (int col = 0; col < model().columnCountRaw(); ++col)
                texts << (data.isColConcealed(col) ? "-" : "") + data.getValueRaw(row, col).toString();
        }
        return texts.join('|');
    }

    void expectASelection() const {
        Range const& mainCell = model().getMainCell();
        EXPECT_GE(mainCell.row, 0);
        EXPECT_GE(mainCell.col, 0);
        EXPECT_FALSE(model().getSelection().empty());
        EXPECT_TRUE(model().getSelection().containsRange(mainCell));
    }

    /// Gives every question the same answer, none to leave it. False if nothing was asked.
    bool answerPrompts(char const* answer) {
        bool const asked = window.getPaneView()->getLauncher() != nullptr;
        for (int i = 0; i < 5 && window.getPrompts()->isOpen(); ++i) {
            Launcher* const launcher = window.getPaneView()->getLauncher();
            if (answer != nullptr)
                launcher->setEditorText(answer);
            QTest::keyClick(launcher->getEditor(), answer == nullptr ? Qt::Key_Escape : Qt::Key_Return);
        }
        window.closeLauncher();
        return asked;
    }

    /// Undo and redo of all that happened to the table give what was and what became; the file gets its first bytes.
    void expectTakenBack() {
        ASSERT_TRUE(QTest::qWaitFor([&] { return !table || !table->isLoading(); }, patience));
        if (table == nullptr || window.getActiveTable() != table || table->getFilepath() != path)
            return;
        expectASelection();
        table->stopEditing();
        expectASelection();
        QString const after = state();
        QUndoStack& stack = *table->undoStack();
        if (stack.count() == 0)
            return;
        for (int const end : {0, stack.count(), 0}) {
            stack.setIndex(end);
            EXPECT_EQ(state().toStdString(), (end == 0 ? before : after).toStdString());
            expectASelection();
        }
        expectSaved();
    }
    void expectSaved() {
        if (!GetParam().readOnly) {
            EXPECT_TRUE(window.saveFile(table));
        }
        EXPECT_EQ(read(path), GetParam().file);
    }

    QString path;
    QPointer<TableView> table;
    QString before;
};

TEST_P(LittleInSight, EveryCommandRunsAndIsTakenBack) {
    openWithLittleInSight();
    EXPECT_FALSE(window.grab().isNull());
    expectSaved();
    for (Command const& command : window.getCommands().sorted()) {
        if (outside.contains(command.name))
            continue;
        for (char const* const answer : {static_cast<char const*>(nullptr), "1", "x"}) {
            SCOPED_TRACE(command.name.toStdString() + " answered by " + (answer == nullptr ? "nothing" : answer));
            openWithLittleInSight();
            bool asked = false;
            ASSERT_NO_THROW({
                window.runCommand(command.name);
                asked = answerPrompts(answer);
                expectTakenBack();
            });
            if (command.name.startsWith("Toggle"))
                window.runCommand(command.name);
            if (!asked)
                break;
        }
    }
}

TEST_P(LittleInSight, KeysAndTheMouseAreTakenBackToo) {
    for (Qt::Key const key : {Qt::Key_Tab, Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Delete, Qt::Key_Home, Qt::Key_End,
                              Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_F2}) {
        for (Qt::KeyboardModifiers const held : {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier}) {
            SCOPED_TRACE(testing::Message() << std::hex << key << " with " << int(held));
            openWithLittleInSight();
            ASSERT_NO_THROW({
                QTest::keyClick(table, key, held);
                QTest::keyClick(table, Qt::Key_X, {});
                QTest::mouseClick(table->viewport(), Qt::LeftButton, held);
                QTest::keyClick(table, key, held);
                expectTakenBack();
            });
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, LittleInSight, testing::ValuesIn(sights),
                         [](auto const& info) { return info.param.name; });

} // namespace
